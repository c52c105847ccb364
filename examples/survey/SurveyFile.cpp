#include "survey/SurveyFile.h"

#include "common/InputError.h"
#include "common/TextFile.h"

#include <cmath>
#include <set>

namespace examples {

namespace {

double const pi = 3.141592653589793;

/// The sizes of units of length in metres and of units of angle in radians.
std::map<std::string, double> const unitSizes = {
    {"metres", 1.0},         {"meters", 1.0},        {"m", 1.0},
    {"feet", 0.3048},        {"yards", 0.9144},      {"chains", 20.1168},
    {"degrees", pi / 180.0}, {"degree", pi / 180.0}, {"grads", pi / 200.0},
    {"grad", pi / 200.0},    {"mils", pi / 3200.0},
};

/// Names with the same meaning.
std::string ColumnName(std::string const& name)
{
    if (name == "length")
        return "tape";
    if (name == "bearing")
        return "compass";
    return name;
}

class SurveyReader {
public:
    explicit SurveyReader(std::string const& path) : file(path) {}

    Survey Read()
    {
        while (file.NextLine()) {
            std::string const& word = file.Field(0);
            if (word == "encoding" && file.Field(1) != "utf-8")
                file.AcceptOneByteEncoding(); // pictures show U+FFFD for its letters that are not ASCII
            else if (word == "survey")
                ReadTitle();
            else if (word == "centreline" || word == "centerline")
                isInCentreline = true;
            else if (word == "endcentreline" || word == "endcenterline")
                isInCentreline = false;
            else if (isInCentreline)
                ReadCentrelineEntry(word);
        }
        if (isInCentreline)
            file.Fail("the file ends inside a centreline");
        if (survey.legs.empty())
            throw InputError(file.Path() + ": holds no leg");
        return survey;
    }

private:
    void ReadTitle()
    {
        std::string title;
        for (std::size_t i = 2; i + 1 < file.Fields().size() && title.empty(); ++i)
            if (file.Field(i) == "-title")
                for (std::size_t k = i + 1; k < file.Fields().size(); ++k)
                    title += (k > i + 1 ? " " : "") + file.Field(k);
        if (title.size() > 1 && title.front() == '"' && title.back() == '"')
            title = title.substr(1, title.size() - 2);
        survey.title = title.empty() ? file.Field(1) : title;
    }

    void ReadCentrelineEntry(std::string const& word)
    {
        static std::set<std::string> const harmless = {"date",       "team",   "explo-date", "explo-team",
                                                       "instrument", "extend", "station",    "copyright"};
        static std::set<std::string> const refused = {"calibrate", "declination", "equate", "sd",
                                                      "grade",     "infer",       "cs",     "break"};
        if (refused.count(word))
            file.Fail("'" + word + "' is not supported");
        if (harmless.count(word))
            return;
        if (word == "units")
            ReadUnits();
        else if (word == "data")
            ReadColumns();
        else if (word == "fix")
            survey.fixed[file.Field(1)] = Pnt3Dbl(file.Number(2), file.Number(3), file.Number(4));
        else if (word == "flags")
            ReadFlags();
        else if (columns.empty())
            file.Fail("'" + word + "' is not understood here: a leg needs a 'data normal' line before it");
        else
            ReadLeg();
    }

    void ReadUnits()
    {
        std::string const& unit = file.Fields().back();
        auto const size = unitSizes.find(unit);
        if (file.Fields().size() < 3 || size == unitSizes.end())
            file.Fail("'" + unit + "' is no unit");
        for (std::size_t i = 1; i + 1 < file.Fields().size(); ++i)
            units[ColumnName(file.Field(i))] = size->second;
    }

    void ReadColumns()
    {
        if (file.Field(1) != "normal")
            file.Fail("data of the style '" + file.Field(1) + "' are not supported");
        columns.clear();
        for (std::size_t i = 2; i < file.Fields().size(); ++i) {
            std::string const name = ColumnName(file.Field(i));
            if (name != "from" && name != "to" && !units.count(name))
                file.Fail("the column '" + file.Field(i) + "' is not supported");
            columns.push_back(name);
        }
        for (char const* needed : {"from", "to", "tape", "compass"})
            if (!HasColumn(needed))
                file.Fail(std::string("the column '") + needed + "' is missing");
    }

    void ReadFlags()
    {
        bool const isNegated = file.Field(1) == "not";
        std::string const& flag = file.Field(isNegated ? 2 : 1);
        if (flag != "surface")
            file.Fail("the flag '" + flag + "' is not supported");
        isOnSurface = !isNegated;
    }

    void ReadLeg()
    {
        if (file.Fields().size() != columns.size())
            file.Fail("a leg has " + std::to_string(columns.size()) + " fields, found "
                      + std::to_string(file.Fields().size()));
        Leg leg;
        leg.from = file.Field(ColumnIndex("from"));
        leg.to = file.Field(ColumnIndex("to"));
        leg.length = Measure("tape");
        leg.displacement =
            PolarLeg(Measure("compass"), HasColumn("clino") ? Measure("clino") : 0.0, leg.length);
        leg.isOnSurface = isOnSurface;
        if (!(leg.length > 0.0))
            file.Fail("the length of a leg must be above 0");
        if (!std::isfinite(leg.length))
            file.Fail("the length of a leg is not a finite number of metres");
        if (leg.from == leg.to)
            file.Fail("a leg must not end where it begins");
        survey.legs.push_back(leg);
    }

    double Measure(std::string const& column) const
    {
        return file.Number(ColumnIndex(column)) * units.at(column);
    }

    bool HasColumn(std::string const& name) const { return ColumnIndex(name) < columns.size(); }

    std::size_t ColumnIndex(std::string const& name) const
    {
        std::size_t index = 0;
        while (index < columns.size() && columns[index] != name)
            ++index;
        return index;
    }

    TextFile file;
    Survey survey;
    bool isInCentreline = false;
    bool isOnSurface = false;
    std::vector<std::string> columns;
    std::map<std::string, double> units = {{"tape", 1.0}, {"compass", pi / 180.0}, {"clino", pi / 180.0}};
};

} // namespace

Vec3Dbl PolarLeg(double compass, double clino, double length)
{
    double const level = length * std::cos(clino);
    return Vec3Dbl(level * std::sin(compass), level * std::cos(compass), length * std::sin(clino));
}

Survey ReadSurvey(std::string const& path)
{
    return SurveyReader(path).Read();
}

} // namespace examples
