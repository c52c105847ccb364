#pragma once
#include <cstddef>
#include <initializer_list>
#include <istream>
#include <string>
#include <vector>

namespace examples {

/// Reads the vertices of a PLY file one by one: text, or binary of either byte order. The vertices must be
/// the first element, and none of their properties a list. Raises InputError, which names the line, or in
/// binary data the byte and the point, for anything else. A property that is declared float has the value of
/// the nearest float, so a cloud has the same bits as text and as binary.
class PlyReader {
public:
    /// Reads the header. `fileName` appears in the errors.
    PlyReader(std::istream& plyStream, std::string fileName);

    std::size_t VertexCount() const { return vertexCount; }
    bool IsBinary() const { return format != Format::text; }
    /// The bytes of a binary vertex.
    std::size_t RecordSize() const { return recordSize; }
    /// The bytes of the header.
    std::size_t HeaderSize() const { return headerSize; }

    /// The position of the property that has one of the names, −1 if there is none.
    int IndexOf(std::initializer_list<char const*> names) const;
    /// The same, but raises InputError if there is none.
    int RequiredIndexOf(char const* name) const;
    /// Reads the next vertex: the values of its properties in the order of the header, all finite.
    void Next(std::vector<double>& values);
    /// Raises an InputError about the last vertex read.
    [[noreturn]] void FailAtLastVertex(std::string const& what) const;

    /// The values of a binary vertex, finite or not.
    void Decode(char const* record, std::vector<double>& values) const;

    /// Whether the first line of a file says that it is a PLY file.
    static bool IsMagic(std::string const& line);

private:
    enum class Format { none, text, littleEndian, bigEndian };
    enum class Kind { whole, real };
    struct Scalar {
        char const* name;
        Kind kind;
        std::size_t size;
        bool isSigned;
    };
    struct Property {
        std::string name;
        Scalar const* type;
    };
    using Words = std::vector<std::string>;
    static Scalar const scalars[16];

    [[noreturn]] void FailAtLine(std::string const& what) const;
    [[noreturn]] void FailAtVertex(std::size_t index, std::string const& what) const;
    Words NextWords();
    void ReadHeader();
    void ReadFormat(Words const& words);
    void ReadElement(Words const& words);
    void ReadProperty(Words const& words);
    double NumberOf(std::string const& word, Property const& property) const;
    double DecodeScalar(char const* bytes, Scalar const& type) const;

    std::istream& stream;
    std::string name;
    int lineNumber = 0;
    bool isHeaderRead = false;
    std::size_t headerSize = 0;
    std::size_t verticesRead = 0;
    int elementCount = 0;
    bool isInVertex = false;
    Format format = Format::none;
    std::size_t vertexCount = 0;
    std::size_t recordSize = 0;
    std::vector<Property> properties;
    std::string record;
};

} // namespace examples
