#include "common/InputFile.h"

#include "common/InputError.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace examples {

namespace {

bool BeginsWith(std::string const& text, char const* prefix)
{
    return text.rfind(prefix, 0) == 0;
}

} // namespace

std::istringstream ReadInputFile(std::string const& path)
{
    std::error_code unknown; // whatever it is, opening the file fails as well
    if (std::filesystem::is_directory(path, unknown))
        throw InputError(path + ": is a directory");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw InputError(path + ": cannot be opened");
    std::ostringstream bytes;
    if (file.peek() != std::ifstream::traits_type::eof())
        bytes << file.rdbuf();
    if (file.bad() || !bytes)
        throw InputError(path + ": cannot be read");

    std::string const text = bytes.str();
    if (text.empty())
        throw InputError(path + ": is empty");
    if (BeginsWith(text, "\xef\xbb\xbf"))
        throw InputError(path + ": begins with a byte order mark: save it as UTF-8 without one");
    if (BeginsWith(text, "\xff\xfe") || BeginsWith(text, "\xfe\xff"))
        throw InputError(path + ": begins with the byte order mark of UTF-16: save it as UTF-8");
    return std::istringstream(text);
}

} // namespace examples
