#pragma once
#include "regression/NistProblem.h"

namespace examples {

/// The number of digits to which the certified values of the collection are given.
constexpr double certifiedDigits = 15.0;

/// A fitted model: its coefficients, and its distance from the observations.
struct Fit {
    VecDbl coefficients;
    double residualDeviation;
};

/// Fits by least squares.
Fit FitLeastSquares(NistProblem const& problem);

/// The digits that agree, −log10 of the relative error (of the absolute error where the certified
/// value is 0), from 0 to `certifiedDigits`.
double CorrectDigits(double computed, double certified);

/// The smallest number of correct digits among the coefficients.
double WorstDigits(NistProblem const& problem, Fit const& fit);

/// The limits that the problem itself sets, for any solver.
struct Conditioning {
    double condition;               ///< Of the design matrix, its columns scaled to length 1.
    std::vector<double> digitsHeld; ///< For each coefficient, the digits that survive (see `Examine`).
};

/// The digits that survive if each number of the problem is off by one unit in the last place of a
/// double: first-order perturbation theory. A backward-stable solver reaches them. Columns are
/// scaled to length 1 first, since their scales do not matter to the solver.
Conditioning Examine(NistProblem const& problem, Fit const& fit);

} // namespace examples
