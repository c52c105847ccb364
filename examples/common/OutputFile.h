#pragma once
#include <fstream>
#include <string>

namespace examples {

/// A file in the making. It is written under another name, path + ".part", and takes its own only when it is whole,
/// so that a failure leaves no half-written file and an older one untouched. A path that names something else than a
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

    /// Everything is written: gives the file its name. Raises InputError if it could not be written as a whole.
    void Finish();

private:
    std::string path;
    std::string partPath; // empty if the path is written directly, and after Finish
    std::ofstream stream;
};

} // namespace examples
