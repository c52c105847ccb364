#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Vec2Int;

static_assert(sizeof(int) == 4);
static_assert(sizeof(Class) == 2 * sizeof(int) && alignof(Class) == alignof(int));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(int));
static_assert(std::is_same_v<decltype(Class::x), int> && std::is_same_v<decltype(Class::y), int>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Vec2Int() sets nothing to zero
CONSTRUCTOR(int);
CONSTRUCTOR(int, int);
CONSTRUCTOR(int*);
CONSTRUCTOR(Vec2Int const&);
NO_CONSTRUCTOR(int const*);
NO_CONSTRUCTOR(Vec2Dbl const&); // no conversion to or from another class
NO_CONSTRUCTOR(Vec2Flt const&);
NO_CONSTRUCTOR(Pnt2Dbl const&);
NO_CONSTRUCTOR(Pnt2Flt const&);
static_assert(!std::is_constructible_v<Vec2Dbl, Class> && !std::is_assignable_v<Vec2Dbl&, Class>);
static_assert(!std::is_constructible_v<Vec2Flt, Class> && !std::is_assignable_v<Vec2Flt&, Class>);
static_assert(!std::is_constructible_v<Pnt2Dbl, Class> && !std::is_assignable_v<Pnt2Dbl&, Class>);
static_assert(!std::is_constructible_v<Pnt2Flt, Class> && !std::is_assignable_v<Pnt2Flt&, Class>);
static_assert(!std::is_assignable_v<Class&, Vec2Dbl> && !std::is_assignable_v<Class&, Pnt2Dbl>);

MEMBER(operator=, Vec2Int&(Vec2Int const&));
MEMBER(SetValue, Vec2Int&(int));
MEMBER(SetValue, Vec2Int&(int, int));
MEMBER(SetValue, Vec2Int&(int const*));
MEMBER(GetValue, void(int&, int&) const);
MEMBER(GetValue, void(int*) const);
MEMBER(operator[], int&(int));
MEMBER(operator[], int const&(int) const);
MEMBER(operator(), int&(int));
MEMBER(operator(), int const&(int) const);

ONLY_MEMBER(operator==, int(Vec2Int const&) const);
ONLY_MEMBER(operator!=, int(Vec2Int const&) const);
ONLY_MEMBER(IsEqualTo, int(Vec2Int const&) const); // no tolerances
ONLY_MEMBER(IsLessThan, int(Vec2Int const&) const);
ONLY_MEMBER(IsGreaterThan, int(Vec2Int const&) const);
ONLY_MEMBER(operator*=, Vec2Int&(int));
ONLY_MEMBER(operator+=, Vec2Int&(Vec2Int const&));
ONLY_MEMBER(operator-=, Vec2Int&(Vec2Int const&));
ONLY_MEMBER(Negate, Vec2Int&());
ONLY_MEMBER(GetNegatedCopy, Vec2Int() const);
ONLY_MEMBER(Length, int() const);
ONLY_MEMBER(Dot, int(Vec2Int const&) const);
ONLY_MEMBER(ElemMult, Vec2Int(Vec2Int const&) const);
ONLY_MEMBER(IsNull, int() const);
ONLY_MEMBER(IsZeroLength, int() const); // no argument
ONLY_MEMBER(MaxValue, int() const);
ONLY_MEMBER(MinValue, int() const);
ONLY_MEMBER(MaxAbsValue, int() const);
ONLY_MEMBER(MinAbsValue, int() const);
ONLY_MEMBER(MaxValueIdx, int() const);
ONLY_MEMBER(MinValueIdx, int() const);
ONLY_MEMBER(MaxAbsValueIdx, int() const);
ONLY_MEMBER(MinAbsValueIdx, int() const);

FREE(operator*, Vec2Int(Vec2Int const&, int));
FREE(operator*, Vec2Int(int, Vec2Int const&));
FREE(operator-, Vec2Int(Vec2Int const&));
FREE(operator+, Vec2Int(Vec2Int const&, Vec2Int const&));
FREE(operator-, Vec2Int(Vec2Int const&, Vec2Int const&));

NO_MEMBER(ElemDiv);
NO_MEMBER(LengthSquared);
NO_MEMBER(Cross);
NO_MEMBER(Normalize);
NO_MEMBER(GetNormalizedCopy);
NO_MEMBER(IsParallelTo);
NO_MEMBER(IsCodirectionalTo);
NO_MEMBER(IsPerpendicularTo);
NO_MEMBER(IsUnitParallelTo);
NO_MEMBER(IsUnitCodirectionalTo);
NO_MEMBER(IsUnitPerpendicularTo);
NO_MEMBER(GetAngleWith);
NO_MEMBER(GetCCWAngleWith);
NO_MEMBER(GetAreaFormedByTriangleWith);
NO_MEMBER(GetProjectionOnTo);
NO_MEMBER(GetPerpendicular);
NO_MEMBER(OuterProduct);
REFUSED_ONE(Class const, v, v < v);
REFUSED_ONE(Class const, v, v* v);
REFUSED_ONE(Class const, v, v / v);
REFUSED_TWO(Class const, v, int const, s, v / s);
REFUSED_TWO(Class, v, int const, s, v /= s);

} // namespace
