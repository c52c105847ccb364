#pragma once
#include <fstream>
#include <string>

namespace examples {

/// A file that is being written. It has another name, path + ".part", until it is complete, so a failure
/// leaves no half-written file and does not change an older one. A path that names something other than a
/// file, such as a pipe, is written directly.
class OutputFile {
public:
    /// Raises InputError if the file cannot be written.
    explicit OutputFile(std::string filePath);
    OutputFile(OutputFile const&) = delete;
    OutputFile& operator=(OutputFile const&) = delete;
    ~OutputFile();

    std::ostream& Stream() { return stream; }
    std::string const& Path() const { return path; }

    /// Call it after everything is written: renames the file. Raises InputError if it could not be written
    /// completely.
    void Finish();

private:
    std::string path;
    std::string partPath; // empty if the path is written directly, and after Finish
    std::ofstream stream;
};

} // namespace examples
