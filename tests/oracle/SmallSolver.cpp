#include "oracle/Matrices.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

constexpr int most = 8;

/// An n×n matrix with its pivot order, factorised in place.
struct Factors {
    int size = 3;
    Dbl a[most][most];
    int perm[most] = {};
};

int Decompose(Factors& f)
{
    int const n = f.size;
    Dbl scale[most];
    for (int i = 0; i < n; ++i) {
        f.perm[i] = i;
        Dbl largest = 0.0;
        for (int j = 0; j < n; ++j)
            if (Abs(f.a[i][j]) > largest)
                largest = Abs(f.a[i][j]);
        if (largest == 0.0)
            return -2;
        scale[i] = 1.0 / largest;
        if (Slip("no scaling"))
            scale[i] = 1.0;
    }
    bool const termByTerm = Slip("the terms are subtracted one by one"),
               multiplied = Slip("divided by the pivot"), tie = Slip("the last of equal candidates"),
               byPlace = Slip("the scale is looked up by place");
    bool const fromZero = Slip("each sum starts from 0.0");
    auto reduced = [&](int p, int j, int count) {
        if (count == 0)
            return f.a[p][j];
        Dbl sum;
        Dbl left = f.a[p][j];
        for (int k = 0; k < count; ++k) {
            Dbl const term = f.a[f.perm[k]][j] * f.a[p][k];
            sum = k == 0 && !fromZero ? term : sum + term;
            left = left - term;
        }
        return termByTerm ? left : f.a[p][j] - sum;
    };
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < j; ++i)
            f.a[f.perm[i]][j] = reduced(f.perm[i], j, i);
        Dbl best = 0.0;
        int index = -1;
        for (int i = j; i < n; ++i) {
            int const p = f.perm[i];
            f.a[p][j] = reduced(p, j, j);
            Dbl const t = Abs(f.a[p][j]) * scale[byPlace ? i : p];
            if (t > best || (tie && t == best && t > 0.0)) {
                best = t;
                index = i;
            }
        }
        if (index == -1)
            return -3;
        if (index != j)
            std::swap(f.perm[j], f.perm[index]);
        int const p = f.perm[j];
        Dbl const pivot = f.a[p][j];
        f.a[p][j] = 1.0 / pivot;
        for (int i = j + 1; i < n; ++i) {
            Dbl& element = f.a[f.perm[i]][j];
            element = multiplied ? element / pivot : element * f.a[p][j];
        }
    }
    return 0;
}

/// b holds the right-hand sides, read from base on; base grows by the count.
void Substitute(Factors const& f, Dbl* b, int count)
{
    int const n = f.size;
    bool const byColumns = count > 1 && n != count && Slip("base grows by the size");
    bool const oneByOne = Slip("the terms of a right-hand side are subtracted one by one");
    bool const fromZero = Slip("leading zeros are not skipped");
    for (int side = 0; side < count; ++side) {
        Dbl* const v = b + (byColumns ? side * n : side * count);
        auto reduced = [&](int p, int from, int to) {
            if (from >= to)
                return v[p];
            Dbl sum;
            Dbl left = v[p];
            for (int k = from; k < to; ++k) {
                Dbl const term = v[f.perm[k]] * f.a[p][k];
                sum = k == from ? term : sum + term;
                left = left - term;
            }
            return oneByOne ? left : v[p] - sum;
        };
        int first = fromZero ? 0 : -1;
        for (int i = 0; i < n; ++i) {
            int const p = f.perm[i];
            if (first < 0) {
                if (!(v[p] == 0.0))
                    first = i;
                continue;
            }
            v[p] = reduced(p, first, i);
        }
        for (int i = n - 1; i >= 0; --i) {
            int const p = f.perm[i];
            v[p] = reduced(p, i + 1, n) * f.a[p][i];
        }
        Dbl solution[most];
        for (int k = 0; k < n; ++k)
            solution[k] = v[f.perm[k]];
        for (int k = 0; k < n; ++k)
            v[k] = solution[k];
    }
}

Factors FactorsOf(Mat<3> const& m)
{
    Factors f;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            f.a[r][c] = m(r, c);
    return f;
}

Mat<3> ElementsOf3(Factors const& f)
{
    Mat<3> m;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            m(r, c) = f.a[r][c];
    return m;
}

/// A square matrix of any small size as an operand, followed by right-hand sides.
struct Square {
    int size;
    int count;
    double a[most * most];
    double b[most * most];
};

struct SquareValues {
    Factors f;
    int count = 0;
    Dbl b[most * most];
};

SquareValues Converted(Square const& square)
{
    SquareValues values;
    values.f.size = square.size;
    values.count = square.count;
    for (int r = 0; r < square.size; ++r)
        for (int c = 0; c < square.size; ++c)
            values.f.a[r][c] = square.a[r * square.size + c];
    for (int i = 0; i < most * most; ++i)
        values.b[i] = square.b[i];
    return values;
}

SquareValues const& Converted(SquareValues const& values)
{
    return values;
}

void Put(Outcome& out, SquareValues const& values)
{
    out.Put(values.f.size);
    out.Put(values.count);
    for (int r = 0; r < values.f.size; ++r)
        for (int c = 0; c < values.f.size; ++c)
            out.Put(values.f.a[r][c]);
    for (int i = 0; i < values.f.size; ++i)
        out.Put(values.f.perm[i]);
    for (int i = 0; i < most * most; ++i)
        out.Put(values.b[i]);
}

auto DrawSquare(Source& source)
{
    Square square = {};
    int const n = square.size = 1 + source.Below(most);
    square.count = source.Below(5) ? (source.Below(2) ? 1 : n) : source.Below(n + 1) - 1;
    for (int i = 0; i < n * n; ++i)
        square.a[i] = source.Number<double>();
    int const from = source.Below(n), to = source.Below(n);
    switch (source.Below(8)) {
    case 0:
        for (int c = 0; c < n; ++c)
            square.a[to * n + c] = 2.0 * square.a[from * n + c];
        break;
    case 1:
        for (int c = 0; c < n; ++c)
            square.a[to * n + c] = 0.0;
        break;
    case 2:
        for (int r = 0; r < n; ++r) {
            int const scale = source.Below(600) - 300;
            for (int c = 0; c < n; ++c)
                square.a[r * n + c] = std::ldexp(square.a[r * n + c], scale);
        }
        break;
    case 3:
        for (int i = 0; i < n * n; ++i)
            if (source.Below(2))
                square.a[i] = source.Below(2) ? 0.0 : 1.0;
        break;
    default:
        break;
    }
    for (int i = 0; i < most * most; ++i)
        square.b[i] = source.OneIn(4) ? (source.Below(2) ? 0.0 : -0.0) : source.Number<double>();
    return std::tuple(square);
}

auto DrawSystem(Source& source)
{
    Mat3Dbl const m = DrawnMatrix<Mat3Dbl, 3>(source);
    Vec3Dbl b = Filled<Vec3Dbl>(source), c = Filled<Vec3Dbl>(source), d = Filled<Vec3Dbl>(source);
    if (source.Below(2))
        b[source.Below(3)] = b[source.Below(3)] = 0.0;
    return std::tuple(m, b, c, d);
}

void Gather(Dbl* to, V3 const& a, V3 const& b, V3 const& c)
{
    for (int i = 0; i < 3; ++i) {
        to[i] = a[i];
        to[3 + i] = b[i];
        to[6 + i] = c[i];
    }
}

std::tuple<V3, V3, V3> Scattered(Dbl const* v)
{
    return {V3{{v[0], v[1], v[2]}}, V3{{v[3], v[4], v[5]}}, V3{{v[6], v[7], v[8]}}};
}

auto InvertedRule(Mat<3> const& m)
{
    Factors f = FactorsOf(m);
    Raise raised = Raise::None;
    Mat<3> result;
    if (Decompose(f) != 0) {
        raised = Raise::Singular;
        result = ElementsOf3(f);
    } else {
        Dbl unit[9];
        for (int i = 0; i < 9; ++i)
            unit[i] = i % 4 == 0 ? 1.0 : 0.0;
        Substitute(f, unit, 3);
        bool const straight = Slip("stored without the transposition");
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                result(r, c) = straight ? unit[r * 3 + c] : unit[c * 3 + r];
    }
    return std::tuple(raised, result);
}

// ---- The closed symmetric eigenproblem -------------------------------------------------------------------

double const third = 0.3333333333333333;

V3 EigenVector(Mat<3> const& m, Dbl const& x)
{
    Mat<3> w;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            w(r, c) = m(r < c ? r : c, r < c ? c : r);
    for (int i = 0; i < 3; ++i)
        w(i, i) = w(i, i) - x;
    Dbl largest = 0.0;
    int p = -1, q = -1;
    bool const last = Slip("the last of equal elements");
    for (int r = 0; r < 3; ++r)
        for (int c = r; c < 3; ++c)
            if (last && largest > 0.0 ? Abs(w(r, c)) >= largest : Abs(w(r, c)) > largest) {
                largest = Abs(w(r, c));
                p = r;
                q = c;
            }
    V3 v;
    if (largest == 0.0) {
        v[0] = 1.0;
        v[1] = v[2] = 0.0;
        return v;
    }
    int const q1 = (q + 1) % 3, q2 = (q + 2) % 3;
    Dbl best = 0.0, minor = 0.0;
    int partner = -1, A = -1, B = -1;
    bool const atLeast = Slip("the last of equal minors");
    auto better = [&](Dbl const& candidate) {
        return atLeast && best > 0.0 ? Abs(candidate) >= best : Abs(candidate) > best;
    };
    for (int k = 1; k <= 2; ++k) {
        int const r = (p + k) % 3;
        Dbl const m1 = w(r, q1) * w(p, q) - w(p, q1) * w(r, q);
        if (better(m1)) {
            best = Abs(m1);
            minor = m1;
            partner = r;
            A = q1;
            B = q2;
        }
        Dbl const m2 = w(r, q2) * w(p, q) - w(p, q2) * w(r, q);
        if (better(m2)) {
            best = Abs(m2);
            minor = m2;
            partner = r;
            A = q2;
            B = q1;
        }
    }
    if (best != 0.0) {
        int const r = partner;
        v[q] = w(p, A) * w(r, B) - w(r, A) * w(p, B);
        v[A] = w(r, q) * w(p, B) - w(p, q) * w(r, B);
        v[B] = Slip("the minor's sign is dropped") ? Abs(minor) : minor;
    } else {
        Dbl const a1 = Abs(w(p, q1)), a2 = Abs(w(p, q2));
        if (a2 < a1) {
            v[q1] = 1.0;
            v[q2] = 0.0;
            v[q] = -w(p, q1) / w(p, q);
        } else if (Slip("equal elements are no case of their own") ? a2 >= a1 : a2 > a1) {
            v[q1] = 0.0;
            v[q2] = 1.0;
            v[q] = -w(p, q2) / w(p, q);
        } else {
            v[q] = 0.0;
            v[q1] = 1.0;
            v[q2] = -1.0;
        }
    }
    return NormalizedOf(v);
}

bool ValuesCoincide(Dbl const& x, Dbl const& y)
{
    if (y == x)
        return true;
    Dbl const larger = Abs(x) > Abs(y) ? Abs(x) : Abs(y);
    return Abs(x - y) < larger * (Dbl(10.0) * 2.220446049250313e-16);
}

/// The eigenvalues, ascending; raises for a P that is not below 0.
V3 EigenValues(Mat<3> const& m)
{
    Dbl const &a = m(0, 0), &b = m(0, 1), &c = m(0, 2), &d = m(1, 1), &e = m(1, 2), &f = m(2, 2);
    Dbl const S = -a - d - f;
    Dbl const T = a * d + f * (a + d) - e * e - b * b - c * c;
    Dbl const D = f * (b * b - a * d) + a * (e * e) - 2.0 * b * c * e + c * c * d;
    Dbl const P = Slip("a division by 3") ? T - S * S / 3.0 : T - S * S * third;
    if (Slip("P of 0 passes") ? P > 0.0 : P >= 0.0)
        throw Raised{Raise::ComputationFailed};
    Dbl const R = 2.0 * Sqrt(P * -third);
    Dbl const Q = D + (2.0 * (S * S * S) / 27.0 - T * S * third);
    Dbl const g = Slip("g by Q·3 over P·R") ? Q * 3.0 / (P * R) : Q * 3.0 / P / R;
    Dbl const angle = g >= 1.0 ? Dbl(0.0) : g <= -1.0 ? Dbl(pi) : Acos(g);
    Dbl const h = angle * third;
    Dbl const cs = Cos(h), sn = Dbl(1.7320508075688772) * Sin(h);
    Dbl const z = S * third;
    Dbl const e1 = R * cs - z, e2 = R * 0.5 * (sn - cs) - z, e3 = R * 0.5 * (-cs - sn) - z;
    Dbl const lower = e1 < e2 ? e1 : e2, higher = e1 < e2 ? e2 : e1;
    if (lower >= e3)
        return {{e3, lower, higher}};
    if (higher < e3)
        return {{lower, higher, e3}};
    return {{lower, e3, higher}};
}

auto EigenRule(Mat<3> m, int wanted)
{
    V3 values = {{7.0, 7.0, 7.0}};
    Raise const raised = RaisedBy([&] {
        values = EigenValues(m);
        if (!wanted)
            return;
        bool const first = ValuesCoincide(values[0], values[1]),
                   second = ValuesCoincide(values[1], values[2]);
        if (first && second)
            throw Open{};
        V3 rows[3];
        rows[0] = EigenVector(m, values[0]);
        if (!first)
            rows[1] = EigenVector(m, values[1]);
        if (!second)
            rows[2] = EigenVector(m, values[2]);
        if (second)
            rows[2] = CrossOf(rows[0], rows[1]);
        if (first)
            rows[1] = Slip("row 2 × row 0") ? CrossOf(rows[2], rows[0]) : CrossOf(rows[0], rows[2]);
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                m(r, c) = rows[r][c];
    });
    return std::tuple(raised, values, m);
}

/// Symmetric in the upper triangle; the lower one is arbitrary.
Mat3Dbl DrawnSymmetric(Source& source)
{
    Mat3Dbl m = FilledMatrix<Mat3Dbl, 3>(source);
    switch (source.Below(8)) {
    case 0:
        m(0, 1) = m(0, 2) = m(1, 2) = source.Below(2) ? 0.0 : -0.0;
        if (source.Below(2))
            m(1, 1) = m(source.Below(2) * 2, source.Below(2) * 2);
        break;
    case 1: {
        // A plane rotation of two equal eigenvalues and a third, or nearly so.
        double const t = source.Signed(), c = std::cos(t), s = std::sin(t);
        double const x = source.Ordinary<double>();
        double const y = source.Below(2) ? x : x * (1.0 + std::pow(10.0, -16.0 * source.Unit()));
        double const w = source.Ordinary<double>();
        m(0, 0) = c * c * x + s * s * w;
        m(0, 1) = c * s * (w - x);
        m(1, 1) = s * s * x + c * c * w;
        m(0, 2) = m(1, 2) = 0.0;
        m(2, 2) = y;
        break;
    }
    case 2: {
        // A multiple of a vector's outer product, plus a multiple of the identity matrix.
        Vec3Dbl const v = Filled<Vec3Dbl>(source);
        double const shift = source.Below(2) ? 0.0 : source.Number<double>();
        for (int r = 0; r < 3; ++r)
            for (int c = r; c < 3; ++c)
                m(r, c) = v[r] * v[c] + (r == c ? shift : 0.0);
        break;
    }
    case 3: {
        double const x = source.Number<double>();
        for (int i = 0; i < 3; ++i)
            m(i, i) = source.Near(x);
        m(0, 1) = m(0, 2) = m(1, 2) = 0.0;
        if (source.Below(2))
            m(0, 1) = std::ldexp(source.Signed(), -60);
        break;
    }
    default:
        break;
    }
    return m;
}

} // namespace

Mat<3> InverseOf(Mat<3> m)
{
    auto const [raised, result] = InvertedRule(m);
    if (raised != Raise::None)
        throw Raised{raised};
    return result;
}

namespace {

void EnterFactorisation()
{
    Add(
        "small_decompose", DrawSquare,
        [](Square square) {
            unsigned char perm[most];
            for (unsigned char& entry : perm)
                entry = 77;
            int const status = small_decompose(square.a, perm, square.size);
            SquareValues values = Converted(square);
            for (int i = 0; i < most; ++i)
                values.f.perm[i] = perm[i];
            return std::tuple(status, values);
        },
        [](SquareValues values) {
            for (int& entry : values.f.perm)
                entry = 77;
            int const status = Decompose(values.f);
            return std::tuple(status, values);
        });
    Add(
        "small_substitution", DrawSquare,
        [](Square square) {
            unsigned char perm[most];
            int const status = small_decompose(square.a, perm, square.size);
            if (status == 0)
                small_substitution(square.a, square.b, perm, square.size, square.count);
            SquareValues values = Converted(square);
            for (int i = 0; i < most && status == 0; ++i)
                values.f.perm[i] = i < square.size ? perm[i] : 0;
            return std::tuple(status, values);
        },
        [](SquareValues values) {
            bool const on = slips.on;
            int status;
            {
                Sound const sound;
                status = Decompose(values.f);
            }
            slips.on = on;
            if (status == 0)
                Substitute(values.f, values.b, values.count);
            else
                for (int& entry : values.f.perm)
                    entry = 0;
            return std::tuple(status, values);
        });
    Add(
        "Mat3Dbl::Solve, ReSolve", DrawSystem,
        [](Mat3Dbl m, Vec3Dbl b, Vec3Dbl c, Vec3Dbl d) {
            Raise const raised = RaisedBy([&] { m.Solve(b); });
            if (raised == Raise::None) {
                m.ReSolve(c);
                m.ReSolve(d);
            }
            return std::tuple(raised, m, b, c, d);
        },
        [](Mat<3> const& m, V3 b, V3 c, V3 d) {
            Factors f = FactorsOf(m);
            Raise const raised = Decompose(f) == 0 ? Raise::None : Raise::Singular;
            if (raised == Raise::None) {
                Substitute(f, b.e, 1);
                Substitute(f, c.e, 1);
                Substitute(f, d.e, 1);
            }
            return std::tuple(raised, ElementsOf3(f), b, c, d);
        });
}

void EnterInversesAndEigenvalues()
{
    Add(
        "Mat3Dbl::Solve, ReSolve(array)",
        [](Source& source) {
            return std::tuple_cat(DrawSystem(source), std::tuple(source.Below(3) ? 3 : source.Below(4) - 1));
        },
        [](Mat3Dbl m, Vec3Dbl const& b, Vec3Dbl const& c, Vec3Dbl const& d, int count) {
            Vec3Dbl sides[3] = {b, c, d}, again[3] = {d, c, b};
            Raise const raised = RaisedBy([&] { m.Solve(sides, count); });
            if (raised == Raise::None)
                m.ReSolve(again, count);
            return std::tuple(raised, m, sides[0], sides[1], sides[2], again[0], again[1], again[2]);
        },
        [](Mat<3> const& m, V3 const& b, V3 const& c, V3 const& d, int count) {
            Factors f = FactorsOf(m);
            Dbl sides[9], again[9];
            Gather(sides, b, c, d);
            Gather(again, d, c, b);
            Raise const raised = Decompose(f) == 0 ? Raise::None : Raise::Singular;
            if (raised == Raise::None) {
                Substitute(f, sides, count);
                Substitute(f, again, count);
            }
            return std::tuple_cat(std::tuple(raised, ElementsOf3(f)), Scattered(sides), Scattered(again));
        });
    Add(
        "Mat3Dbl::Invert", DrawMatrix<Mat3Dbl, 3>,
        [](Mat3Dbl const& m) { return Kept(m, [](Mat3Dbl& k) { k.Invert(); }); }, InvertedRule);
    Add(
        "Mat3Dbl::GetInvertedCopy", DrawMatrix<Mat3Dbl, 3>,
        [](Mat3Dbl const& m) {
            Mat3Dbl const copy = m.GetInvertedCopy();
            return std::tuple(copy, m);
        },
        [](Mat<3> const& m) {
            Mat<3> const copy = [&] {
                Sound const
                    sound; // Invert makes the steps wrong, since there the state after a failure shows too
                return InverseOf(m);
            }();
            bool const transposed = Slip("transposed");
            Mat<3> result;
            for (int r = 0; r < 3; ++r)
                for (int c = 0; c < 3; ++c)
                    result(r, c) = transposed ? copy(c, r) : copy(r, c);
            return std::tuple(result, Slip("the source is inverted too") ? result : m);
        });
    Add(
        "Mat3Dbl::EigenSym",
        [](Source& source) {
            Mat3Dbl const m = DrawnSymmetric(source);
            return std::tuple(m, source.Below(4) ? source.Below(3) - 1 : 0);
        },
        [](Mat3Dbl m, int wanted) {
            Vec3Dbl values(7.0);
            Raise const raised = RaisedBy([&] { m.EigenSym(values, wanted); });
            return std::tuple(raised, values, m);
        },
        EigenRule);
}

void EnterEigenvector()
{
    Add(
        "Mat3Dbl::GetEigenVectorGivenEigenValue",
        [](Source& source) {
            Mat3Dbl m = DrawnSymmetric(source);
            double x = source.Number<double>();
            int const kind = source.Below(4);
            if (kind == 0)
                x = m(source.Below(3), source.Below(3));
            if (kind == 1) {
                // Of rank one after the shift.
                x = 0.0;
                Vec3Dbl const v = Filled<Vec3Dbl>(source);
                double const second = source.Below(2) ? v[1] : source.Below(2) ? v[2] : -v[2];
                for (int r = 0; r < 3; ++r)
                    for (int c = r; c < 3; ++c)
                        m(r, c) = (r == 1 ? second : v[r]) * (c == 1 ? second : v[c]);
            }
            if (kind == 2 && source.Below(2)) {
                Vec3Dbl values(0.0);
                Mat3Dbl copy = m;
                if (RaisedBy([&] { copy.EigenSym(values, 0); }) == Raise::None)
                    x = values[source.Below(3)];
            }
            return std::tuple(m, x);
        },
        [](Mat3Dbl m, double x) {
            Vec3Dbl vector(7.0);
            m.GetEigenVectorGivenEigenValue(vector, x);
            return std::tuple(vector, m);
        },
        [](Mat<3> const& m, Dbl const& x) { return std::tuple(EigenVector(m, x), m); });
}

} // namespace

V3 SolutionOf(Mat<3> const& m, V3 b)
{
    Sound const sound;
    Factors f = FactorsOf(m);
    if (Decompose(f) != 0)
        throw Raised{Raise::Singular};
    Substitute(f, b.e, 1);
    return b;
}

void EnterSmallSolver()
{
    EnterFactorisation();
    EnterInversesAndEigenvalues();
    EnterEigenvector();
}

} // namespace oracle
