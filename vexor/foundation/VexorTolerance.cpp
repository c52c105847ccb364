#include <vexor/foundation/VexorTolerance.h>

#include <vexor/elementary/private/Fast.h>
#include <vexor/foundation/detail/Elementary.h>
#include <vexor/foundation/detail/Rounding.h>
#include <vexor/foundation/detail/Scalar.h>
#include <vexor/foundation/private/StartUp.h>

VexorTolerance::VexorTolerance()
{
    SetAngle(1e-7);
    SetLength(1e-5);
}

void VexorTolerance::SetAngle(double radians)
{
    double const sine = vexor::detail::RoundToSingle(vexor::detail::Sin(radians));
    angle = vexor::detail::RoundToSingle(radians);
    sin2Angle = vexor::detail::RoundToSingle(sine * sine);
}

void VexorTolerance::SetLength(double newLength)
{
    length = vexor::detail::RoundToSingle(newLength);
    double const rounded = length;
    lengthSquared = vexor::detail::RoundToSingle(rounded * rounded);
}

// The objects that the library sets at load stand in one source, which fixes their order.
vexor::detail::InstructionSet const vexor::detail::instructionSet = vexor::detail::FastestInstructionSet();
bool const vexor::detail::hasFusedMultiplyAdd = vexor::detail::elementary::HasFusedMultiplyAdd();
VexorTolerance gVexorTolerance;
double const vexor::detail::squareRootOfThree = vexor::detail::SquareRoot(3.0);
