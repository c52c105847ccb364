#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Pnt2Dbl;

static_assert(sizeof(Class) == 2 * sizeof(double) && alignof(Class) == alignof(double));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(double));
static_assert(std::is_same_v<decltype(Class::x), double> && std::is_same_v<decltype(Class::y), double>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Pnt2Dbl() sets nothing to zero
CONSTRUCTOR(double);
CONSTRUCTOR(double, double);
CONSTRUCTOR(double*);
CONSTRUCTOR(Pnt2Dbl const&);
CONSTRUCTOR(Vec2Dbl const&);
CONSTRUCTOR(Pnt2Flt const&);
CONSTRUCTOR(Vec2Flt const&);
NO_CONSTRUCTOR(double const*);
NO_CONSTRUCTOR(double, double, double);
NO_CONSTRUCTOR(Pnt3Dbl const&);

MEMBER(operator=, Pnt2Dbl&(Pnt2Dbl const&));
MEMBER(operator=, Pnt2Dbl&(Vec2Dbl const&));
MEMBER(operator=, Pnt2Dbl&(Pnt2Flt const&));
MEMBER(operator=, Pnt2Dbl&(Vec2Flt const&));
MEMBER(SetValue, Pnt2Dbl&(double));
MEMBER(SetValue, Pnt2Dbl&(double, double));
MEMBER(SetValue, Pnt2Dbl&(double const*));
MEMBER(GetValue, void(double&, double&)); // this form is not const
MEMBER(GetValue, void(double*) const);
NO_OVERLOAD(ConstGetValue, GetValue, void(double&, double&) const);
MEMBER(operator[], double&(int));
MEMBER(operator[], double const&(int) const);
MEMBER(operator(), double&(int));
MEMBER(operator(), double const&(int) const);
ONLY_MEMBER(Vector, Vec2Dbl() const);
ONLY_MEMBER(ToPnt2Flt, Pnt2Flt() const);

MEMBER(operator+, Pnt2Dbl(Pnt2Dbl const&) const);
MEMBER(operator+, Pnt2Dbl(Vec2Dbl const&) const);
MEMBER(operator-, Vec2Dbl(Pnt2Dbl const&) const);
MEMBER(operator-, Pnt2Dbl(Vec2Dbl const&) const);
MEMBER(operator+=, Pnt2Dbl&(Pnt2Dbl const&));
MEMBER(operator+=, Pnt2Dbl&(Vec2Dbl const&));
ONLY_MEMBER(operator-=, Pnt2Dbl&(Vec2Dbl const&)); // none with a point
ONLY_MEMBER(operator*=, Pnt2Dbl&(double));
ONLY_MEMBER(operator/=, Pnt2Dbl&(double));
FREE(operator*, Pnt2Dbl(Pnt2Dbl const&, double));
FREE(operator*, Pnt2Dbl(double, Pnt2Dbl const&));
FREE(operator/, Pnt2Dbl(Pnt2Dbl const&, double));

ONLY_MEMBER(DistanceSqTo, double(Pnt2Dbl const&) const);
ONLY_MEMBER(DistanceTo, double(Pnt2Dbl const&) const);
ONLY_MEMBER(operator==, int(Pnt2Dbl const&) const);
ONLY_MEMBER(operator!=, int(Pnt2Dbl const&) const);
ONLY_MEMBER(operator<, int(Pnt2Dbl const&) const); // int in the plane, bool in space
ONLY_MEMBER(IsEqualTo, int(Pnt2Dbl const&, double) const);
ONLY_MEMBER(IsLessThan, int(Pnt2Dbl const&) const);
ONLY_MEMBER(IsGreaterThan, int(Pnt2Dbl const&) const);

COMPILES_ONE(Class const, p, p.IsEqualTo(p));

NO_MEMBER(Length);
NO_MEMBER(Normalize);
NO_MEMBER(Negate);
NO_MEMBER(Dot);
NO_MEMBER(Cross);
NO_MEMBER(IsZeroLength);
NO_MEMBER(IsParallelTo);
REFUSED_ONE(Class const, p, -p);
REFUSED_ONE(Class const, p, p* p);
REFUSED_TWO(Class, p, Class const, q, p -= q);

} // namespace
