#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Vec2Flt;

static_assert(sizeof(Class) == 2 * sizeof(float) && alignof(Class) == alignof(float));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(float));
static_assert(std::is_same_v<decltype(Class::x), float> && std::is_same_v<decltype(Class::y), float>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Vec2Flt() sets nothing to zero
CONSTRUCTOR(float);
CONSTRUCTOR(float, float);
CONSTRUCTOR(float*);
CONSTRUCTOR(Vec2Flt const&);
NO_CONSTRUCTOR(Vec2Dbl const&); // to narrow, assign or call Vec2Dbl::ToVec2Flt
NO_CONSTRUCTOR(float const*);
NO_CONSTRUCTOR(double*);
NO_CONSTRUCTOR(VecFlt const&);
NO_CONSTRUCTOR(Vec3Flt const&);
NO_CONSTRUCTOR(Vec2Int const&);
NO_CONSTRUCTOR(Pnt2Flt const&);
NO_CONSTRUCTOR(Pnt2Dbl const&);

MEMBER(operator=, Vec2Flt&(Vec2Flt const&));
MEMBER(operator=, Vec2Flt&(Vec2Dbl const&));
MEMBER(operator=, Vec2Flt&(Pnt2Flt const&));
MEMBER(operator=, Vec2Flt&(Pnt2Dbl const&));
MEMBER(SetValue, Vec2Flt&(float));
MEMBER(SetValue, Vec2Flt&(float, float));
MEMBER(SetValue, Vec2Flt&(float const*));
MEMBER(GetValue, void(float&, float&) const);
MEMBER(GetValue, void(float*) const);
MEMBER(operator[], float&(int));
MEMBER(operator[], float const&(int) const);
MEMBER(operator(), float&(int));
MEMBER(operator(), float const&(int) const);

ONLY_MEMBER(operator==, int(Vec2Flt const&) const);
ONLY_MEMBER(operator!=, int(Vec2Flt const&) const);
ONLY_MEMBER(IsLessThan, int(Vec2Flt const&) const);
ONLY_MEMBER(IsGreaterThan, int(Vec2Flt const&) const);

ONLY_MEMBER(operator*=, Vec2Flt&(float));
ONLY_MEMBER(operator/=, Vec2Flt&(float));
ONLY_MEMBER(operator+=, Vec2Flt&(Vec2Flt const&));
ONLY_MEMBER(operator-=, Vec2Flt&(Vec2Flt const&));
ONLY_MEMBER(Negate, Vec2Flt&());
ONLY_MEMBER(GetNegatedCopy, Vec2Flt() const);
FREE(operator*, Vec2Flt(Vec2Flt const&, float));
FREE(operator*, Vec2Flt(float, Vec2Flt const&));
FREE(operator/, Vec2Flt(Vec2Flt const&, float));
FREE(operator-, Vec2Flt(Vec2Flt const&));
FREE(operator+, Vec2Flt(Vec2Flt const&, Vec2Flt const&));
FREE(operator-, Vec2Flt(Vec2Flt const&, Vec2Flt const&));

ONLY_MEMBER(Length, float() const);
ONLY_MEMBER(LengthSquared, float() const);
ONLY_MEMBER(Dot, float(Vec2Flt const&) const);
ONLY_MEMBER(Cross, float(Vec2Flt const&) const); // a scalar in the plane
ONLY_MEMBER(GetAreaFormedByTriangleWith, float(Vec2Flt const&) const);
ONLY_MEMBER(ElemMult, Vec2Flt(Vec2Flt const&) const);
ONLY_MEMBER(ElemDiv, Vec2Flt(Vec2Flt const&) const);
ONLY_MEMBER(OuterProduct, Mat2Dbl(Vec2Flt const&) const);

ONLY_MEMBER(MaxValue, float() const);
ONLY_MEMBER(MinValue, float() const);
ONLY_MEMBER(MaxValueIdx, int() const);
ONLY_MEMBER(MinValueIdx, int() const);
ONLY_MEMBER(MaxAbsValue, float() const);
ONLY_MEMBER(MinAbsValue, float() const);
ONLY_MEMBER(MaxAbsValueIdx, int() const);
ONLY_MEMBER(MinAbsValueIdx, int() const);

ONLY_MEMBER(IsNull, int() const);
ONLY_MEMBER(IsZeroLength, int(float) const);
ONLY_MEMBER(IsEqualTo, int(Vec2Flt const&, float, float) const);
ONLY_MEMBER(IsParallelTo, int(Vec2Flt const&, float, float) const);
ONLY_MEMBER(IsCodirectionalTo, int(Vec2Flt const&, float, float) const);
ONLY_MEMBER(IsPerpendicularTo, int(Vec2Flt const&, float, float) const);
ONLY_MEMBER(IsUnitParallelTo, int(Vec2Flt const&, float) const);
ONLY_MEMBER(IsUnitCodirectionalTo, int(Vec2Flt const&, float) const);
ONLY_MEMBER(IsUnitPerpendicularTo, int(Vec2Flt const&, float) const);

ONLY_MEMBER(GetAngleWith, float(Vec2Flt const&) const);
ONLY_MEMBER(Normalize, Vec2Flt&());
ONLY_MEMBER(GetNormalizedCopy, Vec2Flt() const);
ONLY_MEMBER(GetProjectionOnTo, Vec2Flt(Vec2Flt const&) const);
ONLY_MEMBER(GetPerpendicular, Vec2Flt() const);

COMPILES_ONE(Class const, v, v.IsZeroLength());
COMPILES_ONE(Class const, v, v.IsEqualTo(v));
COMPILES_ONE(Class const, v, v.IsEqualTo(v, 0.0f));
COMPILES_ONE(Class const, v, v.IsParallelTo(v));
COMPILES_ONE(Class const, v, v.IsCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsPerpendicularTo(v));
COMPILES_ONE(Class const, v, v.IsUnitParallelTo(v));
COMPILES_ONE(Class const, v, v.IsUnitCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsUnitPerpendicularTo(v));

NO_MEMBER(GetCCWAngleWith);
NO_MEMBER(ToVec2Dbl);
NO_MEMBER(GetPerpendicularNearestTo);
NO_MEMBER(Rotate);
NO_MEMBER(ValueOrder);
NO_MEMBER(AbsValueOrder);
REFUSED_ONE(Class const, v, v < v);
REFUSED_ONE(Class const, v, v > v);
REFUSED_ONE(Class const, v, v* v);
REFUSED_TWO(Class const, v, double const, s, v* s); // floats or doubles: ambiguous
REFUSED_TWO(double const, s, Class const, v, s* v);
REFUSED_TWO(Class const, v, double const, s, v / s);

} // namespace
