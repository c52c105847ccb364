#include "regression/Regression.h"

#include "common/Finite.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace examples {

Fit FitLeastSquares(NistProblem const& problem)
{
    MatDbl factors(problem.design); // the solver works in place, on copies
    VecDbl coefficients(problem.response);
    factors.SolveLinearLeastSquares(coefficients);

    VecDbl const residuals = problem.response - problem.design * coefficients;
    int const freedom = problem.design.RowCount() - problem.design.ColumnCount();
    double const deviation = freedom > 0 ? residuals.Length() / std::sqrt(freedom) : 0.0;
    for (int j = 0; j < coefficients.Size(); ++j)
        RequireFinite("a coefficient", coefficients[j]);
    RequireFinite("the residual deviation", deviation);
    return {coefficients, deviation};
}

double CorrectDigits(double computed, double certified)
{
    double const scale = certified == 0.0 ? 1.0 : std::fabs(certified);
    double const error = std::fabs(computed - certified) / scale;
    if (!(error < 1.0)) // a NaN has no correct digit either
        return 0.0;
    if (error == 0.0)
        return certifiedDigits;
    return std::min(-std::log10(error), certifiedDigits);
}

double WorstDigits(NistProblem const& problem, Fit const& fit)
{
    double worst = certifiedDigits;
    for (int i = 0; i < fit.coefficients.Size(); ++i) {
        double const certified = problem.coefficients[static_cast<std::size_t>(i)].estimate;
        worst = std::min(worst, CorrectDigits(fit.coefficients[i], certified));
    }
    return worst;
}

// With A the scaled design, z the scaled coefficients, r the residuals and ε the perturbation,
// δz = A⁺(δy − δA z) + (AᵀA)⁻¹ δAᵀ r, so |δz| ≤ ε ((|y| + σmax |z|) / σmin + σmax |r| / σmin²).
Conditioning Examine(NistProblem const& problem, Fit const& fit)
{
    MatDbl scaled(problem.design);
    VecDbl scaledCoefficients(fit.coefficients);
    for (int j = 0; j < scaled.ColumnCount(); ++j) {
        VecDbl const column = scaled.GetCol(j);
        RequireFinite("the length of a column of the design", column.Length());
        scaled.SetCol(j, column.GetNormalizedCopy());
        scaledCoefficients[j] *= column.Length();
    }
    VecDbl singularValues;
    scaled.Svd(singularValues);
    double const largest = singularValues[0];
    double const smallest = singularValues[singularValues.Size() - 1];

    RequireFinite("the condition number", largest / smallest);

    double const residual = (problem.response - problem.design * fit.coefficients).Length();
    double const error = std::numeric_limits<double>::epsilon()
                         * ((problem.response.Length() + largest * scaledCoefficients.Length()) / smallest
                            + largest * residual / (smallest * smallest));
    Conditioning found{largest / smallest, {}};
    for (int j = 0; j < scaledCoefficients.Size(); ++j)
        found.digitsHeld.push_back(CorrectDigits(scaledCoefficients[j] + error, scaledCoefficients[j]));
    return found;
}

} // namespace examples
