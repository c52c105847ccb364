#include <vexor/vectors/detail/FullRange.h>

#include <vexor/foundation/detail/Raise.h>
#include <vexor/foundation/detail/Scalar.h>

namespace vexor::detail {
namespace {

constexpr double bigStep = 0x1p600;

double PlainLength(double x, double y, double z)
{
    return SquareRoot((x * x + y * y) + z * z);
}

bool AreFinite(double x, double y, double z)
{
    return std::isfinite(x) && std::isfinite(y) && std::isfinite(z);
}

bool Overflows(double x, double y, double z)
{
    return std::isinf((x * x + y * y) + z * z);
}

} // namespace

double FullRangeLength(double x, double y, double z)
{
    if (!AreFinite(x, y, z))
        return PlainLength(x, y, z);
    // Up: every component, down to the smallest denormal, then has a square in the normal range.
    // Down: a component that loses digits here has a square far below the sum's last place.
    double const up = Overflows(x, y, z) ? 1.0 / bigStep : bigStep;
    return PlainLength(x * up, y * up, z * up) / up;
}

void FullRangeNormalize(double& x, double& y, double& z)
{
    if (x == 0.0 && y == 0.0 && z == 0.0)
        RaiseNullVector();

    double scale = 1.0;
    double length = 0.0;
    if (!AreFinite(x, y, z)) {
        length = PlainLength(x, y, z);
    } else if (!Overflows(x, y, z)) {
        // The length of tiny components may be denormal, with digits lost: divide scaled by scaled.
        scale = bigStep;
        length = PlainLength(x * scale, y * scale, z * scale);
    } else {
        length = FullRangeLength(x, y, z);
        if (std::isinf(length)) {
            // At most twice the largest double. A component that loses digits to this scale has a
            // quotient that vanishes anyway.
            scale = 0x1p-4;
            length = FullRangeLength(x * scale, y * scale, z * scale);
        }
    }
    x = x * scale / length;
    y = y * scale / length;
    z = z * scale / length;
}

} // namespace vexor::detail
