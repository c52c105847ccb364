// Compiled twice, without and with VEXOR_CHECKED, under a different name each. It uses only sizes and offsets
// and calls no member, so the two can be linked into one program.
#include "Layouts.h"

#include <vexor/vexor.h>

#include <cstddef>
#include <utility>

#if defined(VEXOR_CHECKED)
#    define LAYOUTS CheckedLayouts
#else
#    define LAYOUTS PlainLayouts
#endif

namespace {

template <class Class, std::size_t bytes>
struct Extended : Class {
    unsigned char behind[bytes];
};

template <class Class>
Layout Of(char const* name, std::vector<std::size_t> offsets = {})
{
    return Layout{name,
                  sizeof(Class),
                  alignof(Class),
                  {sizeof(Extended<Class, 1>), sizeof(Extended<Class, 2>), sizeof(Extended<Class, 3>),
                   sizeof(Extended<Class, 4>), sizeof(Extended<Class, 5>), sizeof(Extended<Class, 6>),
                   sizeof(Extended<Class, 7>), sizeof(Extended<Class, 8>)},
                  std::move(offsets)};
}

} // namespace

#define PLANE(Class) Of<Class>(#Class, {offsetof(Class, x), offsetof(Class, y)})
#define SPACE(Class) Of<Class>(#Class, {offsetof(Class, x), offsetof(Class, y), offsetof(Class, z)})

std::vector<Layout> LAYOUTS()
{
    return {
        SPACE(Vec3Dbl),
        SPACE(Vec3Flt),
        PLANE(Vec2Dbl),
        PLANE(Vec2Flt),
        PLANE(Vec2Int),
        SPACE(Pnt3Dbl),
        SPACE(Pnt3Flt),
        PLANE(Pnt2Dbl),
        PLANE(Pnt2Flt),
        Of<Mat3Dbl>("Mat3Dbl"),
        Of<Mat2Dbl>("Mat2Dbl"),
        Of<AffMat3Dbl>("AffMat3Dbl"),
        Of<AffMat2Dbl>("AffMat2Dbl"),
        Of<Quaternion>("Quaternion", {offsetof(Quaternion, u), offsetof(Quaternion, v),
                                      offsetof(Quaternion, w), offsetof(Quaternion, s)}),
        Of<VecDbl>("VecDbl"),
        Of<VecFlt>("VecFlt"),
        Of<MatDbl>("MatDbl"),
        Of<UInt64>("UInt64"),
        Of<VexorTolerance>("VexorTolerance"),
        Of<VexorException>("VexorException"),
    };
}
