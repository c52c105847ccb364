// Solves regression problems whose results are certified to fifteen digits, and prints how many of the
// digits are right.
//
//   regression PROBLEM.txt...

#include "common/Program.h"
#include "regression/Regression.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

namespace examples {

namespace {

/// One line of the closing table.
struct Summary {
    std::string name;
    double condition;
    double digitsHeld;
    double worstDigits;
};

/// Above this condition number half of a double's digits may be lost.
double const illConditioned = 1.0 / std::sqrt(std::numeric_limits<double>::epsilon());

void PrintRow(std::string const& name, double computed, double certified)
{
    std::printf("  %-10s %23.15g %23.15g %8.1f", name.c_str(), computed, certified,
                CorrectDigits(computed, certified));
}

Summary Solve(NistProblem const& problem)
{
    Fit const fit = FitLeastSquares(problem);
    Conditioning const conditioning = Examine(problem, fit);

    std::printf("%s: %d observations\n", problem.name.c_str(), problem.design.RowCount());
    std::printf("  %-10s %23s %23s %8s %8s\n", "", "computed", "certified", "digits", "held");
    for (int i = 0; i < fit.coefficients.Size(); ++i) {
        auto const index = static_cast<std::size_t>(i);
        CertifiedValue const& certified = problem.coefficients[index];
        PrintRow(certified.name, fit.coefficients[i], certified.estimate);
        std::printf(" %8.1f\n", conditioning.digitsHeld[index]);
    }
    PrintRow("deviation", fit.residualDeviation, problem.residualDeviation);
    std::printf("\n");
    if (conditioning.condition > illConditioned)
        std::printf("  Ill-conditioned: an error in the last place of the data can grow %.0e times. Digits\n"
                    "  beyond those held agree with the certified value, but nothing warrants them.\n",
                    conditioning.condition);
    std::printf("\n");
    return {problem.name, conditioning.condition,
            *std::min_element(conditioning.digitsHeld.begin(), conditioning.digitsHeld.end()),
            WorstDigits(problem, fit)};
}

void PrintSummary(std::vector<Summary> const& summaries)
{
    std::printf("digits: those that agree with the certified value, of %.0f\n"
                "held:   those that an error in the last place of the data leaves standing\n\n",
                certifiedDigits);
    std::printf("%-12s %12s %12s %12s\n", "problem", "condition", "digits", "held");
    for (Summary const& summary : summaries)
        std::printf("%-12s %12.1e %12.1f %12.1f%s\n", summary.name.c_str(), summary.condition,
                    summary.worstDigits, summary.digitsHeld,
                    summary.condition > illConditioned ? "  ill-conditioned" : "");
}

int Run(std::vector<std::string> const& paths)
{
    if (paths.empty()) {
        std::fprintf(stderr, "usage: regression PROBLEM.txt...\n");
        return badUsage;
    }
    std::vector<Summary> summaries;
    for (std::string const& path : paths)
        summaries.push_back(Solve(ReadNistProblem(path)));
    PrintSummary(summaries);
    return succeeded;
}

} // namespace

} // namespace examples

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("regression", [&] {
        return examples::Run(std::vector<std::string>(arguments + 1, arguments + argumentCount));
    });
}
