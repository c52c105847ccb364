#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Mat3Dbl;

// Nine doubles, three bytes after them, and padding to the alignment of a double.
static_assert(sizeof(Class) == 9 * sizeof(double) + alignof(double) && alignof(Class) == alignof(double));
static_assert(std::is_standard_layout_v<Class> && !std::is_polymorphic_v<Class>);
static_assert(std::is_trivially_destructible_v<Class>);
static_assert(!std::is_trivially_copyable_v<Class>); // the pivot order is not copied

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Mat3Dbl() sets nothing to zero
CONSTRUCTOR(double);
CONSTRUCTOR(Vec3Dbl const&, Vec3Dbl const&, Vec3Dbl const&);
CONSTRUCTOR(Mat3Dbl const&);
CONSTRUCTOR(MatDbl const&);
NO_CONSTRUCTOR(double*);
NO_CONSTRUCTOR(Vec3Dbl const&, Vec3Dbl const&);
NO_CONSTRUCTOR(Mat2Dbl const&);
NO_CONSTRUCTOR(Quaternion const&);

MEMBER(operator=, Mat3Dbl&(Mat3Dbl const&));
MEMBER(operator(), double&(int, int));
MEMBER(operator(), double const&(int, int) const);
MEMBER(GetRow, Vec3Dbl&(unsigned int));
MEMBER(GetRow, Vec3Dbl const&(unsigned int) const);
ONLY_MEMBER(SetRow, Mat3Dbl&(unsigned int, Vec3Dbl const&));
ONLY_MEMBER(GetCol, Vec3Dbl(unsigned int) const);
ONLY_MEMBER(SetCol, Mat3Dbl&(unsigned int, Vec3Dbl const&));
ONLY_MEMBER(GetDiagonal, Vec3Dbl() const);
MEMBER(SetDiagonal, Mat3Dbl&(Vec3Dbl const&));
MEMBER(SetDiagonal, Mat3Dbl&(double));
MEMBER(SetValue, Mat3Dbl&(double));
MEMBER(SetValue, Mat3Dbl&(Vec3Dbl const&, Vec3Dbl const&, Vec3Dbl const&));
ONLY_MEMBER(GetValue, void(Vec3Dbl&, Vec3Dbl&, Vec3Dbl&)); // not const

ONLY_MEMBER(Identity, Mat3Dbl&());
ONLY_MEMBER(Transpose, Mat3Dbl&());
ONLY_MEMBER(GetTransposedCopy, Mat3Dbl() const);
ONLY_MEMBER(Negate, Mat3Dbl&());
ONLY_MEMBER(GetNegatedCopy, Mat3Dbl() const);
ONLY_MEMBER(RowSum, Vec3Dbl());     // not const
ONLY_MEMBER(RowAverage, Vec3Dbl()); // not const
ONLY_MEMBER(operator==, int(Mat3Dbl const&) const);
ONLY_MEMBER(operator!=, int(Mat3Dbl const&) const);
ONLY_MEMBER(operator*=, Mat3Dbl&(double));
ONLY_MEMBER(operator/=, Mat3Dbl&(double));
ONLY_MEMBER(operator+=, Mat3Dbl&(Mat3Dbl const&));
ONLY_MEMBER(operator-=, Mat3Dbl&(Mat3Dbl const&));

FREE(operator*, Mat3Dbl(Mat3Dbl const&, double));
FREE(operator*, Mat3Dbl(double, Mat3Dbl const&));
FREE(operator/, Mat3Dbl(Mat3Dbl const&, double));
FREE(operator-, Mat3Dbl(Mat3Dbl const&));
FREE(operator+, Mat3Dbl(Mat3Dbl const&, Mat3Dbl const&));
FREE(operator-, Mat3Dbl(Mat3Dbl const&, Mat3Dbl const&));
FREE(operator*, Mat3Dbl(Mat3Dbl const&, Mat3Dbl const&));
FREE(operator*, Vec3Dbl(Mat3Dbl const&, Vec3Dbl const&));
FREE(operator*, Pnt3Dbl(Mat3Dbl const&, Pnt3Dbl const&));
FREE(operator*, Vec3Flt(Mat3Dbl const&, Vec3Flt const&));
FREE(operator*, Pnt3Flt(Mat3Dbl const&, Pnt3Flt const&));

MEMBER(Solve, void(Vec3Dbl&));
MEMBER(Solve, void(Vec3Dbl*, int));
MEMBER(ReSolve, void(Vec3Dbl&));
MEMBER(ReSolve, void(Vec3Dbl*, int));
ONLY_MEMBER(Invert, Mat3Dbl&());
ONLY_MEMBER(GetInvertedCopy, Mat3Dbl() const);
ONLY_MEMBER(Svd, void(Vec3Dbl&));
ONLY_MEMBER(EigenSym, void(Vec3Dbl&, int));
ONLY_MEMBER(GetEigenVectorGivenEigenValue, void(Vec3Dbl&, double)); // not const, although it changes nothing

NO_MEMBER(IsEqualTo);
NO_MEMBER(Determinant);
REFUSED_ONE(Class const, m, m < m);
REFUSED_ONE(Class const, m, m.RowSum());
REFUSED_ONE(Class const, m, m.RowAverage());
REFUSED_TWO(Class, m, Class const, n, m *= n);
REFUSED_TWO(Vec3Dbl const, v, Class const, m, v* m); // no product with a vector on the left
REFUSED_TWO(Vec3Flt const, v, Class const, m, v* m);
REFUSED_TWO(Pnt3Dbl const, p, Class const, m, p* m);
REFUSED_TWO(Pnt3Flt const, p, Class const, m, p* m);

} // namespace
