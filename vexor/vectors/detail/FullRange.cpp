#include <vexor/vectors/detail/FullRange.h>

#include <vexor/foundation/detail/Raise.h>
#include <vexor/foundation/VexorTolerance.h>
#include <vexor/vectors/private/Wide.h>

namespace vexor::detail {
namespace {

/// The start of a sum that does not start from 0: adding −0 changes no term.
constexpr double noStart = -0.0;

bool AreNull(double const* values, int count)
{
    for (int i = 0; i < count; ++i) {
        if (!(values[i] == 0.0))
            return false;
    }
    return true;
}

Wide Dot(double const* left, double const* right, int count)
{
    Wide sum(noStart);
    for (int i = 0; i < count; ++i)
        sum = sum + Wide(left[i]) * Wide(right[i]);
    return sum;
}

Wide Length(double const* values, int count)
{
    return SquareRoot(Dot(values, values, count));
}

double ArcCosine(Wide const& d, Wide const& leftLength, Wide const& rightLength)
{
    return ClampedArcCosine(Narrow((d / leftLength) / rightLength));
}

struct Three {
    Wide x;
    Wide y;
    Wide z;
};

Three Unit(double const* values)
{
    Wide const length = Length(values, 3);
    return {Wide(values[0]) / length, Wide(values[1]) / length, Wide(values[2]) / length};
}

Wide Dot(Three const& a, Three const& b)
{
    return (a.x * b.x + a.y * b.y) + a.z * b.z;
}

Wide SquaredDistance(Three const& a, Three const& b)
{
    Three const difference = {a.x - b.x, a.y - b.y, a.z - b.z};
    return Dot(difference, difference);
}

} // namespace

double FullRangeLength(double const* values, int count)
{
    return AreNull(values, count) ? 0.0 : Narrow(Length(values, count));
}

void FullRangeNormalize(double* values, int count)
{
    if (AreNull(values, count))
        RaiseNullVector();
    Wide const length = Length(values, count);
    for (int i = 0; i < count; ++i)
        values[i] = NarrowQuotient(Wide(values[i]), length);
}

double FullRangeAngle(double const* left, double const* right, int count)
{
    if (AreNull(left, count) || AreNull(right, count))
        return 0.0;
    return ArcCosine(Dot(left, right, count), Length(left, count), Length(right, count));
}

double FullRangeArea(double const* left, double const* right)
{
    Wide const d = Dot(left, right, 3);
    Wide const difference = Dot(left, left, 3) * Dot(right, right, 3) - d * d;
    return NarrowProduct(Wide(0.5), SquareRoot(difference));
}

double FullRangePlaneArea(double const* left, double const* right)
{
    if ((left[0] == 0.0 || right[1] == 0.0) && (left[1] == 0.0 || right[0] == 0.0))
        return 0.5 * (left[0] * right[1] - left[1] * right[0]); // of two exact zeros
    return NarrowProduct(Wide(0.5), Wide(left[0]) * Wide(right[1]) - Wide(left[1]) * Wide(right[0]));
}

void FullRangeProjection(double* result, double const* vector, double const* target, int count, double start)
{
    if (AreNull(target, count))
        RaiseNullVector();
    Wide const length = Length(target, count);
    Wide along(start);
    for (int i = 0; i < count; ++i)
        along = along + Wide(vector[i]) * (Wide(target[i]) / length);
    for (int i = 0; i < count; ++i)
        result[i] = NarrowProduct(along, Wide(target[i]) / length);
}

double FullRangeDistance(double const* from, double const* to, int count)
{
    Wide sum(noStart);
    for (int i = 0; i < count; ++i) {
        Wide const difference = Wide(from[i]) - Wide(to[i]);
        sum = sum + difference * difference;
    }
    return Narrow(SquareRoot(sum));
}

double FullRangeCounterClockwiseAngle(double const* from, double const* to, double const* normal)
{
    Wide const zero(0.0);
    Wide const limit(double(gVexorTolerance.lengthSquared));
    if (Dot(from, from, 3) <= limit || Dot(to, to, 3) <= limit)
        return 0.0;

    Three const a = Unit(from);
    Three const b = Unit(to);
    Wide const d = Dot(a, b);
    Wide const squaredA = Dot(a, a);
    Wide const squaredB = Dot(b, b);
    Wide const sine = Wide(1.0) - ((d * d) / squaredA) / squaredB;
    if (!(squaredA <= limit) && !(squaredB <= limit) && sine <= Wide(double(gVexorTolerance.sin2Angle))) {
        if (!(d <= zero) && SquaredDistance(a, b) <= limit)
            return 0.0;
        if (!(-d <= zero) && SquaredDistance(a, {-b.x, -b.y, -b.z}) <= limit)
            return pi;
    }

    Three const cross = {a.y * b.z - b.y * a.z, a.z * b.x - a.x * b.z, b.y * a.x - a.y * b.x};
    if (Dot(cross, cross) <= limit)
        return d.Significand() < 0.0 ? pi : 0.0;
    double const angle = ArcCosine(d, SquareRoot(squaredA), SquareRoot(squaredB));
    Wide const side = Dot({Wide(normal[0]), Wide(normal[1]), Wide(normal[2])}, cross);
    return side.Significand() < 0.0 ? twoPi - angle : angle;
}

} // namespace vexor::detail
