#include <vexor/matrices/AffMat2Dbl.h>

#include <support/Bits.h>
#include <support/Fixtures.h>

#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

template <class Pair>
void ExpectBits(Pair const& actual, double x, double y)
{
    EXPECT_SAME_BITS(double(actual.x), x);
    EXPECT_SAME_BITS(double(actual.y), y);
}

void ExpectBits(AffMat2Dbl const& actual, double m00, double m01, double m10, double m11, double x, double y)
{
    EXPECT_SAME_BITS(actual(0, 0), m00);
    EXPECT_SAME_BITS(actual(0, 1), m01);
    EXPECT_SAME_BITS(actual(1, 0), m10);
    EXPECT_SAME_BITS(actual(1, 1), m11);
    EXPECT_SAME_BITS(actual(0, 2), x);
    EXPECT_SAME_BITS(actual(1, 2), y);
}

AffMat2Dbl Map(double m00, double m01, double m10, double m11, double x, double y)
{
    return AffMat2Dbl(Mat2Dbl(Vec2Dbl(m00, m01), Vec2Dbl(m10, m11)), Vec2Dbl(x, y));
}

// ---- Construction ----------------------------------------------------------------------------------

TEST(AffMat2Dbl, Layout)
{
    static_assert(sizeof(AffMat2Dbl) == 6 * sizeof(double) && std::is_standard_layout_v<AffMat2Dbl>, "");
    static_assert(std::is_trivially_copyable_v<AffMat2Dbl>, "");
    AffMat2Dbl map;
    EXPECT_EQ(static_cast<void*>(&map.LinearPart()), static_cast<void*>(&map));
    EXPECT_EQ(static_cast<void*>(&map.Translation()), static_cast<void*>(&map.LinearPart() + 1));
}

TEST(AffMat2Dbl, DefaultConstructorIsTheIdentity)
{
    ExpectBits(AffMat2Dbl(), 1.0, 0.0, 0.0, 1.0, 0.0, 0.0);
    AffMat2Dbl map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    map = AffMat2Dbl(); // the way to reset a map
    ExpectBits(map, 1.0, 0.0, 0.0, 1.0, 0.0, 0.0);
}

TEST(AffMat2Dbl, Constructors)
{
    ExpectBits(AffMat2Dbl(Mat2Dbl(Vec2Dbl(1.0, 2.0), Vec2Dbl(3.0, nan)), Vec2Dbl(-0.0, 6.0)), 1.0, 2.0, 3.0,
               nan, -0.0, 6.0);
    AffMat2Dbl const copy(Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
    ExpectBits(copy, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    // Unlike AffMat3Dbl it cannot be constructed from a number, nor from a matrix alone.
    static_assert(!std::is_constructible_v<AffMat2Dbl, double>, "");
    static_assert(!std::is_constructible_v<AffMat2Dbl, Mat2Dbl>, "");
}

TEST(AffMat2Dbl, Assignment)
{
    AffMat2Dbl map;
    EXPECT_EQ(&(map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0)), &map);
    ExpectBits(map, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    AffMat2Dbl& same = map;
    map = same;
    ExpectBits(map, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
}

// ---- Access ----------------------------------------------------------------------------------------

TEST(AffMat2Dbl, LinearPart)
{
    AffMat2Dbl map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    static_assert(std::is_same_v<decltype(map.LinearPart()), Mat2Dbl&>, "");
    static_assert(std::is_same_v<decltype(std::as_const(map).LinearPart()), Mat2Dbl const&>, "");
    EXPECT_EQ(&std::as_const(map).LinearPart(), &map.LinearPart());
    map.LinearPart()(1, 0) = 9.0;
    ExpectBits(map, 1.0, 2.0, 9.0, 4.0, 5.0, 6.0);
}

TEST(AffMat2Dbl, Translation)
{
    AffMat2Dbl map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    static_assert(std::is_same_v<decltype(map.Translation()), Vec2Dbl&>, "");
    static_assert(std::is_same_v<decltype(std::as_const(map).Translation()), Vec2Dbl const&>, "");
    EXPECT_EQ(&std::as_const(map).Translation(), &map.Translation());
    map.Translation().y = 9.0;
    ExpectBits(map, 1.0, 2.0, 3.0, 4.0, 5.0, 9.0);
}

TEST(AffMat2Dbl, SetLinearPart)
{
    AffMat2Dbl map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_EQ(&map.SetLinearPart(Mat2Dbl(7.0)), &map);
    ExpectBits(map, 7.0, 7.0, 7.0, 7.0, 5.0, 6.0);
    map.SetLinearPart(map.LinearPart());
    ExpectBits(map, 7.0, 7.0, 7.0, 7.0, 5.0, 6.0);
}

TEST(AffMat2Dbl, SetTranslation)
{
    AffMat2Dbl map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_EQ(&map.SetTranslation(Vec2Dbl(8.0, 9.0)), &map);
    ExpectBits(map, 1.0, 2.0, 3.0, 4.0, 8.0, 9.0);
    map.SetTranslation(map.LinearPart().GetRow(1));
    ExpectBits(map, 1.0, 2.0, 3.0, 4.0, 3.0, 4.0);
}

TEST(AffMat2Dbl, IndexTakesAnyColumnFrom2ForTheTranslation)
{
    AffMat2Dbl map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    AffMat2Dbl const& constant = map;
    for (int row : {0, 1}) {
        for (int column : {0, 1}) {
            EXPECT_EQ(&map(row, column), &map.LinearPart()(row, column));
            EXPECT_EQ(&constant(row, column), &map(row, column));
        }
        for (int column : {2, 3, 9}) {
            EXPECT_EQ(&map(row, column), &map.Translation()[row]);
            EXPECT_EQ(&constant(row, column), &map(row, column));
        }
    }
    map(Opaque(1), Opaque(2)) = 9.0;
    map(Opaque(0), Opaque(1)) = 8.0;
    ExpectBits(map, 1.0, 8.0, 3.0, 4.0, 5.0, 9.0);
}

// ---- Inverse ---------------------------------------------------------------------------------------

TEST(AffMat2Dbl, Invert)
{
    AffMat2Dbl map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0); // d = −2
    EXPECT_EQ(&map.Invert(), &map);
    // t = −(L⁻¹·t): −(−2·5 + 1·6, 1.5·5 − 0.5·6)
    ExpectBits(map, -2.0, 1.0, 1.5, -0.5, 4.0, -4.5);
    AffMat2Dbl identity;
    identity.Invert(); // −(1·0 + −0·0) is −0
    ExpectBits(identity, 1.0, -0.0, -0.0, 1.0, -0.0, -0.0);
}

TEST(AffMat2Dbl, InvertOfASingularMapChangesNothing)
{
    AffMat2Dbl map = Map(1.0, 2.0, 2.0, 4.0, 5.0, 6.0);
    EXPECT_THROW(map.Invert(), VexorSingular);
    ExpectBits(map, 1.0, 2.0, 2.0, 4.0, 5.0, 6.0);
    AffMat2Dbl small = Map(1e-11, 0.0, 0.0, 1e-11, 5.0, 6.0); // the threshold of Mat2Dbl
    EXPECT_THROW(small.Invert(), VexorSingular);
    ExpectBits(small, 1e-11, 0.0, 0.0, 1e-11, 5.0, 6.0);
}

TEST(AffMat2Dbl, GetInvertedCopy)
{
    AffMat2Dbl const map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    ExpectBits(map.GetInvertedCopy(), -2.0, 1.0, 1.5, -0.5, 4.0, -4.5);
    ExpectBits(map, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_THROW(Map(0.0, 0.0, 0.0, 0.0, 1.0, 1.0).GetInvertedCopy(), VexorSingular);
    AffMat2Dbl const turned = Map(0.6, -0.8, 0.8, 0.6, 100.0, -20.0);
    AffMat2Dbl const identity = turned * turned.GetInvertedCopy();
    AffMat2Dbl const expected;
    for (int row : {0, 1})
        for (int column : {0, 1, 2})
            EXPECT_NEAR(identity(row, column), expected(row, column), 1e-13);
}

// ---- Products --------------------------------------------------------------------------------------

TEST(AffMat2Dbl, CompositionAppliesTheRightOneFirst)
{
    AffMat2Dbl const a = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    AffMat2Dbl const b = Map(7.0, 8.0, 9.0, 10.0, 11.0, 12.0);
    ExpectBits(a * b, 25.0, 28.0, 57.0, 64.0, 40.0, 87.0);
    ExpectBits(b * a, 31.0, 46.0, 39.0, 58.0, 94.0, 117.0);
    Pnt2Dbl const p(-3.0, 0.5);
    Pnt2Dbl const once = (a * b) * p;
    Pnt2Dbl const twice = a * (b * p);
    ExpectBits(once, twice.x, twice.y); // small integers and halves: no rounding
    AffMat2Dbl self = a;
    self = self * self;
    ExpectBits(self, 7.0, 10.0, 15.0, 22.0, 22.0, 45.0);
}

// t = (L1·t2) + t1: the sum of the two products is rounded before t1 is added. 1 + 2^-53 rounds to 1, and so
// does 1 + 2^-53 again.
TEST(AffMat2Dbl, CompositionAddsTheTranslationLast)
{
    AffMat2Dbl const a = Map(1.0, 1.0, 1.0, 1.0, 0x1p-53, 1.0);
    AffMat2Dbl const b = Map(1.0, 0.0, 0.0, 1.0, 1.0, 0x1p-53);
    ExpectBits((a * b).Translation(), 1.0, 2.0);
}

TEST(AffMat2Dbl, MultiplyByPnt2DblAddsTheTranslation)
{
    AffMat2Dbl const map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    static_assert(std::is_same_v<decltype(map * Pnt2Dbl()), Pnt2Dbl>, "");
    ExpectBits(map * Pnt2Dbl(1.0, 2.0), 10.0, 17.0);
    // In double throughout: (1 + 2^-53) + 2^-53 is 1, in this order only.
    ExpectBits(Map(1.0, 1.0, 0.1, 0.0, 0x1p-53, 0.0) * Pnt2Dbl(1.0, 0x1p-53), 1.0, 0.1);
}

TEST(AffMat2Dbl, MultiplyByVec2DblDoesNotAddTheTranslation)
{
    AffMat2Dbl const map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    static_assert(std::is_same_v<decltype(map * Vec2Dbl()), Vec2Dbl>, "");
    ExpectBits(map * Vec2Dbl(1.0, 2.0), 5.0, 11.0);
}

TEST(AffMat2Dbl, MultiplyByVec2FltDoesAddTheTranslation)
{
    AffMat2Dbl const map = Map(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    static_assert(std::is_same_v<decltype(map * Vec2Flt()), Vec2Flt>, "");
    ExpectBits(map * Vec2Flt(1.0f, 2.0f), 10.0, 17.0);
    ExpectBits(map * Pnt2Flt(1.0f, 2.0f), 10.0, 17.0);
    static_assert(std::is_same_v<decltype(map * Pnt2Flt()), Pnt2Flt>, "");
}

// By exact arithmetic: L·x rounded to single, t added in double, the sum rounded again. A single rounding at
// the end, or t rounded to single first, gives other singles.
TEST(AffMat2Dbl, MultiplyBySinglesRoundsTwice)
{
    AffMat2Dbl const map = Map(-0x1.ac724620e50aap+1, -0x1.b6cdeb6cf1fdep+2, -0x1.836f09eb37316p+1,
                               -0x1.31c7d53305d54p+2, 0x1.d17f339a19523p+2, 0x1.c39d98954c2e8p+2);
    ExpectBits(map * Vec2Flt(-0x1.5586d4p+1f, 0x1.390ba4p+1f), -0x1.20b304p-1, 0x1.b94c3p+1);
    ExpectBits(map * Pnt2Flt(-0x1.5586d4p+1f, 0x1.390ba4p+1f), -0x1.20b304p-1, 0x1.b94c3p+1);
}

} // namespace
