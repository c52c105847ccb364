#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = VecFlt;

static_assert(sizeof(Class) == sizeof(float*) + 2 * sizeof(int) && alignof(Class) == alignof(float*));
static_assert(std::is_standard_layout_v<Class> && !std::is_polymorphic_v<Class>);

DEFAULT_CONSTRUCTOR();
CONSTRUCTOR(int, float*);
CONSTRUCTOR(int, float, float*);
EXPLICIT_CONSTRUCTOR(int); // a size does not convert to a vector
CONSTRUCTOR(int, float);
CONSTRUCTOR(VecFlt const&);
NO_CONSTRUCTOR(VecDbl const&); // to narrow, assign
NO_CONSTRUCTOR(Vec3Flt const&);
NO_CONSTRUCTOR(Vec3Dbl const&);
NO_CONSTRUCTOR(int, float const*);
NO_CONSTRUCTOR(int, double*);
NO_CONSTRUCTOR(float, float, float);

MEMBER(operator=, VecFlt&(VecFlt const&));
MEMBER(operator=, VecFlt&(VecDbl const&));
MEMBER(ReSize, void(int, float*));
MEMBER(ReSize, void(int, float, float*));
ONLY_MEMBER(Size, int() const);
MEMBER(operator[], float&(int));
MEMBER(operator[], float const&(int) const);
MEMBER(operator(), float&(int));
MEMBER(operator(), float const&(int) const);
MEMBER(SetValue, VecFlt&(float));
MEMBER(SetValue, VecFlt&(float const*));
ONLY_MEMBER(GetValue, void(float*) const);

ONLY_MEMBER(operator==, int(VecFlt const&) const);
ONLY_MEMBER(operator!=, int(VecFlt const&) const);
ONLY_MEMBER(operator*=, VecFlt&(float));
ONLY_MEMBER(operator/=, VecFlt&(float));
ONLY_MEMBER(operator+=, VecFlt&(VecFlt const&));
ONLY_MEMBER(operator-=, VecFlt&(VecFlt const&));
ONLY_MEMBER(Negate, VecFlt&());
ONLY_MEMBER(GetNegatedCopy, VecFlt() const);
ONLY_MEMBER(LengthSquared, float() const);
ONLY_MEMBER(Length, float() const);
ONLY_MEMBER(Dot, float(VecFlt const&) const);
ONLY_MEMBER(Normalize, VecFlt&());
ONLY_MEMBER(GetNormalizedCopy, VecFlt() const);
ONLY_MEMBER(ElemMult, VecFlt(VecFlt const&) const);
ONLY_MEMBER(ElemDiv, VecFlt(VecFlt const&) const);
ONLY_MEMBER(GetProjectionOnTo, VecFlt(VecFlt const&) const);
ONLY_MEMBER(GetAngleWith, float(VecFlt const&) const);
ONLY_MEMBER(GetAreaFormedByTriangleWith, float(VecFlt const&) const);

FREE(operator*, VecFlt(VecFlt const&, float));
FREE(operator*, VecFlt(float, VecFlt const&));
FREE(operator/, VecFlt(VecFlt const&, float));
FREE(operator-, VecFlt(VecFlt const&));
FREE(operator+, VecFlt(VecFlt const&, VecFlt const&));
FREE(operator-, VecFlt(VecFlt const&, VecFlt const&));
FREE(operator*, VecFlt(MatDbl const&, VecFlt const&));

ONLY_MEMBER(MaxValue, float() const);
ONLY_MEMBER(MaxValueIdx, int() const);
ONLY_MEMBER(MinValue, float() const);
ONLY_MEMBER(MinValueIdx, int() const);
ONLY_MEMBER(MaxAbsValue, float() const);
ONLY_MEMBER(MaxAbsValueIdx, int() const);
ONLY_MEMBER(MinAbsValue, float() const);
ONLY_MEMBER(MinAbsValueIdx, int() const);

ONLY_MEMBER(IsNull, int() const);
ONLY_MEMBER(IsZeroLength, int(float) const);
ONLY_MEMBER(IsParallelTo, int(VecFlt const&, float, float) const);
ONLY_MEMBER(IsCodirectionalTo, int(VecFlt const&, float, float) const);
ONLY_MEMBER(IsPerpendicularTo, int(VecFlt const&, float, float) const);
ONLY_MEMBER(IsUnitParallelTo, int(VecFlt const&, float) const);
ONLY_MEMBER(IsUnitCodirectionalTo, int(VecFlt const&, float) const);
ONLY_MEMBER(IsUnitPerpendicularTo, int(VecFlt const&, float) const);
ONLY_MEMBER(IsEqualTo, int(VecFlt const&, float, float) const);

COMPILES_ONE(Class const, v, v.IsZeroLength());
COMPILES_ONE(Class const, v, v.IsEqualTo(v));
COMPILES_ONE(Class const, v, v.IsEqualTo(v, 0.0f));
COMPILES_ONE(Class const, v, v.IsParallelTo(v));
COMPILES_ONE(Class const, v, v.IsCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsPerpendicularTo(v));
COMPILES_ONE(Class const, v, v.IsUnitParallelTo(v));
COMPILES_ONE(Class const, v, v.IsUnitCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsUnitPerpendicularTo(v));
COMPILES_ONE(Class, v, v.ReSize(2));
COMPILES_ONE(Class, v, v.ReSize(2, 1.0f));

NO_MEMBER(Sum);
NO_MEMBER(OuterProduct);
NO_MEMBER(Cross);
NO_MEMBER(Rotate);
NO_MEMBER(IsLessThan);
NO_MEMBER(IsGreaterThan);
NO_MEMBER(ValueOrder);
NO_MEMBER(AbsValueOrder);
NO_MEMBER(GetPerpendicular);
NO_MEMBER(GetPerpendicularNearestTo);
NO_MEMBER(GetCCWAngleWith);
NO_MEMBER(ToVec3Flt);
REFUSED_ONE(Class const, v, v < v);
REFUSED_ONE(Class const, v, v* v);
REFUSED_TWO(Class, v, float, x, v.GetValue(x, x, x));
REFUSED_TWO(Class, v, float, x, v.SetValue(x, x, x));
REFUSED_ONE(Class, v, v.Init(1, nullptr)); // private

} // namespace
