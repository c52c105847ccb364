// Every member that stores or returns a double rounded to single, in a form in which an optimiser
// may drop the rounding: the results for a run of operands are stored side by side, in fields of
// doubles if the member's result can be widened to one. The same file is built at four
// optimisation levels. Expected values come from the rule of each member, with a rounding that goes
// through memory, which no optimiser can drop.

#include <vexor/elementary.h>
#include <vexor/vexor.h>

#include <support/Bits.h>
#include <support/Fixtures.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

using vexor_test::Below;

namespace {

/// Rounds to single through memory.
float Single(double value)
{
    float volatile rounded = static_cast<float>(value);
    return rounded;
}

struct Double3 {
    double x, y, z;
};

struct Double2 {
    double x, y;
};

constexpr std::size_t count = 512;

class Rounding : public testing::Test {
protected:
    Rounding()
    {
        for (std::size_t i = 0; i < count; ++i) {
            a[i] = Vec3Dbl(Number(), Number(), Number());
            b[i] = Vec3Dbl(Number(), Number(), Number());
            f[i] = Vec3Flt(Single(Number()), Single(Number()), Single(Number()));
            g[i] = Vec3Flt(Single(Number()), Single(Number()), Single(Number()));
            m[i] = Mat3Dbl(Vec3Dbl(Number(), Number(), Number()), Vec3Dbl(Number(), Number(), Number()),
                           Vec3Dbl(Number(), Number(), Number()));
            a2[i] = Vec2Dbl(a[i].x, a[i].y);
            f2[i] = Vec2Flt(f[i].x, f[i].y);
            g2[i] = Vec2Flt(g[i].x, g[i].y);
            m2[i] = Mat2Dbl(Vec2Dbl(Number(), Number()), Vec2Dbl(Number(), Number()));
        }
    }

    /// Full digits, magnitudes from 2^-8 to 2^8, both signs.
    double Number()
    {
        double const digits = 1.0 + std::generate_canonical<double, 53>(random_);
        int const exponent = std::uniform_int_distribution<int>(-8, 7)(random_);
        return std::ldexp(std::uniform_int_distribution<int>(0, 1)(random_) ? digits : -digits, exponent);
    }

    std::vector<Vec3Dbl> a = std::vector<Vec3Dbl>(count);
    std::vector<Vec3Dbl> b = std::vector<Vec3Dbl>(count);
    std::vector<Vec3Flt> f = std::vector<Vec3Flt>(count);
    std::vector<Vec3Flt> g = std::vector<Vec3Flt>(count);
    std::vector<Mat3Dbl> m = std::vector<Mat3Dbl>(count);
    std::vector<Vec2Dbl> a2 = std::vector<Vec2Dbl>(count);
    std::vector<Vec2Flt> f2 = std::vector<Vec2Flt>(count);
    std::vector<Vec2Flt> g2 = std::vector<Vec2Flt>(count);
    std::vector<Mat2Dbl> m2 = std::vector<Mat2Dbl>(count);
    std::vector<Double3> out = std::vector<Double3>(count);
    std::vector<Double2> out2 = std::vector<Double2>(count);

    void Expect3(std::size_t i, float x, float y, float z)
    {
        EXPECT_SAME_BITS(out[i].x, double(x));
        EXPECT_SAME_BITS(out[i].y, double(y));
        EXPECT_SAME_BITS(out[i].z, double(z));
    }
    void Expect2(std::size_t i, float x, float y)
    {
        EXPECT_SAME_BITS(out2[i].x, double(x));
        EXPECT_SAME_BITS(out2[i].y, double(y));
    }

private:
    std::mt19937_64 random_{7};
};

// ---- The reference: each rule in double, rounded through memory where the rule rounds --------------

double Dot(Vec3Flt const& v, Vec3Flt const& w)
{
    return (double(v.x) * w.x + double(v.y) * w.y) + double(v.z) * w.z;
}

double Dot(Vec2Flt const& v, Vec2Flt const& w)
{
    return double(v.x) * w.x + double(v.y) * w.y;
}

template <class Vector>
float SquaredLength(Vector const& v)
{
    return Single(Dot(v, v));
}

template <class Vector>
float Length(Vector const& v)
{
    return Single(std::sqrt(double(SquaredLength(v))));
}

template <class Vector>
double SquaredCosine(Vector const& v, Vector const& w)
{
    double const d = Single(Dot(v, w));
    return ((d * d) / SquaredLength(v)) / SquaredLength(w);
}

double Row(Mat3Dbl const& m, int row, double x, double y, double z)
{
    return (m(row, 0) * x + m(row, 1) * y) + m(row, 2) * z;
}

double Row(Mat2Dbl const& m, int row, double x, double y)
{
    return m(row, 0) * x + m(row, 1) * y;
}

// ---- Conversions -----------------------------------------------------------------------------------

TEST_F(Rounding, NeighbouringFields)
{
    // The plain pattern: two roundings stored side by side in double fields.
    for (std::size_t i = 0; i < count; ++i) {
        out2[i].x = vexor::detail::RoundToSingle(a[i].x);
        out2[i].y = vexor::detail::RoundToSingle(a[i].y);
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(a[i].x), Single(a[i].y));
}

TEST_F(Rounding, Vec3DblToVec3Flt)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Flt const v = a[i].ToVec3Flt();
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(a[i].x), Single(a[i].y), Single(a[i].z));

    std::vector<Vec3Dbl> wide(count);
    for (std::size_t i = 0; i < count; ++i)
        wide[i] = a[i].ToVec3Flt();
    for (std::size_t i = 0; i < count; ++i)
        wide[i] = Vec3Dbl(wide[i]);
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = {wide[i].x, wide[i].y, wide[i].z};
        Expect3(i, Single(a[i].x), Single(a[i].y), Single(a[i].z));
    }
}

TEST_F(Rounding, AssignmentsToSingleClassesInSpace)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Flt v;
        v = a[i];
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(a[i].x), Single(a[i].y), Single(a[i].z));
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Flt v;
        v = Pnt3Dbl(b[i]);
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(b[i].x), Single(b[i].y), Single(b[i].z));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt3Flt p;
        p = a[i];
        Pnt3Dbl const wide(p);
        out[i] = {wide.x, wide.y, wide.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(a[i].x), Single(a[i].y), Single(a[i].z));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt3Flt p;
        p = Pnt3Dbl(b[i]);
        Vec3Dbl wide;
        wide = p;
        out[i] = {wide.x, wide.y, wide.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(b[i].x), Single(b[i].y), Single(b[i].z));
}

TEST_F(Rounding, Pnt3DblToPnt3Flt)
{
    for (std::size_t i = 0; i < count; ++i) {
        Pnt3Dbl const wide(Pnt3Dbl(a[i]).ToPnt3Flt());
        out[i] = {wide.x, wide.y, wide.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(a[i].x), Single(a[i].y), Single(a[i].z));
}

TEST_F(Rounding, ConversionsInThePlane)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Dbl const wide(a2[i].ToVec2Flt());
        out2[i] = {wide.x, wide.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(a2[i].x), Single(a2[i].y));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Dbl const wide(Pnt2Dbl(b[i].x, b[i].y).ToPnt2Flt());
        out2[i] = {wide.x, wide.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(b[i].x), Single(b[i].y));
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Flt v;
        v = a2[i];
        out2[i] = {v.x, v.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(a2[i].x), Single(a2[i].y));
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Flt v;
        v = Pnt2Dbl(b[i].y, b[i].z);
        out2[i] = {v.x, v.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(b[i].y), Single(b[i].z));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Flt p;
        p = a2[i];
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(a2[i].x), Single(a2[i].y));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Flt p;
        p = Pnt2Dbl(b[i].y, b[i].z);
        Vec2Dbl wide;
        wide = p;
        out2[i] = {wide.x, wide.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(b[i].y), Single(b[i].z));
}

TEST_F(Rounding, VecFltFromVecDbl)
{
    VecDbl source(int{count});
    for (std::size_t i = 0; i < count; ++i)
        source[int(i)] = a[i].x;
    VecFlt rounded;
    rounded = source;
    VecDbl const wide(rounded);
    for (std::size_t i = 0; i < count; ++i)
        EXPECT_SAME_BITS(wide[int(i)], double(Single(a[i].x)));
}

TEST_F(Rounding, Tolerance)
{
    for (std::size_t i = 0; i < count; ++i) {
        VexorTolerance tolerance;
        tolerance.SetAngle(a[i].x);
        tolerance.SetLength(a[i].y);
        out[i] = {tolerance.sin2Angle, tolerance.length, tolerance.lengthSquared};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const sine = Single(vexor::Sin(a[i].x));
        double const length = Single(a[i].y);
        Expect3(i, Single(sine * sine), Single(length), Single(length * length));
    }
}

// ---- Products with matrices ------------------------------------------------------------------------

TEST_F(Rounding, Mat3DblTimesPnt3Dbl)
{
    for (std::size_t i = 0; i < count; ++i) {
        Pnt3Dbl const p = m[i] * Pnt3Dbl(a[i]);
        out[i] = {p.x, p.y, p.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(Row(m[i], 0, a[i].x, a[i].y, a[i].z)), Single(Row(m[i], 1, a[i].x, a[i].y, a[i].z)),
                Single(Row(m[i], 2, a[i].x, a[i].y, a[i].z)));

    std::vector<Pnt3Dbl> points(count);
    for (std::size_t i = 0; i < count; ++i)
        points[i] = m[i] * Pnt3Dbl(b[i]);
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = {points[i].x, points[i].y, points[i].z};
        Expect3(i, Single(Row(m[i], 0, b[i].x, b[i].y, b[i].z)), Single(Row(m[i], 1, b[i].x, b[i].y, b[i].z)),
                Single(Row(m[i], 2, b[i].x, b[i].y, b[i].z)));
    }
}

TEST_F(Rounding, Mat3DblTimesSingleVectorsAndPoints)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(m[i] * f[i]);
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(Row(m[i], 0, f[i].x, f[i].y, f[i].z)), Single(Row(m[i], 1, f[i].x, f[i].y, f[i].z)),
                Single(Row(m[i], 2, f[i].x, f[i].y, f[i].z)));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt3Dbl const p(m[i] * Pnt3Flt(g[i]));
        out[i] = {p.x, p.y, p.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(Row(m[i], 0, g[i].x, g[i].y, g[i].z)), Single(Row(m[i], 1, g[i].x, g[i].y, g[i].z)),
                Single(Row(m[i], 2, g[i].x, g[i].y, g[i].z)));
}

TEST_F(Rounding, AffMat3DblTimesSingleVectorsAndPoints)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(AffMat3Dbl(m[i], b[i]) * f[i]);
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(Row(m[i], 0, f[i].x, f[i].y, f[i].z)), Single(Row(m[i], 1, f[i].x, f[i].y, f[i].z)),
                Single(Row(m[i], 2, f[i].x, f[i].y, f[i].z)));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt3Dbl const p(AffMat3Dbl(m[i], b[i]) * Pnt3Flt(f[i]));
        out[i] = {p.x, p.y, p.z};
    }
    for (std::size_t i = 0; i < count; ++i) // rounded before the translation and after it
        Expect3(i, Single(double(Single(Row(m[i], 0, f[i].x, f[i].y, f[i].z))) + b[i].x),
                Single(double(Single(Row(m[i], 1, f[i].x, f[i].y, f[i].z))) + b[i].y),
                Single(double(Single(Row(m[i], 2, f[i].x, f[i].y, f[i].z))) + b[i].z));
}

TEST_F(Rounding, Mat2DblTimesVec2Flt)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Dbl const v(m2[i] * f2[i]);
        out2[i] = {v.x, v.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(Row(m2[i], 0, f2[i].x, f2[i].y)), Single(Row(m2[i], 1, f2[i].x, f2[i].y)));
}

TEST_F(Rounding, AffMat2DblTimesSingleVectorsAndPoints)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Dbl const v(AffMat2Dbl(m2[i], a2[i]) * f2[i]);
        out2[i] = {v.x, v.y};
    }
    auto const expect = [this](std::size_t i) { // rounded before the translation and after it
        Expect2(i, Single(double(Single(Row(m2[i], 0, f2[i].x, f2[i].y))) + a2[i].x),
                Single(double(Single(Row(m2[i], 1, f2[i].x, f2[i].y))) + a2[i].y));
    };
    for (std::size_t i = 0; i < count; ++i)
        expect(i);
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Dbl const p(AffMat2Dbl(m2[i], a2[i]) * Pnt2Flt(f2[i]));
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        expect(i);
}

TEST_F(Rounding, MatDblTimesVecFlt)
{
    MatDbl matrix(int{count}, 3);
    for (std::size_t i = 0; i < count; ++i) {
        matrix(int(i), 0) = a[i].x;
        matrix(int(i), 1) = a[i].y;
        matrix(int(i), 2) = a[i].z;
    }
    VecFlt vector(3);
    f[0].GetValue(&vector[0]);
    VecDbl const product(matrix * vector);
    for (std::size_t i = 0; i < count; ++i) {
        float sum = 0.0f;
        for (int k = 0; k < 3; ++k)
            sum = Single(double(sum) + Single(double(vector[k]) * matrix(int(i), k)));
        EXPECT_SAME_BITS(product[int(i)], double(sum));
    }
}

// ---- Single vectors in space -------------------------------------------------------------------------

TEST_F(Rounding, Vec3FltProductsAndLengths)
{
    for (std::size_t i = 0; i < count; ++i) {
        out[i].x = f[i].Dot(g[i]);
        out[i].y = f[i].LengthSquared();
        out[i].z = g[i].Length();
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(Dot(f[i], g[i])), SquaredLength(f[i]), Length(g[i]));
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(f[i].Cross(g[i]));
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(double(f[i].y) * g[i].z - double(g[i].y) * f[i].z),
                Single(double(f[i].z) * g[i].x - double(f[i].x) * g[i].z),
                Single(double(g[i].y) * f[i].x - double(f[i].y) * g[i].x));
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(f[i].ElemMult(g[i]));
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(double(f[i].x) * g[i].x), Single(double(f[i].y) * g[i].y),
                Single(double(f[i].z) * g[i].z));
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(f[i].ElemDiv(g[i]));
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(double(f[i].x) / g[i].x), Single(double(f[i].y) / g[i].y),
                Single(double(f[i].z) / g[i].z));
}

TEST_F(Rounding, Vec3FltArithmetic)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(f[i] / g[i].x);
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const r = Single(1.0 / double(g[i].x));
        Expect3(i, Single(f[i].x * r), Single(f[i].y * r), Single(f[i].z * r));
    }
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Flt v(f[i]);
        v /= g[i].x;
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(double(f[i].x) / g[i].x), Single(double(f[i].y) / g[i].x),
                Single(double(f[i].z) / g[i].x));
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(f[i] + g[i]);
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(double(f[i].x) + g[i].x), Single(double(f[i].y) + g[i].y),
                Single(double(f[i].z) + g[i].z));
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(f[i] * g[i].y);
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, Single(double(f[i].x) * g[i].y), Single(double(f[i].y) * g[i].y),
                Single(double(f[i].z) * g[i].y));
}

TEST_F(Rounding, Vec3FltNormalizeAndProjection)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(f[i].GetNormalizedCopy());
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const length = Length(f[i]);
        Expect3(i, Single(f[i].x / length), Single(f[i].y / length), Single(f[i].z / length));
    }
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const v(f[i].GetProjectionOnTo(g[i]));
        out[i] = {v.x, v.y, v.z};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const length = Length(g[i]);
        Vec3Flt const unit(Single(g[i].x / length), Single(g[i].y / length), Single(g[i].z / length));
        double const along = Single(Dot(f[i], unit));
        Expect3(i, Single(along * unit.x), Single(along * unit.y), Single(along * unit.z));
    }
}

TEST_F(Rounding, Vec3FltAngleAndArea)
{
    for (std::size_t i = 0; i < count; ++i) {
        out2[i].x = f[i].GetAngleWith(g[i]);
        out2[i].y = f[i].GetAreaFormedByTriangleWith(g[i]);
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const d = Single(Dot(f[i], g[i]));
        double const squared = SquaredLength(f[i]);
        double const difference = Single(squared * SquaredLength(g[i]) - d * d);
        Expect2(i, Single(vexor::Acos((d / Length(f[i])) / Length(g[i]))),
                Single(0.5 * double(Single(std::sqrt(difference)))));
    }
}

// With the value of the rule as tolerance a direction predicate returns 1, and with one unit less 0.
TEST_F(Rounding, Vec3FltPredicates)
{
    for (std::size_t i = 0; i < count; ++i) {
        float const squaredSine = Single(1.0 - SquaredCosine(f[i], g[i]));
        float const squaredCosine = Single(SquaredCosine(f[i], g[i]));
        EXPECT_EQ(f[i].IsParallelTo(g[i], squaredSine, 0.0f), 1);
        EXPECT_EQ(f[i].IsParallelTo(g[i], Below(squaredSine), 0.0f), 0);
        EXPECT_EQ(f[i].IsPerpendicularTo(g[i], squaredCosine, 0.0f), 1);
        EXPECT_EQ(f[i].IsPerpendicularTo(g[i], Below(squaredCosine), 0.0f), 0);
        EXPECT_EQ(f[i].IsZeroLength(SquaredLength(f[i])), 1);
        EXPECT_EQ(f[i].IsZeroLength(Below(SquaredLength(f[i]))), 0);
        double const d = Single(Dot(f[i], g[i]));
        float const unitParallel = std::fabs(Single(1.0 - d * d));
        EXPECT_EQ(f[i].IsUnitParallelTo(g[i], unitParallel), 1);
        EXPECT_EQ(f[i].IsUnitParallelTo(g[i], Below(unitParallel)), 0);
        EXPECT_EQ(f[i].IsUnitPerpendicularTo(g[i], Single(d * d)), 1);
        EXPECT_EQ(f[i].IsUnitPerpendicularTo(g[i], Below(Single(d * d))), 0);
    }
}

// ---- Single vectors in the plane -----------------------------------------------------------------------

TEST_F(Rounding, Vec2FltProductsAndLengths)
{
    for (std::size_t i = 0; i < count; ++i) {
        out2[i].x = f2[i].Dot(g2[i]);
        out2[i].y = f2[i].Cross(g2[i]);
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(Dot(f2[i], g2[i])), Single(double(f2[i].x) * g2[i].y - double(f2[i].y) * g2[i].x));
    for (std::size_t i = 0; i < count; ++i) {
        out[i].x = f2[i].LengthSquared();
        out[i].y = f2[i].Length();
        out[i].z = f2[i].GetAreaFormedByTriangleWith(g2[i]);
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect3(i, SquaredLength(f2[i]), Length(f2[i]),
                Single((double(f2[i].x) * g2[i].y - double(f2[i].y) * g2[i].x) * 0.5));
    for (std::size_t i = 0; i < count; ++i)
        out2[i].x = f2[i].GetAngleWith(g2[i]);
    for (std::size_t i = 0; i < count; ++i) {
        double const c = (double(Single(Dot(f2[i], g2[i]))) / Length(f2[i])) / Length(g2[i]);
        double const angle = c >= 1.0 ? 0.0 : c <= -1.0 ? 3.141592653589793 : vexor::Acos(c);
        EXPECT_SAME_BITS(out2[i].x, double(Single(angle)));
    }
}

TEST_F(Rounding, Vec2FltVectors)
{
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Dbl const v(f2[i] / g2[i].x);
        out2[i] = {v.x, v.y};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const r = Single(1.0 / double(g2[i].x));
        Expect2(i, Single(f2[i].x * r), Single(f2[i].y * r));
    }
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Dbl const v(f2[i].GetNormalizedCopy());
        out2[i] = {v.x, v.y};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const length = Length(f2[i]);
        Expect2(i, Single(f2[i].x / length), Single(f2[i].y / length));
    }
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Dbl const v(f2[i].GetPerpendicular());
        out2[i] = {v.x, v.y};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const length = Length(f2[i]);
        Expect2(i, Single(-f2[i].y / length), Single(f2[i].x / length));
    }
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Dbl const v(f2[i].GetProjectionOnTo(g2[i]));
        out2[i] = {v.x, v.y};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const length = Length(g2[i]);
        Vec2Flt const unit(Single(g2[i].x / length), Single(g2[i].y / length));
        double const along = Single(Dot(f2[i], unit));
        Expect2(i, Single(along * unit.x), Single(along * unit.y));
    }
}

TEST_F(Rounding, Vec2FltPredicates)
{
    for (std::size_t i = 0; i < count; ++i) {
        float const squaredSine = Single(1.0 - SquaredCosine(f2[i], g2[i]));
        float const squaredCosine = Single(SquaredCosine(f2[i], g2[i]));
        if (squaredSine > 0.0f) {
            EXPECT_EQ(f2[i].IsParallelTo(g2[i], squaredSine, 0.0f), 1);
            EXPECT_EQ(f2[i].IsParallelTo(g2[i], Below(squaredSine), 0.0f), 0);
        }
        EXPECT_EQ(f2[i].IsPerpendicularTo(g2[i], squaredCosine, 0.0f), 1);
        EXPECT_EQ(f2[i].IsPerpendicularTo(g2[i], Below(squaredCosine), 0.0f), 0);
        double const d = Single(Dot(f2[i], g2[i]));
        float const unitParallel = std::fabs(Single(1.0 - d * d));
        EXPECT_EQ(f2[i].IsUnitParallelTo(g2[i], unitParallel), 1);
        EXPECT_EQ(f2[i].IsUnitParallelTo(g2[i], Below(unitParallel)), 0);
        EXPECT_EQ(f2[i].IsUnitPerpendicularTo(g2[i], Single(d * d)), 1);
        EXPECT_EQ(f2[i].IsUnitPerpendicularTo(g2[i], Below(Single(d * d))), 0);
    }
}

// ---- Single points ---------------------------------------------------------------------------------------

float SquaredDistance(Vec3Flt const& p, Vec3Flt const& q)
{
    float sum = 0.0f;
    for (int k = 0; k < 3; ++k) {
        double const d = Single(double(p[k]) - q[k]);
        sum = Single(sum + d * d);
    }
    return sum;
}

float SquaredDistance(Vec2Flt const& p, Vec2Flt const& q)
{
    float sum = 0.0f;
    for (int k = 0; k < 2; ++k) {
        double const d = Single(double(p[k]) - q[k]);
        sum = Single(sum + d * d);
    }
    return sum;
}

TEST_F(Rounding, Pnt3Flt)
{
    for (std::size_t i = 0; i < count; ++i) {
        out2[i].x = Pnt3Flt(f[i]).DistanceSqTo(Pnt3Flt(g[i]));
        out2[i].y = Pnt3Flt(f[i]).DistanceTo(Pnt3Flt(g[i]));
    }
    for (std::size_t i = 0; i < count; ++i) {
        float const squared = SquaredDistance(f[i], g[i]);
        Expect2(i, squared, Single(std::sqrt(double(squared))));
    }
    for (std::size_t i = 0; i < count; ++i) {
        Pnt3Dbl const p(Pnt3Flt(f[i]) / g[i].x);
        out[i] = {p.x, p.y, p.z};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const r = Single(1.0 / double(g[i].x));
        Expect3(i, Single(f[i].x * r), Single(f[i].y * r), Single(f[i].z * r));
    }
    for (std::size_t i = 0; i < count; ++i) {
        float const tolerance = std::fabs(g[i].x);
        int const expected = SquaredDistance(f[i], g[i]) <= Single(double(tolerance) * tolerance);
        EXPECT_EQ(Pnt3Flt(f[i]).IsEqualTo(Pnt3Flt(g[i]), tolerance), expected);
    }
}

TEST_F(Rounding, Pnt2FltMovedByADoubleVector)
{
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Dbl const p(Pnt2Flt(f2[i]) + a2[i]);
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(f2[i].x + a2[i].x), Single(f2[i].y + a2[i].y));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Dbl const p(Pnt2Flt(f2[i]) - a2[i]);
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(f2[i].x - a2[i].x), Single(f2[i].y - a2[i].y));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Flt p(f2[i]);
        p += a2[i];
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(f2[i].x + double(Single(a2[i].x))), Single(f2[i].y + double(Single(a2[i].y))));
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Flt p(f2[i]);
        p -= a2[i];
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        Expect2(i, Single(f2[i].x - double(Single(a2[i].x))), Single(f2[i].y - double(Single(a2[i].y))));
}

TEST_F(Rounding, Pnt2FltAndDoubleScalars)
{
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Dbl const p(Pnt2Flt(f2[i]) * a[i].z);
        out2[i] = {p.x, p.y};
    }
    auto const expectProduct = [this](std::size_t i) {
        double const s = Single(a[i].z);
        Expect2(i, Single(f2[i].x * s), Single(f2[i].y * s));
    };
    for (std::size_t i = 0; i < count; ++i)
        expectProduct(i);
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Dbl const p(a[i].z * Pnt2Flt(f2[i]));
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        expectProduct(i);
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Flt p(f2[i]);
        p *= a[i].z;
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i)
        expectProduct(i);
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Flt p(f2[i]);
        p /= a[i].z;
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const s = Single(a[i].z);
        Expect2(i, Single(f2[i].x / s), Single(f2[i].y / s));
    }
    for (std::size_t i = 0; i < count; ++i) {
        Pnt2Dbl const p(Pnt2Flt(f2[i]) / a[i].z);
        out2[i] = {p.x, p.y};
    }
    for (std::size_t i = 0; i < count; ++i) {
        double const r = Single(1.0 / double(Single(a[i].z)));
        Expect2(i, Single(f2[i].x * r), Single(f2[i].y * r));
    }
}

TEST_F(Rounding, Pnt2FltDistance)
{
    for (std::size_t i = 0; i < count; ++i) {
        out2[i].x = Pnt2Flt(f2[i]).DistanceSqTo(Pnt2Flt(g2[i]));
        out2[i].y = Pnt2Flt(f2[i]).DistanceTo(Pnt2Flt(g2[i]));
    }
    for (std::size_t i = 0; i < count; ++i) {
        float const squared = SquaredDistance(f2[i], g2[i]);
        Expect2(i, squared, Single(std::sqrt(double(squared))));
        // The limit of the comparison with a tolerance stays in double.
        double tolerance = std::sqrt(double(squared));
        EXPECT_EQ(Pnt2Flt(f2[i]).IsEqualTo(Pnt2Flt(g2[i]), tolerance), tolerance * tolerance >= squared);
        tolerance = Below(tolerance);
        EXPECT_EQ(Pnt2Flt(f2[i]).IsEqualTo(Pnt2Flt(g2[i]), tolerance), tolerance * tolerance >= squared);
    }
}

// ---- Single vectors of run-time size -----------------------------------------------------------------------

TEST_F(Rounding, VecFlt)
{
    for (std::size_t i = 0; i < count; ++i) {
        VecFlt v(3);
        VecFlt w(3);
        f[i].GetValue(&v[0]);
        g[i].GetValue(&w[0]);
        out[i].x = v.Dot(w);
        out[i].y = v.LengthSquared();
        out[i].z = v.Length();
    }
    for (std::size_t i = 0; i < count; ++i) {
        float dot = 0.0f;
        float squared = 0.0f;
        for (int k = 0; k < 3; ++k) {
            dot = Single(double(dot) + double(f[i][k]) * g[i][k]);
            squared = Single(double(squared) + double(f[i][k]) * f[i][k]);
        }
        Expect3(i, dot, squared, Single(std::sqrt(double(squared))));
    }
}

} // namespace
