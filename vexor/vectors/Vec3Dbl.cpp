#include <vexor/vectors/Vec3Dbl.h>

#include <vexor/foundation/detail/Elementary.h>
#include <vexor/vectors/private/UnitAxis.h>

using vexor::detail::Magnitude;

// In both orders `<` and `>` count as true and `<=` as false if an operand is NaN; C++ treats all of them as
// false. So `a < b` is written `!(a >= b)`.

void Vec3Dbl::ValueOrder(int& smallest, int& middle, int& largest) const
{
    int i0 = 0;
    int i1 = 0;
    if (y >= x) {
        if (!(z >= x)) {
            i0 = 2;
            i1 = 0;
        } else {
            i0 = 0;
            i1 = !(z >= y) ? 2 : 1;
        }
    } else {
        if (!(z >= y)) {
            i0 = 2;
            i1 = 1;
        } else {
            i0 = 1;
            i1 = !(z >= x) ? 2 : 0;
        }
    }
    smallest = i0;
    middle = i1;
    largest = 3 - i0 - i1;
}

void Vec3Dbl::AbsValueOrder(int& smallest, int& middle, int& largest) const
{
    double const a = Magnitude(x);
    double const b = Magnitude(y);
    double const c = Magnitude(z);
    int i0 = 0;
    int i1 = 0;
    if (a <= b) {
        if (!(a <= c)) {
            i0 = 2;
            i1 = 0;
        } else {
            i0 = 0;
            i1 = b <= c ? 1 : 2;
        }
    } else {
        if (!(b <= c)) {
            i0 = 2;
            i1 = 1;
        } else {
            i0 = 1;
            i1 = !(a <= c) ? 2 : 0;
        }
    }
    smallest = i0;
    middle = i1;
    largest = 3 - i0 - i1;
}

namespace {

bool IsZeroOrAtLeast(double component, double value, double least)
{
    return component == 0.0 || std::fabs(value) >= least;
}

/// Whether each component of `vector` is 0 or has at least the magnitude `least` in `values`.
bool AreZeroOrAtLeast(Vec3Dbl const& vector, Vec3Dbl const& values, double least)
{
    using vexor::detail::SmallerMagnitude;
    if (SmallerMagnitude(SmallerMagnitude(std::fabs(values.x), values.y), values.z) >= least)
        return true;
    return IsZeroOrAtLeast(vector.x, values.x, least) && IsZeroOrAtLeast(vector.y, values.y, least)
           && IsZeroOrAtLeast(vector.z, values.z, least);
}

double OverFullRange(Vec3Dbl const& from, Vec3Dbl const& to, Vec3Dbl const& normal)
{
    double const arrays[3][3] = {
        {from.x, from.y, from.z}, {to.x, to.y, to.z}, {normal.x, normal.y, normal.z}};
    return vexor::detail::FullRangeCounterClockwiseAngle(arrays[0], arrays[1], arrays[2]);
}

} // namespace

double Vec3Dbl::GetCCWAngleWith(Vec3Dbl const& other, Vec3Dbl const& normal) const
{
    double const squaredA = LengthSquared();
    double const squaredB = other.LengthSquared();
    if (!vexor::detail::IsPlainSum(squaredA) || !vexor::detail::IsPlainSum(squaredB))
        return OverFullRange(*this, other, normal);
    double const lengthTolerance = gVexorTolerance.lengthSquared;
    if (squaredA <= lengthTolerance || squaredB <= lengthTolerance)
        return 0.0;

    // Then nothing below underflows: for unit vectors with such components, each component of the cross
    // product is 0 or at least 2^-508, so its square is a normal number.
    Vec3Dbl const a = GetNormalizedCopy();
    Vec3Dbl const b = other.GetNormalizedCopy();
    if (!AreZeroOrAtLeast(*this, a, 0x1p-228) || !AreZeroOrAtLeast(other, b, 0x1p-228)
        || !AreZeroOrAtLeast(normal, normal, 0x1p-500))
        return OverFullRange(*this, other, normal);

    if (a.IsEqualTo(b, -1.0, -1.0))
        return 0.0;
    if (a.IsEqualTo(-b, -1.0, -1.0))
        return vexor::detail::pi;

    double const angle = a.GetAngleWith(b);
    Vec3Dbl const cross = a.Cross(b);
    if (cross.IsZeroLength(-1.0))
        return a.Dot(b) < 0.0 ? vexor::detail::pi : 0.0;
    return normal.Dot(cross) < 0.0 ? vexor::detail::twoPi - angle : angle;
}

Vec3Dbl Vec3Dbl::GetPerpendicular() const
{
    int smallest = 0;
    int middle = 0;
    int largest = 0;
    AbsValueOrder(smallest, middle, largest);

    Vec3Dbl result(0.0);
    result[largest] = (*this)[smallest];
    result[smallest] = -(*this)[largest];
    if (result.LengthSquared() <= gVexorTolerance.lengthSquared)
        result[smallest] = 1.0;
    return result.Normalize();
}

Vec3Dbl Vec3Dbl::GetPerpendicularNearestTo(Vec3Dbl const& reference) const
{
    Vec3Dbl const towards = Cross(reference).Cross(*this);
    if (towards.LengthSquared() <= gVexorTolerance.lengthSquared)
        return GetPerpendicular();
    return towards.GetNormalizedCopy();
}

Vec3Dbl& Vec3Dbl::Rotate(Vec3Dbl const& axis, double angle)
{
    VEXOR_CHECK(vexor::detail::IsRotationAxis(axis), "Rotate about an axis that is not a unit vector");
    Vec3Dbl const p = axis.GetPerpendicular();
    Vec3Dbl const q = axis.Cross(p);
    double const alongP = Dot(p);
    double const alongQ = Dot(q);
    double const alongAxis = Dot(axis);
    auto const [s, c] = vexor::detail::SinCos(angle);
    return *this = ((c * alongP - s * alongQ) * p + (c * alongQ + s * alongP) * q) + alongAxis * axis;
}
