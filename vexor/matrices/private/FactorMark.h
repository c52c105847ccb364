#pragma once
#include <vexor/foundation/private/Checksum.h>

// Checked builds use this to detect whether a 3×3 matrix still holds its factors. A row number takes two bits
// of its byte. The other six bits are 0 in a plain row order; a mark sets one of them and stores a part of a
// checksum of the nine elements in five. So the matrix needs no further field, and its layout is the same in
// every build. Other builds use the plain row order, at no cost.

namespace vexor::detail {

#if defined(VEXOR_CHECKED)

/// The six bits for each of the three row numbers, which go above them.
inline std::uint32_t FactorMark(double const* elements)
{
    return static_cast<std::uint32_t>(Checksum(elements, 9) >> 46) | 0x1041U;
}

/// Marks a new row order as that of the factors in the elements.
inline void MarkAsFactors(double const* elements, unsigned char* rowOrder)
{
    std::uint32_t const mark = FactorMark(elements);
    for (int i = 0; i < 3; ++i)
        rowOrder[i] = static_cast<unsigned char>(rowOrder[i] | (((mark >> (6 * i)) & 63U) << 2U));
}

/// Whether the row order is marked and its mark fits the factors in the elements.
inline bool AreMarkedFactors(double const* elements, unsigned char const* rowOrder)
{
    std::uint32_t const mark = FactorMark(elements);
    unsigned int seen = 0;
    for (int i = 0; i < 3; ++i) {
        if (static_cast<unsigned int>(rowOrder[i] >> 2) != ((mark >> (6 * i)) & 63U))
            return false;
        seen |= 1U << (rowOrder[i] & 3);
    }
    return seen == 7;
}

/// The row order without the mark, written to `room`.
inline unsigned char* PlainRowOrder(unsigned char const* rowOrder, unsigned char (&room)[3])
{
    for (int i = 0; i < 3; ++i)
        room[i] = rowOrder[i] & 3;
    return room;
}

#else

inline void MarkAsFactors(double const*, unsigned char*) {}

inline unsigned char* PlainRowOrder(unsigned char* rowOrder, unsigned char (&)[3])
{
    return rowOrder;
}

#endif

} // namespace vexor::detail
