#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = MatDbl;

/// The fields in their order, only for the size: they are private.
struct Fields {
    int rowCount, columnCount, isExternal;
    double** columns;
    int* pivots;
};
static_assert(sizeof(Class) == sizeof(Fields) && alignof(Class) == alignof(Fields));
static_assert(std::is_standard_layout_v<Class> && !std::is_polymorphic_v<Class>);

DEFAULT_CONSTRUCTOR();
CONSTRUCTOR(int, int, double*);
CONSTRUCTOR(int, int, double, double*);
CONSTRUCTOR(int, int); // the pointer is null by default
CONSTRUCTOR(int, int, double);
CONSTRUCTOR(MatDbl const&);
CONSTRUCTOR(Mat3Dbl const&);
NO_CONSTRUCTOR(int, int, double const*);
NO_CONSTRUCTOR(Mat2Dbl const&);
NO_CONSTRUCTOR(VecDbl const&);

MEMBER(operator=, MatDbl&(MatDbl const&));
MEMBER(ReSize, void(int, int, double*));
MEMBER(ReSize, void(int, int, double, double*));
ONLY_MEMBER(RowCount, int() const);
ONLY_MEMBER(ColumnCount, int() const);
MEMBER(operator(), double&(int, int));
MEMBER(operator(), double const&(int, int) const);
ONLY_MEMBER(GetRow, VecDbl(int) const);
ONLY_MEMBER(GetCol, VecDbl(int) const);
ONLY_MEMBER(SetRow, MatDbl&(int, VecDbl const&));
ONLY_MEMBER(SetCol, MatDbl&(int, VecDbl const&));
ONLY_MEMBER(GetDiagonal, VecDbl() const);
MEMBER(SetDiagonal, MatDbl&(VecDbl const&));
MEMBER(SetDiagonal, MatDbl&(double));
ONLY_MEMBER(SetValue, MatDbl&(double));
ONLY_MEMBER(Identity, MatDbl&());

ONLY_MEMBER(operator==, int(MatDbl const&)); // not const, unlike that of the vectors
ONLY_MEMBER(operator!=, int(MatDbl const&)); // not const, unlike that of the vectors
ONLY_MEMBER(operator*=, MatDbl&(double));
ONLY_MEMBER(operator/=, MatDbl&(double));
ONLY_MEMBER(operator+=, MatDbl&(MatDbl const&));
ONLY_MEMBER(operator-=, MatDbl&(MatDbl const&));
ONLY_MEMBER(Negate, MatDbl&());
ONLY_MEMBER(Transpose, MatDbl&());
ONLY_MEMBER(GetTransposedCopy, MatDbl() const);
ONLY_MEMBER(GetNegatedCopy, MatDbl() const);
ONLY_MEMBER(RowSum, VecDbl());     // not const
ONLY_MEMBER(RowAverage, VecDbl()); // not const

FREE(operator*, MatDbl(MatDbl const&, double));
FREE(operator*, MatDbl(double, MatDbl const&));
FREE(operator/, MatDbl(MatDbl const&, double));
FREE(operator-, MatDbl(MatDbl const&));
FREE(operator+, MatDbl(MatDbl const&, MatDbl const&));
FREE(operator-, MatDbl(MatDbl const&, MatDbl const&));
FREE(operator*, MatDbl(MatDbl const&, MatDbl const&));
FREE(operator*, VecDbl(MatDbl const&, VecDbl const&));
FREE(operator*, VecFlt(MatDbl const&, VecFlt const&));

MEMBER(Solve, void(VecDbl&));
MEMBER(Solve, void(MatDbl&));
MEMBER(ReSolve, void(VecDbl&));
MEMBER(ReSolve, void(MatDbl&));
MEMBER(SolveSym, void(VecDbl&));
MEMBER(SolveSym, void(MatDbl&));
MEMBER(ReSolveSym, void(VecDbl&));
MEMBER(ReSolveSym, void(MatDbl&));
MEMBER(SolveLinearLeastSquares, void(VecDbl&));
MEMBER(SolveLinearLeastSquares, void(MatDbl&));
ONLY_MEMBER(Invert, MatDbl&());
ONLY_MEMBER(GetInvertedCopy, MatDbl() const);
ONLY_MEMBER(Svd, void(VecDbl&));
ONLY_MEMBER(EigenSym, void(VecDbl&, int, int, int));

COMPILES_ONE(Class, m, m.ReSize(2, 2));
COMPILES_ONE(Class, m, m.ReSize(2, 2, 1.0));

NO_MEMBER(GetValue);
NO_MEMBER(Size);
REFUSED_ONE(Class const, m, m == m);
REFUSED_ONE(Class const, m, m != m);
REFUSED_ONE(Class const, m, m.RowSum());
REFUSED_ONE(Class const, m, m.RowAverage());
REFUSED_ONE(Class const, m, m < m);
REFUSED_TWO(Class, m, Class const, n, m *= n);
REFUSED_TWO(VecDbl const, v, Class const, m, v* m);
REFUSED_ONE(Class, m, m.Init(1, 1, nullptr)); // private

} // namespace
