#include "oracle/Outcome.h"

#include <cstdio>

namespace oracle {

std::string Outcome::Text() const
{
    static char const* const names[] = {
        "", "Singular ", "DimensionMismatch ", "AllocationFailed ", "ComputationFailed ", "NullVector "};
    std::string text = names[static_cast<int>(raise)];
    char buffer[64];
    for (Word const& word : words) {
        if (word.kind == 'd') {
            double value;
            std::memcpy(&value, &word.bits, sizeof value);
            std::snprintf(buffer, sizeof buffer, "%a ", value);
        } else if (word.kind == 'f') {
            std::uint32_t const bits = static_cast<std::uint32_t>(word.bits);
            float value;
            std::memcpy(&value, &bits, sizeof value);
            std::snprintf(buffer, sizeof buffer, "%af ", static_cast<double>(value));
        } else {
            std::snprintf(buffer, sizeof buffer, "%lld ", static_cast<long long>(word.bits));
        }
        text += buffer;
    }
    return text;
}

} // namespace oracle
