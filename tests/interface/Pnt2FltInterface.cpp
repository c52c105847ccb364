#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Pnt2Flt;

static_assert(sizeof(Class) == 2 * sizeof(float) && alignof(Class) == alignof(float));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(float));
static_assert(std::is_same_v<decltype(Class::x), float> && std::is_same_v<decltype(Class::y), float>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Pnt2Flt() sets nothing to zero
CONSTRUCTOR(float);
CONSTRUCTOR(float, float);
CONSTRUCTOR(float*);
CONSTRUCTOR(Pnt2Flt const&);
CONSTRUCTOR(Vec2Flt const&);
NO_CONSTRUCTOR(Pnt2Dbl const&); // to narrow, assign or call Pnt2Dbl::ToPnt2Flt
NO_CONSTRUCTOR(Vec2Dbl const&);
NO_CONSTRUCTOR(float const*);
NO_CONSTRUCTOR(double*);

MEMBER(operator=, Pnt2Flt&(Pnt2Flt const&));
MEMBER(operator=, Pnt2Flt&(Vec2Flt const&));
MEMBER(operator=, Pnt2Flt&(Pnt2Dbl const&));
MEMBER(operator=, Pnt2Flt&(Vec2Dbl const&));
MEMBER(SetValue, Pnt2Flt&(float));
MEMBER(SetValue, Pnt2Flt&(float, float));
MEMBER(SetValue, Pnt2Flt&(float const*));
MEMBER(GetValue, void(float&, float&)); // this form is not const
MEMBER(GetValue, void(float*) const);
NO_OVERLOAD(ConstGetValue, GetValue, void(float&, float&) const);
MEMBER(operator[], float&(int));
MEMBER(operator[], float const&(int) const);
MEMBER(operator(), float&(int));
MEMBER(operator(), float const&(int) const);
ONLY_MEMBER(Vector, Vec2Flt() const);

// Only double vectors move it; a Vec2Flt must be widened.
MEMBER(operator-, Vec2Flt(Pnt2Flt const&) const);
MEMBER(operator-, Pnt2Flt(Vec2Dbl const&) const);
NO_OVERLOAD(MinusVec2Flt, operator-, Pnt2Flt(Vec2Flt const&) const);
ONLY_MEMBER(operator+, Pnt2Flt(Vec2Dbl const&) const);
ONLY_MEMBER(operator+=, Pnt2Flt&(Vec2Dbl const&));
ONLY_MEMBER(operator-=, Pnt2Flt&(Vec2Dbl const&));
MEMBER(operator*=, Pnt2Flt&(float));
MEMBER(operator*=, Pnt2Flt&(double));
MEMBER(operator/=, Pnt2Flt&(float));
MEMBER(operator/=, Pnt2Flt&(double));
FREE(operator*, Pnt2Flt(Pnt2Flt const&, float));
FREE(operator*, Pnt2Flt(float, Pnt2Flt const&));
FREE(operator*, Pnt2Flt(Pnt2Flt const&, double));
FREE(operator*, Pnt2Flt(double, Pnt2Flt const&));
FREE(operator/, Pnt2Flt(Pnt2Flt const&, float));
FREE(operator/, Pnt2Flt(Pnt2Flt const&, double));

ONLY_MEMBER(DistanceSqTo, float(Pnt2Flt const&) const);
ONLY_MEMBER(DistanceTo, float(Pnt2Flt const&) const);
ONLY_MEMBER(operator==, int(Pnt2Flt const&) const);
ONLY_MEMBER(operator!=, int(Pnt2Flt const&) const);
ONLY_MEMBER(IsEqualTo, int(Pnt2Flt const&, double) const); // a float in space
ONLY_MEMBER(IsLessThan, int(Pnt2Flt const&) const);
ONLY_MEMBER(IsGreaterThan, int(Pnt2Flt const&) const);

COMPILES_ONE(Class const, p, p.IsEqualTo(p));
COMPILES_TWO(Class const, p, double const, s, p* s);
COMPILES_TWO(double const, s, Class const, p, s* p);
COMPILES_TWO(Class const, p, float const, s, p* s);
COMPILES_TWO(Class const, p, double const, s, p / s);

NO_MEMBER(ToPnt2Dbl);
NO_MEMBER(Length);
NO_MEMBER(Normalize);
NO_MEMBER(Negate);
NO_MEMBER(Dot);
NO_MEMBER(Cross);
NO_MEMBER(IsZeroLength);
NO_MEMBER(IsParallelTo);
REFUSED_ONE(Class const, p, -p);
REFUSED_ONE(Class const, p, p < p);
REFUSED_ONE(Class const, p, p + p);
REFUSED_TWO(Class, p, Class const, q, p += q);
REFUSED_TWO(Class, p, Class const, q, p -= q);
REFUSED_TWO(Class const, p, Pnt2Dbl const, q, p - q);
COMPILES_TWO(Class const, p, Vec2Flt const, w, p + w); // w widened
REFUSED_TWO(Class const, p, Vec2Flt const, w, p - w);  // w widened, or w as a point

} // namespace
