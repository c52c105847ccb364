#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Pnt3Flt;

static_assert(sizeof(Class) == 3 * sizeof(float) && alignof(Class) == alignof(float));
static_assert(offsetof(Class, x) == 0);
static_assert(offsetof(Class, y) == sizeof(float));
static_assert(offsetof(Class, z) == 2 * sizeof(float));
static_assert(std::is_same_v<decltype(Class::x), float> && std::is_same_v<decltype(Class::z), float>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
static_assert(!std::is_trivially_default_constructible_v<Class>); // Pnt3Flt() sets nothing to zero
CONSTRUCTOR(float);
CONSTRUCTOR(float, float, float);
CONSTRUCTOR(float*);
CONSTRUCTOR(Pnt3Flt const&);
CONSTRUCTOR(Vec3Flt const&);
NO_CONSTRUCTOR(Pnt3Dbl const&); // to narrow, assign or call Pnt3Dbl::ToPnt3Flt
NO_CONSTRUCTOR(Vec3Dbl const&);
NO_CONSTRUCTOR(float const*);
NO_CONSTRUCTOR(double*);
NO_CONSTRUCTOR(float, float);

MEMBER(operator=, Pnt3Flt&(Pnt3Flt const&));
MEMBER(operator=, Pnt3Flt&(Vec3Flt const&));
MEMBER(operator=, Pnt3Flt&(Pnt3Dbl const&));
MEMBER(operator=, Pnt3Flt&(Vec3Dbl const&));
MEMBER(SetValue, Pnt3Flt&(float));
MEMBER(SetValue, Pnt3Flt&(float, float, float));
MEMBER(SetValue, Pnt3Flt&(float const*));
MEMBER(GetValue, void(float&, float&, float&)); // this form is not const
MEMBER(GetValue, void(float*) const);
NO_OVERLOAD(ConstGetValue, GetValue, void(float&, float&, float&) const);
MEMBER(operator[], float&(int));
MEMBER(operator[], float const&(int) const);
MEMBER(operator(), float&(int));
MEMBER(operator(), float const&(int) const);
ONLY_MEMBER(Vector, Vec3Flt() const);

MEMBER(operator+, Pnt3Flt(Pnt3Flt const&) const);
MEMBER(operator+, Pnt3Flt(Vec3Flt const&) const);
MEMBER(operator-, Vec3Flt(Pnt3Flt const&) const);
MEMBER(operator-, Pnt3Flt(Vec3Flt const&) const);
MEMBER(operator+=, Pnt3Flt&(Pnt3Flt const&));
MEMBER(operator+=, Pnt3Flt&(Vec3Flt const&));
ONLY_MEMBER(operator-=, Pnt3Flt&(Vec3Flt const&)); // none with a point
ONLY_MEMBER(operator*=, Pnt3Flt&(float));
ONLY_MEMBER(operator/=, Pnt3Flt&(float));
FREE(operator*, Pnt3Flt(Pnt3Flt const&, float));
FREE(operator*, Pnt3Flt(float, Pnt3Flt const&));
FREE(operator/, Pnt3Flt(Pnt3Flt const&, float));

ONLY_MEMBER(DistanceSqTo, float(Pnt3Flt const&) const);
ONLY_MEMBER(DistanceTo, float(Pnt3Flt const&) const);
ONLY_MEMBER(operator==, int(Pnt3Flt const&) const);
ONLY_MEMBER(operator!=, int(Pnt3Flt const&) const);
ONLY_MEMBER(operator<, bool(Pnt3Flt const&) const);
ONLY_MEMBER(IsEqualTo, int(Pnt3Flt const&, float) const); // a double in the plane
ONLY_MEMBER(IsLessThan, int(Pnt3Flt const&) const);
ONLY_MEMBER(IsGreaterThan, int(Pnt3Flt const&) const);

COMPILES_ONE(Class const, p, p.IsEqualTo(p));

NO_MEMBER(ToPnt3Dbl);
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
REFUSED_TWO(Class const, p, Vec3Dbl const, v, p + v);
REFUSED_TWO(Class, p, Vec3Dbl const, v, p += v);
REFUSED_TWO(Class const, p, double const, s, p* s); // floats or doubles: ambiguous
REFUSED_TWO(Class const, p, double const, s, p / s);

} // namespace
