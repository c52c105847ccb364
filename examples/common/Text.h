#pragma once
#include <cstddef>
#include <string>

namespace examples {

/// The number of bytes of the UTF-8 character that begins at `index`. 0 if no character begins there, or if
/// it is a control character or another one that XML does not allow.
std::size_t CharacterLength(std::string const& text, std::size_t index);

/// The text for a terminal: each byte that belongs to no printable character becomes `\xNN`.
std::string Printable(std::string const& text);

/// The text as the content of an XML element. Each byte that XML does not allow becomes U+FFFD.
std::string EscapedForXml(std::string const& text);

} // namespace examples
