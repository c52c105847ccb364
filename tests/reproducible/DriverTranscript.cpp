// Runs every LAPACK driver of the library over seeded matrices of sizes 1 to 40 and prints one hash a driver.
// With the archives of scripts/reproducible-lapack the hashes are the same on every platform; hashes.txt
// holds them.
//
// Usage: driver_transcript

#include <vexor/vexor.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

/// splitmix64: the same numbers on every platform.
class Source {
public:
    explicit Source(std::uint64_t seed) : state(seed) {}

    std::uint64_t Word()
    {
        state += 0x9e3779b97f4a7c15ULL;
        std::uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9ULL;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebULL;
        return mixed ^ (mixed >> 31);
    }
    int Below(int bound) { return static_cast<int>(Word() % static_cast<std::uint64_t>(bound)); }
    /// In [−1, 1), using all bits.
    double Unit() { return static_cast<double>(Word() >> 11) * 0x1p-52 - 1.0; }

private:
    std::uint64_t state;
};

/// FNV-1a over bits; all NaNs count as one.
class Hash {
public:
    void Add(double value)
    {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof value);
        if (value != value)
            bits = 0x7ff8000000000000ULL;
        for (int i = 0; i < 8; ++i, bits >>= 8)
            state = (state ^ (bits & 0xff)) * 1099511628211ULL;
        ++count;
    }
    void Add(VecDbl const& vector)
    {
        for (int i = 0; i < vector.Size(); ++i)
            Add(vector[i]);
    }
    void Add(MatDbl const& matrix, int rows)
    {
        for (int i = 0; i < rows; ++i) {
            for (int j = 0; j < matrix.ColumnCount(); ++j)
                Add(matrix(i, j));
        }
    }
    void Add(MatDbl const& matrix) { Add(matrix, matrix.RowCount()); }
    void Print(char const* driver) const
    {
        std::printf("%-7s %016llx  (%lld results)\n", driver, static_cast<unsigned long long>(state), count);
    }

private:
    std::uint64_t state = 14695981039346656037ULL;
    long long count = 0;
};

// ---- Operands ----------------------------------------------------------------------------------------

constexpr int kinds = 8;

MatDbl Random(Source& source, int rows, int columns)
{
    MatDbl matrix(rows, columns);
    for (int j = 0; j < columns; ++j) {
        for (int i = 0; i < rows; ++i)
            matrix(i, j) = source.Unit();
    }
    return matrix;
}

/// H·A with H = I − 2vvᵀ/(vᵀv) for a random v.
void Reflect(Source& source, MatDbl& matrix)
{
    int const n = matrix.RowCount();
    VecDbl v(n);
    double square = 0.0;
    for (int i = 0; i < n; ++i) {
        v[i] = source.Unit();
        square += v[i] * v[i];
    }
    for (int j = 0; j < matrix.ColumnCount(); ++j) {
        double sum = 0.0;
        for (int i = 0; i < n; ++i)
            sum += v[i] * matrix(i, j);
        double const factor = 2.0 * sum / square;
        for (int i = 0; i < n; ++i)
            matrix(i, j) -= factor * v[i];
    }
}

/// Well and badly conditioned matrices, one kind after the other: random; diagonally dominant; Hilbert's;
/// rows of very different size; rank deficient up to rounding; a designed spectrum over twelve decades; one
/// in clusters; one with a few distinct values.
MatDbl Drawn(Source& source, int kind, int rows, int columns)
{
    MatDbl matrix = Random(source, rows, columns);
    int const smaller = rows < columns ? rows : columns;
    switch (kind) {
    case 1:
        for (int i = 0; i < smaller; ++i)
            matrix(i, i) += 4.0 * smaller;
        break;
    case 2:
        for (int i = 0; i < rows; ++i) {
            for (int j = 0; j < columns; ++j)
                matrix(i, j) = 1.0 / (i + j + 1);
        }
        break;
    case 3:
        for (int i = 0; i < rows; ++i) {
            int const scale = source.Below(60) - 30;
            for (int j = 0; j < columns; ++j)
                matrix(i, j) = std::ldexp(matrix(i, j), scale);
        }
        break;
    case 4:
        if (smaller > 1) {
            for (int j = 0; j < columns; ++j)
                matrix(rows - 1, j) = matrix(0, j) * (1.0 + 0x1p-40 * source.Unit());
        }
        break;
    case 5:
    case 6:
    case 7: {
        matrix.SetValue(0.0);
        double value = 1.0;
        for (int i = 0; i < smaller; ++i) {
            matrix(i, i) = kind == 5 ? value : kind == 6 ? 1.0 + 0x1p-45 * (i / 3) : 1.0 + i % 3;
            value *= 0.5;
        }
        Reflect(source, matrix);
        matrix.Transpose();
        Reflect(source, matrix);
        matrix.Transpose();
        break;
    }
    default:
        break;
    }
    return matrix;
}

/// The same kinds, symmetric: the designed spectra by one reflection from both sides, else the upper
/// triangle.
MatDbl DrawnSymmetric(Source& source, int kind, int n)
{
    MatDbl matrix = Drawn(source, kind, n, n);
    if (kind >= 5) {
        matrix.SetValue(0.0);
        double value = 1.0;
        for (int i = 0; i < n; ++i) {
            matrix(i, i) = (i % 2 ? -1.0 : 1.0)
                           * (kind == 5   ? value
                              : kind == 6 ? 1.0 + 0x1p-45 * (i / 3)
                                          : 1.0 + i % 3);
            value *= 0.5;
        }
        Source copy = source;
        Reflect(source, matrix);
        matrix.Transpose();
        Reflect(copy, matrix);
    }
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < i; ++j)
            matrix(i, j) = matrix(j, i);
    }
    return matrix;
}

VecDbl RightSide(Source& source, int n)
{
    VecDbl vector(n);
    for (int i = 0; i < n; ++i)
        vector[i] = source.Unit();
    return vector;
}

/// Adds the operands after the operation, or its failure.
template <class Operation>
void Note(Hash& hash, Operation operation)
{
    try {
        operation();
    } catch (VexorComputationFailed const&) {
        hash.Add(-1.0);
    }
}

} // namespace

int main()
{
    Hash gesv, getrs, sysv, sytrs, gels, gesvd, syevx;
    Source source(20261122);
    for (int n = 1; n <= 40; ++n) {
        for (int kind = 0; kind < kinds; ++kind) {
            MatDbl general = Drawn(source, kind, n, n);
            VecDbl b = RightSide(source, n);
            MatDbl several = Random(source, n, 3);
            MatDbl factors(general);
            Note(gesv, [&] {
                factors.Solve(b);
                gesv.Add(b);
                gesv.Add(factors);
                Note(getrs, [&] {
                    factors.ReSolve(several);
                    getrs.Add(several);
                });
            });

            MatDbl symmetric = DrawnSymmetric(source, kind, n);
            VecDbl c = RightSide(source, n);
            MatDbl others = Random(source, n, 3);
            MatDbl halves(symmetric);
            Note(sysv, [&] {
                halves.SolveSym(c);
                sysv.Add(c);
                Note(sytrs, [&] {
                    halves.ReSolveSym(others);
                    sytrs.Add(others);
                });
            });

            int const other = 1 + source.Below(40);
            MatDbl oblong = Drawn(source, kind, n, other);
            MatDbl sides = Random(source, n, 2);
            MatDbl quadrics(oblong);
            Note(gels, [&] {
                quadrics.SolveLinearLeastSquares(sides);
                gels.Add(sides);
            });

            VecDbl singular(1);
            Note(gesvd, [&] {
                oblong.Svd(singular);
                gesvd.Add(singular);
                gesvd.Add(oblong, singular.Size());
            });

            MatDbl values(symmetric);
            VecDbl eigen(1);
            Note(syevx, [&] {
                symmetric.EigenSym(eigen, 1, 0, n - 1);
                syevx.Add(eigen);
                syevx.Add(symmetric);
            });
            int const first = source.Below(n);
            int const last = first + source.Below(n - first);
            Note(syevx, [&] {
                values.EigenSym(eigen, kind % 2, first, last);
                for (int i = 0; i <= last - first; ++i)
                    syevx.Add(eigen[i]);
            });
        }
    }
    gesv.Print("DGESV");
    getrs.Print("DGETRS");
    sysv.Print("DSYSV");
    sytrs.Print("DSYTRS");
    gels.Print("DGELS");
    gesvd.Print("DGESVD");
    syevx.Print("DSYEVX");
}
