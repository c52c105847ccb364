#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Pnt3Dbl;

static_assert(sizeof(Class) == 3 * sizeof(double) && alignof(Class) == alignof(double));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(double));
static_assert(offsetof(Class, z) == 2 * sizeof(double));
static_assert(std::is_same_v<decltype(Class::x), double> && std::is_same_v<decltype(Class::z), double>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Pnt3Dbl() sets nothing to zero
CONSTRUCTOR(double);
CONSTRUCTOR(double, double, double);
CONSTRUCTOR(double*);
CONSTRUCTOR(Pnt3Dbl const&);
CONSTRUCTOR(Vec3Dbl const&);
CONSTRUCTOR(Pnt3Flt const&);
CONSTRUCTOR(Vec3Flt const&);
NO_CONSTRUCTOR(double const*);
NO_CONSTRUCTOR(double, double);
NO_CONSTRUCTOR(Pnt2Dbl const&);

MEMBER(operator=, Pnt3Dbl&(Pnt3Dbl const&));
MEMBER(operator=, Pnt3Dbl&(Vec3Dbl const&));
MEMBER(operator=, Pnt3Dbl&(Pnt3Flt const&));
MEMBER(operator=, Pnt3Dbl&(Vec3Flt const&));
MEMBER(SetValue, Pnt3Dbl&(double));
MEMBER(SetValue, Pnt3Dbl&(double, double, double));
MEMBER(SetValue, Pnt3Dbl&(double const*));
MEMBER(GetValue, void(double&, double&, double&)); // this form is not const
MEMBER(GetValue, void(double*) const);
NO_OVERLOAD(ConstGetValue, GetValue, void(double&, double&, double&) const);
MEMBER(operator[], double&(int));
MEMBER(operator[], double const&(int) const);
MEMBER(operator(), double&(int));
MEMBER(operator(), double const&(int) const);
ONLY_MEMBER(Vector, Vec3Dbl() const);
ONLY_MEMBER(ToPnt3Flt, Pnt3Flt() const);

MEMBER(operator+, Pnt3Dbl(Pnt3Dbl const&) const);
MEMBER(operator+, Pnt3Dbl(Vec3Dbl const&) const);
MEMBER(operator-, Vec3Dbl(Pnt3Dbl const&) const);
MEMBER(operator-, Pnt3Dbl(Vec3Dbl const&) const);
MEMBER(operator+=, Pnt3Dbl&(Pnt3Dbl const&));
MEMBER(operator+=, Pnt3Dbl&(Vec3Dbl const&));
ONLY_MEMBER(operator-=, Pnt3Dbl&(Vec3Dbl const&)); // none with a point
ONLY_MEMBER(operator*=, Pnt3Dbl&(double));
ONLY_MEMBER(operator/=, Pnt3Dbl&(double));
FREE(operator*, Pnt3Dbl(Pnt3Dbl const&, double));
FREE(operator*, Pnt3Dbl(double, Pnt3Dbl const&));
FREE(operator/, Pnt3Dbl(Pnt3Dbl const&, double));

ONLY_MEMBER(DistanceSqTo, double(Pnt3Dbl const&) const);
ONLY_MEMBER(DistanceTo, double(Pnt3Dbl const&) const);
ONLY_MEMBER(operator==, int(Pnt3Dbl const&) const);
ONLY_MEMBER(operator!=, int(Pnt3Dbl const&) const);
ONLY_MEMBER(operator<, bool(Pnt3Dbl const&) const); // bool in space, int in the plane
ONLY_MEMBER(IsEqualTo, int(Pnt3Dbl const&, double) const);
ONLY_MEMBER(IsLessThan, int(Pnt3Dbl const&) const);
ONLY_MEMBER(IsGreaterThan, int(Pnt3Dbl const&) const);

COMPILES_ONE(Class const, p, p.IsEqualTo(p));

NO_MEMBER(Length);
NO_MEMBER(LengthSquared);
NO_MEMBER(Normalize);
NO_MEMBER(GetNormalizedCopy);
NO_MEMBER(Negate);
NO_MEMBER(GetNegatedCopy);
NO_MEMBER(Dot);
NO_MEMBER(Cross);
NO_MEMBER(IsNull);
NO_MEMBER(IsZeroLength);
NO_MEMBER(IsParallelTo);
NO_MEMBER(IsCodirectionalTo);
NO_MEMBER(IsPerpendicularTo);
NO_MEMBER(MaxValue);
NO_MEMBER(MinValueIdx);
REFUSED_ONE(Class const, p, -p);
REFUSED_ONE(Class const, p, p* p);
REFUSED_ONE(Class const, p, p > p);
REFUSED_TWO(Class, p, Class const, q, p -= q);
REFUSED_TWO(Vec3Dbl const, v, Class const, p, v + p); // a point moves, a vector does not

} // namespace
