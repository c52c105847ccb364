#include <arrays/Loops.h>

// Vectors.h compared with loops over the members, byte for byte, in every instruction set of this machine.

namespace {

using namespace arrays_test;

template <class Vector>
class ArraysOfVectors : public testing::Test {};
using Vectors = testing::Types<Vec3Dbl, Vec3Flt, Vec2Dbl, Vec2Flt>;
TYPED_TEST_SUITE(ArraysOfVectors, Vectors, );

template <class Point>
class ArraysOfPoints : public testing::Test {};
using Points = testing::Types<Pnt3Dbl, Pnt3Flt, Pnt2Dbl, Pnt2Flt>;
TYPED_TEST_SUITE(ArraysOfPoints, Points, );

// `results` is a pointer: a parameter pack of references would make it an array's element type const.
#define PAIR(name)                                                                                           \
    [](auto const& left, auto const& right, auto* results, std::size_t count) {                              \
        vexor::arrays::name(left, right, results, count);                                                    \
    }
#define SINGLE(name)                                                                                         \
    [](auto const* values, auto* results, std::size_t count) { vexor::arrays::name(values, results, count); }
#define MEMBER(name) [](auto const& left, auto const& right) { return left.name(right); }
#define OWN(name) [](auto const& value) { return value.name(); }

TYPED_TEST(ArraysOfVectors, Add)
{
    ExaminePair<TypeParam, TypeParam>("Add", PAIR(Add), [](auto const& a, auto const& b) { return a + b; });
}

TYPED_TEST(ArraysOfVectors, Subtract)
{
    ExaminePair<TypeParam, TypeParam>("Subtract", PAIR(Subtract),
                                      [](auto const& a, auto const& b) { return a - b; });
}

TYPED_TEST(ArraysOfVectors, Scale)
{
    ExaminePair<TypeParam, Number<TypeParam>>("Scale", PAIR(Scale),
                                              [](auto const& a, auto const& b) { return a * b; });
}

TYPED_TEST(ArraysOfVectors, Negate)
{
    ExamineSingle<TypeParam>("Negate", SINGLE(Negate), [](auto const& a) { return -a; });
}

TYPED_TEST(ArraysOfVectors, ElemMult)
{
    ExaminePair<TypeParam, TypeParam>("ElemMult", PAIR(ElemMult), MEMBER(ElemMult));
}

TYPED_TEST(ArraysOfVectors, Dot)
{
    ExaminePair<TypeParam, TypeParam>("Dot", PAIR(Dot), MEMBER(Dot));
}

TYPED_TEST(ArraysOfVectors, Cross)
{
    ExaminePair<TypeParam, TypeParam>("Cross", PAIR(Cross), MEMBER(Cross));
}

TYPED_TEST(ArraysOfVectors, LengthSquared)
{
    ExamineSingle<TypeParam>("LengthSquared", SINGLE(LengthSquared), OWN(LengthSquared));
}

TYPED_TEST(ArraysOfVectors, Length)
{
    ExamineSingle<TypeParam>("Length", SINGLE(Length), OWN(Length));
}

TYPED_TEST(ArraysOfVectors, Normalize)
{
    ExamineSingle<TypeParam>("Normalize", SINGLE(Normalize), OWN(GetNormalizedCopy));
}

TYPED_TEST(ArraysOfVectors, GetAngleWith)
{
    ExaminePair<TypeParam, TypeParam>("GetAngleWith", PAIR(GetAngleWith), MEMBER(GetAngleWith));
}

TYPED_TEST(ArraysOfVectors, IsParallelTo)
{
    ExaminePair<TypeParam, TypeParam>("IsParallelTo", PAIR(IsParallelTo), MEMBER(IsParallelTo));
}

TYPED_TEST(ArraysOfVectors, IsCodirectionalTo)
{
    ExaminePair<TypeParam, TypeParam>("IsCodirectionalTo", PAIR(IsCodirectionalTo),
                                      MEMBER(IsCodirectionalTo));
}

TYPED_TEST(ArraysOfVectors, IsPerpendicularTo)
{
    ExaminePair<TypeParam, TypeParam>("IsPerpendicularTo", PAIR(IsPerpendicularTo),
                                      MEMBER(IsPerpendicularTo));
}

TYPED_TEST(ArraysOfVectors, IsUnitParallelTo)
{
    ExaminePair<TypeParam, TypeParam>("IsUnitParallelTo", PAIR(IsUnitParallelTo), MEMBER(IsUnitParallelTo));
}

TYPED_TEST(ArraysOfVectors, IsUnitCodirectionalTo)
{
    ExaminePair<TypeParam, TypeParam>("IsUnitCodirectionalTo", PAIR(IsUnitCodirectionalTo),
                                      MEMBER(IsUnitCodirectionalTo));
}

TYPED_TEST(ArraysOfVectors, IsUnitPerpendicularTo)
{
    ExaminePair<TypeParam, TypeParam>("IsUnitPerpendicularTo", PAIR(IsUnitPerpendicularTo),
                                      MEMBER(IsUnitPerpendicularTo));
}

TYPED_TEST(ArraysOfVectors, IsEqualTo)
{
    ExaminePair<TypeParam, TypeParam>("IsEqualTo", PAIR(IsEqualTo), MEMBER(IsEqualTo));
}

// Quotients that a kernel forms without a division, for mantissas and exponents of many kinds.
TEST(ArraysNormalize, ManyVectors)
{
    std::mt19937_64 engine(16);
    std::vector<Vec3Dbl> vectors(300000);
    for (Vec3Dbl& vector : vectors) {
        for (int k = 0; k < 3; ++k) {
            std::uint64_t mantissa = engine() >> 12U;
            if (engine() % 4 == 0) // close to a power of two, from below and from above
                mantissa = engine() % 2 ? 0xfffffffffffffu - engine() % 4 : engine() % 4;
            double const number = 1.0 + double(mantissa) * 0x1p-52;
            vector[k] = std::ldexp(engine() % 2 ? number : -number, int(engine() % 40) - 20);
        }
        if (engine() % 8 == 0) { // powers of two beside a length that is 2 − 2^-52, or close to it
            vector =
                Vec3Dbl(2.0 - double(1 + engine() % 4) * 0x1p-52, std::ldexp(1.0, -28 - int(engine() % 9)),
                        std::ldexp(1.0, -28 - int(engine() % 9)));
        }
        if (engine() % 16 == 0)
            vector *= std::ldexp(1.0, int(engine() % 1200) - 600);
    }
    CompareSingle("Normalize", vectors, SINGLE(Normalize), OWN(GetNormalizedCopy), false);
}

/// The nearest number of `precision` bits, by the current rounding, which is to nearest, ties to even.
double RoundToBits(double number, int precision)
{
    int exponent = 0;
    double const fraction = std::frexp(number, &exponent);
    return std::ldexp(std::nearbyint(std::ldexp(fraction, precision)), exponent - precision);
}

// The method by which a kernel divides, in numbers of a few bits: for every divisor, every reciprocal within one
// unit in the last place and every dividend the quotient is the rounded one. Doubles hold all steps exactly.
TEST(ArraysNormalize, MethodOfDivisionInSmallPrecisions)
{
    for (int precision = 5; precision <= 9; ++precision) {
        auto const round = [precision](double number) { return RoundToBits(number, precision); };
        double const unit = std::ldexp(1.0, 1 - precision);
        for (double divisor = 1.0; divisor < 2.0; divisor += unit) {
            for (double near = 0.5; near <= 1.0; near += unit / 2.0) {
                if (std::fabs(divisor * near - 1.0) > divisor * unit / 2.0)
                    continue;
                double const error = round(1.0 - divisor * near) + std::ldexp(1.0, 1 - 2 * precision);
                double const reciprocal = round(near + near * error);
                for (double dividend = 1.0; dividend < 2.0; dividend += unit) {
                    double const quotient = round(dividend * reciprocal);
                    double const remainder = round(dividend - quotient * divisor);
                    ASSERT_EQ(round(quotient + remainder * reciprocal), round(dividend / divisor))
                        << dividend << " / " << divisor << " by " << near << ", " << precision << " bits";
                }
            }
        }
    }
}

// Wide tolerances, so that about half of the results are 1, which is rare in the tests above.
TYPED_TEST(ArraysOfVectors, TestsWithTolerancesOfTheCaller)
{
    using Element = Number<TypeParam>;
    Operands operands(3);
    for (double const angular : {0.4, 0.0, 0.8, 1e-30}) {
        for (double const length : {9.0, -1.0, 0.0, 60.0}) {
            auto const a = static_cast<Element>(angular);
            auto const l = static_cast<Element>(length);
            for (Kind kind : {Kind::Ordinary, Kind::Strewn}) {
                auto const lefts = operands.Many<TypeParam>(allCounts, kind);
                auto const rights = operands.Many<TypeParam>(allCounts, kind);
#define COMPARE(name)                                                                                        \
    ComparePair(                                                                                             \
        #name, lefts, rights,                                                                                \
        [&](auto const& left, auto const& right, unsigned char* results, std::size_t count) {                \
            vexor::arrays::name(left, right, results, count, angular, length);                               \
        },                                                                                                   \
        [&](auto const& left, auto const& right) { return left.name(right, a, l); }, false)
                COMPARE(IsParallelTo);
                COMPARE(IsCodirectionalTo);
                COMPARE(IsPerpendicularTo);
                COMPARE(IsEqualTo);
#undef COMPARE
#define COMPARE(name)                                                                                        \
    ComparePair(                                                                                             \
        #name, lefts, rights,                                                                                \
        [&](auto const& left, auto const& right, unsigned char* results, std::size_t count) {                \
            vexor::arrays::name(left, right, results, count, angular);                                       \
        },                                                                                                   \
        [&](auto const& left, auto const& right) { return left.name(right, a); }, false)
                COMPARE(IsUnitParallelTo);
                COMPARE(IsUnitCodirectionalTo);
                COMPARE(IsUnitPerpendicularTo);
#undef COMPARE
            }
        }
    }
}

// Equal, opposite and nearly equal vectors, for which the tests return 1.
TYPED_TEST(ArraysOfVectors, TestsOfNearlyEqualVectors)
{
    Operands operands(4);
    auto const lefts = operands.Many<TypeParam>(allCounts, Kind::Strewn);
    std::vector<TypeParam> rights(lefts);
    for (std::size_t i = 0; i < rights.size(); ++i) {
        if (i % 4 == 1)
            rights[i].Negate();
        if (i % 4 == 2)
            rights[i] *= Number<TypeParam>(1.0 + 1e-6);
        if (i % 4 == 3)
            rights[i].x += Number<TypeParam>(1e-5);
    }
    ComparePair("IsEqualTo", lefts, rights, PAIR(IsEqualTo), MEMBER(IsEqualTo), false);
    ComparePair("IsParallelTo", lefts, rights, PAIR(IsParallelTo), MEMBER(IsParallelTo), false);
    ComparePair("IsCodirectionalTo", lefts, rights, PAIR(IsCodirectionalTo), MEMBER(IsCodirectionalTo),
                false);
    ComparePair("IsUnitParallelTo", lefts, rights, PAIR(IsUnitParallelTo), MEMBER(IsUnitParallelTo), false);
    ComparePair("GetAngleWith", lefts, rights, PAIR(GetAngleWith), MEMBER(GetAngleWith), false);
}

TYPED_TEST(ArraysOfPoints, AddAndSubtract)
{
    using Vector = std::decay_t<decltype(std::declval<TypeParam>().Vector())>;
    ExaminePair<TypeParam, Vector>("Add", PAIR(Add), [](auto const& a, auto const& b) { return a + b; });
    ExaminePair<TypeParam, TypeParam>("Subtract", PAIR(Subtract),
                                      [](auto const& a, auto const& b) { return a - b; });
}

TYPED_TEST(ArraysOfPoints, Scale)
{
    ExaminePair<TypeParam, Number<TypeParam>>("Scale", PAIR(Scale),
                                              [](auto const& a, auto const& b) { return a * b; });
}

TYPED_TEST(ArraysOfPoints, DistanceSqTo)
{
    ExaminePair<TypeParam, TypeParam>("DistanceSqTo", PAIR(DistanceSqTo), MEMBER(DistanceSqTo));
}

TYPED_TEST(ArraysOfPoints, DistanceTo)
{
    ExaminePair<TypeParam, TypeParam>("DistanceTo", PAIR(DistanceTo), MEMBER(DistanceTo));
}

TYPED_TEST(ArraysOfPoints, IsEqualTo)
{
    ExaminePair<TypeParam, TypeParam>("IsEqualTo", PAIR(IsEqualTo), MEMBER(IsEqualTo));
    ExaminePair<TypeParam, TypeParam>(
        "IsEqualTo",
        [](auto const& left, auto const& right, unsigned char* results, std::size_t count) {
            vexor::arrays::IsEqualTo(left, right, results, count, 4.5);
        },
        [](auto const& left, auto const& right) { return left.IsEqualTo(right, Number<TypeParam>(4.5)); });
}

// The loops over the members prefetch arrays that exceed the caches near the core.
TEST(ArraysInMemory, PairsSinglesAndTests)
{
    constexpr std::size_t bytes = vexor::arrays::detail::largeBytes;
    Operands operands(3);
    auto const vectors = operands.Many<Vec3Flt>(bytes / sizeof(Vec3Flt[2]) + laneCount, Kind::Ordinary);
    CompareSingle("Normalize", vectors, SINGLE(Normalize), OWN(GetNormalizedCopy), false);
    auto const lefts = operands.Many<Vec2Dbl>(bytes / sizeof(Vec2Dbl[2]) + laneCount, Kind::Ordinary);
    auto const rights = operands.Many<Vec2Dbl>(lefts.size(), Kind::Ordinary);
    ComparePair("Dot", lefts, rights, PAIR(Dot), MEMBER(Dot), false);
    ComparePair("IsUnitParallelTo", lefts, rights, PAIR(IsUnitParallelTo), MEMBER(IsUnitParallelTo), false);
}

TEST(ArraysConvert, ToSingle)
{
    ExamineSingle<Vec3Dbl>(
        "Convert",
        [](Vec3Dbl const* from, Vec3Flt* to, std::size_t count) { vexor::arrays::Convert(from, to, count); },
        [](Vec3Dbl const& value) { return value.ToVec3Flt(); });
    ExamineSingle<Pnt2Dbl>(
        "Convert",
        [](Pnt2Dbl const* from, Pnt2Flt* to, std::size_t count) { vexor::arrays::Convert(from, to, count); },
        [](Pnt2Dbl const& value) { return value.ToPnt2Flt(); });
}

TEST(ArraysConvert, ToDouble)
{
    ExamineSingle<Vec3Flt>(
        "Convert",
        [](Vec3Flt const* from, Vec3Dbl* to, std::size_t count) { vexor::arrays::Convert(from, to, count); },
        [](Vec3Flt const& value) { return Vec3Dbl(value); });
    ExamineSingle<Pnt3Flt>(
        "Convert",
        [](Pnt3Flt const* from, Pnt3Dbl* to, std::size_t count) { vexor::arrays::Convert(from, to, count); },
        [](Pnt3Flt const& value) { return Pnt3Dbl(value); });
}

} // namespace
