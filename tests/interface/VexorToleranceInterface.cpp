#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = VexorTolerance;

static_assert(sizeof(Class) == 4 * sizeof(float) && alignof(Class) == alignof(float));
static_assert(offsetof(Class, angle) == 0);
static_assert(offsetof(Class, sin2Angle) == sizeof(float));
static_assert(offsetof(Class, length) == 2 * sizeof(float));
static_assert(offsetof(Class, lengthSquared) == 3 * sizeof(float));
static_assert(
    std::is_same_v<decltype(Class::angle), float> && std::is_same_v<decltype(Class::sin2Angle), float>);
static_assert(
    std::is_same_v<decltype(Class::length), float> && std::is_same_v<decltype(Class::lengthSquared), float>);
static_assert(vexor_interface::isPlainValue<Class>);

// The global is not const: the client changes it.
static_assert(std::is_same_v<decltype(gVexorTolerance), VexorTolerance>);

DEFAULT_CONSTRUCTOR();
CONSTRUCTOR(VexorTolerance const&);
NO_CONSTRUCTOR(double);
NO_CONSTRUCTOR(double, double);

ONLY_MEMBER(SetAngle, void(double));
ONLY_MEMBER(GetAngle, float()); // none of the getters is const
ONLY_MEMBER(GetSin2Angle, float());
ONLY_MEMBER(SetLength, void(double));
ONLY_MEMBER(GetLength, float());
ONLY_MEMBER(GetLengthSquared, float());
static_assert(std::is_same_v<decltype(std::declval<Class&>() = std::declval<Class const&>()), Class&>);

REFUSED_ONE(Class const, t, t.GetAngle());
REFUSED_ONE(Class const, t, t.GetSin2Angle());
REFUSED_ONE(Class const, t, t.GetLength());
REFUSED_ONE(Class const, t, t.GetLengthSquared());
REFUSED_ONE(Class const, t, t == t);

} // namespace
