#pragma once
#include <vexor/points/Pnt3Dbl.h>
#include <vexor/vectors/Vec3Dbl.h>

#include <map>
#include <string>
#include <vector>

namespace examples {

/// A measured line from one station to another.
struct Leg {
    std::string from, to;
    Vec3Dbl displacement; ///< East, north, up, in metres.
    double length;        ///< Of the tape, in metres.
    bool isOnSurface;
};

struct Survey {
    std::string title;
    std::vector<Leg> legs;
    std::map<std::string, Pnt3Dbl> fixed; ///< Stations with a given place.
};

/// The displacement of a polar leg: `compass` clockwise from north, `clino` upwards, in radians.
Vec3Dbl PolarLeg(double compass, double clino, double length);

/// Reads the part of the Therion survey format that a simple centreline needs: `survey … -title`,
/// `units`, `data normal` with the columns from, to, tape (or length), compass (or bearing) and clino,
/// `fix`, `flags`. Without a clino column the legs are level. `chains` of 66 feet are accepted
/// in addition to the format's own units. Anything else that could change a result is refused, by an
/// InputError that names the line.
Survey ReadSurvey(std::string const& path);

} // namespace examples
