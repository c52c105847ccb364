#include "common/OutputFile.h"

#include "common/InputError.h"

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace examples {

OutputFile::OutputFile(std::string filePath) : path(std::move(filePath))
{
    std::error_code error;
    std::filesystem::file_status const status = std::filesystem::status(path, error);
    if (std::filesystem::is_directory(status))
        throw InputError(path + ": is a directory");
    if (!std::filesystem::exists(status) || std::filesystem::is_regular_file(status))
        partPath = path + ".part";
    stream.open(partPath.empty() ? path : partPath, std::ios::binary);
    if (!stream)
        throw InputError(path + ": cannot be written");
}

OutputFile::~OutputFile()
{
    stream.close();
    if (!partPath.empty())
        std::remove(partPath.c_str());
}

void OutputFile::Finish()
{
    stream.close();
    if (!stream)
        throw InputError(path + ": cannot be written");
    if (partPath.empty())
        return;
    std::error_code error;
    std::filesystem::rename(partPath, path, error);
    if (error)
        throw InputError(path + ": cannot be written");
    partPath.clear();
}

} // namespace examples
