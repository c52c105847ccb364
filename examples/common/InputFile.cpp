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

std::ifstream Open(std::string const& path)
{
    std::error_code unknown; // for any other error, opening the file fails too
    if (std::filesystem::is_directory(path, unknown))
        throw InputError(path + ": is a directory");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw InputError(path + ": cannot be opened");
    return file;
}

void CheckBeginning(std::string const& text, std::string const& path)
{
    if (text.empty())
        throw InputError(path + ": is empty");
    if (BeginsWith(text, "\xef\xbb\xbf"))
        throw InputError(path + ": begins with a byte order mark: save it as UTF-8 without one");
    if (BeginsWith(text, "\xff\xfe") || BeginsWith(text, "\xfe\xff"))
        throw InputError(path + ": begins with the byte order mark of UTF-16: save it as UTF-8");
}

} // namespace

std::istringstream ReadInputFile(std::string const& path)
{
    std::ifstream file = Open(path);
    std::ostringstream bytes;
    if (file.peek() != std::ifstream::traits_type::eof())
        bytes << file.rdbuf();
    if (file.bad() || !bytes)
        throw InputError(path + ": cannot be read");
    CheckBeginning(bytes.str(), path);
    return std::istringstream(bytes.str());
}

std::ifstream OpenInputFile(std::string const& path)
{
    std::ifstream file = Open(path);
    char beginning[3] = {};
    file.read(beginning, sizeof beginning);
    CheckBeginning(std::string(beginning, static_cast<std::size_t>(file.gcount())), path);
    file.clear();
    if (!file.seekg(0))
        throw InputError(path + ": cannot be read from its beginning a second time");
    return file;
}

} // namespace examples
