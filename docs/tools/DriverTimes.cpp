// Prints the shortest time of a solve, of singular values and of a symmetric eigenproblem for three sizes, in
// microseconds. scripts/compare-lapack runs it with the library built on two LAPACKs.
#include <vexor/dynamic/MatDbl.h>

#include <chrono>
#include <cstdio>
#include <initializer_list>

namespace {

/// The shortest of the runs that fit in half a second, at least three.
template <class Operation>
double Microseconds(Operation operation)
{
    using Clock = std::chrono::steady_clock;
    double shortest = 1e300;
    Clock::time_point const end = Clock::now() + std::chrono::milliseconds(500);
    for (int run = 0; run < 3 || Clock::now() < end; ++run) {
        Clock::time_point const start = Clock::now();
        operation();
        double const time = std::chrono::duration<double, std::micro>(Clock::now() - start).count();
        if (time < shortest)
            shortest = time;
    }
    return shortest;
}

} // namespace

int main()
{
    for (int const n : {16, 64, 256}) {
        MatDbl matrix(n, n);
        unsigned state = 1;
        for (int j = 0; j < n; ++j) {
            for (int i = 0; i <= j; ++i) {
                state = state * 1664525U + 1013904223U;
                matrix(i, j) = matrix(j, i) = state / 4294967296.0 - 0.5;
            }
        }
        VecDbl values(n);
        std::printf("%d %.1f", n, Microseconds([&] {
                        MatDbl copy(matrix);
                        VecDbl right(n, 1.0);
                        copy.Solve(right);
                    }));
        std::printf(" %.1f", Microseconds([&] {
                        MatDbl copy(matrix);
                        copy.Svd(values);
                    }));
        std::printf(" %.1f\n", Microseconds([&] {
                        MatDbl copy(matrix);
                        copy.EigenSym(values, 1, 0, n - 1);
                    }));
    }
}
