#include "oracle/Outcome.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace oracle {

double Outcome::Word::Number() const
{
    double value = 0.0;
    if (kind == 'd') {
        std::memcpy(&value, &bits, sizeof value);
    } else if (kind == 'f') {
        std::uint32_t const low = static_cast<std::uint32_t>(bits);
        float narrow;
        std::memcpy(&narrow, &low, sizeof narrow);
        value = static_cast<double>(narrow);
    }
    return value;
}

bool Outcome::IsFinite() const
{
    return std::all_of(words.begin(), words.end(),
                       [](Word const& word) { return std::isfinite(word.Number()); });
}

bool Outcome::IsOrdinary() const
{
    return std::all_of(words.begin(), words.end(), [](Word const& word) {
        double const size = std::fabs(word.Number());
        double const most = word.kind == 'f' ? 1e6 : 1e20;
        return size == 0.0 || (size >= 1.0 / most && size <= most);
    });
}

std::string Outcome::Text() const
{
    static char const* const names[] = {
        "", "Singular ", "DimensionMismatch ", "AllocationFailed ", "ComputationFailed ", "NullVector "};
    std::string text = names[static_cast<int>(raise)];
    char buffer[64];
    for (Word const& word : words) {
        if (word.kind == 'd') {
            std::snprintf(buffer, sizeof buffer, "%a ", word.Number());
        } else if (word.kind == 'f') {
            std::snprintf(buffer, sizeof buffer, "%af ", word.Number());
        } else {
            std::snprintf(buffer, sizeof buffer, "%lld ", static_cast<long long>(word.bits));
        }
        text += buffer;
    }
    return text;
}

} // namespace oracle
