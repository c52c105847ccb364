#pragma once
#include <vexor/arrays/detail/Functions.h>

// Arrays of Mat3Dbl. Unlike the members, these functions leave the matrices unchanged and write their results
// to a separate array, or over the matrices if that is the same array; the row order that a member keeps for
// `ReSolve` is not written. Products are in Maps.h. The forms, with and without a count, are those of
// Vectors.h.

namespace vexor::arrays {

/// results[i] = matrices[i].GetInvertedCopy(). Raises `VexorSingular` at the first singular matrix.
template <class Matrices, class Results, class... Count>
void Invert(Matrices const& matrices, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(matrices, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    detail::CheckOperands(c, a);
    detail::Invert(a.data, c.data, c.count);
}

/// results[i] is the solution that `Solve(rightSides[i])` computes on a copy of matrices[i]. Raises
/// `VexorSingular` at the first singular matrix.
template <class Matrices, class RightSides, class Results, class... Count>
void Solve(Matrices const& matrices, RightSides const& rightSides, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(matrices, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(rightSides, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(std::is_same_v<std::decay_t<decltype(*c.data)>, Vec3Dbl>, "solutions are Vec3Dbl");
    detail::CheckOperands(c, a, b);
    detail::Solve({a.data, a.isOne}, detail::OperandOf(b), detail::ElementsOf(c.data), c.count);
}

/// The eigenvalues of symmetric matrices in ascending order, as by `EigenSym(eigenValues[i], 0)` on a copy of
/// matrices[i]. Raises `VexorComputationFailed` at the first matrix for which that raises.
template <class Matrices, class Values, class... Count>
void EigenSymValues(Matrices const& matrices, Values&& eigenValues, Count... count)
{
    auto const a = detail::ViewOf(matrices, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(eigenValues, static_cast<std::size_t>(count)...);
    detail::CheckOperands(c, a);
    detail::EigenSym(a.data, c.data, nullptr, c.count);
}

/// The eigenvalues and, in the rows of vectors[i], the eigenvectors, as by `EigenSym(eigenValues[i], 1)` on a
/// copy of matrices[i].
template <class Matrices, class Values, class Vectors, class... Count>
void EigenSym(Matrices const& matrices, Values&& eigenValues, Vectors&& vectors, Count... count)
{
    auto const a = detail::ViewOf(matrices, static_cast<std::size_t>(count)...);
    auto const b = detail::RangeOf(eigenValues, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(vectors, static_cast<std::size_t>(count)...);
    detail::CheckOperands(b, a);
    detail::CheckOperands(c, a);
    detail::EigenSym(a.data, b.data, c.data, c.count);
}

} // namespace vexor::arrays
