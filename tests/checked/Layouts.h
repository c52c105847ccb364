#pragma once
#include <cstddef>
#include <string>
#include <vector>

struct Layout {
    std::string name;
    std::size_t size;
    std::size_t alignment;
    /// A class derived from it with one more byte: shows where the last field ends.
    std::size_t extendedSize[8];
    /// The offsets of its public fields.
    std::vector<std::size_t> offsets;
};

/// The layouts of the classes in the code compiled without and with VEXOR_CHECKED.
std::vector<Layout> PlainLayouts();
std::vector<Layout> CheckedLayouts();
