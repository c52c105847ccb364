#include "Passes.h"

#include <ImathMatrix.h>
#include <ImathQuat.h>
#include <ImathVec.h>

namespace {

using namespace bench;
using Vector = Imath::V3d;

Vector Make(double const* n)
{
    return Vector(n[0], n[1], n[2]);
}

[[maybe_unused]] bool const registered = [] {
    OverElements<Vector>("Normalize", "Imath", Make, MakeNothing,
                         [](Vector const& a, Nothing) { return a.normalized(); });
    OverElements<double>("Length", "Imath", Make, MakeNothing,
                         [](Vector const& a, Nothing) { return a.length(); });
    OverElements<Vector>("Cross", "Imath", Make, Make,
                         [](Vector const& a, Vector const& b) { return a.cross(b); });
    OverElements<double>("Dot", "Imath", Make, Make,
                         [](Vector const& a, Vector const& b) { return a.dot(b); });
    OverElements<Vector>("Sum of two", "Imath", Make, Make,
                         [](Vector const& a, Vector const& b) { return a + b; });
    OverElements<double>("DistanceTo", "Imath", Make, Make,
                         [](Vector const& a, Vector const& b) { return (a - b).length(); });
    Imath::M44d map;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            map[k][i] = mapNumbers[3 * i + k];
        map[3][i] = mapNumbers[9 + i];
    }
    OverElements<Vector>("Affine map x point", "Imath", Make, MakeNothing, [map](Vector const& a, Nothing) {
        Vector result;
        map.multVecMatrix(a, result);
        return result;
    });
    Imath::Quatd turn;
    turn.setAxisAngle(Vector(1.0, 2.0, 3.0).normalized(), 0.7);
    OverElements<Vector>("RotatePoint", "Imath", Make, MakeNothing,
                         [turn](Vector const& a, Nothing) { return turn.rotateVector(a); });
    return true;
}();

} // namespace
