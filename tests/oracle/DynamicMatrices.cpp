#include "oracle/DynamicDraws.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

template <class Rule>
DynMat Each(int rows, int columns, Rule rule)
{
    DynMat result(rows, columns);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            result(r, c) = rule(r, c);
    return result;
}

void DemandSameShape(DynMat const& a, DynMat const& b)
{
    if (a.rows != b.rows || a.columns != b.columns)
        throw Raised{Raise::DimensionMismatch};
}

auto DrawGrid(Source& source)
{
    return std::tuple(DrawnGrid(source));
}

auto DrawScaledGrid(Source& source)
{
    Grid const grid = DrawnGrid(source);
    return std::tuple(grid, source.Number<double>());
}

auto DrawGrids(Source& source)
{
    Grid const a = DrawnGrid(source);
    Grid b = source.OneIn(10) ? DrawnGrid(source) : DrawnGrid(source, a.rows, a.columns);
    bool const isLong = IsLong(a.rows) || IsLong(a.columns);
    if (isLong || source.OneIn(3)) {
        b = a;
        if (isLong || source.Below(2)) {
            int const row = DrawnPlace(source, a.rows), column = DrawnPlace(source, a.columns);
            b(row, column) = source.Number<double>();
        }
    }
    return std::tuple(a, b);
}

/// Factors whose sums are at ties and cancel.
auto DrawFactors(Source& source)
{
    int rows = 1 + source.Below(4), inner = source.Below(2) ? 3 : 1 + source.Below(5),
        columns = 1 + source.Below(4);
    if (source.OneIn(40))
        for (int* const size : {&rows, &inner, &columns})
            *size = 1 + source.Below(sizes::matricesUpTo);
    else if (source.OneIn(1000))
        (source.Below(3) == 0 ? rows : source.Below(2) ? inner : columns) = 1000;
    Grid a = DrawnGrid(source, rows, inner), b = DrawnGrid(source, inner, columns);
    if (source.Below(2) && inner == 3) {
        auto const [x, y] = Related<Vec3Dbl>(source);
        int const r = source.Below(rows), c = source.Below(columns);
        for (int k = 0; k < 3; ++k) {
            a(r, k) = x[k];
            b(k, c) = y[k];
        }
    }
    if (source.OneIn(10))
        b = DrawnGrid(source);
    return std::tuple(a, b);
}

template <class T>
auto DrawMatrixAndVector(Source& source)
{
    Grid g = DrawnGrid(source);
    Array<T> v(g.columns);
    for (int i = 0; i < v.size; ++i)
        v[i] = source.Number<T>();
    if (source.Below(2) && v.size >= 3) {
        Array<T> x(3), y(3);
        Relate(source, x, y);
        int const r = source.Below(g.rows);
        for (int k = 0; k < 3; ++k) {
            g(r, k) = static_cast<double>(x[k]);
            v[k] = y[k];
        }
        if (source.Below(2))
            g(r, source.Below(3)) *= 1.0 + 0x1p-50 * source.Below(4);
    }
    if (source.OneIn(3))
        for (int r = 0; r < g.rows; ++r) {
            // A product next to the midpoint of two floats.
            float const near = source.Ordinary<float>();
            int const k = source.Below(g.columns);
            v[k] = T(1);
            g(r, k) = source.Near(static_cast<double>(near) + static_cast<double>(HalfUnit(near)));
        }
    if (source.OneIn(10))
        v = DrawnArray<T>(source);
    return std::tuple(g, v);
}

auto DrawSquareGrid(Source& source)
{
    Grid const g = DrawnGrid(source);
    return std::tuple(
        source.OneIn(8) ? g : DrawnGrid(source, g.rows > 100 ? 100 : g.rows, g.rows > 100 ? 100 : g.rows));
}

} // namespace

namespace {

void EnterArithmetic()
{
    auto const times = [](DynMat const& m, Dbl const& s) {
        return Each(m.rows, m.columns, [&](int r, int c) { return m(r, c) * s; });
    };
    auto const dividedBy = [](DynMat const& m, Dbl const& s) {
        bool const reciprocal = Slip("by the reciprocal");
        return Each(m.rows, m.columns,
                    [&](int r, int c) { return reciprocal ? m(r, c) * (1.0 / s) : m(r, c) / s; });
    };
    auto const plus = [](DynMat const& a, DynMat const& b) {
        DemandSameShape(a, b);
        return Each(a.rows, a.columns, [&](int r, int c) { return a(r, c) + b(r, c); });
    };
    auto const minus = [](DynMat const& a, DynMat const& b) {
        DemandSameShape(a, b);
        bool const turned = Slip("the other way round");
        return Each(a.rows, a.columns,
                    [&](int r, int c) { return turned ? b(r, c) - a(r, c) : a(r, c) - b(r, c); });
    };
    auto const negated = [](DynMat const& m) {
        bool const fromZero = Slip("from zero");
        return Each(m.rows, m.columns, [&](int r, int c) { return fromZero ? 0.0 - m(r, c) : -m(r, c); });
    };
    auto const kept = [](auto rule) {
        return [rule](DynMat const& a, auto const&... rest) {
            DynMat result = a;
            Raise const raised = RaisedBy([&] { result = rule(a, rest...); });
            return std::tuple(raised, result);
        };
    };
    using G = Grid;
    Add(
        "MatDbl::operator*=", DrawScaledGrid,
        [](G const& g, double s) {
            MatDbl m = Made(g);
            return MatDbl(m *= s);
        },
        times);
    Add(
        "MatDbl::operator/=", DrawScaledGrid,
        [](G const& g, double s) {
            MatDbl m = Made(g);
            return MatDbl(m /= s);
        },
        dividedBy);
    Add(
        "MatDbl::operator+=", DrawGrids,
        [](G const& a, G const& b) { return Kept(Made(a), [&](MatDbl& m) { m += Made(b); }); }, kept(plus));
    Add(
        "MatDbl::operator-=", DrawGrids,
        [](G const& a, G const& b) { return Kept(Made(a), [&](MatDbl& m) { m -= Made(b); }); }, kept(minus));
    Add(
        "MatDbl::Negate", DrawGrid,
        [](G const& g) {
            MatDbl m = Made(g);
            return MatDbl(m.Negate());
        },
        negated);
    Add(
        "MatDbl::GetNegatedCopy", DrawGrid, [](G const& g) { return Made(g).GetNegatedCopy(); }, negated);
    Add(
        "operator*(MatDbl, scalar)", DrawScaledGrid, [](G const& g, double s) { return Made(g) * s; }, times);
    Add(
        "operator*(scalar, MatDbl)", DrawScaledGrid, [](G const& g, double s) { return s * Made(g); }, times);
    Add(
        "operator/(MatDbl, scalar)", DrawScaledGrid, [](G const& g, double s) { return Made(g) / s; },
        dividedBy);
    Add(
        "operator-(MatDbl)", DrawGrid, [](G const& g) { return -Made(g); }, negated);
    Add(
        "operator+(MatDbl, MatDbl)", DrawGrids, [](G const& a, G const& b) { return Made(a) + Made(b); },
        plus);
    Add(
        "operator-(MatDbl, MatDbl)", DrawGrids, [](G const& a, G const& b) { return Made(a) - Made(b); },
        minus);
}

void EnterTransposesAndComparison()
{
    auto const transposed = [](DynMat const& m) {
        return Each(m.columns, m.rows, [&](int r, int c) { return m(c, r); });
    };
    using G = Grid;
    Add(
        "MatDbl::Transpose", DrawGrid,
        [](G const& g) {
            MatDbl m = Made(g);
            return MatDbl(m.Transpose());
        },
        transposed);
    Add(
        "MatDbl::Transpose (a view)", DrawGrid,
        [](G const& g) {
            std::vector<double> block(g.e.size());
            MatDbl m(g.rows, g.columns, block.data());
            for (int r = 0; r < g.rows; ++r)
                for (int c = 0; c < g.columns; ++c)
                    m(r, c) = g(r, c);
            m.Transpose();
            // The caller's block holds the transposed matrix, column by column.
            DynMat seen(g.columns, g.rows);
            for (int r = 0; r < seen.rows; ++r)
                for (int c = 0; c < seen.columns; ++c)
                    seen(r, c) = block[static_cast<std::size_t>(c * seen.rows + r)];
            return std::tuple(m, seen);
        },
        [transposed](DynMat const& m) { return std::tuple(transposed(m), transposed(m)); });
    Add(
        "MatDbl::GetTransposedCopy", DrawGrid, [](G const& g) { return Made(g).GetTransposedCopy(); },
        transposed);
    Add(
        "MatDbl::operator==, !=", DrawGrids,
        [](G const& a, G const& b) {
            MatDbl first = Made(a), second = Made(b);
            return std::tuple(first == second, first != second);
        },
        [](DynMat const& a, DynMat const& b) {
            int equal = a.rows == b.rows && a.columns == b.columns;
            bool const passed = Slip("a NaN equals anything");
            for (int r = 0; r < a.rows && equal; ++r)
                for (int c = 0; c < a.columns; ++c)
                    if (passed ? a(r, c) < b(r, c) || a(r, c) > b(r, c) : !(a(r, c) == b(r, c)))
                        equal = 0;
            return std::tuple(equal, 1 - equal);
        });
    Add(
        "MatDbl(Mat3Dbl)", [](Source& source) { return std::tuple(DrawnGrid(source, 3, 3)); },
        [](G const& g) {
            Mat3Dbl m(0.0);
            for (int i = 0; i < 9; ++i)
                m(i / 3, i % 3) = g(i / 3, i % 3);
            return MatDbl(m);
        },
        [transposed](DynMat const& m) { return Slip("without the transposition") ? m : transposed(m); });
}

void EnterProductsAndSums()
{
    using G = Grid;
    Add(
        "operator*(MatDbl, MatDbl)", DrawFactors, [](G const& a, G const& b) { return Made(a) * Made(b); },
        [](DynMat const& a, DynMat const& b) {
            if (a.columns != b.rows)
                throw Raised{Raise::DimensionMismatch};
            bool const backwards = Slip("from the last on"), plain = Slip("the start of the sum"),
                       fused = Slip("fused"), pairs = Slip("even and odd terms apart");
            return Each(a.rows, b.columns, [&](int r, int c) {
                Dbl sum = plain ? -0.0 : 0.0, odd = 0.0;
                for (int i = 0; i < a.columns; ++i) {
                    int const k = backwards ? a.columns - 1 - i : i;
                    Dbl& to = pairs && i % 2 ? odd : sum;
                    to = fused ? Fused(b(k, c), a(r, k), to) : to + b(k, c) * a(r, k);
                }
                return pairs ? sum + odd : sum;
            });
        });
    Add(
        "operator*(MatDbl, VecFlt)", DrawMatrixAndVector<float>,
        [](G const& g, Array<float> const& v) { return Made(g) * Made(v); },
        [](DynMat const& m, Dyn<Flt> const& v) {
            if (m.columns != v.size)
                throw Raised{Raise::DimensionMismatch};
            bool const keptTerms = Slip("the terms are not rounded"), late = Slip("rounded at the end only"),
                       narrowed = Slip("the matrix is rounded first"), backwards = Slip("from the last on");
            Dyn<Flt> y(m.rows);
            for (int r = 0; r < m.rows; ++r) {
                Dbl sum = 0.0;
                for (int i = 0; i < m.columns; ++i) {
                    int const k = backwards ? m.columns - 1 - i : i;
                    Dbl term = v[k] * (narrowed ? Dbl(Single(m(r, k))) : m(r, k));
                    if (!keptTerms && !late)
                        term = Single(term);
                    sum = sum + term;
                    if (!late)
                        sum = Single(sum);
                }
                y[r] = Single(sum);
            }
            return y;
        });
    auto const sum = [](DynMat const& m) {
        bool const backwards = Slip("from the last on"), along = Slip("along the rows");
        Dyn<Dbl> result(along ? m.rows : m.columns);
        for (int i = 0; i < result.size; ++i) {
            int const count = along ? m.columns : m.rows;
            auto const at = [&](int k) {
                int const j = backwards ? count - 1 - k : k;
                return along ? m(i, j) : m(j, i);
            };
            result[i] = at(0);
            for (int k = 1; k < count; ++k)
                result[i] = result[i] + at(k);
        }
        return result;
    };
    Add(
        "MatDbl::RowSum", DrawGrid, [](G const& g) { return Made(g).RowSum(); }, sum);
    Add(
        "MatDbl::RowAverage", DrawGrid, [](G const& g) { return Made(g).RowAverage(); },
        [sum](DynMat const& m) {
            Dyn<Dbl> result = sum(m);
            bool const reciprocal = Slip("by the reciprocal"), columns = Slip("by the number of columns");
            double const count = columns ? m.columns : m.rows;
            for (int i = 0; i < result.size; ++i)
                result[i] = reciprocal ? result[i] * (1.0 / Dbl(count)) : result[i] / count;
            return result;
        });
}

void EnterElements()
{
    using G = Grid;
    Add(
        "operator*(MatDbl, VecDbl)", DrawMatrixAndVector<double>,
        [](G const& g, Array<double> const& v) { return Made(g) * Made(v); },
        [](DynMat const& m, Dyn<Dbl> const& v) {
            if (m.columns != v.size)
                throw Raised{Raise::DimensionMismatch};
            bool const backwards = Slip("from the last on"), plain = Slip("the start of the sum"),
                       fused = Slip("fused");
            Dyn<Dbl> y(m.rows);
            for (int r = 0; r < m.rows; ++r) {
                y[r] = plain ? -0.0 : 0.0;
                for (int i = 0; i < m.columns; ++i) {
                    int const k = backwards ? m.columns - 1 - i : i;
                    y[r] = fused ? Fused(m(r, k), v[k], y[r]) : y[r] + m(r, k) * v[k];
                }
            }
            return y;
        });
    Add(
        "MatDbl::Identity", DrawGrid,
        [](G const& g) {
            MatDbl m = Made(g);
            return MatDbl(m.Identity());
        },
        [](DynMat const& m) {
            return Each(m.rows, m.columns, [](int r, int c) { return r == c ? 1.0 : 0.0; });
        });
    Add(
        "MatDbl::GetRow, GetCol", DrawGrid,
        [](G const& g) {
            MatDbl const m = Made(g);
            return std::tuple(m.GetRow(g.rows - 1), m.GetCol(g.columns - 1));
        },
        [](DynMat const& m) {
            Dyn<Dbl> row(m.columns), column(m.rows);
            for (int c = 0; c < m.columns; ++c)
                row[c] = m(m.rows - 1, c);
            for (int r = 0; r < m.rows; ++r)
                column[r] = m(r, m.columns - 1);
            return std::tuple(row, column);
        });
    Add(
        "MatDbl::GetDiagonal, SetDiagonal", DrawSquareGrid,
        [](G const& g) {
            MatDbl m = Made(g);
            VecDbl const diagonal = m.GetDiagonal();
            m.SetDiagonal(-diagonal);
            MatDbl filled = m;
            filled.SetDiagonal(3.0);
            return std::tuple(diagonal, m, filled);
        },
        [](DynMat const& m) {
            if (m.rows != m.columns)
                throw Raised{Raise::DimensionMismatch};
            Dyn<Dbl> diagonal(m.rows);
            DynMat turned = m, filled = m;
            for (int i = 0; i < m.rows; ++i) {
                diagonal[i] = m(i, i);
                turned(i, i) = -m(i, i);
                filled(i, i) = 3.0;
            }
            return std::tuple(diagonal, turned, filled);
        });
}

void EnterShapesAndConversions()
{
    using G = Grid;
    Add(
        "MatDbl::ReSize (same number of elements)",
        [](Source& source) {
            int const rows = source.Below(2) ? 2 : 6;
            Grid const grid = DrawnGrid(source, rows, 12 / rows);
            return std::tuple(grid, source.Below(3));
        },
        [](G const& g, int which) {
            MatDbl m = Made(g);
            int const rows = which == 0 ? 2 : which == 1 ? 3 : 4;
            m.ReSize(rows, 12 / rows, nullptr);
            return m;
        },
        [](DynMat const& m, int which) {
            int const rows = which == 0 ? 2 : which == 1 ? 3 : 4;
            bool const rowwise = Slip("row after row");
            return Each(rows, 12 / rows, [&](int r, int c) {
                int const place = rowwise ? r * (12 / rows) + c : c * rows + r;
                return rowwise ? m(place / m.columns, place % m.columns) : m(place % m.rows, place / m.rows);
            });
        });
    Add(
        "Mat3Dbl(MatDbl)", DrawGrid, [](G const& g) { return Mat3Dbl(Made(g)); },
        [](DynMat const& g) {
            Mat<3> m;
            bool const turned = Slip("transposed");
            for (int r = 0; r < 3; ++r)
                for (int c = 0; c < 3; ++c) {
                    int const i = turned ? c : r, j = turned ? r : c;
                    if (i < g.rows && j < g.columns)
                        m(r, c) = g(i, j);
                }
            return m;
        });
    Add(
        "VecDbl::OuterProduct",
        [](Source& source) {
            auto [a, b] = DrawnArrays<double>(source);
            if (a.size > 3 && source.Below(2))
                a.ReSize(3);
            if (b.size < a.size && a.size <= 3)
                b.ReSize(a.size);
            return std::tuple(a, b);
        },
        [](Array<double> const& a, Array<double> const& b) { return Made(a).OuterProduct(Made(b)); },
        [](Dyn<Dbl> const& a, Dyn<Dbl> const& b) {
            if (a.size > 3)
                throw Raised{Raise::DimensionMismatch};
            bool const zero = Slip("zeros around"), turned = Slip("transposed");
            return Each(3, 3, [&](int r, int c) {
                if (r < a.size && c < a.size)
                    return turned ? a[c] * b[r] : a[r] * b[c];
                return zero ? Dbl(0.0) : Dbl(a.size);
            });
        });
}

} // namespace

void EnterDynamicMatrices()
{
    EnterArithmetic();
    EnterTransposesAndComparison();
    EnterProductsAndSums();
    EnterElements();
    EnterShapesAndConversions();
}

} // namespace oracle
