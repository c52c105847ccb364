#include "common/TextFile.h"

#include "common/InputError.h"
#include "common/InputFile.h"
#include "common/Text.h"

#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

namespace examples {

bool ParseNumber(std::string const& text, double& number)
{
    char const* first = text.data();
    char const* const last = first + text.size();
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        ++first;
    auto const [end, error] = std::from_chars(first, last, number);
    return error == std::errc() && end == last && std::isfinite(number);
}

TextFile::TextFile(std::string filePath) : path(std::move(filePath)), stream(ReadInputFile(path)) {}

bool TextFile::NextLine()
{
    std::string line;
    while (std::getline(stream, line)) {
        ++lineNumber;
        line = line.substr(0, line.find('#'));
        RequireText(line);
        std::istringstream words(line);
        fields.clear();
        for (std::string word; words >> word;)
            fields.push_back(word);
        if (!fields.empty())
            return true;
    }
    return false;
}

void TextFile::RequireText(std::string const& line) const
{
    for (std::size_t i = 0; i < line.size();) {
        bool const isAllowed =
            line[i] == '\t' || line[i] == '\r' || (!isUtf8 && static_cast<unsigned char>(line[i]) >= 0xa0);
        std::size_t const length = isAllowed ? 1 : CharacterLength(line, i);
        if (length == 0)
            Fail("byte " + std::to_string(i + 1) + " of the line is a control character or not UTF-8 text: '"
                 + line + "'");
        i += length;
    }
}

std::string const& TextFile::Field(std::size_t index) const
{
    if (index >= fields.size())
        Fail("expected at least " + std::to_string(index + 1) + " fields, found "
             + std::to_string(fields.size()));
    return fields[index];
}

double TextFile::Number(std::size_t index) const
{
    double number = 0.0;
    if (!ParseNumber(Field(index), number))
        Fail("'" + Field(index) + "' is not a finite number");
    return number;
}

void TextFile::Fail(std::string const& what) const
{
    throw InputError(path, lineNumber, what);
}

} // namespace examples
