#pragma once
#include "Bits.h"
#include "Fixtures.h"

#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

// The rules that the vectors and points of two and three components share, single and double. Each folder
// instantiates them for its classes. Differences between classes are tested in the file of each class.

namespace vexor_test {

template <class Class, class = void>
constexpr bool isPoint = false;
template <class Class>
constexpr bool isPoint<Class, std::void_t<decltype(std::declval<Class const&>().Vector())>> = true;

template <class Object, class Number, class = void>
constexpr bool givesTwo = false;
template <class Object, class Number>
constexpr bool givesTwo<Object, Number,
                        std::void_t<decltype(std::declval<Object>().GetValue(
                            std::declval<Number&>(), std::declval<Number&>()))>> = true;

template <class Object, class Number, class = void>
constexpr bool givesThree = false;
template <class Object, class Number>
constexpr bool givesThree<Object, Number,
                          std::void_t<decltype(std::declval<Object>().GetValue(
                              std::declval<Number&>(), std::declval<Number&>(), std::declval<Number&>()))>> =
    true;

} // namespace vexor_test

template <class Class>
class ComponentRules : public testing::Test {
public:
    using Number = decltype(Class::x);
    using Triple = std::array<Number, 3>;
    static constexpr std::size_t count = sizeof(Class) / sizeof(Number);
    static constexpr Number notANumber = std::numeric_limits<Number>::quiet_NaN();
    static constexpr Number infinite = std::numeric_limits<Number>::infinity();
    static constexpr bool isDouble = std::is_same_v<Number, double>;
    /// A number whose square is a tie between two numbers, and the even one of them.
    static constexpr Number nearOne = isDouble ? Number(1 + 0x1p-27) : Number(1 + 0x1p-12);
    static constexpr Number itsSquare = isDouble ? Number(1 + 0x1p-26) : Number(1 + 0x1p-11);

    /// The first two numbers, or all three.
    static Class Make(Triple const& numbers)
    {
        if constexpr (count == 3)
            return Class(numbers[0], numbers[1], numbers[2]);
        else
            return Class(numbers[0], numbers[1]);
    }

    static void ExpectBits(Class const& actual, Triple const& expected)
    {
        EXPECT_SAME_BITS(actual.x, expected[0]);
        EXPECT_SAME_BITS(actual.y, expected[1]);
        if constexpr (count == 3) {
            EXPECT_SAME_BITS(actual.z, expected[2]);
        }
    }

    /// Rotated, so that each number is once in each component, also with two components.
    static Triple Turned(Triple const& numbers, std::size_t turn)
    {
        return {numbers[turn], numbers[(turn + 1) % 3], numbers[(turn + 2) % 3]};
    }

    /// The operation turns the first numbers into the second ones, in each component.
    template <class Operation>
    static void ExpectEach(Triple const& from, Triple const& to, Operation operation)
    {
        for (std::size_t turn = 0; turn < 3; ++turn)
            ExpectBits(operation(Make(Turned(from, turn))), Turned(to, turn));
    }

    /// The same for two operands.
    template <class Operation>
    static void ExpectEach(Triple const& left, Triple const& right, Triple const& to, Operation operation)
    {
        for (std::size_t turn = 0; turn < 3; ++turn)
            ExpectBits(operation(Make(Turned(left, turn)), Make(Turned(right, turn))), Turned(to, turn));
    }

    /// 7/3, 20/3 and 17/3, rounded. For each, the product with the rounded 1/3 is the neighbour given below.
    static constexpr Triple quotients =
        isDouble
            ? Triple{Number(0x1.2aaaaaaaaaaabp+1), Number(0x1.aaaaaaaaaaaabp+2), Number(0x1.6aaaaaaaaaaabp+2)}
            : Triple{Number(0x1.2aaaaap+1f), Number(0x1.aaaaaap+2f), Number(0x1.6aaaaap+2f)};
    static constexpr Triple products =
        isDouble
            ? Triple{Number(0x1.2aaaaaaaaaaaap+1), Number(0x1.aaaaaaaaaaaaap+2), Number(0x1.6aaaaaaaaaaaap+2)}
            : Triple{Number(0x1.2aaaacp+1f), Number(0x1.aaaaacp+2f), Number(0x1.6aaaacp+2f)};
};

TYPED_TEST_SUITE_P(ComponentRules);

#define COMPONENT_RULES_TYPES                                                                                \
    using F [[maybe_unused]] = TestFixture;                                                                  \
    using C [[maybe_unused]] = TypeParam;                                                                    \
    using N [[maybe_unused]] = typename F::Number;                                                           \
    using Three [[maybe_unused]] = typename F::Triple;                                                       \
    [[maybe_unused]] constexpr N nan = F::notANumber;                                                        \
    [[maybe_unused]] constexpr N infinity = F::infinite;                                                     \
    [[maybe_unused]] constexpr int size = static_cast<int>(F::count);                                        \
    using vexor_test::Above;                                                                                 \
    using vexor_test::Below;                                                                                 \
    using vexor_test::Opaque

// ---- Construction ----------------------------------------------------------------------------------

TYPED_TEST_P(ComponentRules, Layout)
{
    COMPONENT_RULES_TYPES;
    static_assert(F::count == 2 || F::count == 3, "nothing but its components");
    static_assert(std::is_standard_layout_v<C> && std::is_trivially_copyable_v<C>, "");
    C const object = F::Make({1, 2, 3});
    N const* const first = &object.x;
    EXPECT_EQ(static_cast<void const*>(first), static_cast<void const*>(&object));
    EXPECT_EQ(&object.y, first + 1);
    if constexpr (F::count == 3) {
        EXPECT_EQ(&object.z, first + 2);
    }
}

TYPED_TEST_P(ComponentRules, DefaultConstructor)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build fills the components";
#else
    EXPECT_TRUE(vexor_test::DefaultConstructorWritesNothing<TypeParam>());
#endif
}

TYPED_TEST_P(ComponentRules, Constructors)
{
    COMPONENT_RULES_TYPES;
    F::ExpectBits(C(N(2.5)), {2.5, 2.5, 2.5});
    F::ExpectBits(C(N(-0.0)), {-0.0, -0.0, -0.0});
    F::ExpectBits(F::Make({1, -2, 3}), {1, -2, 3});
    N values[3] = {4, N(-0.0), 5};
    F::ExpectBits(C(values), {4, -0.0, 5});
    C const source = F::Make({7, nan, -infinity});
    C const copy(source);
    F::ExpectBits(copy, {7, nan, -infinity});
}

// ---- Assignment and access -------------------------------------------------------------------------

TYPED_TEST_P(ComponentRules, Assignment)
{
    COMPONENT_RULES_TYPES;
    C const source = F::Make({-0.0, nan, 1});
    C target(N(9));
    EXPECT_EQ(&(target = source), &target);
    F::ExpectBits(target, {-0.0, nan, 1});
    C const& same = target;
    target = same;
    F::ExpectBits(target, {-0.0, nan, 1});
}

TYPED_TEST_P(ComponentRules, SetValue)
{
    COMPONENT_RULES_TYPES;
    C object(N(9));
    EXPECT_EQ(&object.SetValue(N(-0.0)), &object);
    F::ExpectBits(object, {-0.0, -0.0, -0.0});
    N const values[3] = {4, 5, 6};
    EXPECT_EQ(&object.SetValue(values), &object);
    F::ExpectBits(object, {4, 5, 6});
    object.SetValue(&object.x);
    F::ExpectBits(object, {4, 5, 6});
    if constexpr (F::count == 3) {
        EXPECT_EQ(&object.SetValue(N(1), N(2), N(3)), &object);
        F::ExpectBits(object, {1, 2, 3});
        object.SetValue(object.z, object.y, object.x);
        F::ExpectBits(object, {3, 2, 1});
    } else {
        EXPECT_EQ(&object.SetValue(N(1), N(2)), &object);
        F::ExpectBits(object, {1, 2, 0});
        object.SetValue(object.y, object.x);
        F::ExpectBits(object, {2, 1, 0});
    }
}

// The form with references is const only in the vectors.
TYPED_TEST_P(ComponentRules, GetValue)
{
    COMPONENT_RULES_TYPES;
    C object = F::Make({-0.0, nan, 1});
    C const& constant = object;
    N values[4] = {9, 9, 9, 9};
    constant.GetValue(values);
    F::ExpectBits(C(values), {-0.0, nan, 1});
    EXPECT_EQ(values[F::count], N(9));
    N x = 9;
    N y = 9;
    if constexpr (F::count == 3) {
        static_assert(vexor_test::givesThree<C&, N>, "");
        static_assert(vexor_test::givesThree<C const&, N> != vexor_test::isPoint<C>, "");
        N z = 9;
        object.GetValue(x, y, z);
        F::ExpectBits(C(x, y, z), {-0.0, nan, 1});
        object = F::Make({1, 2, 3});
        object.GetValue(object.z, object.x,
                        object.y); // each reference gets the value that the object held before
        F::ExpectBits(object, {2, 3, 1});
    } else {
        static_assert(vexor_test::givesTwo<C&, N>, "");
        static_assert(vexor_test::givesTwo<C const&, N> != vexor_test::isPoint<C>, "");
        object.GetValue(x, y);
        F::ExpectBits(C(x, y), {-0.0, nan, 1});
        object = F::Make({1, 2, 3});
        object.GetValue(object.y, object.x);
        F::ExpectBits(object, {2, 1, 0});
    }
}

TYPED_TEST_P(ComponentRules, Index)
{
    COMPONENT_RULES_TYPES;
    C object = F::Make({1, 2, 3});
    C const& constant = object;
    EXPECT_EQ(&object[0], &object.x);
    EXPECT_EQ(&object[1], &object.y);
    if constexpr (F::count == 3) {
        EXPECT_EQ(&object[2], &object.z);
    }
    for (int i = 0; i < size; ++i) {
        EXPECT_EQ(&object(i), &object[i]);
        EXPECT_EQ(&constant[i], &object[i]);
        EXPECT_EQ(&constant(i), &object[i]);
    }
    object[Opaque(0)] = 7;
    object(Opaque(1)) = 8;
    F::ExpectBits(object, {7, 8, 3});
}

// ---- Arithmetic with a scalar ------------------------------------------------------------------------

TYPED_TEST_P(ComponentRules, MultiplyAssign)
{
    COMPONENT_RULES_TYPES;
    C object(N(2));
    EXPECT_EQ(&(object *= N(3)), &object);
    F::ExpectEach({1, -2, 0}, {-3, 6, -0.0}, [](C v) { return v *= N(-3); });
    F::ExpectEach({3, 5, 7}, {12, 20, 28}, [](C v) { return v *= N(4); });
    // The scalar is one of the components.
    C scaled = F::Make({-2, 3, 5});
    scaled *= scaled.x;
    F::ExpectBits(scaled, {4, -6, -10});
    scaled *= scaled.y;
    F::ExpectBits(scaled, {-24, 36, 60});
    F::ExpectEach({F::nearOne, 0, 1}, {F::itsSquare, 0, F::nearOne},
                  [](C v) { return v *= Opaque(F::nearOne); });
}

TYPED_TEST_P(ComponentRules, MultiplyByScalar)
{
    COMPONENT_RULES_TYPES;
    static_assert(std::is_same_v<decltype(C() * N(1)), C> && std::is_same_v<decltype(N(1) * C()), C>, "");
    F::ExpectEach({1, -2, 0}, {-3, 6, -0.0}, [](C const& v) { return v * N(-3); });
    F::ExpectEach({1, -2, 0}, {-3, 6, -0.0}, [](C const& v) { return N(-3) * v; });
    F::ExpectEach({3, 5, 7}, {12, 20, 28}, [](C const& v) { return v * N(4); });
    F::ExpectEach({3, 5, 7}, {12, 20, 28}, [](C const& v) { return N(4) * v; });
    F::ExpectEach({1, 0, infinity}, {infinity, nan, infinity}, [](C const& v) { return v * infinity; });
    F::ExpectEach({F::nearOne, 0, 1}, {F::itsSquare, 0, F::nearOne},
                  [](C const& v) { return v * Opaque(F::nearOne); });
}

TYPED_TEST_P(ComponentRules, DivideAssignTrulyDivides)
{
    COMPONENT_RULES_TYPES;
    C object(N(2));
    EXPECT_EQ(&(object /= N(3)), &object);
    F::ExpectEach({7, 20, 17}, F::quotients, [](C v) { return v /= Opaque(N(3)); });
    F::ExpectEach({0, 1, -1}, {nan, infinity, -infinity}, [](C v) { return v /= Opaque(N(0)); });
    // 1/s would overflow, but the quotient does not.
    N const tiny = F::isDouble ? N(0x1p-1050) : N(0x1p-140);
    F::ExpectEach({tiny, 0, -tiny}, {1, 0, -1}, [tiny](C v) { return v /= Opaque(tiny); });
    C self = F::Make({2, 4, 6});
    self /= self[0];
    F::ExpectBits(self, {1, 2, 3});
}

TYPED_TEST_P(ComponentRules, DivideByScalarMultipliesByTheReciprocal)
{
    COMPONENT_RULES_TYPES;
    F::ExpectEach({7, 20, 17}, F::products, [](C const& v) { return v / Opaque(N(3)); });
    F::ExpectEach({0, 1, -1}, {nan, infinity, -infinity}, [](C const& v) { return v / Opaque(N(0)); });
    // 1/s overflows, but the quotient would not.
    N const tiny = F::isDouble ? N(0x1p-1050) : N(0x1p-140);
    F::ExpectEach({tiny, 0, -tiny}, {infinity, nan, -infinity},
                  [tiny](C const& v) { return v / Opaque(tiny); });
}

// ---- Comparison ------------------------------------------------------------------------------------

TYPED_TEST_P(ComponentRules, EqualAndUnequal)
{
    COMPONENT_RULES_TYPES;
    C const same = F::Make({1, 2, 3});
    static_assert(std::is_same_v<decltype(same == same), int> && std::is_same_v<decltype(same != same), int>,
                  "");
    EXPECT_EQ(same == F::Make({1, 2, 3}), 1);
    EXPECT_EQ(same != F::Make({1, 2, 3}), 0);
    EXPECT_EQ(C(N(0)) == C(N(-0.0)), 1);
    EXPECT_EQ(C(N(0)) != C(N(-0.0)), 0);
    EXPECT_EQ(C(infinity) == C(infinity), 1);
    for (int i = 0; i < size; ++i) {
        for (N other : {Above(N(1)), Below(N(1)), nan, N(-1)}) {
            C const ones(N(1));
            C object(N(1));
            object[i] = other;
            EXPECT_EQ(object == ones, 0);
            EXPECT_EQ(ones == object, 0);
            EXPECT_EQ(object == object, other == other);
            EXPECT_EQ(object != ones, 1);
            EXPECT_EQ(ones != object, 1);
            EXPECT_EQ(object != object, other != other);
        }
    }
}

TYPED_TEST_P(ComponentRules, IsLessThanAndIsGreaterThanAreNotStrict)
{
    COMPONENT_RULES_TYPES;
    C const object = F::Make({1, 5, 3});
    static_assert(std::is_same_v<decltype(object.IsLessThan(object)), int>, "");
    EXPECT_EQ(object.IsLessThan(object), 1);
    EXPECT_EQ(object.IsGreaterThan(object), 1);
    // With one component less and another greater it is neither.
    for (int i = 0; i < size; ++i) {
        C other(object);
        other[i] -= N(0.5);
        other[(i + 1) % size] += N(0.5);
        EXPECT_EQ(object.IsLessThan(other), 0);
        EXPECT_EQ(object.IsGreaterThan(other), 0);
    }
    for (int i = 0; i < size; ++i) {
        C other(object);
        other[i] = Above(other[i]);
        EXPECT_EQ(object.IsLessThan(other), 1);
        EXPECT_EQ(other.IsLessThan(object), 0);
        EXPECT_EQ(object.IsGreaterThan(other), 0);
        EXPECT_EQ(other.IsGreaterThan(object), 1);
        other[i] = nan;
        EXPECT_EQ(object.IsLessThan(other) | other.IsLessThan(object) | object.IsGreaterThan(other)
                      | other.IsGreaterThan(object),
                  0);
    }
    // Zeros are equal, whatever their signs.
    EXPECT_EQ(C(N(0)).IsLessThan(C(N(-0.0))), 1);
    EXPECT_EQ(C(N(-0.0)).IsGreaterThan(C(N(0))), 1);
}

REGISTER_TYPED_TEST_SUITE_P(ComponentRules, Layout, DefaultConstructor, Constructors, Assignment, SetValue,
                            GetValue, Index, MultiplyAssign, MultiplyByScalar, DivideAssignTrulyDivides,
                            DivideByScalarMultipliesByTheReciprocal, EqualAndUnequal,
                            IsLessThanAndIsGreaterThanAreNotStrict);
