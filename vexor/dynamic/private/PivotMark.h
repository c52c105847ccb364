#pragma once
#include <vexor/foundation/private/Checksum.h>

// Checked builds use this to detect which factorisation a pivot array belongs to and whether the factors have
// changed. Three more integers follow the pivots: the kind, and a checksum of the factors in two halves. A
// copy of the matrix copies them with the pivots. Other builds store only the pivots.

namespace vexor::detail {

enum class Factors : int { General = 1, Symmetric = 2 };

/// The length of the pivot array of a matrix with that many rows.
inline std::int64_t PivotArrayLength(int rowCount)
{
#if defined(VEXOR_CHECKED)
    return static_cast<std::int64_t>(rowCount) + 3;
#else
    return rowCount;
#endif
}

#if defined(VEXOR_CHECKED)

/// The checksum of the elements that the re-solve reads: of a symmetric matrix only the upper triangle.
inline std::uint64_t FactorChecksum(double* const* columns, int size, Factors kind)
{
    std::uint64_t sum = 0;
    for (int j = 0; j < size; ++j)
        sum = Checksum(columns[j], kind == Factors::General ? size : j + 1, sum);
    return sum;
}

inline void MarkPivots(int* pivots, double* const* columns, int size, Factors kind)
{
    std::uint64_t const sum = FactorChecksum(columns, size, kind);
    static_assert(sizeof(int) * 2 == sizeof sum, "two integers hold the checksum");
    pivots[size] = static_cast<int>(kind);
    std::memcpy(pivots + size + 1, &sum, sizeof sum);
}

inline bool AreMarkedPivots(int const* pivots, int size, Factors kind)
{
    return pivots[size] == static_cast<int>(kind);
}

inline bool AreMarkedFactors(int const* pivots, double* const* columns, int size, Factors kind)
{
    std::uint64_t const sum = FactorChecksum(columns, size, kind);
    return std::memcmp(pivots + size + 1, &sum, sizeof sum) == 0;
}

#else

inline void MarkPivots(int*, double* const*, int, Factors) {}

#endif

} // namespace vexor::detail
