#pragma once
#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>

#include <string>
#include <vector>

namespace examples {

/// A coefficient certified by NIST, to fifteen digits.
struct CertifiedValue {
    std::string name;
    double estimate;
};

/// One problem of the NIST StRD linear-regression collection: y = X b + e, with the certified b.
struct NistProblem {
    std::string name;
    std::vector<CertifiedValue> coefficients;
    double residualDeviation = 0.0;
    MatDbl design;   ///< X: one row an observation, one column a coefficient.
    VecDbl response; ///< y.
};

/// Reads a problem in the form that data/nist/README.md describes. Raises InputError.
NistProblem ReadNistProblem(std::string const& path);

} // namespace examples
