#include <vexor/matrices/AffMat3Dbl.h>

#include <vexor/foundation/VexorException.h>

#include <matrices/Draws.h>
#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <array>
#include <cstring>
#include <tuple>
#include <type_traits>

using namespace vexor_test;

namespace {

using vexor_test::ExpectBits;
using vexor_test::nan; // and not the function of <cmath>

constexpr double pi = 3.141592653589793;

void ExpectBits(AffMat3Dbl const& actual, AffMat3Dbl const& expected)
{
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c)
            EXPECT_SAME_BITS(actual(r, c), expected(r, c)) << "element (" << r << ", " << c << ")";
    }
}

void ExpectNear(AffMat3Dbl const& actual, AffMat3Dbl const& expected, double bound)
{
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c)
            EXPECT_NEAR(actual(r, c), expected(r, c), bound) << "element (" << r << ", " << c << ")";
    }
}

/// Three rows of four.
AffMat3Dbl Map(double a, double b, double c, double t0, double d, double e, double f, double t1, double g,
               double h, double i, double t2)
{
    return AffMat3Dbl(Mat3Dbl(Vec3Dbl(a, b, c), Vec3Dbl(d, e, f), Vec3Dbl(g, h, i)), Vec3Dbl(t0, t1, t2));
}

/// 1 to 12, row by row.
AffMat3Dbl Counted()
{
    return Map(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12);
}

AffMat3Dbl Identity()
{
    return Map(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0);
}

// ---- The class as a whole --------------------------------------------------------------------------

TEST(AffMat3Dbl, Layout)
{
    static_assert(sizeof(AffMat3Dbl) == sizeof(Mat3Dbl) + sizeof(Vec3Dbl), "");
    static_assert(std::is_standard_layout_v<AffMat3Dbl> && !std::is_polymorphic_v<AffMat3Dbl>, "");
    static_assert(std::is_trivially_destructible_v<AffMat3Dbl>, "");
    static_assert(!std::is_trivially_copyable_v<AffMat3Dbl>, "a copy leaves the pivot order out");
    AffMat3Dbl map = Counted();
    EXPECT_EQ(static_cast<void*>(&map), static_cast<void*>(&map.LinearPart()));
    EXPECT_EQ(reinterpret_cast<char*>(&map.Translation()) - reinterpret_cast<char*>(&map),
              static_cast<std::ptrdiff_t>(sizeof(Mat3Dbl)));
}

// Whether each member is const is part of the interface: these casts select exactly that form.
[[maybe_unused]] auto const members = std::make_tuple(
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(AffMat3Dbl const&)>(&AffMat3Dbl::operator=),
    static_cast<int (AffMat3Dbl::*)(AffMat3Dbl const&) const>(&AffMat3Dbl::operator==),
    static_cast<int (AffMat3Dbl::*)(AffMat3Dbl const&) const>(&AffMat3Dbl::operator!=),
    static_cast<Mat3Dbl& (AffMat3Dbl::*)()>(&AffMat3Dbl::LinearPart),
    static_cast<Mat3Dbl const& (AffMat3Dbl::*)() const>(&AffMat3Dbl::LinearPart),
    static_cast<Vec3Dbl& (AffMat3Dbl::*)()>(&AffMat3Dbl::Translation),
    static_cast<Vec3Dbl const& (AffMat3Dbl::*)() const>(&AffMat3Dbl::Translation),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(Mat3Dbl const&)>(&AffMat3Dbl::SetLinearPart),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(Vec3Dbl const&)>(&AffMat3Dbl::SetTranslation),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(Pnt3Dbl const&, Pnt3Dbl const&)>(&AffMat3Dbl::SetTranslation),
    static_cast<double& (AffMat3Dbl::*)(int, int)>(&AffMat3Dbl::operator()),
    static_cast<double const& (AffMat3Dbl::*)(int, int) const>(&AffMat3Dbl::operator()),
    static_cast<Vec3Dbl (AffMat3Dbl::*)(int) const>(&AffMat3Dbl::GetCol),
    static_cast<void (AffMat3Dbl::*)(double* const) const>(&AffMat3Dbl::GetMatrixData),
    static_cast<void (AffMat3Dbl::*)(double (*const)[4]) const>(&AffMat3Dbl::GetMatrixData),
    static_cast<void (AffMat3Dbl::*)(double* const)>(&AffMat3Dbl::SetMatrixData),
    static_cast<void (AffMat3Dbl::*)(double (*const)[4])>(&AffMat3Dbl::SetMatrixData),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(AffMat3Dbl const&)>(&AffMat3Dbl::operator+=),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(AffMat3Dbl const&)>(&AffMat3Dbl::operator-=),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(double)>(&AffMat3Dbl::operator*=),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(double)>(&AffMat3Dbl::operator/=),
    static_cast<AffMat3Dbl (AffMat3Dbl::*)(AffMat3Dbl const&)>(&AffMat3Dbl::operator+),
    static_cast<AffMat3Dbl (AffMat3Dbl::*)(AffMat3Dbl const&)>(&AffMat3Dbl::operator-),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)()>(&AffMat3Dbl::Identity),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)()>(&AffMat3Dbl::Invert),
    static_cast<AffMat3Dbl (AffMat3Dbl::*)() const>(&AffMat3Dbl::GetInvertedCopy),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(Pnt3Dbl const&, Vec3Dbl const&, double)>(
        &AffMat3Dbl::SetRotation),
    static_cast<AffMat3Dbl& (AffMat3Dbl::*)(Pnt3Dbl const&, Vec3Dbl const&, Vec3Dbl const&)>(
        &AffMat3Dbl::SetRotation));

static_assert(std::is_same_v<decltype(AffMat3Dbl() * AffMat3Dbl()), AffMat3Dbl>, "");
static_assert(std::is_same_v<decltype(AffMat3Dbl() * Pnt3Dbl()), Pnt3Dbl>, "");
static_assert(std::is_same_v<decltype(AffMat3Dbl() * Vec3Dbl()), Vec3Dbl>, "");
static_assert(std::is_same_v<decltype(AffMat3Dbl() * Vec3Flt()), Vec3Flt>, "");
static_assert(std::is_same_v<decltype(AffMat3Dbl() * Pnt3Flt()), Pnt3Flt>, "");

template <class Left, class Right, class = void>
constexpr bool adds = false;
template <class Left, class Right>
constexpr bool adds<Left, Right, std::void_t<decltype(std::declval<Left>() + std::declval<Right>())>> = true;
template <class Left, class Right, class = void>
constexpr bool multiplies = false;
template <class Left, class Right>
constexpr bool multiplies<Left, Right, std::void_t<decltype(std::declval<Left>() * std::declval<Right>())>> =
    true;
template <class Left, class Right, class = void>
constexpr bool divides = false;
template <class Left, class Right>
constexpr bool divides<Left, Right, std::void_t<decltype(std::declval<Left>() / std::declval<Right>())>> =
    true;
template <class Map, class = void>
constexpr bool negates = false;
template <class Map>
constexpr bool negates<Map, std::void_t<decltype(-std::declval<Map>())>> = true;

static_assert(adds<AffMat3Dbl&, AffMat3Dbl const&> && !adds<AffMat3Dbl const&, AffMat3Dbl const&>,
              "the sum is a member that is not const");
static_assert(multiplies<AffMat3Dbl const&, AffMat3Dbl const&>, "");
static_assert(!multiplies<AffMat3Dbl const&, double const&> && !divides<AffMat3Dbl const&, double const&>,
              "no free operators with a scalar");
static_assert(!negates<AffMat3Dbl const&> && negates<Mat3Dbl const&>, "");

// ---- Construction ----------------------------------------------------------------------------------

TEST(AffMat3Dbl, DefaultConstructorIsTheIdentity)
{
    ExpectBits(AffMat3Dbl(), Identity());
}

TEST(AffMat3Dbl, ConstructorFromOneNumberFillsAllTwelve)
{
    ExpectBits(AffMat3Dbl(2.0), Map(2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2));
    ExpectBits(AffMat3Dbl(0.0), Map(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
    AffMat3Dbl const fromInt = 3; // no constructor is explicit
    EXPECT_EQ(fromInt(2, 3), 3.0);
}

TEST(AffMat3Dbl, ConstructorFromParts)
{
    AffMat3Dbl const map(Mat3Dbl(2.0), Vec3Dbl(3, 4, -0.0));
    ExpectBits(map, Map(2, 2, 2, 3, 2, 2, 2, 4, 2, 2, 2, -0.0));
}

std::array<unsigned char, 3> PivotOrder(AffMat3Dbl const& map)
{
    std::array<unsigned char, 3> order = {};
    std::memcpy(order.data(), reinterpret_cast<unsigned char const*>(&map) + 9 * sizeof(double), 3);
#if defined(VEXOR_CHECKED)
    for (unsigned char& row : order)
        row &= 3; // the byte above it holds the mark of a checked build
#endif
    return order;
}

TEST(AffMat3Dbl, CopyCarriesTheTwelveNumbersAndNotThePivotOrder)
{
    AffMat3Dbl source = Map(0, 2, 3.5, 1, 4, 8, 8, -0.0, 2, 0, 1, nan);
    Vec3Dbl side(1.0);
    source.LinearPart().Solve(side);
    std::array<unsigned char, 3> const order = {2, 1, 0};
    ASSERT_EQ(PivotOrder(source), order);
    AffMat3Dbl target(5.0);
    target.LinearPart().Identity();
    target.LinearPart().Solve(side); // the row order 0, 1, 2
    EXPECT_EQ(&(target = source), &target);
    ExpectBits(target, source);
    EXPECT_EQ(PivotOrder(target), (std::array<unsigned char, 3>{0, 1, 2}));
    AffMat3Dbl& same = target;
    target = same;
    ExpectBits(target, source);

#if !defined(VEXOR_CHECKED)
    alignas(AffMat3Dbl) unsigned char memory[sizeof(AffMat3Dbl)];
    std::memset(memory, 77, sizeof memory);
    __asm__ volatile("" : : "r"(memory) : "memory");
    AffMat3Dbl* const copy = ::new (static_cast<void*>(memory)) AffMat3Dbl(source);
    __asm__ volatile("" : : "r"(memory) : "memory");
    ExpectBits(*copy, source);
    EXPECT_EQ(PivotOrder(*copy), (std::array<unsigned char, 3>{77, 77, 77}));
#endif
}

// ---- Exact comparison ------------------------------------------------------------------------------

TEST(AffMat3Dbl, Equality)
{
    EXPECT_EQ(Counted() == Counted(), 1);
    EXPECT_EQ(Counted() != Counted(), 0);
    EXPECT_EQ(AffMat3Dbl(0.0) == AffMat3Dbl(-0.0), 1);
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c) {
            AffMat3Dbl other = Counted();
            other(r, c) = Above(other(r, c));
            EXPECT_EQ(Counted() == other, 0) << r << c;
            EXPECT_EQ(Counted() != other, 1) << r << c;
            other(r, c) = nan;
            EXPECT_EQ(other == other, 0) << r << c;
            EXPECT_EQ(other != other, 1) << r << c;
        }
    }
}

// ---- Access ----------------------------------------------------------------------------------------

TEST(AffMat3Dbl, LinearPart)
{
    AffMat3Dbl map = Counted();
    map.LinearPart()(1, 2) = 70;
    EXPECT_EQ(map(1, 2), 70.0);
    AffMat3Dbl const& constant = map;
    EXPECT_EQ(&constant.LinearPart(), &map.LinearPart());
}

TEST(AffMat3Dbl, Translation)
{
    AffMat3Dbl map = Counted();
    map.Translation().y = 80;
    EXPECT_EQ(map(1, 3), 80.0);
    AffMat3Dbl const& constant = map;
    EXPECT_EQ(&constant.Translation(), &map.Translation());
}

TEST(AffMat3Dbl, SetLinearPart)
{
    AffMat3Dbl map = Counted();
    EXPECT_EQ(&map.SetLinearPart(Mat3Dbl(-0.0)), &map);
    ExpectBits(map, Map(-0.0, -0.0, -0.0, 4, -0.0, -0.0, -0.0, 8, -0.0, -0.0, -0.0, 12));
}

TEST(AffMat3Dbl, SetTranslation)
{
    AffMat3Dbl map = Counted();
    EXPECT_EQ(&map.SetTranslation(Vec3Dbl(-1, -2, -0.0)), &map);
    ExpectBits(map, Map(1, 2, 3, -1, 5, 6, 7, -2, 9, 10, 11, -0.0));
}

TEST(AffMat3Dbl, SetTranslationFromPointToPoint)
{
    AffMat3Dbl map = Counted();
    Pnt3Dbl const from(1, 2, 3);
    Pnt3Dbl const to(10, 0, 3);
    EXPECT_EQ(&map.SetTranslation(from, to), &map);
    ExpectBits(map, Map(1, 2, 3, 9, 5, 6, 7, -2, 9, 10, 11, 0));
    AffMat3Dbl move;
    move.SetTranslation(from, to);
    ExpectBits(move * from, 10, 0, 3);
}

TEST(AffMat3Dbl, CallOperator)
{
    AffMat3Dbl map = Counted();
    AffMat3Dbl const& constant = map;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c) {
            EXPECT_EQ(map(r, c), 4.0 * r + c + 1);
            EXPECT_EQ(&constant(r, c), &map(r, c));
        }
        for (int c : {3, 4, 7, std::numeric_limits<int>::max()}) // every column from 3 on is t
            EXPECT_EQ(&map(r, c), &map.Translation()[r]);
    }
    map(1, 7) = -8;
    map(2, 0) = -9;
    ExpectBits(map, Map(1, 2, 3, 4, 5, 6, 7, -8, -9, 10, 11, 12));
}

TEST(AffMat3Dbl, GetCol)
{
    AffMat3Dbl const map = Counted();
    ExpectBits(map.GetCol(0), 1, 5, 9);
    ExpectBits(map.GetCol(1), 2, 6, 10);
    ExpectBits(map.GetCol(2), 3, 7, 11);
    ExpectBits(map.GetCol(3), 4, 8, 12);
}

TEST(AffMat3Dbl, GetMatrixData)
{
    double flat[16];
    double rows[4][4];
    for (int i = 0; i < 16; ++i)
        flat[i] = rows[i / 4][i % 4] = 9.5;
    Counted().GetMatrixData(flat);
    Counted().GetMatrixData(rows);
    for (int i = 0; i < 16; ++i) {
        double const expected = i < 12 ? i + 1.0 : 9.5; // a fourth row is unchanged
        EXPECT_EQ(flat[i], expected);
        EXPECT_EQ(rows[i / 4][i % 4], expected);
    }
}

TEST(AffMat3Dbl, SetMatrixData)
{
    double flat[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    double rows[3][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}};
    AffMat3Dbl first(nan);
    first.SetMatrixData(flat);
    ExpectBits(first, Counted());
    AffMat3Dbl second(nan);
    second.SetMatrixData(rows);
    ExpectBits(second, Counted());
}

TEST(AffMat3Dbl, MatrixDataRoundTrips)
{
    double const values[12] = {0.1, -0.0, nan, infinity, -5, 6e300, 7, -infinity, 0x1p-1074, 10, 11, 12};
    for (bool setsFlat : {false, true}) {
        for (bool getsFlat : {false, true}) {
            double in[3][4];
            std::memcpy(in, values, sizeof in);
            double out[3][4] = {};
            AffMat3Dbl map;
            setsFlat ? map.SetMatrixData(in[0]) : map.SetMatrixData(in);
            getsFlat ? map.GetMatrixData(out[0]) : map.GetMatrixData(out);
            for (int i = 0; i < 12; ++i)
                EXPECT_SAME_BITS(out[i / 4][i % 4], values[i]);
        }
    }
}

// ---- Arithmetic on the twelve numbers --------------------------------------------------------------

TEST(AffMat3Dbl, SumAndDifference)
{
    AffMat3Dbl map = Counted();
    AffMat3Dbl const tens = Map(10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120);
    AffMat3Dbl const sum = Map(11, 22, 33, 44, 55, 66, 77, 88, 99, 110, 121, 132);
    AffMat3Dbl const difference = Map(-9, -18, -27, -36, -45, -54, -63, -72, -81, -90, -99, -108);
    ExpectBits(map + tens, sum);
    ExpectBits(map - tens, difference);
    ExpectBits(map, Counted());
    EXPECT_EQ(&(map += tens), &map);
    ExpectBits(map, sum);
    map = Counted();
    EXPECT_EQ(&(map -= tens), &map);
    ExpectBits(map, difference);
    map = Counted();
    AffMat3Dbl const& same = map;
    map += same;
    ExpectBits(map, Map(2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24));
    map -= same;
    ExpectBits(map, AffMat3Dbl(0.0));
}

TEST(AffMat3Dbl, ScalarsChangeTheTranslationToo)
{
    AffMat3Dbl map = Counted();
    EXPECT_EQ(&(map *= 2.0), &map);
    ExpectBits(map, Map(2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24));
    EXPECT_EQ(&(map /= 2.0), &map);
    ExpectBits(map, Counted());
    AffMat3Dbl fives(5.0);
    fives /= 3.0; // twelve divisions, not the reciprocal
    ExpectBits(fives, AffMat3Dbl(0x1.aaaaaaaaaaaabp+0));
    AffMat3Dbl zero(0.0);
    ExpectBits(zero /= 0.0, AffMat3Dbl(nan));
    map = Map(2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24);
    map /= map(0, 0);
    ExpectBits(map, Counted());
    map *= map(0, 3);
    ExpectBits(map, Map(4, 8, 12, 16, 20, 24, 28, 32, 36, 40, 44, 48));
}

// ---- The map ---------------------------------------------------------------------------------------

TEST(AffMat3Dbl, Identity)
{
    AffMat3Dbl map(nan);
    EXPECT_EQ(&map.Identity(), &map);
    ExpectBits(map, Identity());
}

TEST(AffMat3Dbl, Invert)
{
    // L, whose exact inverse is below; −(L⁻¹·t) is exact as well, and −(8 − 4 − 4) is −0.
    AffMat3Dbl map = Map(0, 2, 3.5, 16, 4, 8, 8, 32, 2, 0, 1, -16);
    EXPECT_EQ(&map.Invert(), &map);
    ExpectBits(map, Map(-0.25, 0.0625, 0.375, 8, -0.375, 0.21875, -0.4375, -8, 0.5, -0.125, 0.25, -0.0));
}

TEST(AffMat3Dbl, InvertNegatesTheProduct)
{
    AffMat3Dbl map; // −(1·0 + …) is −0: a change of sign and not a subtraction from 0
    map.Invert();
    ExpectBits(map, Map(1, 0, 0, -0.0, 0, 1, 0, -0.0, 0, 0, 1, -0.0));
}

TEST(AffMat3Dbl, GetInvertedCopy)
{
    AffMat3Dbl const map = Map(0, 2, 3.5, 16, 4, 8, 8, 32, 2, 0, 1, -16);
    AffMat3Dbl const inverse = map.GetInvertedCopy();
    ExpectBits(inverse, Map(-0.25, 0.0625, 0.375, 8, -0.375, 0.21875, -0.4375, -8, 0.5, -0.125, 0.25, -0.0));
    ExpectBits(map, Map(0, 2, 3.5, 16, 4, 8, 8, 32, 2, 0, 1, -16));
    ExpectNear(map * inverse, Identity(), 0.0);
    ExpectNear(inverse * map, Identity(), 0.0);
}

TEST(AffMat3Dbl, InvertSingular)
{
    AffMat3Dbl const singular = Map(1, 2, 3, 4, 0, 0, 0, 8, 9, 10, 11, 12);
    AffMat3Dbl map(singular);
    EXPECT_THROW(map.Invert(), VexorSingular);
    ExpectBits(map, singular);
    EXPECT_THROW(singular.GetInvertedCopy(), VexorSingular);
    AffMat3Dbl partly = Map(1, 2, 3, 4, 2, 4, 6, 8, 1, 1, 1, 12); // L is as far as the factorisation came
    AffMat3Dbl const before(partly);
    EXPECT_THROW(before.GetInvertedCopy(), VexorSingular);
    EXPECT_THROW(partly.Invert(), VexorSingular);
    ExpectBits(partly, Map(1, 0.5, 0, 4, 2, 0.5, 4, 8, 1, 1, 1, 12));
}

TEST(AffMat3Dbl, SetRotationAboutALine)
{
    AffMat3Dbl map(nan);
    EXPECT_EQ(&map.SetRotation(Pnt3Dbl(1, 2, 5), Vec3Dbl(0, 0, 1), pi / 2), &map);
    // (x, y, z) goes to (1 − (y − 2), 2 + (x − 1), z).
    ExpectNear(map, Map(0, -1, 0, 3, 1, 0, 0, 1, 0, 0, 1, 0), 1e-15);
    Pnt3Dbl const fixed = map * Pnt3Dbl(1, 2, -7);
    EXPECT_NEAR(fixed.x, 1, 1e-15);
    EXPECT_NEAR(fixed.y, 2, 1e-15);
    EXPECT_SAME_BITS(fixed.z, -7.0);
}

TEST(AffMat3Dbl, SetRotationIsTheCompositionOfThreeMaps)
{
    Draws draws(1);
    for (int round = 0; round < 2000; ++round) {
        Pnt3Dbl const point(draws.Unit(), draws.Unit(), round % 5 ? draws.Unit() : 0.0);
        Vec3Dbl const axis = round % 7 ? Vec3Dbl(draws.Unit(), draws.Unit(), draws.Unit()).Normalize()
                                       : Vec3Dbl(0, draws.Below(2) ? 1 : -1, 0);
        double const angle = 7 * draws.Unit();
        AffMat3Dbl map(nan);
        map.SetRotation(point, axis, angle);

        double const unit[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        double linear[3][3];
        for (int c = 0; c < 3; ++c) {
            Vec3Dbl column(unit[c][0], unit[c][1], unit[c][2]);
            column.Rotate(axis, angle);
            for (int r = 0; r < 3; ++r)
                linear[r][c] = column[r];
        }
        // (M3 × M2) × M1 with M3 = (I, p), M2 = (rotation, 0) and M1 = (I, −p), element by element
        double const p[3] = {point.x, point.y, point.z};
        double product[3][4];
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c) {
                product[r][c] = 0.0;
                for (int k = 0; k < 3; ++k)
                    product[r][c] += unit[r][k] * linear[k][c];
            }
            product[r][3] = ((unit[r][0] * 0.0 + unit[r][1] * 0.0) + unit[r][2] * 0.0) + p[r];
        }
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c) {
                double element = 0.0;
                for (int k = 0; k < 3; ++k)
                    element += product[r][k] * unit[k][c];
                ASSERT_TRUE(SameBits(map(r, c), element)) << "round " << round;
            }
            double const t =
                ((product[r][0] * -p[0] + product[r][1] * -p[1]) + product[r][2] * -p[2]) + product[r][3];
            ASSERT_TRUE(SameBits(map(r, 3), t)) << "round " << round;
        }
        // A vector turns as by Vec3Dbl::Rotate, and the point stays.
        Vec3Dbl v(draws.Unit(), draws.Unit(), draws.Unit());
        Vec3Dbl const turned = map * v;
        v.Rotate(axis, angle);
        EXPECT_LT((turned - v).Length(), 1e-14);
        EXPECT_LT((map * point).DistanceTo(point), 1e-14);
    }
}

// (back · rotate) · toOrigin, in this order: the rotation takes the point directly to the translation. Here
// an eighth of a turn makes −point's y overflow and its x about 0, which stays finite. In back · (rotate ·
// toOrigin) the identity matrix would multiply that infinity by 0.
TEST(AffMat3Dbl, SetRotationComposesFromTheLeft)
{
    AffMat3Dbl map;
    map.SetRotation(Pnt3Dbl(1.6e308, 1.6e308, 5.0), Vec3Dbl(0, 0, 1), pi / 4);
    EXPECT_NEAR(map(0, 3), 1.6e308, 1e293);
    EXPECT_SAME_BITS(map(1, 3), -infinity);
    EXPECT_SAME_BITS(map(2, 3), 0.0);
}

TEST(AffMat3Dbl, SetRotationAboutANullAxis)
{
    AffMat3Dbl map(nan);
    map.SetRotation(Pnt3Dbl(0.0), Vec3Dbl(0.0), 0.5);
    EXPECT_NEAR(map(0, 0), std::cos(0.5), 1e-15);
    map(0, 0) = 0.0;
    EXPECT_EQ(map == AffMat3Dbl(0.0), 1);
}

TEST(AffMat3Dbl, SetRotationAboutItsOwnTranslation)
{
    AffMat3Dbl map;
    map.SetTranslation(Vec3Dbl(0, 0, 1));
    AffMat3Dbl expected;
    expected.SetRotation(Pnt3Dbl(1, 2, 3), Vec3Dbl(0, 0, 1), 0.5);
    map.SetRotation(Pnt3Dbl(1, 2, 3), map.Translation(), 0.5);
    ExpectBits(map, expected);
}

TEST(AffMat3Dbl, SetRotationFromDirectionToDirection)
{
    Pnt3Dbl const point(1, 2, 3);
    AffMat3Dbl map(nan);
    EXPECT_EQ(&map.SetRotation(point, Vec3Dbl(2, 0, 0), Vec3Dbl(0, 3, 0)), &map);
    ExpectNear(map, Map(0, -1, 0, 3, 1, 0, 0, 1, 0, 0, 1, 0), 1e-15);
    Draws draws(2);
    for (int round = 0; round < 500; ++round) {
        Vec3Dbl const from(draws.Unit(), draws.Unit(), draws.Unit());
        Vec3Dbl const to(draws.Unit(), draws.Unit(), draws.Unit());
        map.SetRotation(point, from, to);
        Vec3Dbl const carried = (map * from).GetNormalizedCopy() - to.GetNormalizedCopy();
        EXPECT_LT(carried.Length(), 1e-13);
        EXPECT_LT((map * point).DistanceTo(point), 1e-14);

        Vec3Dbl const axis = from.Cross(to).GetNormalizedCopy();
        AffMat3Dbl expected;
        expected.SetRotation(point, axis, from.GetCCWAngleWith(to, axis));
        ExpectBits(map, expected);
    }
}

TEST(AffMat3Dbl, SetRotationOfParallelAndShortDirectionsIsTheIdentity)
{
    Pnt3Dbl const point(1, 2, 3);
    Vec3Dbl const f(1, -2, 0.5);
    Vec3Dbl const g(0, 1, 0);
    AffMat3Dbl map(nan);
    EXPECT_EQ(&map.SetRotation(point, f, f), &map);
    ExpectBits(map, Identity());
    ExpectBits(AffMat3Dbl(nan).SetRotation(point, f, -1.0 * f), Identity());
    ExpectBits(AffMat3Dbl(nan).SetRotation(point, f, 5.0 * f), Identity());
    ExpectBits(AffMat3Dbl(nan).SetRotation(point, Vec3Dbl(0.0), g), Identity());
    ExpectBits(AffMat3Dbl(nan).SetRotation(point, g, Vec3Dbl(0.0)), Identity());
    ExpectBits(AffMat3Dbl(nan).SetRotation(point, Vec3Dbl(1e-6, 0, 0), g), Identity());
    ExpectBits(AffMat3Dbl(nan).SetRotation(point, g, Vec3Dbl(1e-6, 0, 0)), Identity());
    // Each length alone: the other vector is so long that the cross product passes.
    ExpectBits(AffMat3Dbl(nan).SetRotation(point, Vec3Dbl(1e-6, 0, 0), 1e6 * g), Identity());
    ExpectBits(AffMat3Dbl(nan).SetRotation(point, 1e6 * g, Vec3Dbl(1e-6, 0, 0)), Identity());
}

TEST(AffMat3Dbl, SetRotationReadsTheGlobalInclusively)
{
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(0.25); // 0.0625 squared
    Vec3Dbl const x(0.5, 0, 0);
    Vec3Dbl const y(0, 0.5, 0); // the cross product has the length 0.25 exactly
    ExpectBits(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(0.0), x, y), Identity());
    EXPECT_EQ(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(0.0), x, Vec3Dbl(0, Above(0.5), 0)) == Identity(), 0);
    // f and g of that length, with a long other vector
    ExpectBits(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(0.0), Vec3Dbl(0.25, 0, 0), Vec3Dbl(0, 8, 0)), Identity());
    EXPECT_EQ(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(0.0), Vec3Dbl(Above(0.25), 0, 0), Vec3Dbl(0, 8, 0))
                  == Identity(),
              0);
    ExpectBits(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(0.0), Vec3Dbl(0, 8, 0), Vec3Dbl(0.25, 0, 0)), Identity());
    EXPECT_EQ(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(0.0), Vec3Dbl(0, 8, 0), Vec3Dbl(Above(0.25), 0, 0))
                  == Identity(),
              0);
    // If only this operation's own limit applies, the result is exactly the identity; a rotation by 0 would
    // be rounded.
    gVexorTolerance.SetLength(3.0);
    Vec3Dbl const limit(1, 2, 2);
    Vec3Dbl const longer(-20, 35, 11);
    ExpectBits(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(1, 2, 3), limit, longer), Identity());
    ExpectBits(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(1, 2, 3), longer, limit), Identity());
    gVexorTolerance.SetLength(1e-5);
    EXPECT_EQ(AffMat3Dbl(nan).SetRotation(Pnt3Dbl(0.0), x, y) == Identity(), 0);
}

TEST(AffMat3Dbl, SetRotationOfNaNRunsOn)
{
    AffMat3Dbl map;
    map.SetRotation(Pnt3Dbl(0.0), Vec3Dbl(nan, 0, 0), Vec3Dbl(0, 1, 0));
    EXPECT_EQ(map == map, 0);
}

// ---- Products --------------------------------------------------------------------------------------

TEST(AffMat3Dbl, ProductAppliesTheRightMapFirst)
{
    AffMat3Dbl const left = Map(1, 2, 0, 10, 0, 1, 0, 20, 0, 3, 1, 30);
    AffMat3Dbl const right = Map(2, 0, 0, 1, 0, 1, 1, 2, 0, 0, 4, 3);
    ExpectBits(left * right, Map(2, 2, 2, 15, 0, 1, 1, 22, 0, 3, 7, 39));
    ExpectBits(right * left, Map(2, 4, 0, 21, 0, 4, 1, 52, 0, 12, 4, 123));
    Pnt3Dbl const p(1, 10, 100);
    EXPECT_EQ((left * right) * p == left * (right * p), 1);
    AffMat3Dbl own = left;
    own = own * own;
    ExpectBits(own, Map(1, 4, 0, 60, 0, 1, 0, 40, 0, 6, 1, 120));
    // The sums of L start from 0.0, those of t do not.
    ExpectBits(AffMat3Dbl(Mat3Dbl(-1.0), Vec3Dbl(-0.0)) * AffMat3Dbl(0.0),
               Map(0, 0, 0, -0.0, 0, 0, 0, -0.0, 0, 0, 0, -0.0));
}

TEST(AffMat3Dbl, ProductWithPnt3DblKeepsFullPrecision)
{
    AffMat3Dbl const map = Map(1, 2, 0, 10, 0, 1, 0, 20, 0, 3, 1, 30);
    ExpectBits(map * Pnt3Dbl(1, 10, 100), 31, 30, 160);
    AffMat3Dbl move;
    move.SetTranslation(Vec3Dbl(0x1p-30, 0, -0.0));
    ExpectBits(move * Pnt3Dbl(1, 0.1, -0.0), 1 + 0x1p-30, 0.1, 0.0);
    Pnt3Dbl const p(0.1, 0.2, 0.3);
    Vec3Dbl const expected = map.LinearPart() * p.Vector() + map.Translation();
    ExpectBits(map * p, expected.x, expected.y, expected.z);
    EXPECT_EQ((map * p == map.LinearPart() * p + map.Translation()), 0); // the latter rounds to single
    // (L·x) + t and not a sum that begins with t: (1 + 2^-53) + 2^-53 is 1.
    ExpectBits(Map(1, 0, 0, 0x1p-53, 0, 1, 0, 0, 0, 0, 1, 0) * Pnt3Dbl(1, 0, 0), 1, 0, 0);
    ExpectBits(Map(1, 1, 0, 0x1p-53, 0, 1, 0, 0, 0, 0, 1, 0) * Pnt3Dbl(1, 0x1p-53, 0), 1, 0x1p-53, 0);
}

TEST(AffMat3Dbl, ProductWithVec3DblIsNotTranslated)
{
    AffMat3Dbl map = Map(1, 2, 0, nan, 0, 1, 0, nan, 0, 3, 1, nan);
    ExpectBits(map * Vec3Dbl(1, 10, 100), 21, 10, 130);
    ExpectBits(map * Vec3Dbl(0.1, 0, -0.0), 0.1, 0, 0);
}

TEST(AffMat3Dbl, ProductWithVec3FltRoundsOnce)
{
    AffMat3Dbl const map = Map(1 + 0x1p-30, -1, 0, nan, 0.1, 0, 0, nan, 1, 0x1p-24, 0x1p-48, nan);
    Vec3Flt const v = map * Vec3Flt(1.0f, 1.0f, 1.0f);
    EXPECT_SAME_BITS(v.x, 0x1p-30f);
    EXPECT_SAME_BITS(v.y, 0x1.99999ap-4f);
    EXPECT_SAME_BITS(v.z, 1 + 0x1p-23f);
}

TEST(AffMat3Dbl, ProductWithPnt3FltRoundsTwice)
{
    // L·x is 1 + 2^-24, which rounds to 1; with t = 2^-24 the sum rounds to 1 again. Rounded once at the end,
    // the sum would be 1 + 2^-23.
    AffMat3Dbl const map = Map(1, 0x1p-24, 0, 0x1p-24, 0, 0, 0, 0.1, 0, 0, 1, 1 + 0x1p-30);
    Pnt3Flt const p = map * Pnt3Flt(1.0f, 1.0f, -1.0f);
    EXPECT_SAME_BITS(p.x, 1.0f);
    EXPECT_SAME_BITS(p.y, 0x1.99999ap-4f);
    EXPECT_SAME_BITS(p.z, 0x1p-30f); // t stays a double until the sum is rounded
}

} // namespace
