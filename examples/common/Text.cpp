#include "common/Text.h"

#include <cstdio>

namespace examples {

namespace {

unsigned Byte(std::string const& text, std::size_t index)
{
    return static_cast<unsigned char>(text[index]);
}

bool IsAllowed(unsigned long character)
{
    bool const isControl = character < 0x20 || (character >= 0x7f && character < 0xa0);
    bool const isSurrogate = character >= 0xd800 && character < 0xe000;
    return !isControl && !isSurrogate && character <= 0x10ffff && (character & 0xfffe) != 0xfffe;
}

} // namespace

std::size_t CharacterLength(std::string const& text, std::size_t index)
{
    // For each length of a character: the leading bits of its first byte, and its smallest code, which
    // excludes longer spellings of the same code.
    struct Form {
        unsigned mask, lead;
        unsigned long smallest;
    };
    static constexpr Form forms[] = {
        {0x80, 0x00, 0}, {0xe0, 0xc0, 0x80}, {0xf0, 0xe0, 0x800}, {0xf8, 0xf0, 0x10000}};

    std::size_t length = 1;
    for (Form const& form : forms) {
        if ((Byte(text, index) & form.mask) == form.lead && length <= text.size() - index) {
            unsigned long character = Byte(text, index) & ~form.mask & 0xff;
            for (std::size_t i = 1; i < length; ++i) {
                if ((Byte(text, index + i) & 0xc0) != 0x80)
                    return 0;
                character = character << 6 | (Byte(text, index + i) & 0x3f);
            }
            return character >= form.smallest && IsAllowed(character) ? length : 0;
        }
        ++length;
    }
    return 0;
}

std::string Printable(std::string const& text)
{
    std::string printable;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t const length = CharacterLength(text, i);
        if (length > 0) {
            printable.append(text, i, length);
            i += length;
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02x", Byte(text, i));
            printable += code;
            ++i;
        }
    }
    return printable;
}

std::string EscapedForXml(std::string const& text)
{
    std::string escaped;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t const length = CharacterLength(text, i);
        if (length == 0)
            escaped += "\xef\xbf\xbd"; // U+FFFD, the replacement for characters that cannot be shown
        else if (text[i] == '&')
            escaped += "&amp;";
        else if (text[i] == '<')
            escaped += "&lt;";
        else if (text[i] == '>')
            escaped += "&gt;";
        else
            escaped.append(text, i, length);
        i += length > 0 ? length : 1;
    }
    return escaped;
}

} // namespace examples
