#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Vec2Dbl;

static_assert(sizeof(Class) == 2 * sizeof(double) && alignof(Class) == alignof(double));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(double));
static_assert(std::is_same_v<decltype(Class::x), double> && std::is_same_v<decltype(Class::y), double>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Vec2Dbl() sets nothing to zero
CONSTRUCTOR(double);
CONSTRUCTOR(double, double);
CONSTRUCTOR(double*);
CONSTRUCTOR(Vec2Dbl const&);
CONSTRUCTOR(Vec2Flt const&);
NO_CONSTRUCTOR(double const*);
NO_CONSTRUCTOR(double, double, double);
NO_CONSTRUCTOR(VecDbl const&);
NO_CONSTRUCTOR(Vec3Dbl const&);
NO_CONSTRUCTOR(Vec2Int const&);
NO_CONSTRUCTOR(Pnt2Dbl const&);
NO_CONSTRUCTOR(Pnt2Flt const&);

MEMBER(operator=, Vec2Dbl&(Vec2Dbl const&));
MEMBER(operator=, Vec2Dbl&(Vec2Flt const&));
MEMBER(operator=, Vec2Dbl&(Pnt2Dbl const&));
MEMBER(operator=, Vec2Dbl&(Pnt2Flt const&));
MEMBER(SetValue, Vec2Dbl&(double));
MEMBER(SetValue, Vec2Dbl&(double, double));
MEMBER(SetValue, Vec2Dbl&(double const*));
MEMBER(GetValue, void(double&, double&) const);
MEMBER(GetValue, void(double*) const);
MEMBER(operator[], double&(int));
MEMBER(operator[], double const&(int) const);
MEMBER(operator(), double&(int));
MEMBER(operator(), double const&(int) const);
ONLY_MEMBER(ToVec2Flt, Vec2Flt() const);

ONLY_MEMBER(operator==, int(Vec2Dbl const&) const);
ONLY_MEMBER(operator!=, int(Vec2Dbl const&) const);
ONLY_MEMBER(operator<, int(Vec2Dbl const&) const);
ONLY_MEMBER(IsLessThan, int(Vec2Dbl const&) const);
ONLY_MEMBER(IsGreaterThan, int(Vec2Dbl const&) const);

ONLY_MEMBER(operator*=, Vec2Dbl&(double));
ONLY_MEMBER(operator/=, Vec2Dbl&(double));
ONLY_MEMBER(operator+=, Vec2Dbl&(Vec2Dbl const&));
ONLY_MEMBER(operator-=, Vec2Dbl&(Vec2Dbl const&));
ONLY_MEMBER(Negate, Vec2Dbl&());
ONLY_MEMBER(GetNegatedCopy, Vec2Dbl() const);
FREE(operator*, Vec2Dbl(Vec2Dbl const&, double));
FREE(operator*, Vec2Dbl(double, Vec2Dbl const&));
FREE(operator/, Vec2Dbl(Vec2Dbl const&, double));
FREE(operator-, Vec2Dbl(Vec2Dbl const&));
FREE(operator+, Vec2Dbl(Vec2Dbl const&, Vec2Dbl const&));
FREE(operator-, Vec2Dbl(Vec2Dbl const&, Vec2Dbl const&));

ONLY_MEMBER(Length, double() const);
ONLY_MEMBER(LengthSquared, double() const);
ONLY_MEMBER(Dot, double(Vec2Dbl const&) const);
ONLY_MEMBER(Cross, double(Vec2Dbl const&) const); // a scalar in the plane
ONLY_MEMBER(GetAreaFormedByTriangleWith, double(Vec2Dbl const&) const);
ONLY_MEMBER(ElemMult, Vec2Dbl(Vec2Dbl const&) const);
ONLY_MEMBER(ElemDiv, Vec2Dbl(Vec2Dbl const&) const);
ONLY_MEMBER(OuterProduct, Mat2Dbl(Vec2Dbl const&) const);

ONLY_MEMBER(MaxValue, double() const);
ONLY_MEMBER(MinValue, double() const);
ONLY_MEMBER(MaxValueIdx, int() const);
ONLY_MEMBER(MinValueIdx, int() const);
ONLY_MEMBER(MaxAbsValue, double() const);
ONLY_MEMBER(MinAbsValue, double() const);
ONLY_MEMBER(MaxAbsValueIdx, int() const);
ONLY_MEMBER(MinAbsValueIdx, int() const);

ONLY_MEMBER(IsNull, int() const);
ONLY_MEMBER(IsZeroLength, int(double) const);
ONLY_MEMBER(IsEqualTo, int(Vec2Dbl const&, double, double) const);
ONLY_MEMBER(IsParallelTo, int(Vec2Dbl const&, double, double) const);
ONLY_MEMBER(IsCodirectionalTo, int(Vec2Dbl const&, double, double) const);
ONLY_MEMBER(IsPerpendicularTo, int(Vec2Dbl const&, double, double) const);
ONLY_MEMBER(IsUnitParallelTo, int(Vec2Dbl const&, double) const);
ONLY_MEMBER(IsUnitCodirectionalTo, int(Vec2Dbl const&, double) const);
ONLY_MEMBER(IsUnitPerpendicularTo, int(Vec2Dbl const&, double) const);

ONLY_MEMBER(GetAngleWith, double(Vec2Dbl const&) const);
ONLY_MEMBER(GetCCWAngleWith, double(Vec2Dbl const&) const); // no normal: the plane has one
ONLY_MEMBER(Normalize, Vec2Dbl&());
ONLY_MEMBER(GetNormalizedCopy, Vec2Dbl() const);
ONLY_MEMBER(GetProjectionOnTo, Vec2Dbl(Vec2Dbl const&) const);
ONLY_MEMBER(GetPerpendicular, Vec2Dbl() const);

COMPILES_ONE(Class const, v, v.IsZeroLength());
COMPILES_ONE(Class const, v, v.IsEqualTo(v));
COMPILES_ONE(Class const, v, v.IsEqualTo(v, 0.0));
COMPILES_ONE(Class const, v, v.IsParallelTo(v));
COMPILES_ONE(Class const, v, v.IsCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsPerpendicularTo(v));
COMPILES_ONE(Class const, v, v.IsUnitParallelTo(v));
COMPILES_ONE(Class const, v, v.IsUnitCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsUnitPerpendicularTo(v));

NO_MEMBER(GetPerpendicularNearestTo);
NO_MEMBER(Rotate);
NO_MEMBER(ValueOrder);
NO_MEMBER(AbsValueOrder);
NO_MEMBER(Sum);
REFUSED_ONE(Class const, v, v > v);
REFUSED_ONE(Class const, v, v <= v);
REFUSED_ONE(Class const, v, v* v);
REFUSED_ONE(Class const, v, v / v);
REFUSED_ONE(Class const, v, +v);

} // namespace
