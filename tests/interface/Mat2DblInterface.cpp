#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Mat2Dbl;

static_assert(sizeof(Class) == 4 * sizeof(double) && alignof(Class) == alignof(double));
static_assert(vexor_interface::isPlainValue<Class>); // no pivot order: a copy is complete

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Mat2Dbl() sets nothing to zero
CONSTRUCTOR(double);
CONSTRUCTOR(Vec2Dbl const&, Vec2Dbl const&);
CONSTRUCTOR(Mat2Dbl const&);
NO_CONSTRUCTOR(MatDbl const&); // no conversion from or to the matrix of run-time size
static_assert(!std::is_constructible_v<MatDbl, Class>);
NO_CONSTRUCTOR(Mat3Dbl const&);
NO_CONSTRUCTOR(double*);

MEMBER(operator=, Mat2Dbl&(Mat2Dbl const&));
MEMBER(operator(), double&(int, int));
MEMBER(operator(), double const&(int, int) const);
ONLY_MEMBER(GetRow, Vec2Dbl const&(unsigned int) const); // only the const form exists
ONLY_MEMBER(SetRow, Mat2Dbl&(unsigned int, Vec2Dbl const&));
ONLY_MEMBER(GetCol, Vec2Dbl(unsigned int) const);
ONLY_MEMBER(SetCol, Mat2Dbl&(unsigned int, Vec2Dbl const&));
ONLY_MEMBER(GetDiagonal, Vec2Dbl() const);
MEMBER(SetDiagonal, Mat2Dbl&(Vec2Dbl const&));
MEMBER(SetDiagonal, Mat2Dbl&(double));
MEMBER(SetValue, Mat2Dbl&(double));
MEMBER(SetValue, Mat2Dbl&(Vec2Dbl const&, Vec2Dbl const&));
ONLY_MEMBER(GetValue, void(Vec2Dbl&, Vec2Dbl&)); // not const

ONLY_MEMBER(Identity, Mat2Dbl&());
ONLY_MEMBER(Transpose, Mat2Dbl&());
ONLY_MEMBER(GetTransposedCopy, Mat2Dbl() const);
ONLY_MEMBER(Negate, Mat2Dbl&());
ONLY_MEMBER(GetNegatedCopy, Mat2Dbl() const);
ONLY_MEMBER(operator*=, Mat2Dbl&(double));
ONLY_MEMBER(operator/=, Mat2Dbl&(double));
ONLY_MEMBER(operator+=, Mat2Dbl&(Mat2Dbl const&));
ONLY_MEMBER(operator-=, Mat2Dbl&(Mat2Dbl const&));
ONLY_MEMBER(operator==, int(Mat2Dbl const&)); // not const, unlike that of Mat3Dbl
ONLY_MEMBER(operator!=, int(Mat2Dbl const&)); // not const, unlike that of Mat3Dbl

FREE(operator*, Mat2Dbl(Mat2Dbl const&, double));
FREE(operator*, Mat2Dbl(double, Mat2Dbl const&));
FREE(operator/, Mat2Dbl(Mat2Dbl const&, double));
FREE(operator-, Mat2Dbl(Mat2Dbl const&));
FREE(operator+, Mat2Dbl(Mat2Dbl const&, Mat2Dbl const&));
FREE(operator-, Mat2Dbl(Mat2Dbl const&, Mat2Dbl const&));
FREE(operator*, Mat2Dbl(Mat2Dbl const&, Mat2Dbl const&));
FREE(operator*, Vec2Dbl(Mat2Dbl const&, Vec2Dbl const&));
FREE(operator*, Vec2Flt(Mat2Dbl const&, Vec2Flt const&));

ONLY_MEMBER(RowSum, Vec2Dbl());     // not const
ONLY_MEMBER(RowAverage, Vec2Dbl()); // not const
ONLY_MEMBER(Invert, Mat2Dbl&());
ONLY_MEMBER(GetInvertedCopy, Mat2Dbl() const);
MEMBER(Solve, void(Vec2Dbl&));
MEMBER(Solve, void(Vec2Dbl*, int));
MEMBER(ReSolve, void(Vec2Dbl&));
MEMBER(ReSolve, void(Vec2Dbl*, int));
ONLY_MEMBER(EigenSym, void(Vec2Dbl&, int));

NO_MEMBER(Svd);
NO_MEMBER(GetEigenVectorGivenEigenValue);
NO_MEMBER(IsEqualTo);
REFUSED_ONE(Class const, m, m == m);
REFUSED_ONE(Class const, m, m != m);
REFUSED_ONE(Class const, m, m < m);
REFUSED_TWO(Class, m, Class const, n, m *= n);
REFUSED_TWO(Class const, m, Pnt2Dbl const, p, m* p); // no products with points
REFUSED_TWO(Class const, m, Pnt2Flt const, p, m* p);
REFUSED_TWO(Vec2Dbl const, v, Class const, m, v* m);

} // namespace
