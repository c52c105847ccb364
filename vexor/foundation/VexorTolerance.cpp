#include <vexor/foundation/VexorTolerance.h>

#include <vexor/elementary/private/Fast.h>
#include <vexor/foundation/detail/Elementary.h>
#include <vexor/foundation/detail/Rounding.h>
#include <vexor/foundation/private/StartUp.h>

// What SetAngle(1e-7) and SetLength(1e-5) store in the default rounding mode. They are constants, because a
// program may load the library, or construct an object, in another mode. The last one is one unit in the last
// place below the single nearest to 1e-10.
VexorTolerance::VexorTolerance()
    : angle(0x1.ad7f2ap-24f),
      sin2Angle(0x1.6849b8p-47f),
      length(0x1.4f8b58p-17f),
      lengthSquared(0x1.b7cdfcp-34f)
{}

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

// This one source defines all objects that are initialised at load, which fixes their order.
vexor::detail::InstructionSet const vexor::detail::instructionSet = vexor::detail::FastestInstructionSet();
bool const vexor::detail::hasFusedMultiplyAdd = vexor::detail::elementary::HasFusedMultiplyAdd();
VexorTolerance gVexorTolerance;
