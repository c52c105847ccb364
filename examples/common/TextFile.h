#pragma once
#include <sstream>
#include <string>
#include <vector>

namespace examples {

/// The finite number that `text` spells, whatever the locale. False if it spells anything else.
bool ParseNumber(std::string const& text, double& number);

/// A text file read line by line, each line split into fields at blanks. Empty lines are skipped, and all
/// that follows a `#`. The rest of a line must be UTF-8 text without control characters other than tabs and a
/// carriage return. Every complaint names the file and the line.
class TextFile {
public:
    explicit TextFile(std::string path);

    /// Advances to the next line that has a field. False at the end of the file.
    bool NextLine();

    /// The fields of the line, at least one.
    std::vector<std::string> const& Fields() const { return fields; }
    std::string const& Field(std::size_t index) const;
    double Number(std::size_t index) const;

    /// The following lines have an encoding of one byte a character, such as ISO 8859: only control
    /// characters among their bytes are refused.
    void AcceptOneByteEncoding() { isUtf8 = false; }

    std::string const& Path() const { return path; }
    int LineNumber() const { return lineNumber; }

    /// Raises an InputError about the line.
    [[noreturn]] void Fail(std::string const& what) const;

private:
    void RequireText(std::string const& line) const;

    std::string path;
    std::istringstream stream;
    int lineNumber = 0;
    bool isUtf8 = true;
    std::vector<std::string> fields;
};

} // namespace examples
