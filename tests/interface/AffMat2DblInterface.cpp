#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = AffMat2Dbl;

// The translation is directly after the four elements.
static_assert(sizeof(Class) == 6 * sizeof(double) && alignof(Class) == alignof(double));
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
CONSTRUCTOR(Mat2Dbl const&, Vec2Dbl const&);
CONSTRUCTOR(AffMat2Dbl const&);
NO_CONSTRUCTOR(double); // unlike AffMat3Dbl
NO_CONSTRUCTOR(Mat2Dbl const&);

MEMBER(operator=, AffMat2Dbl&(AffMat2Dbl const&));
MEMBER(LinearPart, Mat2Dbl&());
MEMBER(LinearPart, Mat2Dbl const&() const);
MEMBER(Translation, Vec2Dbl&());
MEMBER(Translation, Vec2Dbl const&() const);
ONLY_MEMBER(SetLinearPart, AffMat2Dbl&(Mat2Dbl const&));
ONLY_MEMBER(SetTranslation, AffMat2Dbl&(Vec2Dbl const&));
MEMBER(operator(), double&(int, int));
MEMBER(operator(), double const&(int, int) const);
ONLY_MEMBER(Invert, AffMat2Dbl&());
ONLY_MEMBER(GetInvertedCopy, AffMat2Dbl() const);

FREE(operator*, AffMat2Dbl(AffMat2Dbl const&, AffMat2Dbl const&));
FREE(operator*, Pnt2Dbl(AffMat2Dbl const&, Pnt2Dbl const&));
FREE(operator*, Vec2Dbl(AffMat2Dbl const&, Vec2Dbl const&));
FREE(operator*, Vec2Flt(AffMat2Dbl const&, Vec2Flt const&));
FREE(operator*, Pnt2Flt(AffMat2Dbl const&, Pnt2Flt const&));

NO_MEMBER(SetRotation);
NO_MEMBER(GetCol);
NO_MEMBER(Identity);
NO_MEMBER(GetMatrixData);
NO_MEMBER(SetMatrixData);
REFUSED_ONE(Class, m, m == m);
REFUSED_ONE(Class, m, m != m);
REFUSED_ONE(Class, m, m + m);
REFUSED_ONE(Class, m, m - m);
REFUSED_ONE(Class, m, m += m);
REFUSED_ONE(Class, m, m -= m);
REFUSED_TWO(Class, m, double const, s, m *= s);
REFUSED_TWO(Class, m, double const, s, m /= s);
REFUSED_TWO(Class, m, Class const, n, m *= n);

} // namespace
