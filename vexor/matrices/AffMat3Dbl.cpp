#include <vexor/matrices/AffMat3Dbl.h>

#include <vexor/vectors/private/UnitAxis.h>

AffMat3Dbl& AffMat3Dbl::Invert()
{
    linearPart.Invert();
    translation = -(linearPart * translation);
    return *this;
}

AffMat3Dbl AffMat3Dbl::GetInvertedCopy() const
{
    AffMat3Dbl copy(*this);
    copy.Invert();
    return copy;
}

AffMat3Dbl& AffMat3Dbl::SetRotation(Pnt3Dbl const& point, Vec3Dbl const& axis, double angle)
{
    VEXOR_CHECK(vexor::detail::IsRotationAxis(axis), "SetRotation about an axis that is not a unit vector");
    Mat3Dbl rotation;
    for (unsigned int i = 0; i < 3; ++i) {
        Vec3Dbl unit(0.0);
        unit[static_cast<int>(i)] = 1.0;
        rotation.SetCol(i, unit.Rotate(axis, angle));
    }

    Mat3Dbl unitMatrix;
    unitMatrix.Identity();
    AffMat3Dbl const toOrigin(unitMatrix, -point.Vector());
    AffMat3Dbl const rotate(rotation, Vec3Dbl(0.0));
    AffMat3Dbl const back(unitMatrix, point.Vector());
    return *this = (back * rotate) * toOrigin;
}

AffMat3Dbl& AffMat3Dbl::SetRotation(Pnt3Dbl const& point, Vec3Dbl const& from, Vec3Dbl const& to)
{
    Vec3Dbl axis = from.Cross(to);
    double const shortest = gVexorTolerance.lengthSquared;
    if (axis.LengthSquared() <= shortest || from.LengthSquared() <= shortest || to.IsZeroLength(-1.0))
        return Identity();
    axis.Normalize();
    return SetRotation(point, axis, from.GetCCWAngleWith(to, axis));
}
