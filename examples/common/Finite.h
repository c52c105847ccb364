#pragma once
#include "common/InputError.h"

#include <vexor/dynamic/MatDbl.h>
#include <vexor/vectors/Vec3Dbl.h>

#include <cmath>
#include <string>

namespace examples {

/// A result is infinite or NaN: the numbers of the input are too large to compute with.
class NotFiniteError : public NotComputableError {
public:
    explicit NotFiniteError(std::string const& what)
        : NotComputableError(what + ": not a finite number (the input is too large to compute with)")
    {}
};

/// Raise NotFiniteError unless all numbers are finite; `what` names them. The solvers can fail in other ways
/// on numbers that are not finite, so the programs also check what they hand to a solver.
inline void RequireFinite(char const* what, double number)
{
    if (!std::isfinite(number))
        throw NotFiniteError(what);
}

inline void RequireFinite(char const* what, Vec3Dbl const& vector)
{
    for (int i = 0; i < 3; ++i)
        RequireFinite(what, vector[i]);
}

inline void RequireFinite(char const* what, MatDbl const& matrix)
{
    for (int j = 0; j < matrix.ColumnCount(); ++j)
        for (int i = 0; i < matrix.RowCount(); ++i)
            RequireFinite(what, matrix(i, j));
}

} // namespace examples
