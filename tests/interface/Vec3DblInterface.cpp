#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Vec3Dbl;

static_assert(sizeof(Class) == 3 * sizeof(double) && alignof(Class) == alignof(double));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(double));
static_assert(offsetof(Class, z) == 2 * sizeof(double));
static_assert(std::is_same_v<decltype(Class::x), double> && std::is_same_v<decltype(Class::z), double>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Vec3Dbl() sets nothing to zero
CONSTRUCTOR(double);
CONSTRUCTOR(double, double, double);
CONSTRUCTOR(double*);
CONSTRUCTOR(Vec3Dbl const&);
CONSTRUCTOR(Vec3Flt const&);
CONSTRUCTOR(VecDbl const&);
NO_CONSTRUCTOR(double, double);
NO_CONSTRUCTOR(double const*);
NO_CONSTRUCTOR(Vec2Dbl const&);
NO_CONSTRUCTOR(Pnt3Dbl const&);
NO_CONSTRUCTOR(Pnt3Flt const&);

MEMBER(operator=, Vec3Dbl&(Vec3Dbl const&));
MEMBER(operator=, Vec3Dbl&(Vec3Flt const&));
MEMBER(operator=, Vec3Dbl&(Pnt3Dbl const&));
MEMBER(operator=, Vec3Dbl&(Pnt3Flt const&));
MEMBER(SetValue, Vec3Dbl&(double));
MEMBER(SetValue, Vec3Dbl&(double, double, double));
MEMBER(SetValue, Vec3Dbl&(double const*));
MEMBER(GetValue, void(double&, double&, double&) const);
MEMBER(GetValue, void(double*) const);
MEMBER(operator[], double&(int));
MEMBER(operator[], double const&(int) const);
MEMBER(operator(), double&(int));
MEMBER(operator(), double const&(int) const);
ONLY_MEMBER(ToVec3Flt, Vec3Flt() const);

ONLY_MEMBER(operator*=, Vec3Dbl&(double));
ONLY_MEMBER(operator/=, Vec3Dbl&(double));
ONLY_MEMBER(operator+=, Vec3Dbl&(Vec3Dbl const&));
ONLY_MEMBER(operator-=, Vec3Dbl&(Vec3Dbl const&));
ONLY_MEMBER(Negate, Vec3Dbl&());
ONLY_MEMBER(GetNegatedCopy, Vec3Dbl() const);
FREE(operator*, Vec3Dbl(Vec3Dbl const&, double));
FREE(operator*, Vec3Dbl(double, Vec3Dbl const&));
FREE(operator/, Vec3Dbl(Vec3Dbl const&, double));
FREE(operator+, Vec3Dbl(Vec3Dbl const&, Vec3Dbl const&));
FREE(operator-, Vec3Dbl(Vec3Dbl const&, Vec3Dbl const&));
FREE(operator-, Vec3Dbl(Vec3Dbl const&));

ONLY_MEMBER(Dot, double(Vec3Dbl const&) const);
ONLY_MEMBER(Cross, Vec3Dbl(Vec3Dbl const&) const);
ONLY_MEMBER(ElemMult, Vec3Dbl(Vec3Dbl const&) const);
ONLY_MEMBER(ElemDiv, Vec3Dbl(Vec3Dbl const&) const);
ONLY_MEMBER(OuterProduct, Mat3Dbl(Vec3Dbl const&) const);
ONLY_MEMBER(LengthSquared, double() const);
ONLY_MEMBER(Length, double() const);
ONLY_MEMBER(Normalize, Vec3Dbl&());
ONLY_MEMBER(GetNormalizedCopy, Vec3Dbl() const);

ONLY_MEMBER(MaxValue, double() const);
ONLY_MEMBER(MinValue, double() const);
ONLY_MEMBER(MaxAbsValue, double() const);
ONLY_MEMBER(MinAbsValue, double() const);
ONLY_MEMBER(MaxValueIdx, int() const);
ONLY_MEMBER(MinValueIdx, int() const);
ONLY_MEMBER(MaxAbsValueIdx, int() const);
ONLY_MEMBER(MinAbsValueIdx, int() const);
ONLY_MEMBER(ValueOrder, void(int&, int&, int&) const);
ONLY_MEMBER(AbsValueOrder, void(int&, int&, int&) const);

ONLY_MEMBER(IsNull, int() const);
ONLY_MEMBER(IsZeroLength, int(double) const);
ONLY_MEMBER(operator==, int(Vec3Dbl const&) const);
ONLY_MEMBER(operator!=, int(Vec3Dbl const&) const);
ONLY_MEMBER(operator<, int(Vec3Dbl const&) const);
ONLY_MEMBER(IsLessThan, int(Vec3Dbl const&) const);
ONLY_MEMBER(IsGreaterThan, int(Vec3Dbl const&) const);

ONLY_MEMBER(IsEqualTo, int(Vec3Dbl const&, double, double) const);
ONLY_MEMBER(IsParallelTo, int(Vec3Dbl const&, double, double) const);
ONLY_MEMBER(IsCodirectionalTo, int(Vec3Dbl const&, double, double) const);
ONLY_MEMBER(IsPerpendicularTo, int(Vec3Dbl const&, double, double) const);
ONLY_MEMBER(IsUnitParallelTo, int(Vec3Dbl const&, double) const);
ONLY_MEMBER(IsUnitCodirectionalTo, int(Vec3Dbl const&, double) const);
ONLY_MEMBER(IsUnitPerpendicularTo, int(Vec3Dbl const&, double) const);
ONLY_MEMBER(GetAngleWith, double(Vec3Dbl const&) const);
ONLY_MEMBER(GetCCWAngleWith, double(Vec3Dbl const&, Vec3Dbl const&) const);
ONLY_MEMBER(GetAreaFormedByTriangleWith, double(Vec3Dbl const&) const);
ONLY_MEMBER(GetProjectionOnTo, Vec3Dbl(Vec3Dbl const&) const);
ONLY_MEMBER(GetPerpendicular, Vec3Dbl() const);
ONLY_MEMBER(GetPerpendicularNearestTo, Vec3Dbl(Vec3Dbl const&) const);
ONLY_MEMBER(Rotate, Vec3Dbl&(Vec3Dbl const&, double));

COMPILES_ONE(Class const, v, v.IsZeroLength());
COMPILES_ONE(Class const, v, v.IsEqualTo(v));
COMPILES_ONE(Class const, v, v.IsEqualTo(v, 0.0));
COMPILES_ONE(Class const, v, v.IsParallelTo(v));
COMPILES_ONE(Class const, v, v.IsCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsPerpendicularTo(v));
COMPILES_ONE(Class const, v, v.IsUnitParallelTo(v));
COMPILES_ONE(Class const, v, v.IsUnitCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsUnitPerpendicularTo(v));

NO_MEMBER(Sum);
NO_MEMBER(ToPnt3Dbl);
REFUSED_ONE(Class const, v, v > v);
REFUSED_ONE(Class const, v, v <= v);
REFUSED_ONE(Class const, v, v* v);
REFUSED_ONE(Class const, v, v / v);
REFUSED_ONE(Class const, v, +v);
REFUSED_TWO(Class, v, Class const, w, v *= w);

} // namespace
