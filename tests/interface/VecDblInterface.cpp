#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = VecDbl;

static_assert(sizeof(Class) == sizeof(double*) + 2 * sizeof(int) && alignof(Class) == alignof(double*));
static_assert(std::is_standard_layout_v<Class> && !std::is_polymorphic_v<Class>);

DEFAULT_CONSTRUCTOR();
CONSTRUCTOR(int, double*);
CONSTRUCTOR(int, double, double*);
EXPLICIT_CONSTRUCTOR(int); // a size does not convert to a vector
CONSTRUCTOR(int, double);
CONSTRUCTOR(VecDbl const&);
CONSTRUCTOR(Vec3Dbl const&);
CONSTRUCTOR(VecFlt const&);
NO_CONSTRUCTOR(int, double const*);
NO_CONSTRUCTOR(double, double, double);
NO_CONSTRUCTOR(Vec2Dbl const&);
NO_CONSTRUCTOR(MatDbl const&);

MEMBER(operator=, VecDbl&(VecDbl const&));
MEMBER(operator=, VecDbl&(VecFlt const&));
MEMBER(ReSize, void(int, double*));
MEMBER(ReSize, void(int, double, double*));
ONLY_MEMBER(Size, int() const);
MEMBER(operator[], double&(int));
MEMBER(operator[], double const&(int) const);
MEMBER(operator(), double&(int));
MEMBER(operator(), double const&(int) const);
MEMBER(SetValue, VecDbl&(double));
MEMBER(SetValue, VecDbl&(double const*));
ONLY_MEMBER(GetValue, void(double*) const);

ONLY_MEMBER(operator==, int(VecDbl const&) const);
ONLY_MEMBER(operator!=, int(VecDbl const&) const);
ONLY_MEMBER(operator*=, VecDbl&(double));
ONLY_MEMBER(operator/=, VecDbl&(double));
ONLY_MEMBER(operator+=, VecDbl&(VecDbl const&));
ONLY_MEMBER(operator-=, VecDbl&(VecDbl const&));
ONLY_MEMBER(Negate, VecDbl&());
ONLY_MEMBER(GetNegatedCopy, VecDbl() const);
ONLY_MEMBER(Sum, double() const);
ONLY_MEMBER(LengthSquared, double() const);
ONLY_MEMBER(Length, double() const);
ONLY_MEMBER(Dot, double(VecDbl const&) const);
ONLY_MEMBER(Normalize, VecDbl&());
ONLY_MEMBER(GetNormalizedCopy, VecDbl() const);
ONLY_MEMBER(ElemMult, VecDbl(VecDbl const&) const);
ONLY_MEMBER(ElemDiv, VecDbl(VecDbl const&) const);
ONLY_MEMBER(GetProjectionOnTo, VecDbl(VecDbl const&) const);
ONLY_MEMBER(GetAngleWith, double(VecDbl const&) const);
ONLY_MEMBER(GetAreaFormedByTriangleWith, double(VecDbl const&) const);
ONLY_MEMBER(OuterProduct, MatDbl(VecDbl const&) const);

FREE(operator*, VecDbl(VecDbl const&, double));
FREE(operator*, VecDbl(double, VecDbl const&));
FREE(operator/, VecDbl(VecDbl const&, double));
FREE(operator-, VecDbl(VecDbl const&));
FREE(operator+, VecDbl(VecDbl const&, VecDbl const&));
FREE(operator-, VecDbl(VecDbl const&, VecDbl const&));

ONLY_MEMBER(MaxValue, double() const);
ONLY_MEMBER(MaxValueIdx, int() const);
ONLY_MEMBER(MinValue, double() const);
ONLY_MEMBER(MinValueIdx, int() const);
ONLY_MEMBER(MaxAbsValue, double() const);
ONLY_MEMBER(MaxAbsValueIdx, int() const);
ONLY_MEMBER(MinAbsValue, double() const);
ONLY_MEMBER(MinAbsValueIdx, int() const);

ONLY_MEMBER(IsNull, int() const);
ONLY_MEMBER(IsZeroLength, int(double) const);
ONLY_MEMBER(IsParallelTo, int(VecDbl const&, double, double) const);
ONLY_MEMBER(IsCodirectionalTo, int(VecDbl const&, double, double) const);
ONLY_MEMBER(IsPerpendicularTo, int(VecDbl const&, double, double) const);
ONLY_MEMBER(IsUnitParallelTo, int(VecDbl const&, double) const);
ONLY_MEMBER(IsUnitCodirectionalTo, int(VecDbl const&, double) const);
ONLY_MEMBER(IsUnitPerpendicularTo, int(VecDbl const&, double) const);
ONLY_MEMBER(IsEqualTo, int(VecDbl const&, double, double) const);

COMPILES_ONE(Class const, v, v.IsZeroLength());
COMPILES_ONE(Class const, v, v.IsEqualTo(v));
COMPILES_ONE(Class const, v, v.IsEqualTo(v, 0.0));
COMPILES_ONE(Class const, v, v.IsParallelTo(v));
COMPILES_ONE(Class const, v, v.IsCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsPerpendicularTo(v));
COMPILES_ONE(Class const, v, v.IsUnitParallelTo(v));
COMPILES_ONE(Class const, v, v.IsUnitCodirectionalTo(v));
COMPILES_ONE(Class const, v, v.IsUnitPerpendicularTo(v));
COMPILES_ONE(Class, v, v.ReSize(2));
COMPILES_ONE(Class, v, v.ReSize(2, 1.0));

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
REFUSED_TWO(Class, v, double, x, v.GetValue(x, x, x));
REFUSED_TWO(Class, v, double, x, v.SetValue(x, x, x));
REFUSED_ONE(Class, v, v.Init(1, nullptr)); // private

} // namespace
