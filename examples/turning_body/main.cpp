// Turns a free rigid body by many small steps and prints its final state, all bits: the same in every build
// and on every platform. The same steps with the platform's own sin and cos show where the two differ.
//
//   turning_body [STEPS]

#include "common/Program.h"

#include <vexor/rotations/Quaternion.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace examples {

namespace {

constexpr double step = 0.01; // seconds
Vec3Dbl const inertia(1.0, 2.0, 3.0);

/// The rate of change of the angular velocity, in the body's axes, without a torque: Euler's equations.
Vec3Dbl Acceleration(Vec3Dbl const& w)
{
    return Vec3Dbl((inertia.y - inertia.z) * (w.y * w.z), (inertia.z - inertia.x) * (w.z * w.x),
                   (inertia.x - inertia.y) * (w.x * w.y))
        .ElemDiv(inertia);
}

/// One step of the classical Runge–Kutta method.
Vec3Dbl Advanced(Vec3Dbl const& w)
{
    Vec3Dbl const a = Acceleration(w);
    Vec3Dbl const b = Acceleration(w + (0.5 * step) * a);
    Vec3Dbl const c = Acceleration(w + (0.5 * step) * b);
    Vec3Dbl const d = Acceleration(w + step * c);
    return w + (step / 6.0) * (((a + 2.0 * b) + 2.0 * c) + d);
}

/// The orientation of the body, and a marker painted on it, which is turned as a separate vector.
struct Body {
    Quaternion orientation;
    Vec3Dbl marker = Vec3Dbl(1, 0, 0);

    bool operator==(Body const& other) const
    {
        return orientation == other.orientation && marker == other.marker;
    }
};

/// With the library's functions.
void Turn(Body& body, Vec3Dbl const& axis, double angle)
{
    body.marker.Rotate(body.orientation.RotatePoint(axis).GetNormalizedCopy(), angle);
    body.orientation = body.orientation * Quaternion(axis, angle, 0);
    body.orientation.Normalize();
}

/// The same terms in the same order, with the platform's sin and cos.
void TurnByThePlatform(Body& body, Vec3Dbl const& axis, double angle)
{
    Vec3Dbl const inSpace = body.orientation.RotatePoint(axis).GetNormalizedCopy();
    Vec3Dbl const p = inSpace.GetPerpendicular();
    Vec3Dbl const q = inSpace.Cross(p);
    double const alongP = body.marker.Dot(p);
    double const alongQ = body.marker.Dot(q);
    double const alongAxis = body.marker.Dot(inSpace);
    double const c = std::cos(angle);
    double const s = std::sin(angle);
    body.marker = ((c * alongP - s * alongQ) * p + (c * alongQ + s * alongP) * q) + alongAxis * inSpace;

    double const sine = std::sin(angle * 0.5);
    Quaternion turn;
    turn.SetValue(axis.x * sine, axis.y * sine, axis.z * sine, std::cos(angle * 0.5), 0);
    body.orientation = body.orientation * turn;
    body.orientation.Normalize();
}

/// The bits of each number as 16 hexadecimal digits, and the numbers to read.
void Print(char const* name, double const* numbers, int count)
{
    std::printf("%s", name);
    for (int i = 0; i < count; ++i) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &numbers[i], sizeof bits);
        std::printf(" %08lx%08lx", static_cast<unsigned long>(bits >> 32),
                    static_cast<unsigned long>(bits & 0xffffffff));
    }
    std::printf("  (");
    for (int i = 0; i < count; ++i)
        std::printf(i > 0 ? ", %.6f" : "%.6f", numbers[i]);
    std::printf(")\n");
}

void Print(Body const& body)
{
    Quaternion const& q = body.orientation;
    double const orientation[] = {q.u, q.v, q.w, q.s};
    double const marker[] = {body.marker.x, body.marker.y, body.marker.z};
    Print("orientation", orientation, 4);
    Print("marker     ", marker, 3);
}

long Count(char const* text)
{
    char* end = nullptr;
    long const count = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || count < 1 || count > 1000000000)
        throw std::runtime_error("the number of steps is a whole number from 1 to 1000000000");
    return count;
}

int TurningBody(int argumentCount, char** arguments)
{
    if (argumentCount > 2) {
        std::fprintf(stderr, "usage: turning_body [STEPS]\n");
        return badUsage;
    }
    long const steps = argumentCount == 2 ? Count(arguments[1]) : 10000000;

    Vec3Dbl velocity(0.001, 2.0, 0.001); // about the middle axis, which is unstable: the body tumbles
    Body body;
    Body byThePlatform;
    long parted = 0;
    for (long i = 1; i <= steps; ++i) {
        double const angle = velocity.Length() * step;
        Vec3Dbl const axis = velocity.GetNormalizedCopy();
        Turn(body, axis, angle);
        TurnByThePlatform(byThePlatform, axis, angle);
        if (parted == 0 && !(body == byThePlatform))
            parted = i;
        velocity = Advanced(velocity);
    }

    std::printf("%ld steps of %g s\n", steps, step);
    Print(body);
    std::printf("\nWith this platform's sin and cos:\n");
    Print(byThePlatform);
    if (parted == 0)
        std::printf("the same bits\n");
    else
        std::printf("parted at step %ld, the markers end %.2g apart\n", parted,
                    (body.marker - byThePlatform.marker).Length());
    return succeeded;
}

} // namespace

} // namespace examples

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("turning_body",
                                [&] { return examples::TurningBody(argumentCount, arguments); });
}
