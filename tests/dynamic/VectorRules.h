#pragma once
#include "Allocations.h"
#include "Elements.h"

#include <algorithm>
#include <climits>
#include <cmath>

// The rules that VecDbl and VecFlt share. Each class's test file instantiates them and tests what the two
// round differently.

template <class Vector>
class VectorRules : public testing::Test {
public:
    using Number = vexor_test::ElementType<Vector>;

    static Vector Make(std::initializer_list<Number> elements) { return vexor_test::Make<Vector>(elements); }

    /// The numbers next below and next above.
    static Number Below(Number value) { return std::nextafter(value, Number(-INFINITY)); }
    static Number Above(Number value) { return std::nextafter(value, Number(INFINITY)); }

    /// Every operation on two vectors that refuses different sizes.
    template <class Check>
    static void ForEachSizeChecked(Vector& a, Vector const& b, Check check)
    {
        check([&] { a += b; });
        check([&] { a -= b; });
        check([&] { (void)(a + b); });
        check([&] { (void)(a - b); });
        check([&] { (void)a.ElemMult(b); });
        check([&] { (void)a.ElemDiv(b); });
        check([&] { (void)a.GetProjectionOnTo(b); });
        check([&] { (void)a.GetAngleWith(b); });
        check([&] { (void)a.GetAreaFormedByTriangleWith(b); });
        check([&] { (void)a.IsParallelTo(b); });
        check([&] { (void)a.IsCodirectionalTo(b); });
        check([&] { (void)a.IsPerpendicularTo(b); });
        check([&] { (void)a.IsUnitParallelTo(b); });
        check([&] { (void)a.IsUnitCodirectionalTo(b); });
        check([&] { (void)a.IsUnitPerpendicularTo(b); });
        check([&] { (void)a.IsEqualTo(b); });
    }
};

TYPED_TEST_SUITE_P(VectorRules);

#define VECTOR_RULES_TYPES                                                                                   \
    using V [[maybe_unused]] = TypeParam;                                                                    \
    using N [[maybe_unused]] = typename TestFixture::Number;                                                 \
    [[maybe_unused]] auto const make = [](std::initializer_list<N> elements) {                               \
        return TestFixture::Make(elements);                                                                  \
    };                                                                                                       \
    [[maybe_unused]] N const nan = std::numeric_limits<N>::quiet_NaN();                                      \
    [[maybe_unused]] N const infinity = std::numeric_limits<N>::infinity();                                  \
    using vexor_test::Holds

// ---- Construction and size -------------------------------------------------------------------------

TYPED_TEST_P(VectorRules, DefaultConstructorGivesOneElement)
{
    VECTOR_RULES_TYPES;
    V v;
    EXPECT_EQ(v.Size(), 1);
    v[0] = N(4);
    EXPECT_TRUE(Holds(v, {N(4)}));
}

TYPED_TEST_P(VectorRules, SizeConstructorOwnsOrViews)
{
    VECTOR_RULES_TYPES;
    V own(3);
    EXPECT_EQ(own.Size(), 3);

    N array[4] = {1, 2, 3, 4};
    {
        V view(3, array);
        EXPECT_TRUE(Holds(view, {1, 2, 3}));
        EXPECT_EQ(&view[0], array);
        view[1] = N(7);
        array[2] = N(8);
        EXPECT_TRUE(Holds(view, {1, 7, 8}));
    }
    EXPECT_EQ(array[1], N(7)); // and the array, which is on the stack, was not freed
}

TYPED_TEST_P(VectorRules, FillConstructorWritesThrough)
{
    VECTOR_RULES_TYPES;
    EXPECT_TRUE(Holds(V(2, N(1.5)), {N(1.5), N(1.5)}));
    N array[3] = {1, 2, 3};
    V view(2, N(9), array);
    EXPECT_EQ(array[0], N(9));
    EXPECT_EQ(array[1], N(9));
    EXPECT_EQ(array[2], N(3));
}

TYPED_TEST_P(VectorRules, SizeBelowOneIsAnAllocationFailure)
{
    VECTOR_RULES_TYPES;
    N array[1] = {5};
    for (int size : {0, -1, INT_MIN}) {
        EXPECT_THROW(V v(size), VexorAllocationFailed);
        EXPECT_THROW(V v(size, array), VexorAllocationFailed);
        EXPECT_THROW(V v(size, N(1)), VexorAllocationFailed);
        EXPECT_THROW(V v(size, N(1), array), VexorAllocationFailed);
        V v = make({1, 2});
        EXPECT_THROW(v.ReSize(size), VexorAllocationFailed);
        EXPECT_THROW(v.ReSize(size, array), VexorAllocationFailed);
        EXPECT_THROW(v.ReSize(size, N(3)), VexorAllocationFailed);
        EXPECT_TRUE(Holds(v, {1, 2}));
    }
    EXPECT_EQ(array[0], N(5));
}

TYPED_TEST_P(VectorRules, CopyOwnsItsElements)
{
    VECTOR_RULES_TYPES;
    N array[2] = {1, 2};
    V const view(2, array);
    V copy(view);
    copy[0] = N(9);
    EXPECT_EQ(array[0], N(1));
    array[1] = N(8);
    EXPECT_TRUE(Holds(copy, {9, 2}));
}

TYPED_TEST_P(VectorRules, Assignment)
{
    VECTOR_RULES_TYPES;
    V const source = make({1, 2, 3});

    V own = make({7, 8});
    EXPECT_EQ(&(own = source), &own);
    EXPECT_TRUE(Holds(own, {1, 2, 3}));

    // The same size keeps the block.
    V sameSize = make({7, 8, 9});
    N const* const block = &sameSize[0];
    sameSize = source;
    EXPECT_EQ(&sameSize[0], block);
    EXPECT_TRUE(Holds(sameSize, {1, 2, 3}));

    // A view drops the caller's array, also if the size stays the same.
    for (int size : {2, 3, 4}) {
        N array[4] = {7, 7, 7, 7};
        V view(size, array);
        view = source;
        EXPECT_TRUE(Holds(view, {1, 2, 3}));
        view[0] = N(5);
        for (N element : array)
            EXPECT_EQ(element, N(7));
    }
}

TYPED_TEST_P(VectorRules, AssignmentToItself)
{
    VECTOR_RULES_TYPES;
    V own = make({1, 2});
    V const& alias = own;
    own = alias;
    EXPECT_TRUE(Holds(own, {1, 2}));

    N array[2] = {3, 4};
    V view(2, array);
    V const& viewAlias = view;
    view = viewAlias;
    EXPECT_EQ(view.Size(), 2);
    EXPECT_NE(&view[0], array); // detached; its elements are unset
    EXPECT_EQ(array[0], N(3));
    EXPECT_EQ(array[1], N(4));
}

TYPED_TEST_P(VectorRules, AssignmentFromAViewOnItself)
{
    VECTOR_RULES_TYPES;
    V v = make({1, 2, 3, 4, 5});
    V const view(3, &v[1]);
    v = view;
    EXPECT_TRUE(Holds(v, {2, 3, 4}));
}

TYPED_TEST_P(VectorRules, ReSize)
{
    VECTOR_RULES_TYPES;
    // Own storage of that size is kept, with or without a pointer.
    V v = make({1, 2});
    N* const block = &v[0];
    N array[3] = {7, 8, 9};
    v.ReSize(2);
    v.ReSize(2, array);
    EXPECT_EQ(&v[0], block);
    EXPECT_TRUE(Holds(v, {1, 2}));
    v.ReSize(2, N(5), array);
    EXPECT_TRUE(Holds(v, {5, 5}));
    EXPECT_EQ(array[0], N(7));

    // With another size it becomes a view.
    v.ReSize(3, array);
    EXPECT_EQ(&v[0], array);
    EXPECT_TRUE(Holds(v, {7, 8, 9}));
    // A view may move, also with the same size, and shrink on its array.
    N other[3] = {4, 5, 6};
    v.ReSize(3, other);
    EXPECT_EQ(&v[0], other);
    v.ReSize(2, array);
    EXPECT_TRUE(Holds(v, {7, 8}));
    // The fill value of a view is written to the caller's array.
    v.ReSize(2, N(1), other);
    EXPECT_EQ(other[0], N(1));
    EXPECT_EQ(other[1], N(1));
    EXPECT_EQ(other[2], N(6));
    // Without a pointer a view gets own storage, also with the same size.
    v.ReSize(2);
    EXPECT_NE(&v[0], other);
    v.SetValue(N(3));
    EXPECT_EQ(other[0], N(1));
    v.ReSize(4, N(2));
    EXPECT_TRUE(Holds(v, {2, 2, 2, 2}));
    EXPECT_EQ(array[0], N(7));
}

// ---- Access ----------------------------------------------------------------------------------------

TYPED_TEST_P(VectorRules, IndexOperatorsAreOne)
{
    VECTOR_RULES_TYPES;
    V v = make({1, 2, 3});
    V const& c = v;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(&v[i], &v[0] + i);
        EXPECT_EQ(&v(i), &v[i]);
        EXPECT_EQ(&c[i], &v[i]);
        EXPECT_EQ(&c(i), &v[i]);
    }
    static_assert(std::is_same_v<decltype(v[0]), N&> && std::is_same_v<decltype(c(0)), N const&>);
}

TYPED_TEST_P(VectorRules, SetValueAndGetValue)
{
    VECTOR_RULES_TYPES;
    V v(3);
    EXPECT_EQ(&v.SetValue(N(4)), &v);
    EXPECT_TRUE(Holds(v, {4, 4, 4}));
    N const values[4] = {1, 2, 3, 4};
    EXPECT_EQ(&v.SetValue(values), &v);
    EXPECT_TRUE(Holds(v, {1, 2, 3}));
    N out[4] = {0, 0, 0, 9};
    v.GetValue(out);
    EXPECT_EQ(out[0], N(1));
    EXPECT_EQ(out[2], N(3));
    EXPECT_EQ(out[3], N(9));
}

// ---- Comparison and arithmetic ---------------------------------------------------------------------

TYPED_TEST_P(VectorRules, ExactEquality)
{
    VECTOR_RULES_TYPES;
    V const v = make({1, 0});
    EXPECT_EQ(v == make({1, -N(0)}), 1);
    EXPECT_EQ(v != make({1, -N(0)}), 0);
    for (V const& other : {make({TestFixture::Above(1), 0}), make({1, TestFixture::Above(0)}), make({1}),
                           make({1, 0, 0}), make({1, nan})}) {
        EXPECT_EQ(v == other, 0);
        EXPECT_EQ(v != other, 1);
    }
    V const withNan = make({nan});
    EXPECT_EQ(withNan == withNan, 0);
    EXPECT_EQ(withNan != withNan, 1);
}

TYPED_TEST_P(VectorRules, CompoundArithmetic)
{
    VECTOR_RULES_TYPES;
    V v = make({1, -2, 3});
    EXPECT_EQ(&(v *= N(2)), &v);
    EXPECT_TRUE(Holds(v, {2, -4, 6}));
    EXPECT_EQ(&(v += make({1, 1, -1})), &v);
    EXPECT_TRUE(Holds(v, {3, -3, 5}));
    EXPECT_EQ(&(v -= make({1, 2, 5})), &v);
    EXPECT_TRUE(Holds(v, {2, -5, 0}));
    EXPECT_EQ(&v.Negate(), &v);
    EXPECT_TRUE(Holds(v, {-2, 5, -N(0)}));
    EXPECT_EQ(&(v /= N(2)), &v);
    EXPECT_TRUE(Holds(v, {-1, N(2.5), -N(0)}));
}

TYPED_TEST_P(VectorRules, DivisionDividesEachElement)
{
    VECTOR_RULES_TYPES;
    // For at least one of 5/3, 7/3 and 11/3, multiplying by the rounded reciprocal of 3 gives another result.
    N const three = vexor_test::Opaque(N(3));
    N const reciprocal = N(1) / three;
    bool differs = false;
    V v(40);
    for (int i = 0; i < 40; ++i) {
        v[i] = N(i);
        differs = differs || N(i) / three != N(i) * reciprocal;
    }
    ASSERT_TRUE(differs);
    V const quotient = v / three;
    V compound(v);
    compound /= three;
    for (int i = 0; i < 40; ++i) {
        EXPECT_SAME_BITS(quotient[i], N(i) / three);
        EXPECT_SAME_BITS(compound[i], N(i) / three);
    }
    EXPECT_TRUE(Holds(make({1, 0, -1}) / N(0), {infinity, nan, -infinity}));
    V byZero = make({1, 0, -1});
    byZero /= -N(0);
    EXPECT_TRUE(Holds(byZero, {-infinity, nan, infinity}));
}

TYPED_TEST_P(VectorRules, ArithmeticWithItself)
{
    VECTOR_RULES_TYPES;
    V v = make({3, 6});
    V const& same = v;
    v += same;
    EXPECT_TRUE(Holds(v, {6, 12}));
    v /= v[0];
    EXPECT_TRUE(Holds(v, {1, 2}));
    v *= v[1];
    EXPECT_TRUE(Holds(v, {2, 4}));
    v -= same;
    EXPECT_TRUE(Holds(v, {0, 0}));
    V const view(2, &v[0]);
    v = make({1, 2});
    v += V(2, &v[0]);
    EXPECT_TRUE(Holds(v, {2, 4}));
    v = v + v;
    EXPECT_TRUE(Holds(v, {4, 8}));
}

TYPED_TEST_P(VectorRules, NegatedCopyAndFreeOperators)
{
    VECTOR_RULES_TYPES;
    V const v = make({1, 0});
    EXPECT_TRUE(Holds(v.GetNegatedCopy(), {-1, -N(0)}));
    EXPECT_TRUE(Holds(-v, {-1, -N(0)}));
    EXPECT_TRUE(Holds(v * N(3), {3, 0}));
    EXPECT_TRUE(Holds(N(-3) * v, {-3, -N(0)}));
    EXPECT_TRUE(Holds(v + make({2, 5}), {3, 5}));
    EXPECT_TRUE(Holds(v - make({2, 5}), {-1, -5}));
    EXPECT_TRUE(Holds(v, {1, 0}));

    // The result has its own storage, also if an operand is a view.
    N array[2] = {1, 2};
    V const view(2, array);
    for (V const& result : {-view, view + view, view - view, view * N(1), N(1) * view, view / N(1),
                            view.GetNegatedCopy(), view.ElemMult(view), view.ElemDiv(view)})
        EXPECT_NE(&result[0], array);
}

TYPED_TEST_P(VectorRules, DifferentSizesAreRefusedBeforeAnythingChanges)
{
    VECTOR_RULES_TYPES;
    for (bool longer : {false, true}) {
        V a = longer ? make({1, 2, 3}) : make({1});
        V const before(a);
        V const b = make({4, 5});
        TestFixture::ForEachSizeChecked(a, b, [&](auto operation) {
            EXPECT_THROW(operation(), VexorDimensionMismatch);
            EXPECT_TRUE(a == before);
        });
        EXPECT_TRUE(Holds(b, {4, 5}));
    }
    // Each operation checks the sizes before it checks for a null vector.
    V null = make({0});
    V const b = make({0, 0});
    TestFixture::ForEachSizeChecked(
        null, b, [](auto operation) { EXPECT_THROW(operation(), VexorDimensionMismatch); });
}

// ---- Products, length ------------------------------------------------------------------------------

TYPED_TEST_P(VectorRules, LengthAndDot)
{
    VECTOR_RULES_TYPES;
    V const v = make({3, 0, -4});
    EXPECT_SAME_BITS(v.LengthSquared(), N(25));
    EXPECT_SAME_BITS(v.Length(), N(5));
    EXPECT_SAME_BITS(v.Dot(make({1, 100, 2})), N(-5));
    // Of a longer operand only the first elements are read, as many as this vector has.
    EXPECT_SAME_BITS(v.Dot(make({1, 100, 2, nan})), N(-5));
    // The sum starts from 0, so a sum of zeros is never −0.
    EXPECT_SAME_BITS(make({-N(0)}).Dot(make({1})), N(0));
    EXPECT_SAME_BITS(make({-N(0)}).LengthSquared(), N(0));
    EXPECT_SAME_BITS(make({1, nan}).Length(), nan);
    EXPECT_SAME_BITS(make({-infinity, 1}).Length(), infinity);
}

TYPED_TEST_P(VectorRules, NormalizeRaisesForTheExactlyNullVectorAlone)
{
    VECTOR_RULES_TYPES;
    V null = make({0, -N(0)});
    EXPECT_THROW(null.Normalize(), VexorNullVector);
    EXPECT_THROW(null.GetNormalizedCopy(), VexorNullVector);
    EXPECT_TRUE(Holds(null, {0, -N(0)}));

    V v = make({0, -4, 3});
    EXPECT_TRUE(Holds(v.GetNormalizedCopy(), {0, N(-4) / N(5), N(3) / N(5)}));
    EXPECT_TRUE(Holds(v, {0, -4, 3}));
    EXPECT_EQ(&v.Normalize(), &v);
    EXPECT_TRUE(Holds(v, {0, N(-4) / N(5), N(3) / N(5)}));

    // No tolerance is used: this is far below the global one.
    N const tiny = N(1) / N(1 << 30);
    V small = make({tiny, 0});
    EXPECT_EQ(small.IsZeroLength(), 1);
    small.Normalize();
    EXPECT_TRUE(Holds(small, {1, 0}));

    EXPECT_TRUE(Holds(make({nan, 0}).Normalize(), {nan, nan}));
    EXPECT_TRUE(Holds(make({infinity, 1}).Normalize(), {nan, 0}));
}

TYPED_TEST_P(VectorRules, ElementwiseProductAndQuotient)
{
    VECTOR_RULES_TYPES;
    V const v = make({1, -2, 0});
    EXPECT_TRUE(Holds(v.ElemMult(make({5, 7, -1})), {5, -14, -N(0)}));
    EXPECT_TRUE(Holds(v.ElemDiv(make({4, 0, 0})), {N(0.25), -infinity, nan}));
    EXPECT_TRUE(Holds(v.ElemMult(v), {1, 4, 0}));
}

// ---- Projection, angle, area -----------------------------------------------------------------------

TYPED_TEST_P(VectorRules, GetProjectionOnTo)
{
    VECTOR_RULES_TYPES;
    V const v = make({3, 4, 5});
    EXPECT_TRUE(Holds(v.GetProjectionOnTo(make({0, -2, 0})), {-N(0) * 1, 4, N(0) * -4}));
    EXPECT_THROW(v.GetProjectionOnTo(make({0, 0, -N(0)})), VexorNullVector);
    EXPECT_TRUE(Holds(make({0, 0}).GetProjectionOnTo(make({1, 0})), {0, 0}));
}

TYPED_TEST_P(VectorRules, GetAngleWith)
{
    VECTOR_RULES_TYPES;
    N const halfPi = N(1.5707963267948966);
    N const pi = N(3.141592653589793);
    EXPECT_SAME_BITS(make({1, 0}).GetAngleWith(make({0, 3})), halfPi);
    EXPECT_SAME_BITS(make({1, 0}).GetAngleWith(make({2, 0})), N(0));
    EXPECT_SAME_BITS(make({1, 0}).GetAngleWith(make({-2, 0})), pi);
    EXPECT_SAME_BITS(make({0, 0}).GetAngleWith(make({1, 0})), N(0));
    EXPECT_SAME_BITS(make({1, 0}).GetAngleWith(make({0, -N(0)})), N(0));
    EXPECT_SAME_BITS(make({0, 0}).GetAngleWith(make({nan, 0})), N(0));
    EXPECT_SAME_BITS(make({1, 0}).GetAngleWith(make({nan, 0})), nan);

    // A vector with itself: rounding may give a cosine above 1. From 1 on the angle is exactly 0, and with
    // the opposite vector it is π. Some of these vectors have such cosines.
    bool aboveOne = false;
    for (int i = 1; i < 200; ++i) {
        V const v = make({N(i), N(1), N(7) / N(i)});
        double const cosine = (double(v.Dot(v)) / double(v.Length())) / double(v.Length());
        aboveOne = aboveOne || cosine > 1.0;
        if (cosine >= 1.0) {
            EXPECT_SAME_BITS(v.GetAngleWith(v), N(0));
            EXPECT_SAME_BITS(v.GetAngleWith(-v), pi);
        }
    }
    EXPECT_TRUE(aboveOne);
}

TYPED_TEST_P(VectorRules, GetAreaFormedByTriangleWith)
{
    VECTOR_RULES_TYPES;
    EXPECT_SAME_BITS(make({3, 0}).GetAreaFormedByTriangleWith(make({5, 4})), N(6));
    EXPECT_SAME_BITS(make({3, 0}).GetAreaFormedByTriangleWith(make({-7, 0})), N(0));
    EXPECT_SAME_BITS(make({0, 0}).GetAreaFormedByTriangleWith(make({5, 4})), N(0));
    EXPECT_SAME_BITS(make({3, 0, 0, 0}).GetAreaFormedByTriangleWith(make({0, 0, 0, 2})), N(3));
    EXPECT_SAME_BITS(make({nan, 0}).GetAreaFormedByTriangleWith(make({5, 4})), nan);
}

// ---- Extremes --------------------------------------------------------------------------------------

TYPED_TEST_P(VectorRules, ExtremesTakeTheFirstOfEquals)
{
    VECTOR_RULES_TYPES;
    V const v = make({1, 3, -3, 3, -3, 1});
    EXPECT_EQ(v.MaxValue(), N(3));
    EXPECT_EQ(v.MaxValueIdx(), 1);
    EXPECT_EQ(v.MinValue(), N(-3));
    EXPECT_EQ(v.MinValueIdx(), 2);
    EXPECT_EQ(v.MaxAbsValue(), N(3));
    EXPECT_EQ(v.MaxAbsValueIdx(), 1);
    EXPECT_EQ(v.MinAbsValue(), N(1));
    EXPECT_EQ(v.MinAbsValueIdx(), 0);
    EXPECT_EQ(make({1, 3, 3}).MaxValueIdx(), 1);
    EXPECT_EQ(make({-2, 2}).MinAbsValueIdx(), 0);
    EXPECT_EQ(make({-2, 2}).MaxAbsValueIdx(), 0);
    EXPECT_EQ(make({5, 4, 4}).MinValueIdx(), 1);
    EXPECT_EQ(make({0, -N(0)}).MaxValueIdx(), 0);
    EXPECT_EQ(make({0, -N(0)}).MinValueIdx(), 0);
    // A difference in the last place counts.
    EXPECT_EQ(make({1, 2, 9}).MaxValueIdx(), 2);
    EXPECT_EQ(make({9, 2, -9}).MinValueIdx(), 2);
}

TYPED_TEST_P(VectorRules, ExtremesStartFromBounds)
{
    VECTOR_RULES_TYPES;
    N const bound = N(1e20);
    for (N beyond : {bound, TestFixture::Above(bound), infinity, nan}) {
        V const high = make({beyond, beyond});
        V const low = make({-beyond, -beyond});
        EXPECT_SAME_BITS(low.MaxValue(), -bound);
        EXPECT_SAME_BITS(high.MinValue(), bound);
        EXPECT_SAME_BITS(high.MinAbsValue(), bound);
        EXPECT_SAME_BITS(low.MinAbsValue(), bound);
        // No element passes the bound; the index returned is one that every vector has.
        EXPECT_EQ(low.MaxValueIdx(), 0);
        EXPECT_EQ(high.MinValueIdx(), 0);
        EXPECT_EQ(high.MinAbsValueIdx(), 0);
    }
    V const nans = make({nan, nan});
    EXPECT_SAME_BITS(nans.MaxAbsValue(), -bound);
    EXPECT_EQ(nans.MaxAbsValueIdx(), 0);
    // A value one step within the bound is found.
    N const within = TestFixture::Below(bound);
    EXPECT_SAME_BITS(make({-bound, -within}).MaxValue(), -within);
    EXPECT_EQ(make({-bound, -within}).MaxValueIdx(), 1);
    EXPECT_SAME_BITS(make({bound, within}).MinValue(), within);
    EXPECT_EQ(make({bound, within}).MinValueIdx(), 1);
    EXPECT_EQ(make({bound, -within}).MinAbsValueIdx(), 1);
    // The greatest value above the other bound is an element.
    EXPECT_SAME_BITS(make({infinity}).MaxValue(), infinity);
    EXPECT_SAME_BITS(make({-infinity}).MinValue(), -infinity);
    EXPECT_SAME_BITS(make({-infinity}).MaxAbsValue(), infinity);
}

TYPED_TEST_P(VectorRules, ExtremesPassOverNan)
{
    VECTOR_RULES_TYPES;
    V const v = make({nan, 2, nan, 5, -7, nan});
    EXPECT_EQ(v.MaxValue(), N(5));
    EXPECT_EQ(v.MaxValueIdx(), 3);
    EXPECT_EQ(v.MinValueIdx(), 4);
    EXPECT_EQ(v.MaxAbsValueIdx(), 4);
    EXPECT_EQ(v.MinAbsValueIdx(), 1);
}

TYPED_TEST_P(VectorRules, MagnitudeOfZeroIsNegativeZero)
{
    VECTOR_RULES_TYPES;
    EXPECT_SAME_BITS(make({0, 0}).MaxAbsValue(), -N(0));
    EXPECT_SAME_BITS(make({0, 3}).MinAbsValue(), -N(0));
    // By the same rule a −0 becomes +0.
    EXPECT_SAME_BITS(make({-N(0)}).MaxAbsValue(), N(0));
}

// ---- Predicates ------------------------------------------------------------------------------------

TYPED_TEST_P(VectorRules, IsNull)
{
    VECTOR_RULES_TYPES;
    EXPECT_EQ(make({0, -N(0), 0}).IsNull(), 1);
    EXPECT_EQ(make({0, 0, TestFixture::Above(0)}).IsNull(), 0);
    EXPECT_EQ(make({nan}).IsNull(), 0);
}

TYPED_TEST_P(VectorRules, IsZeroLength)
{
    VECTOR_RULES_TYPES;
    V const v = make({3, 4});
    EXPECT_EQ(v.IsZeroLength(N(25)), 1);
    EXPECT_EQ(v.IsZeroLength(TestFixture::Below(25)), 0);
    EXPECT_EQ(make({0, 0}).IsZeroLength(N(0)), 1);
    EXPECT_EQ(make({0, 0}).IsZeroLength(nan), 0);
    EXPECT_EQ(make({0, nan}).IsZeroLength(infinity), 0);

    // The global's squared length is 0x1.b7cdfcp-34: 0.9e-5 is within, 1e-5 is not. 0 and −0 do not select
    // it; every negative number does.
    for (N selects : {N(-1), -std::numeric_limits<N>::denorm_min()}) {
        EXPECT_EQ(make({N(0.9e-5), 0}).IsZeroLength(selects), 1);
        EXPECT_EQ(make({N(1.1e-5), 0}).IsZeroLength(selects), 0);
    }
    EXPECT_EQ(make({N(0.9e-5), 0}).IsZeroLength(), 1);
    EXPECT_EQ(make({N(0.9e-5), 0}).IsZeroLength(N(0)), 0);
    EXPECT_EQ(make({N(0.9e-5), 0}).IsZeroLength(-N(0)), 0);
}

TYPED_TEST_P(VectorRules, DirectionPredicates)
{
    VECTOR_RULES_TYPES;
    struct {
        std::initializer_list<N> a, b;
        int parallel, codirectional, perpendicular;
    } const cases[] = {
        {{1, 0, 0}, {-2, 0, 0}, 1, 0, 0},  {{1, 0, 0}, {2, 0, 0}, 1, 1, 0},
        {{1, 0, 0}, {0, 0, 3}, 0, 0, 1},   {{1, 0, 0}, {1, 1, 0}, 0, 0, 0},
        {{0, 0, 0}, {1, 0, 0}, 0, 0, 0},   {{1, 0, 0}, {0, 0, 0}, 0, 0, 0},
        {{0, 0, 0}, {0, 0, 0}, 0, 0, 0},   {{1, 0, 0}, {0, N(1e-6), 0}, 0, 0, 0},
        {{nan, 0, 0}, {1, 0, 0}, 0, 0, 0}, {{1, 0, 0}, {nan, 0, 0}, 0, 0, 0},
    };
    for (auto const& c : cases) {
        V const a = make(c.a);
        V const b = make(c.b);
        EXPECT_EQ(a.IsParallelTo(b), c.parallel);
        EXPECT_EQ(b.IsParallelTo(a, N(-1), N(-1)), c.parallel);
        EXPECT_EQ(a.IsCodirectionalTo(b), c.codirectional);
        EXPECT_EQ(b.IsCodirectionalTo(a, N(-1), N(-1)), c.codirectional);
        EXPECT_EQ(a.IsPerpendicularTo(b), c.perpendicular);
        EXPECT_EQ(b.IsPerpendicularTo(a, N(-1), N(-1)), c.perpendicular);
    }
}

TYPED_TEST_P(VectorRules, DirectionPredicatesCompareTheSineSquaredInclusively)
{
    VECTOR_RULES_TYPES;
    // (1, 0) and (1, 1): Q = ((1·1) / 1) / 2 = 1/2 exactly.
    V const a = make({1, 0});
    V const b = make({1, 1});
    N const half = N(0.5);
    N const less = TestFixture::Below(half);
    EXPECT_EQ(a.IsParallelTo(b, half), 1);
    EXPECT_EQ(a.IsParallelTo(b, less), 0);
    EXPECT_EQ(a.IsParallelTo(b, nan), 0);
    EXPECT_EQ(a.IsCodirectionalTo(b, half), 1);
    EXPECT_EQ(a.IsCodirectionalTo(b, less), 0);
    EXPECT_EQ(a.IsCodirectionalTo(-b, half), 0);
    EXPECT_EQ(a.IsParallelTo(-b, half), 1);
    EXPECT_EQ(a.IsPerpendicularTo(b, half), 1);
    EXPECT_EQ(a.IsPerpendicularTo(b, less), 0);
    EXPECT_EQ(a.IsPerpendicularTo(b, nan), 0);
    // A right angle is not codirectional for any tolerance: d must be above 0.
    EXPECT_EQ(a.IsCodirectionalTo(make({0, 1}), N(1)), 0);
    EXPECT_EQ(a.IsParallelTo(make({0, 1}), N(1)), 1);
    // 0 is the exact test.
    EXPECT_EQ(a.IsParallelTo(make({4, 0}), N(0)), 1);
    EXPECT_EQ(a.IsPerpendicularTo(make({0, 4}), N(0)), 1);
}

TYPED_TEST_P(VectorRules, DirectionPredicatesRefuseShortVectorsInclusively)
{
    VECTOR_RULES_TYPES;
    V const a = make({3, 4});
    V const b = make({30, 40});
    for (auto predicate : {&V::IsParallelTo, &V::IsCodirectionalTo}) {
        EXPECT_EQ((a.*predicate)(b, N(-1), N(25)), 0);
        EXPECT_EQ((b.*predicate)(a, N(-1), N(25)), 0);
        EXPECT_EQ((a.*predicate)(b, N(-1), TestFixture::Below(25)), 1);
        EXPECT_EQ((b.*predicate)(a, N(-1), TestFixture::Below(25)), 1);
        EXPECT_EQ((a.*predicate)(b, N(-1), nan), 1); // no length is within NaN
    }
    V const c = make({-4, 3});
    EXPECT_EQ(a.IsPerpendicularTo(10 * c, N(-1), N(25)), 0);
    EXPECT_EQ((10 * c).IsPerpendicularTo(a, N(-1), N(25)), 0);
    EXPECT_EQ(a.IsPerpendicularTo(10 * c, N(-1), TestFixture::Below(25)), 1);
}

TYPED_TEST_P(VectorRules, UnitPredicates)
{
    VECTOR_RULES_TYPES;
    V const a = make({1, 0});
    EXPECT_EQ(a.IsUnitParallelTo(-a), 1);
    EXPECT_EQ(a.IsUnitCodirectionalTo(a), 1);
    EXPECT_EQ(a.IsUnitCodirectionalTo(-a), 0);
    EXPECT_EQ(a.IsUnitPerpendicularTo(make({0, 1})), 1);
    EXPECT_EQ(a.IsUnitPerpendicularTo(a), 0);
    // The caller guarantees unit length: d = 4 is far from 1, on either side.
    V const twice = make({2, 0});
    EXPECT_EQ(twice.IsUnitParallelTo(twice), 0);
    EXPECT_EQ(twice.IsParallelTo(twice), 1);
    EXPECT_EQ(twice.IsUnitParallelTo(twice, N(15)), 1);
    EXPECT_EQ(twice.IsUnitParallelTo(twice, TestFixture::Below(15)), 0);
    EXPECT_EQ(twice.IsUnitCodirectionalTo(twice, N(15)), 1);
    EXPECT_EQ(twice.IsUnitCodirectionalTo(twice, TestFixture::Below(15)), 0);
    // d = 1/2: 1 − d² = 3/4, d² = 1/4.
    V const b = make({N(0.5), 1});
    EXPECT_EQ(a.IsUnitParallelTo(b, N(0.75)), 1);
    EXPECT_EQ(a.IsUnitParallelTo(b, TestFixture::Below(N(0.75))), 0);
    EXPECT_EQ(a.IsUnitCodirectionalTo(b, N(0.75)), 1);
    EXPECT_EQ(a.IsUnitCodirectionalTo(b, TestFixture::Below(N(0.75))), 0);
    EXPECT_EQ(a.IsUnitPerpendicularTo(b, N(0.25)), 1);
    EXPECT_EQ(a.IsUnitPerpendicularTo(b, TestFixture::Below(N(0.25))), 0);
    // There is no length test: a null vector is perpendicular, and a right angle within 1 is parallel.
    EXPECT_EQ(a.IsUnitPerpendicularTo(make({0, 0})), 1);
    EXPECT_EQ(a.IsUnitParallelTo(make({0, 0}), N(1)), 1);
    EXPECT_EQ(a.IsUnitCodirectionalTo(make({0, 0}), N(1)), 0);
    for (auto predicate : {&V::IsUnitParallelTo, &V::IsUnitCodirectionalTo, &V::IsUnitPerpendicularTo}) {
        EXPECT_EQ((a.*predicate)(make({nan, 0}), N(-1)), 0);
        EXPECT_EQ((a.*predicate)(a, nan), 0);
    }
}

TYPED_TEST_P(VectorRules, IsEqualTo)
{
    VECTOR_RULES_TYPES;
    EXPECT_EQ(make({0, 0}).IsEqualTo(make({0, -N(0)})), 1);
    EXPECT_EQ(make({0, 0}).IsEqualTo(make({1, 0}), N(1), N(100)), 0);
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({0, 0}), N(1), N(100)), 0);
    // Not null but within the global's length: equal to nothing, for any length argument.
    V const tiny = make({N(1e-6), 0});
    EXPECT_EQ(tiny.IsEqualTo(tiny), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, N(-1), N(1)), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, N(-1), N(0)), 0);
    // Close enough, but the angle fails; then the reverse.
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({1, N(1e-3)}), N(-1), N(1)), 0);
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({N(1.000001), 0})), 1);
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({2, 0})), 0);
    // The comparison of the squared distance, 1, is inclusive.
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({2, 0}), N(-1), N(1)), 1);
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({2, 0}), N(-1), TestFixture::Below(1)), 0);
    // The angle is passed on: (1, 0) and (1, 1) are within 1/2, at a squared distance of 1.
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({1, 1}), N(0.5), N(1)), 1);
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({1, 1}), TestFixture::Below(N(0.5)), N(1)), 0);
    EXPECT_EQ(make({1, 0}).IsEqualTo(make({-1, 0}), N(1), N(100)), 0);
    V const v = make({1, 2, 3});
    EXPECT_EQ(v.IsEqualTo(v), 1);
    EXPECT_EQ(v.IsEqualTo(v, N(-1), nan), 0);
    EXPECT_EQ(make({nan, 1}).IsEqualTo(make({nan, 1})), 0);
}

TYPED_TEST_P(VectorRules, PredicatesReadTheGlobalAtEachCall)
{
    VECTOR_RULES_TYPES;
    struct Restore {
        VexorTolerance saved = gVexorTolerance;
        ~Restore() { gVexorTolerance = saved; }
    } const restore;
    V const a = make({1, 0});
    V const b = make({1, N(0.01)});
    EXPECT_EQ(a.IsParallelTo(b), 0);
    gVexorTolerance.SetAngle(0.1);
    EXPECT_EQ(a.IsParallelTo(b), 1);
    EXPECT_EQ(a.IsEqualTo(b), 0);
    gVexorTolerance.SetLength(0.1);
    EXPECT_EQ(a.IsEqualTo(b), 1);
    gVexorTolerance.SetLength(2.0);
    EXPECT_EQ(a.IsParallelTo(b), 0);
    EXPECT_EQ(a.IsZeroLength(), 1);
}

TYPED_TEST_P(VectorRules, PredicatesAllocateNothing)
{
    VECTOR_RULES_TYPES;
    V const a = make({1, 2, 3});
    V const b = make({1, 2, 4});
    int sum = 0;
    EXPECT_EQ(vexor_test::CountRequests([&] {
                  sum += a == b;
                  sum += a != b;
                  sum += a.IsNull();
                  sum += a.IsZeroLength();
                  sum += a.IsParallelTo(b);
                  sum += a.IsCodirectionalTo(b);
                  sum += a.IsPerpendicularTo(b);
                  sum += a.IsUnitParallelTo(b);
                  sum += a.IsUnitCodirectionalTo(b);
                  sum += a.IsUnitPerpendicularTo(b);
                  sum += a.IsEqualTo(a) + a.IsEqualTo(b, N(1), N(1));
                  sum += int(a.GetAngleWith(b) + a.GetAreaFormedByTriangleWith(b));
                  sum += a.MaxValueIdx() + a.MinAbsValueIdx();
              }),
              0);
    EXPECT_GT(sum, 0);
}

REGISTER_TYPED_TEST_SUITE_P(
    VectorRules, DefaultConstructorGivesOneElement, SizeConstructorOwnsOrViews, FillConstructorWritesThrough,
    SizeBelowOneIsAnAllocationFailure, CopyOwnsItsElements, Assignment, AssignmentToItself,
    AssignmentFromAViewOnItself, ReSize, IndexOperatorsAreOne, SetValueAndGetValue, ExactEquality,
    CompoundArithmetic, DivisionDividesEachElement, ArithmeticWithItself, NegatedCopyAndFreeOperators,
    DifferentSizesAreRefusedBeforeAnythingChanges, LengthAndDot, NormalizeRaisesForTheExactlyNullVectorAlone,
    ElementwiseProductAndQuotient, GetProjectionOnTo, GetAngleWith, GetAreaFormedByTriangleWith,
    ExtremesTakeTheFirstOfEquals, ExtremesStartFromBounds, ExtremesPassOverNan, MagnitudeOfZeroIsNegativeZero,
    IsNull, IsZeroLength, DirectionPredicates, DirectionPredicatesCompareTheSineSquaredInclusively,
    DirectionPredicatesRefuseShortVectorsInclusively, UnitPredicates, IsEqualTo,
    PredicatesReadTheGlobalAtEachCall, PredicatesAllocateNothing);
