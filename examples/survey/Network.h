#pragma once
#include "survey/SurveyFile.h"

namespace examples {

/// A leg that arrives at a station that other legs have already placed, and its misclosure.
struct Closure {
    std::size_t leg;    ///< Its index in the survey.
    Vec3Dbl misclosure; ///< The end of the leg minus the station's place.
    double loopLength;  ///< Of all the legs of the loop that it closes.
};

/// A station, as the legs place it one after the other, and adjusted.
struct Station {
    std::string name;
    Pnt3Dbl traversed;
    Pnt3Dbl adjusted;
};

/// The stations of a survey, in the order in which the legs name them.
struct Network {
    std::vector<Station> stations;
    std::vector<Closure> closures;

    /// Raises std::out_of_range for a name that no leg has.
    Station const& Find(std::string const& name) const;
};

/// Places every station by adding legs, and distributes the misclosures by least squares: of all
/// places that the stations could have, those with the smallest sum of (change of leg)² / (length of
/// leg). Fixed stations stay; without any, the first station is put at the origin. Raises
/// InputError for a station that no chain of legs joins to the rest.
Network Adjust(Survey const& survey);

/// The signed area in the plane, counter-clockwise positive, of the ring that the legs of a survey
/// form. False if they form no single ring.
bool RingArea(Survey const& survey, Network const& network, double& area);

} // namespace examples
