#pragma once
#include "survey/Network.h"

#include <vexor/matrices/AffMat2Dbl.h>
#include <vexor/points/Pnt2Dbl.h>

namespace examples {

/// A line of a drawn map. Each segment is a straight line (one point) or a cubic curve (three points).
struct DrawnLine {
    std::string type;
    Pnt2Dbl start;
    std::vector<std::vector<Pnt2Dbl>> segments;
};

/// One sheet of a map drawn by hand, in the units of the paper.
struct DrawnMap {
    std::map<std::string, Pnt2Dbl> stations;
    std::vector<DrawnLine> lines;
};

/// Reads one scrap of a map in the Therion format: its stations and its lines. Raises InputError, which
/// names the line.
DrawnMap ReadDrawnMap(std::string const& path, std::string const& scrap);

/// A station that is both surveyed and drawn.
struct ControlPoint {
    std::string name;
    Pnt2Dbl ground; ///< East, north, in metres.
    Pnt2Dbl grid;   ///< On the paper.
};

std::vector<ControlPoint> CommonStations(Network const& network, DrawnMap const& map);

/// The affine map from the ground to the grid of a map, fitted to control points.
struct GridFit {
    AffMat2Dbl toGrid;
    std::vector<ControlPoint> controls;
    double rmsResidual; ///< On the ground, in metres.

    /// The error of a point's drawn position, in metres on the ground.
    Vec2Dbl ResidualOf(ControlPoint const& point) const;
};

/// Fits by least squares. Raises InputError for fewer than three control points, and
/// VexorComputationFailed or VexorSingular if they lie on a line.
GridFit FitToGrid(std::vector<ControlPoint> const& controls);

/// Finds one control point that spoils the fit: the one without which the residuals are smallest,
/// if that is less than half of the residuals with it. Returns its index, or −1 if there is none. With
/// fewer than eight points, one may improve the fit that much by chance, so all are kept.
int FindBlunder(std::vector<ControlPoint> const& controls);

} // namespace examples
