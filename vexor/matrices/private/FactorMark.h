#pragma once
#include <vexor/foundation/private/Checksum.h>

// How checked builds know the factors of a 3×3 matrix again. A row number takes two bits of its byte; of
// the six above, which are 0 in a plain row order, one is set and five hold a part of a checksum of the nine
// elements. So the matrix needs no further field, and its layout is the same in every build. Other builds
// leave the row order plain and pay nothing.

namespace vexor::detail {

#if defined(VEXOR_CHECKED)

/// The six bits each that go above the three row numbers.
inline std::uint32_t FactorMark(double const* elements)
{
    return static_cast<std::uint32_t>(Checksum(elements, 9) >> 46) | 0x1041U;
}

/// Marks a fresh row order as that of the factors in the elements.
inline void MarkAsFactors(double const* elements, unsigned char* rowOrder)
{
    std::uint32_t const mark = FactorMark(elements);
    for (int i = 0; i < 3; ++i)
        rowOrder[i] = static_cast<unsigned char>(rowOrder[i] | (((mark >> (6 * i)) & 63U) << 2U));
}

/// Whether the row order belongs to factors, and these are the ones in the elements.
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

/// The row order without the mark, in the room given for it.
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
