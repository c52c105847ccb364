#pragma once
#include <vexor/foundation/Config.h>

VEXOR_EXACT_BEGIN

namespace vexor::detail {

/// Two doubles that are added and multiplied at once. Each is rounded separately, so the bits are those of
/// plain doubles. Build a pair from two scalars; loading 16 bytes at once stalls if the halves were just
/// stored separately (failed store forwarding).
#if defined(__GNUC__) && (defined(__SSE2__) || defined(__aarch64__))
using Pair = double __attribute__((vector_size(16)));
#else
struct Pair {
    double values[2];

    double operator[](int index) const { return values[index]; }
};

inline Pair operator+(Pair left, Pair right)
{
    return Pair{{left[0] + right[0], left[1] + right[1]}};
}

inline Pair operator*(Pair left, Pair right)
{
    return Pair{{left[0] * right[0], left[1] * right[1]}};
}
#endif

/// (a₀ + a₁, b₀ + b₁).
inline Pair HorizontalSums(Pair a, Pair b)
{
    return Pair{a[0], b[0]} + Pair{a[1], b[1]};
}

} // namespace vexor::detail

VEXOR_EXACT_END
