#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Vec3Flt;

static_assert(sizeof(Class) == 3 * sizeof(float) && alignof(Class) == alignof(float));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(float));
static_assert(offsetof(Class, z) == 2 * sizeof(float));
static_assert(std::is_same_v<decltype(Class::x), float> && std::is_same_v<decltype(Class::z), float>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Vec3Flt() sets nothing to zero
CONSTRUCTOR(float);
CONSTRUCTOR(float, float, float);
CONSTRUCTOR(float*);
CONSTRUCTOR(Vec3Flt const&);
NO_CONSTRUCTOR(Vec3Dbl const&); // to narrow, assign or call Vec3Dbl::ToVec3Flt
NO_CONSTRUCTOR(VecDbl const&);
NO_CONSTRUCTOR(VecFlt const&);
NO_CONSTRUCTOR(Pnt3Flt const&);
NO_CONSTRUCTOR(Pnt3Dbl const&);
NO_CONSTRUCTOR(float const*);
NO_CONSTRUCTOR(double*);
NO_CONSTRUCTOR(float, float);

MEMBER(operator=, Vec3Flt&(Vec3Flt const&));
MEMBER(operator=, Vec3Flt&(Vec3Dbl const&));
MEMBER(operator=, Vec3Flt&(Pnt3Flt const&));
MEMBER(operator=, Vec3Flt&(Pnt3Dbl const&));
MEMBER(SetValue, Vec3Flt&(float));
MEMBER(SetValue, Vec3Flt&(float, float, float));
MEMBER(SetValue, Vec3Flt&(float const*));
MEMBER(GetValue, void(float&, float&, float&) const);
MEMBER(GetValue, void(float*) const);
MEMBER(operator[], float&(int));
MEMBER(operator[], float const&(int) const);
MEMBER(operator(), float&(int));
MEMBER(operator(), float const&(int) const);

ONLY_MEMBER(operator*=, Vec3Flt&(float));
ONLY_MEMBER(operator/=, Vec3Flt&(float));
ONLY_MEMBER(operator+=, Vec3Flt&(Vec3Flt const&));
ONLY_MEMBER(operator-=, Vec3Flt&(Vec3Flt const&));
ONLY_MEMBER(Negate, Vec3Flt&());
ONLY_MEMBER(GetNegatedCopy, Vec3Flt() const);
FREE(operator*, Vec3Flt(Vec3Flt const&, float));
FREE(operator*, Vec3Flt(float, Vec3Flt const&));
FREE(operator/, Vec3Flt(Vec3Flt const&, float));
FREE(operator+, Vec3Flt(Vec3Flt const&, Vec3Flt const&));
FREE(operator-, Vec3Flt(Vec3Flt const&, Vec3Flt const&));
FREE(operator-, Vec3Flt(Vec3Flt const&));

ONLY_MEMBER(Dot, float(Vec3Flt const&) const);
ONLY_MEMBER(Cross, Vec3Flt(Vec3Flt const&) const);
ONLY_MEMBER(ElemMult, Vec3Flt(Vec3Flt const&) const);
ONLY_MEMBER(ElemDiv, Vec3Flt(Vec3Flt const&) const);
ONLY_MEMBER(OuterProduct, Mat3Dbl(Vec3Flt const&) const);
ONLY_MEMBER(LengthSquared, float() const);
ONLY_MEMBER(Length, float() const);
ONLY_MEMBER(Normalize, Vec3Flt&());
ONLY_MEMBER(GetNormalizedCopy, Vec3Flt() const);

ONLY_MEMBER(MaxValue, float() const);
ONLY_MEMBER(MinValue, float() const);
ONLY_MEMBER(MaxAbsValue, float() const);
ONLY_MEMBER(MinAbsValue, float() const);
ONLY_MEMBER(MaxValueIdx, int() const);
ONLY_MEMBER(MinValueIdx, int() const);
ONLY_MEMBER(MaxAbsValueIdx, int() const);
ONLY_MEMBER(MinAbsValueIdx, int() const);

ONLY_MEMBER(IsNull, int() const);
ONLY_MEMBER(IsZeroLength, int(float) const);
ONLY_MEMBER(operator==, int(Vec3Flt const&) const);
ONLY_MEMBER(operator!=, int(Vec3Flt const&) const);
ONLY_MEMBER(IsLessThan, int(Vec3Flt const&) const);
ONLY_MEMBER(IsGreaterThan, int(Vec3Flt const&) const);

ONLY_MEMBER(IsEqualTo, int(Vec3Flt const&, float, float) const);
ONLY_MEMBER(IsParallelTo, int(Vec3Flt const&, float, float) const);
ONLY_MEMBER(IsCodirectionalTo, int(Vec3Flt const&, float, float) const);
ONLY_MEMBER(IsPerpendicularTo, int(Vec3Flt const&, float, float) const);
ONLY_MEMBER(IsUnitParallelTo, int(Vec3Flt const&, float) const);
ONLY_MEMBER(IsUnitCodirectionalTo, int(Vec3Flt const&, float) const);
ONLY_MEMBER(IsUnitPerpendicularTo, int(Vec3Flt const&, float) const);
ONLY_MEMBER(GetAngleWith, float(Vec3Flt const&) const);
ONLY_MEMBER(GetAreaFormedByTriangleWith, float(Vec3Flt const&) const);
ONLY_MEMBER(GetProjectionOnTo, Vec3Flt(Vec3Flt const&) const);
ONLY_MEMBER(GetPerpendicular, Vec3Flt() const);
ONLY_MEMBER(GetPerpendicularNearestTo, Vec3Flt(Vec3Flt const&) const);

COMPILES_ONE(Class const, v, v.IsZeroLength());
COMPILES_ONE(Class const, v, v.IsEqualTo(v));
COMPILES_ONE(Class const, v, v.IsEqualTo(v, 0.0f));
COMPILES_ONE(Class const, v, v.IsParallelTo(v));
COMPILES_ONE(Class const, v, v.IsCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsPerpendicularTo(v));
COMPILES_ONE(Class const, v, v.IsUnitParallelTo(v));
COMPILES_ONE(Class const, v, v.IsUnitCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsUnitPerpendicularTo(v));

NO_MEMBER(ValueOrder);
NO_MEMBER(AbsValueOrder);
NO_MEMBER(GetCCWAngleWith);
NO_MEMBER(Rotate);
NO_MEMBER(ToVec3Dbl);
NO_MEMBER(Sum);
REFUSED_ONE(Class const, v, v < v);
REFUSED_ONE(Class const, v, v > v);
REFUSED_ONE(Class const, v, v* v);
REFUSED_ONE(Class const, v, +v);
REFUSED_TWO(Class const, v, double const, s, v* s); // floats or doubles: ambiguous
REFUSED_TWO(double const, s, Class const, v, s* v);
REFUSED_TWO(Class const, v, double const, s, v / s);

} // namespace
