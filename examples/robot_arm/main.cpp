// Moves the tool of an arm with six turning joints from place to place along screw motions. Finds the angles
// of the joints by damped least squares, checks them by forward kinematics, and draws the arm.
//
//   robot_arm ARM PICTURE.svg

#include "common/Finite.h"
#include "common/InputError.h"
#include "common/Program.h"
#include "common/Svg.h"
#include "common/TextFile.h"

#include <vexor/dynamic/MatDbl.h>
#include <vexor/extras/interpolate.h>
#include <vexor/extras/make.h>
#include <vexor/extras/range.h>

#include <cstdio>
#include <map>

namespace examples {

namespace {

constexpr double degree = 3.141592653589793 / 180.0;
constexpr int joints = 6;
char const* const colours[3] = {"#d62728", "#2ca02c", "#1f77b4"}; // of the tool's axes x, y and z

/// A joint and the link behind it, in the terms of Denavit and Hartenberg: lengths a and d, angle alpha.
struct Link {
    double a, alpha, d;
};
struct Arm {
    std::vector<Link> links;
    VecDbl start;
    std::vector<AffMat3Dbl> targets;
};

Arm ReadArm(std::string const& path)
{
    std::map<std::string, std::size_t> const counts = {{"joint", 3}, {"start", joints}, {"target", 6}};
    Arm arm;
    TextFile file(path);
    while (file.NextLine()) {
        std::string const& keyword = file.Field(0);
        auto const count = counts.find(keyword);
        if (count == counts.end())
            file.Fail("unknown keyword '" + keyword + "'");
        std::vector<double> n;
        for (std::size_t i = 1; i < file.Fields().size(); ++i)
            n.push_back(file.Number(i));
        if (n.size() != count->second)
            file.Fail("'" + keyword + "' has " + std::to_string(count->second) + " numbers, found "
                      + std::to_string(n.size()));
        if (keyword == "joint")
            arm.links.push_back({n[0], degree * n[1], n[2]});
        else if (keyword == "start")
            arm.start = degree * VecDbl(joints, n.data());
        else {
            Vec3Dbl angles = degree * Vec3Dbl(n[3], n[4], n[5]);
            arm.targets.push_back(
                vexor::AffineMap(Quaternion().SetFromEulerAngles(angles), Vec3Dbl(n[0], n[1], n[2])));
        }
    }
    if (arm.links.size() != joints || arm.start.Size() != joints || arm.targets.empty())
        throw InputError(path + ": an arm has 6 joints, a start and at least one target");
    return arm;
}

/// The frames of the base and of each joint; the last one is the tool's. The joint turns about the z axis of
/// the frame before it.
using Frames = std::vector<AffMat3Dbl>;
Frames Forward(Arm const& arm, VecDbl const& angles)
{
    Frames frames(1);
    for (int i = 0; i < joints; ++i) {
        Link const& link = arm.links[static_cast<std::size_t>(i)];
        Quaternion const turn(Vec3Dbl(0, 0, 1), angles[i], 0);
        Quaternion const twist(Vec3Dbl(1, 0, 0), link.alpha, 0);
        Vec3Dbl const shift = turn.RotatePoint(Vec3Dbl(link.a, 0.0, link.d));
        frames.push_back(frames.back() * vexor::AffineMap(turn * twist, shift));
    }
    return frames;
}

/// The difference between a frame and the target: a shift in metres, and a turn as axis times angle.
VecDbl Missing(AffMat3Dbl const& from, AffMat3Dbl const& to)
{
    Vec3Dbl const shift = to.Translation() - from.Translation();
    Quaternion turn(to.LinearPart() * from.LinearPart().GetTransposedCopy());
    if (turn.s < 0.0) // the same turn by the shorter way
        turn.SetValue(-turn.u, -turn.v, -turn.w, -turn.s, 0);
    Vec3Dbl const half = vexor::Log(turn);
    return vexor::Vector({shift.x, shift.y, shift.z, 2.0 * half.x, 2.0 * half.y, 2.0 * half.z});
}

/// Changes the angles until the tool is at the target, by damped least squares: each step solves (JᵀJ +
/// λI)·change = Jᵀ·error. The damping λ falls with the error, so the last steps are Newton's. False if it
/// does not converge.
bool Reach(Arm const& arm, AffMat3Dbl const& target, VecDbl& angles)
{
    for (int iteration = 0; iteration < 200; ++iteration) {
        Frames const frames = Forward(arm, angles);
        VecDbl const error = Missing(frames.back(), target);
        RequireFinite("the error of the tool", error.LengthSquared());
        if (error.LengthSquared() < 1e-26 * (1.0 + target.Translation().LengthSquared()))
            return true;
        MatDbl jacobian(6, joints); // of the tool's place and direction by the angles
        for (int j = 0; j < joints; ++j) {
            AffMat3Dbl const& frame = frames[static_cast<std::size_t>(j)];
            Vec3Dbl const axis = frame.GetCol(2);
            Vec3Dbl const speed = axis.Cross(frames.back().Translation() - frame.Translation());
            jacobian.SetCol(j, vexor::Vector({speed.x, speed.y, speed.z, axis.x, axis.y, axis.z}));
        }
        MatDbl const transposed = jacobian.GetTransposedCopy();
        MatDbl normal = transposed * jacobian;
        for (int i = 0; i < joints; ++i)
            normal(i, i) += 1e-3 * error.LengthSquared();
        VecDbl change = transposed * error;
        normal.SolveSym(change);
        angles += change;
    }
    return false;
}

/// Draws all poses in pale lines, and every `stride`-th with its joints and the axes of its tool.
void Draw(std::vector<Frames> const& poses, std::size_t stride, std::string const& path)
{
    Quaternion const view = // from the front right, from a little above
        Quaternion(Vec3Dbl(1, 0, 0), -70.0 * degree, 0) * Quaternion(Vec3Dbl(0, 0, 1), -55.0 * degree, 0);
    auto const seen = [&view](Vec3Dbl const& place) {
        Vec3Dbl const turned = view.RotatePoint(place);
        return Pnt2Dbl(turned.x, turned.y);
    };
    Bounds bounds;
    for (Frames const& frames : poses)
        for (AffMat3Dbl const& frame : frames)
            bounds.Include(seen(frame.Translation()));
    AffMat2Dbl const map = MapInto({60.0, 110.0, 380.0, 330.0}, bounds);
    Svg picture(500.0, 480.0);
    picture.Title("A robot arm on its way", std::to_string((poses.size() - 1) / stride) + " targets");
    for (bool const isPale : {true, false})
        for (std::size_t k = 0; k < poses.size(); k += isPale ? 1 : stride) {
            std::vector<Pnt2Dbl> line;
            for (AffMat3Dbl const& frame : poses[k])
                line.push_back(map * seen(frame.Translation()));
            picture.Polyline(line, isPale ? "stroke=\"#c8d4e0\" stroke-width=\"1.5\""
                                          : "stroke=\"#555\" stroke-width=\"5\"");
            if (isPale)
                continue;
            for (Pnt2Dbl const& joint : line)
                picture.Circle(joint, 4.0, "fill=\"white\" stroke=\"#333\"");
            AffMat3Dbl const& tool = poses[k].back();
            for (int axis = 0; axis < 3; ++axis) {
                Vec3Dbl const tip = tool.Translation() + 45.0 / ScaleOf(map) * tool.GetCol(axis);
                picture.Arrow(line.back(), map * seen(tip), colours[axis]);
            }
        }
    picture.Save(path);
}

int Run(std::vector<std::string> const& arguments)
{
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: robot_arm ARM PICTURE.svg\n");
        return badUsage;
    }
    Arm const arm = ReadArm(arguments[0]);
    VecDbl angles = arm.start;
    std::vector<Frames> poses = {Forward(arm, angles)};
    constexpr int stride = 12; // poses from target to target
    for (std::size_t k = 1; k <= arm.targets.size(); ++k) {
        AffMat3Dbl const from = poses.back().back();
        AffMat3Dbl const& target = arm.targets[k - 1];
        for (int step = 1; step <= stride; ++step) {
            AffMat3Dbl const next = vexor::InterpolateRigid(from, target, static_cast<double>(step) / stride);
            if (!Reach(arm, next, angles))
                throw NotComputableError("target " + std::to_string(k) + ": the arm cannot go there");
            poses.push_back(Forward(arm, angles));
        }
        std::printf("target %zu ", k);
        for (int i = 0; i < joints; ++i)
            std::printf(" %12.7f", angles[i] / degree);
        std::printf("  off by %.0e (m, rad)\n", Missing(poses.back().back(), target).Length());
    }
    Draw(poses, stride, arguments[1]);
    std::printf("Wrote %s\n", arguments[1].c_str());
    return succeeded;
}

} // namespace

} // namespace examples

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("robot_arm", [&] {
        return examples::Run(std::vector<std::string>(arguments + 1, arguments + argumentCount));
    });
}
