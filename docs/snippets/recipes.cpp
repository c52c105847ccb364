// [includes]
#include <vexor/extras/make.h>
#include <vexor/extras/stream.h>
#include <vexor/vexor.h>

#include <cmath>
#include <iomanip>
#include <iostream>
#include <vector>
// [includes]

namespace {

double const pi = 3.141592653589793;

// [centroid]
Pnt3Dbl Centroid(std::vector<Pnt3Dbl> const& points)
{
    Vec3Dbl sum(0.0);
    for (Pnt3Dbl const& point : points)
        sum += point - points.front(); // no digits are lost far from the origin
    return points.front() + sum / static_cast<double>(points.size());
}
// [centroid]

void FitAPlane()
{
    // [plane]
    std::vector<Pnt3Dbl> const points = {Pnt3Dbl(0, 0, 1.01), Pnt3Dbl(4, 0, 2.99), Pnt3Dbl(4, 4, 2.01),
                                         Pnt3Dbl(0, 4, -0.01)};
    Pnt3Dbl const centre = Centroid(points);
    MatDbl rows(static_cast<int>(points.size()), 3);
    for (int i = 0; i < rows.RowCount(); ++i)
        rows.SetRow(i, points[static_cast<std::size_t>(i)] - centre);
    VecDbl spread;
    rows.Svd(spread);               // the right singular vectors replace the first rows
    Vec3Dbl normal(rows.GetRow(2)); // the direction of the smallest spread
    if (normal.z < 0.0)
        normal.Negate(); // the solver leaves the sign open
    double worst = 0.0;
    for (Pnt3Dbl const& point : points)
        worst = std::fmax(worst, std::fabs((point - centre).Dot(normal)));
    std::cout << "a plane through " << centre << " with the normal " << normal << ", off by " << worst
              << '\n';
    // [plane]
}

void MoveAFrame()
{
    // [frame]
    // The axes of a tool as columns, and its origin, all in the coordinates of the room.
    AffMat3Dbl tool(vexor::FromColumns(Vec3Dbl(0, 1, 0), Vec3Dbl(-1, 0, 0), Vec3Dbl(0, 0, 1)),
                    Vec3Dbl(3, 1, 0));
    Pnt3Dbl const tip(2, 0, 0); // in the coordinates of the tool
    std::cout << "the tip in the room: " << tool * tip << '\n';

    AffMat3Dbl const swing = vexor::RotationAboutLine(Pnt3Dbl(0, 0, 0), Vec3Dbl(0, 0, 1), pi / 6);
    tool = swing * tool; // moved about the room's axis; tool * swing would turn it about its own
    std::cout << "after the swing:     " << tool * tip << '\n'
              << "back in the tool:    " << tool.GetInvertedCopy() * (tool * tip) << '\n';
    // [frame]
}

void SolveAndReSolve()
{
    // [resolve]
    // Three equal springs in a row: the stiffness matrix, and the forces on their ends.
    MatDbl stiffness(3, 3, 0.0);
    stiffness.SetDiagonal(2.0);
    stiffness(2, 2) = 1.0; // the last end is free
    stiffness(0, 1) = stiffness(1, 0) = stiffness(1, 2) = stiffness(2, 1) = -1.0;

    VecDbl pulled(3, 0.0);
    pulled[2] = 1.0;            // a force on the free end
    stiffness.Solve(pulled);    // the displacements; the factors replace the matrix
    VecDbl hanging(3, 1.0);     // a force on each end
    stiffness.ReSolve(hanging); // from the same factors
    std::cout << "pulled:  " << pulled << '\n' << "hanging: " << hanging << '\n';
    // [resolve]
}

void AlignTwoClouds()
{
    std::vector<Pnt3Dbl> const fixed = {Pnt3Dbl(0, 0, 0), Pnt3Dbl(3, 0, 0), Pnt3Dbl(3, 2, 0),
                                        Pnt3Dbl(0, 2, 1)};
    std::vector<Pnt3Dbl> moving;
    AffMat3Dbl const away = vexor::AffineMap(Quaternion(Vec3Dbl(0, 0, 1), -pi / 3, 0), Vec3Dbl(5, 1, 2));
    for (Pnt3Dbl const& point : fixed)
        moving.push_back(away * point);

    // [align]
    // The rigid motion that takes each point of `moving` nearest to the one of `fixed` with the same index.
    Pnt3Dbl const fixedCentre = Centroid(fixed);
    Pnt3Dbl const movingCentre = Centroid(moving);
    Mat3Dbl correlation(0.0);
    for (std::size_t i = 0; i < fixed.size(); ++i)
        correlation += (fixed[i] - fixedCentre).OuterProduct(moving[i] - movingCentre);

    Mat3Dbl left(correlation);
    Vec3Dbl values;
    left.Svd(values); // the left singular vectors, in rows
    Mat3Dbl const transposed = correlation.GetTransposedCopy();
    Vec3Dbl const u0 = left.GetRow(0);
    Vec3Dbl const u1 = left.GetRow(1);
    Vec3Dbl const v0 = (transposed * u0).GetNormalizedCopy();
    Vec3Dbl const v1 = (transposed * u1).GetNormalizedCopy();
    // The cross products keep both sets of axes right-handed: the result is never a reflection.
    Mat3Dbl const rotation =
        u0.OuterProduct(v0) + u1.OuterProduct(v1) + u0.Cross(u1).OuterProduct(v0.Cross(v1));
    AffMat3Dbl const motion(rotation, fixedCentre.Vector() - rotation * movingCentre.Vector());
    // [align]
    double worst = 0.0;
    for (std::size_t i = 0; i < fixed.size(); ++i)
        worst = std::fmax(worst, fixed[i].DistanceTo(motion * moving[i]));
    std::cout << "turned by " << vexor::RotationAngle(Quaternion(rotation)) * 180.0 / pi
              << " degrees; within 1e-12: " << (worst < 1e-12) << '\n';
}

void TurnWithoutDrift()
{
    // [drift]
    int const steps = 100000; // one full turn
    Quaternion const step(Vec3Dbl(0.6, 0, 0.8), 2 * pi / steps, 0);
    Mat3Dbl const stepMatrix = vexor::RotationMatrix(step);
    Quaternion attitude;
    Mat3Dbl matrix = vexor::Identity<Mat3Dbl>();
    for (int i = 0; i < steps; ++i) {
        attitude = step * attitude;
        attitude.Normalize();         // keeps the quaternion a rotation
        matrix = stepMatrix * matrix; // nothing keeps the matrix a rotation
    }
    Vec3Dbl const axis(attitude.u, attitude.v, attitude.w);
    std::cout << std::scientific << std::setprecision(0) << "scale of the quaternion: off by "
              << std::fabs(axis.LengthSquared() + attitude.s * attitude.s - 1) << '\n'
              << "scale of the matrix:     off by " << std::fabs(vexor::Determinant(matrix) - 1) << '\n'
              << "angle after one turn:    off by " << vexor::RotationAngle(attitude) << '\n';
    // [drift]
}

} // namespace

int main()
{
    std::cout << std::fixed << std::setprecision(3);
    FitAPlane();
    MoveAFrame();
    SolveAndReSolve();
    AlignTwoClouds();
    TurnWithoutDrift();
}
