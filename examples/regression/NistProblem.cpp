#include "regression/NistProblem.h"

#include "common/TextFile.h"

#include <cmath>
#include <filesystem>

namespace examples {

namespace {

/// How a row of the design matrix is formed from the predictors of an observation.
struct Model {
    enum class Kind { none, polynomial, linear, proportional };
    Kind kind = Kind::none;
    int order = 0; ///< The degree of the polynomial, or the number of predictors.

    int PredictorCount() const { return kind == Kind::linear ? order : 1; }
    int CoefficientCount() const { return kind == Kind::proportional ? 1 : order + 1; }
};

int ReadOrder(TextFile const& file)
{
    double const order = file.Number(2);
    if (!(order >= 1.0 && order <= 100.0) || order != static_cast<int>(order))
        file.Fail("the order of a model is a whole number from 1 to 100");
    return static_cast<int>(order);
}

Model ReadModel(TextFile const& file)
{
    std::string const& kind = file.Field(1);
    if (kind == "polynomial")
        return {Model::Kind::polynomial, ReadOrder(file)};
    if (kind == "linear")
        return {Model::Kind::linear, ReadOrder(file)};
    if (kind == "proportional")
        return {Model::Kind::proportional, 1};
    file.Fail("unknown model '" + kind + "' (polynomial N, linear N, proportional)");
}

/// The row of the design matrix, from predictors that begin at field 1 of the line.
std::vector<double> DesignRow(Model const& model, TextFile const& file)
{
    std::vector<double> row;
    if (model.kind != Model::Kind::proportional)
        row.push_back(1.0);
    if (model.kind == Model::Kind::polynomial) {
        double const x = file.Number(1);
        for (int power = 1; power <= model.order; ++power)
            row.push_back(row.back() * x);
        if (!std::isfinite(row.back()))
            file.Fail("a power of '" + file.Field(1) + "' is not a finite number");
    } else {
        for (int k = 1; k <= model.PredictorCount(); ++k)
            row.push_back(file.Number(static_cast<std::size_t>(k)));
    }
    return row;
}

void CheckCoefficients(Model const& model, NistProblem const& problem, TextFile const& file)
{
    if (model.kind == Model::Kind::none)
        file.Fail("'data' before 'model'");
    auto const expected = static_cast<std::size_t>(model.CoefficientCount());
    if (problem.coefficients.size() != expected)
        file.Fail("the model has " + std::to_string(expected) + " coefficients, but "
                  + std::to_string(problem.coefficients.size()) + " are certified");
}

/// Reads the observations up to the end of the file.
void ReadObservations(Model const& model, TextFile& file, NistProblem& problem)
{
    std::vector<double> responses;
    std::vector<std::vector<double>> rows;
    auto const fieldCount = static_cast<std::size_t>(1 + model.PredictorCount());
    while (file.NextLine()) {
        if (file.Fields().size() != fieldCount)
            file.Fail("an observation has " + std::to_string(fieldCount) + " numbers, found "
                      + std::to_string(file.Fields().size()));
        responses.push_back(file.Number(0));
        rows.push_back(DesignRow(model, file));
    }
    if (rows.size() < problem.coefficients.size())
        file.Fail("the file ends with fewer observations than coefficients");

    auto const rowCount = static_cast<int>(rows.size());
    problem.response.ReSize(rowCount);
    problem.response.SetValue(responses.data());
    problem.design.ReSize(rowCount, model.CoefficientCount());
    for (int i = 0; i < rowCount; ++i)
        for (int j = 0; j < problem.design.ColumnCount(); ++j)
            problem.design(i, j) = rows[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
}

} // namespace

NistProblem ReadNistProblem(std::string const& path)
{
    TextFile file(path);
    NistProblem problem;
    problem.name = std::filesystem::path(path).stem().string();
    Model model;
    while (file.NextLine()) {
        std::string const& keyword = file.Field(0);
        if (keyword == "model") {
            model = ReadModel(file);
        } else if (keyword == "residual-deviation") {
            problem.residualDeviation = file.Number(1);
        } else if (keyword == "data") {
            CheckCoefficients(model, problem, file);
            ReadObservations(model, file, problem);
            return problem;
        } else if (keyword[0] == 'B') {
            problem.coefficients.push_back({keyword, file.Number(1)});
        } else {
            file.Fail("unknown keyword '" + keyword + "'");
        }
    }
    file.Fail("the file ends without 'data'");
}

} // namespace examples
