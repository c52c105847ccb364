#include "survey/Network.h"

#include "common/Finite.h"
#include "common/InputError.h"

#include <vexor/dynamic/MatDbl.h>
#include <vexor/points/Pnt2Dbl.h>

#include <cmath>
#include <set>
#include <stdexcept>

namespace examples {

namespace {

/// Builds a network leg by leg.
class NetworkBuilder {
public:
    explicit NetworkBuilder(Survey const& fieldBook) : survey(fieldBook)
    {
        for (Leg const& leg : survey.legs) {
            Enlist(leg.from);
            Enlist(leg.to);
        }
        reached.resize(network.stations.size(), false);
        parent.resize(network.stations.size(), -1);
        parentLength.resize(network.stations.size(), 0.0);
        PlaceFixedStations();
    }

    Network Build()
    {
        std::vector<bool> isUsed(survey.legs.size(), false);
        PlaceByLegs(isUsed);
        for (std::size_t i = 0; i < survey.legs.size(); ++i)
            if (!isUsed[i])
                network.closures.push_back(CloseWith(i));
        for (Station const& station : network.stations)
            RequireFinite("the place of a station", station.traversed.Vector());
        for (Closure const& closure : network.closures) {
            RequireFinite("a misclosure", closure.misclosure);
            RequireFinite("the length of a loop", closure.loopLength);
        }
        AdjustByLeastSquares();
        return network;
    }

private:
    void Enlist(std::string const& name)
    {
        if (index.emplace(name, network.stations.size()).second)
            network.stations.push_back({name, Pnt3Dbl(0.0), Pnt3Dbl(0.0)});
    }

    void PlaceFixedStations()
    {
        for (auto const& [name, place] : survey.fixed) {
            auto const found = index.find(name);
            if (found == index.end())
                throw InputError("the fixed station '" + name + "' has no leg");
            network.stations[found->second].traversed = place;
            reached[found->second] = true;
        }
        isFixed = reached;
        if (survey.fixed.empty())
            isFixed[0] = reached[0] = true;
    }

    /// Processes the legs repeatedly, until none joins a new station to the placed ones.
    void PlaceByLegs(std::vector<bool>& isUsed)
    {
        for (bool hasGrown = true; hasGrown;) {
            hasGrown = false;
            for (std::size_t i = 0; i < survey.legs.size(); ++i) {
                Leg const& leg = survey.legs[i];
                std::size_t const from = index.at(leg.from);
                std::size_t const to = index.at(leg.to);
                if (isUsed[i] || reached[from] == reached[to])
                    continue;
                if (reached[from])
                    Place(to, from, network.stations[from].traversed + leg.displacement, leg.length);
                else
                    Place(from, to, network.stations[to].traversed - leg.displacement, leg.length);
                isUsed[i] = hasGrown = true;
            }
        }
        for (std::size_t i = 0; i < reached.size(); ++i)
            if (!reached[i])
                throw InputError("no leg joins the station '" + network.stations[i].name + "' to the rest");
    }

    void Place(std::size_t station, std::size_t neighbour, Pnt3Dbl const& place, double length)
    {
        network.stations[station].traversed = place;
        reached[station] = true;
        parent[station] = static_cast<int>(neighbour);
        parentLength[station] = length;
    }

    Closure CloseWith(std::size_t legIndex) const
    {
        Leg const& leg = survey.legs[legIndex];
        std::size_t const from = index.at(leg.from);
        std::size_t const to = index.at(leg.to);
        Vec3Dbl const misclosure =
            (network.stations[from].traversed + leg.displacement) - network.stations[to].traversed;
        return {legIndex, misclosure, leg.length + PathLength(from, to)};
    }

    /// The length of the legs between two stations, along those that placed them. If each leads to its own
    /// fixed station, the length up to these.
    double PathLength(std::size_t one, std::size_t other) const
    {
        std::map<int, double> fromOne;
        double length = 0.0;
        for (int s = static_cast<int>(one); s >= 0; s = parent[static_cast<std::size_t>(s)]) {
            fromOne[s] = length;
            length += parentLength[static_cast<std::size_t>(s)];
        }
        double fromOther = 0.0;
        for (int s = static_cast<int>(other); s >= 0; s = parent[static_cast<std::size_t>(s)]) {
            auto const meeting = fromOne.find(s);
            if (meeting != fromOne.end())
                return meeting->second + fromOther;
            fromOther += parentLength[static_cast<std::size_t>(s)];
        }
        return length + fromOther;
    }

    /// One equation a leg: the unknown corrections of its two ends differ by the leg's misclosure. All
    /// three coordinates share the coefficients, so they are three right-hand sides of one system.
    void AdjustByLeastSquares()
    {
        std::vector<int> unknown(network.stations.size(), -1);
        int unknownCount = 0;
        for (std::size_t i = 0; i < unknown.size(); ++i)
            if (!isFixed[i])
                unknown[i] = unknownCount++;
        MatDbl corrections(static_cast<int>(survey.legs.size()), 3, 0.0);
        if (unknownCount > 0) {
            MatDbl coefficients(corrections.RowCount(), unknownCount, 0.0);
            for (int row = 0; row < coefficients.RowCount(); ++row)
                WriteEquation(row, unknown, coefficients, corrections);
            RequireFinite("a misclosure with its weight", corrections);
            coefficients.SolveLinearLeastSquares(corrections);
        }
        for (std::size_t i = 0; i < unknown.size(); ++i) {
            Station& station = network.stations[i];
            station.adjusted = station.traversed;
            if (unknown[i] >= 0)
                station.adjusted += Vec3Dbl(corrections.GetRow(unknown[i]));
            RequireFinite("the place of a station", station.adjusted.Vector());
        }
    }

    void WriteEquation(int row, std::vector<int> const& unknown, MatDbl& coefficients, MatDbl& misses) const
    {
        Leg const& leg = survey.legs[static_cast<std::size_t>(row)];
        std::size_t const from = index.at(leg.from);
        std::size_t const to = index.at(leg.to);
        double const weight = 1.0 / std::sqrt(leg.length);
        Vec3Dbl const miss =
            (network.stations[from].traversed + leg.displacement) - network.stations[to].traversed;
        if (unknown[from] >= 0)
            coefficients(row, unknown[from]) = -weight;
        if (unknown[to] >= 0)
            coefficients(row, unknown[to]) = weight;
        misses.SetRow(row, VecDbl(miss * weight));
    }

    Survey const& survey;
    Network network;
    std::map<std::string, std::size_t> index;
    std::vector<bool> reached;
    std::vector<bool> isFixed;
    std::vector<int> parent; ///< The station from which a station was placed, or −1.
    std::vector<double> parentLength;
};

Vec2Dbl InThePlane(Pnt3Dbl const& point)
{
    return Vec2Dbl(point.x, point.y);
}

} // namespace

Station const& Network::Find(std::string const& name) const
{
    for (Station const& station : stations)
        if (station.name == name)
            return station;
    throw std::out_of_range("no station '" + name + "'");
}

Network Adjust(Survey const& survey)
{
    return NetworkBuilder(survey).Build();
}

bool RingArea(Survey const& survey, Network const& network, double& area)
{
    area = 0.0;
    std::set<std::string> visited;
    Vec2Dbl const origin = InThePlane(network.stations.front().adjusted);
    for (std::size_t i = 0; i < survey.legs.size(); ++i) {
        Leg const& leg = survey.legs[i];
        Leg const& next = survey.legs[(i + 1) % survey.legs.size()];
        if (leg.to != next.from || !visited.insert(leg.from).second)
            return false;
        Vec2Dbl const from = InThePlane(network.Find(leg.from).adjusted) - origin;
        Vec2Dbl const to = InThePlane(network.Find(leg.to).adjusted) - origin;
        area += from.GetAreaFormedByTriangleWith(to);
    }
    return true;
}

} // namespace examples
