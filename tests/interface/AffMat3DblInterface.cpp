#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = AffMat3Dbl;

static_assert(sizeof(Class) == sizeof(Mat3Dbl) + sizeof(Vec3Dbl) && alignof(Class) == alignof(double));
static_assert(std::is_standard_layout_v<Class> && !std::is_polymorphic_v<Class>);
static_assert(std::is_trivially_destructible_v<Class>);
static_assert(!std::is_trivially_copyable_v<Class>); // the pivot order is not copied

DEFAULT_CONSTRUCTOR();
CONSTRUCTOR(double);
CONSTRUCTOR(Mat3Dbl const&, Vec3Dbl const&);
CONSTRUCTOR(AffMat3Dbl const&);
NO_CONSTRUCTOR(Mat3Dbl const&);
NO_CONSTRUCTOR(double*);

MEMBER(operator=, AffMat3Dbl&(AffMat3Dbl const&));
ONLY_MEMBER(operator==, int(AffMat3Dbl const&) const);
ONLY_MEMBER(operator!=, int(AffMat3Dbl const&) const);
MEMBER(LinearPart, Mat3Dbl&());
MEMBER(LinearPart, Mat3Dbl const&() const);
MEMBER(Translation, Vec3Dbl&());
MEMBER(Translation, Vec3Dbl const&() const);
ONLY_MEMBER(SetLinearPart, AffMat3Dbl&(Mat3Dbl const&));
MEMBER(SetTranslation, AffMat3Dbl&(Vec3Dbl const&));
MEMBER(SetTranslation, AffMat3Dbl&(Pnt3Dbl const&, Pnt3Dbl const&));
MEMBER(operator(), double&(int, int));
MEMBER(operator(), double const&(int, int) const);
ONLY_MEMBER(GetCol, Vec3Dbl(int) const);
MEMBER(GetMatrixData, void(double*) const);
MEMBER(GetMatrixData, void(double (*)[4]) const);
MEMBER(SetMatrixData, void(double*));
MEMBER(SetMatrixData, void(double (*)[4]));

ONLY_MEMBER(operator+=, AffMat3Dbl&(AffMat3Dbl const&));
ONLY_MEMBER(operator-=, AffMat3Dbl&(AffMat3Dbl const&));
ONLY_MEMBER(operator*=, AffMat3Dbl&(double));
ONLY_MEMBER(operator/=, AffMat3Dbl&(double));
ONLY_MEMBER(operator+, AffMat3Dbl(AffMat3Dbl const&)); // members, and not const
ONLY_MEMBER(operator-, AffMat3Dbl(AffMat3Dbl const&));

ONLY_MEMBER(Identity, AffMat3Dbl&());
ONLY_MEMBER(Invert, AffMat3Dbl&());
ONLY_MEMBER(GetInvertedCopy, AffMat3Dbl() const);
MEMBER(SetRotation, AffMat3Dbl&(Pnt3Dbl const&, Vec3Dbl const&, double));
MEMBER(SetRotation, AffMat3Dbl&(Pnt3Dbl const&, Vec3Dbl const&, Vec3Dbl const&));

FREE(operator*, AffMat3Dbl(AffMat3Dbl const&, AffMat3Dbl const&));
FREE(operator*, Pnt3Dbl(AffMat3Dbl const&, Pnt3Dbl const&));
FREE(operator*, Vec3Dbl(AffMat3Dbl const&, Vec3Dbl const&));
FREE(operator*, Vec3Flt(AffMat3Dbl const&, Vec3Flt const&));
FREE(operator*, Pnt3Flt(AffMat3Dbl const&, Pnt3Flt const&));

NO_MEMBER(GetRow);
NO_MEMBER(SetCol);
NO_MEMBER(Transpose);
NO_MEMBER(Negate);
REFUSED_TWO(Class const, m, Class const, n, m + n);
REFUSED_TWO(Class const, m, Class const, n, m - n);
REFUSED_ONE(Class const, m, -m);
REFUSED_ONE(Class const, m, m < m);

} // namespace
