#pragma once
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

// The small solver written plainly for any size; the library's solver is compared with it bit by bit.

namespace vexor_test {

inline int ReferenceDecompose(double* a, unsigned char* perm, int n)
{
    double scale[255];
    for (int i = 0; i < n; ++i) {
        perm[i] = static_cast<unsigned char>(i);
        double largest = 0.0;
        for (int k = 0; k < n; ++k) {
            if (std::fabs(a[i * n + k]) > largest)
                largest = std::fabs(a[i * n + k]);
        }
        if (largest == 0.0)
            return -2;
        scale[i] = 1.0 / largest;
    }
    // a(p, j) minus the sum of the first `terms` products of a row and a column of the factors
    auto const reduced = [&](int p, int j, int terms) {
        if (terms == 0)
            return a[p * n + j];
        double sum = a[perm[0] * n + j] * a[p * n];
        for (int k = 1; k < terms; ++k)
            sum = sum + a[perm[k] * n + j] * a[p * n + k];
        return a[p * n + j] - sum;
    };
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < j; ++i)
            a[perm[i] * n + j] = reduced(perm[i], j, i);
        double best = 0.0;
        int index = -1;
        for (int i = j; i < n; ++i) {
            int const p = perm[i];
            a[p * n + j] = reduced(p, j, j);
            double const t = std::fabs(a[p * n + j]) * scale[p];
            if (t > best) {
                best = t;
                index = i;
            }
        }
        if (index == -1)
            return -3;
        if (index != j)
            std::swap(perm[j], perm[index]);
        double const reciprocal = 1.0 / a[perm[j] * n + j];
        a[perm[j] * n + j] = reciprocal;
        for (int i = j + 1; i < n; ++i)
            a[perm[i] * n + j] = a[perm[i] * n + j] * reciprocal;
    }
    return 0;
}

inline void ReferenceSubstitute(double const* a, double* rightSides, unsigned char const* perm, int n,
                                int count)
{
    for (int side = 0; side < count; ++side) {
        double* const b = rightSides + side * count;
        // b(i) minus the sum of products from `begin` to `end` − 1
        auto const reduced = [&](int i, int begin, int end) {
            if (begin == end)
                return b[perm[i]];
            double sum = b[perm[begin]] * a[perm[i] * n + begin];
            for (int k = begin + 1; k < end; ++k)
                sum = sum + b[perm[k]] * a[perm[i] * n + k];
            return b[perm[i]] - sum;
        };
        int first = -1;
        for (int i = 0; i < n; ++i) {
            if (first >= 0)
                b[perm[i]] = reduced(i, first, i);
            else if (!(b[perm[i]] == 0.0))
                first = i;
        }
        for (int i = n - 1; i >= 0; --i)
            b[perm[i]] = reduced(i, i + 1, n) * a[perm[i] * n + i];
        std::vector<double> solution;
        for (int k = 0; k < n; ++k)
            solution.push_back(b[perm[k]]);
        for (int k = 0; k < n; ++k)
            b[k] = solution[static_cast<std::size_t>(k)];
    }
}

} // namespace vexor_test
