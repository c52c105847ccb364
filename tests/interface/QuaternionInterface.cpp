#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = Quaternion;

static_assert(sizeof(Class) == 4 * sizeof(double) && alignof(Class) == alignof(double));
static_assert(offsetof(Class, u) == 0); // the vector part is laid out as a Vec3Dbl
static_assert(offsetof(Class, v) == sizeof(double));
static_assert(offsetof(Class, w) == 2 * sizeof(double));
static_assert(offsetof(Class, s) == 3 * sizeof(double)); // the scalar is last
static_assert(std::is_same_v<decltype(Class::u), double> && std::is_same_v<decltype(Class::s), double>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
CONSTRUCTOR(Quaternion const&);
CONSTRUCTOR(double, double, double, double, int);
CONSTRUCTOR(Vec3Dbl const&, double, int);
CONSTRUCTOR(Mat3Dbl const&);
NO_CONSTRUCTOR(double*);

MEMBER(operator=, Quaternion&(Quaternion const&));
MEMBER(operator[], double&(int));
MEMBER(operator[], double const&(int) const);
ONLY_MEMBER(operator==, bool(Quaternion const&) const);
ONLY_MEMBER(operator!=, bool(Quaternion const&) const);
ONLY_MEMBER(operator<, bool(Quaternion const&) const);
ONLY_MEMBER(GetSParam, double());    // not const, unlike every other query
ONLY_MEMBER(GetUvwParam, Vec3Dbl()); // not const, unlike every other query
ONLY_MEMBER(Identity, Quaternion&());
ONLY_MEMBER(IsIdentity, int() const);
ONLY_MEMBER(SetValue, Quaternion&(double, double, double, double, int));
ONLY_MEMBER(Normalize, Quaternion&());
ONLY_MEMBER(Invert, Quaternion&());
ONLY_MEMBER(NegateAngle, Quaternion&());
ONLY_MEMBER(Inverse, Quaternion() const);
ONLY_MEMBER(operator*, Quaternion(Quaternion const&) const); // a member, and the only product
MEMBER(RotatePoint, Vec3Dbl(Vec3Dbl const&) const);
MEMBER(RotatePoint, Pnt3Dbl(Pnt3Dbl const&) const);
ONLY_MEMBER(GetAngle, double() const);
ONLY_MEMBER(GetAbsoluteAngle, double() const);
ONLY_MEMBER(Distance, double(Quaternion const&) const);

MEMBER(SetAxisAngle, Quaternion&(Vec3Dbl const&, double, int));
MEMBER(SetAxisAngle, Quaternion&(double, double, double, double, int));
ONLY_MEMBER(SetAxisCosAngle, Quaternion&(Vec3Dbl const&, double, int));
ONLY_MEMBER(SetFromMatrix, Quaternion&(Mat3Dbl const&));
ONLY_MEMBER(GetRotationMatrix, void(Mat3Dbl&) const);
ONLY_MEMBER(GetEulerAngles, Vec3Dbl() const);
ONLY_MEMBER(SetFromEulerAngles, Quaternion&(Vec3Dbl&)); // a reference that is not const
ONLY_MEMBER(GetAxis, Vec3Dbl(int) const);
ONLY_MEMBER(GetCol, Vec3Dbl(int) const);
ONLY_MEMBER(GetRow, Vec3Dbl(int) const);
ONLY_MEMBER(XAxis, Vec3Dbl() const);
ONLY_MEMBER(YAxis, Vec3Dbl() const);
ONLY_MEMBER(ZAxis, Vec3Dbl() const);

NO_MEMBER(Length);
NO_MEMBER(GetNormalizedCopy);
NO_MEMBER(GetInvertedCopy);
REFUSED_ONE(Class const, q, q.GetSParam());
REFUSED_ONE(Class const, q, q.GetUvwParam());
REFUSED_ONE(Class const, q, q + q);
REFUSED_ONE(Class const, q, q - q);
REFUSED_ONE(Class const, q, -q);
REFUSED_ONE(Class const, q, q > q);
REFUSED_ONE(Class const, q, q(0));
REFUSED_TWO(Class, q, Class const, r, q *= r);
REFUSED_TWO(Class const, q, double const, s, q* s);
REFUSED_TWO(Class const, q, Vec3Dbl const, v, q* v);
REFUSED_TWO(Class, q, Vec3Dbl const, e, q.SetFromEulerAngles(e));

} // namespace
