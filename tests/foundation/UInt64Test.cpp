#include <vexor/foundation/UInt64.h>

#include <support/Bits.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

constexpr __int64 most = std::numeric_limits<__int64>::max();
constexpr __int64 least = std::numeric_limits<__int64>::min();

TEST(UInt64, Layout)
{
    static_assert(sizeof(__int64) == 8 && std::is_signed_v<__int64>, "");
    static_assert(std::is_same_v<__int64, long long>, "");
    static_assert(sizeof(UInt64) == 8 && std::is_standard_layout_v<UInt64>, "");
    static_assert(std::is_trivially_copyable_v<UInt64>, "");
    static_assert(offsetof(UInt64, lowWord) == 0 && offsetof(UInt64, highWord) == 4, "");
    static_assert(std::is_same_v<decltype(UInt64::lowWord), std::uint32_t>, "");
}

// ---- Construction and assignment -----------------------------------------------------------------

TEST(UInt64, DefaultConstructorSetsZero)
{
    UInt64 const zero;
    EXPECT_EQ(zero.lowWord, 0u);
    EXPECT_EQ(zero.highWord, 0u);
    EXPECT_EQ(UInt64().int64(), 0);
}

TEST(UInt64, ConstructorSplitsTheWords)
{
    UInt64 const value(0x123456789ABCDEF0);
    EXPECT_EQ(value.lowWord, 0x9ABCDEF0u);
    EXPECT_EQ(value.highWord, 0x12345678u);
    UInt64 const minusTwo(-2);
    EXPECT_EQ(minusTwo.lowWord, 0xFFFFFFFEu);
    EXPECT_EQ(minusTwo.highWord, 0xFFFFFFFFu);
    for (__int64 each :
         {static_cast<__int64>(0), static_cast<__int64>(-1), static_cast<__int64>(0x80000000), most, least})
        EXPECT_EQ(UInt64(each).int64(), each);
}

TEST(UInt64, Assignment)
{
    UInt64 value;
    EXPECT_EQ(&(value = UInt64(0x100000002)), &value);
    EXPECT_EQ(value.lowWord, 2u);
    EXPECT_EQ(value.highWord, 1u);
    __int64 const number = -3;
    EXPECT_EQ(&(value = number), &value);
    EXPECT_EQ(value.int64(), -3);
    UInt64& same = value;
    value = same;
    EXPECT_EQ(value.int64(), -3);
}

// ---- Comparison ----------------------------------------------------------------------------------

TEST(UInt64, Equal)
{
    UInt64 value(0x100000002);
    static_assert(std::is_same_v<decltype(value == value), bool>, "");
    EXPECT_TRUE(value == UInt64(0x100000002));
    EXPECT_FALSE(value == UInt64(0x100000003));
    EXPECT_FALSE(value == UInt64(0x200000002));
}

TEST(UInt64, Unequal)
{
    UInt64 value(0x100000002);
    EXPECT_FALSE(value != UInt64(0x100000002));
    EXPECT_TRUE(value != UInt64(0x100000003));
    EXPECT_TRUE(value != UInt64(0x200000002));
}

TEST(UInt64, OrderIsSigned)
{
    UInt64 minusOne(-1);
    UInt64 zero;
    EXPECT_TRUE(minusOne <= zero);
    EXPECT_FALSE(minusOne >= zero);
    EXPECT_TRUE(zero >= minusOne);
    EXPECT_FALSE(zero <= minusOne);
    EXPECT_TRUE(zero <= UInt64(0));
    EXPECT_TRUE(zero >= UInt64(0));
    UInt64 lowest(least);
    EXPECT_TRUE(lowest <= UInt64(most));
    // The two words form one number: a greater low word does not outweigh the high one.
    UInt64 value(0x100000000);
    EXPECT_TRUE(value >= UInt64(0xFFFFFFFF));
    EXPECT_FALSE(value <= UInt64(0xFFFFFFFF));
}

template <class Left, class = void>
constexpr bool compares = false;
template <class Left>
constexpr bool compares<Left, std::void_t<decltype(std::declval<Left>() == std::declval<UInt64 const&>()),
                                          decltype(std::declval<Left>() != std::declval<UInt64 const&>()),
                                          decltype(std::declval<Left>() <= std::declval<UInt64 const&>()),
                                          decltype(std::declval<Left>() >= std::declval<UInt64 const&>())>> =
    true;

template <class Left, class = void>
constexpr bool comparesStrictly = false;
template <class Left>
constexpr bool
    comparesStrictly<Left, std::void_t<decltype(std::declval<Left>() < std::declval<UInt64 const&>())>> =
        true;

template <class Left, class = void>
constexpr bool dividesInPlace = false;
template <class Left>
constexpr bool
    dividesInPlace<Left, std::void_t<decltype(std::declval<Left>() /= std::declval<UInt64 const&>())>> = true;

TEST(UInt64, TheSetIsUneven)
{
    static_assert(compares<UInt64&>, "");
    static_assert(!compares<UInt64 const&>, "the comparisons are not const");
    static_assert(!comparesStrictly<UInt64&> && !dividesInPlace<UInt64&>, "");
    static_assert(std::is_same_v<decltype(std::declval<UInt64&>() *= UInt64()), UInt64&>, "");
    static_assert(std::is_same_v<decltype(std::declval<UInt64&>() += 1), UInt64>, "a copy");
    static_assert(std::is_same_v<decltype(std::declval<UInt64&>() -= 1), UInt64>, "a copy");
    static_assert(std::is_same_v<decltype(++std::declval<UInt64&>()), UInt64>, "a copy");
    static_assert(std::is_same_v<decltype(--std::declval<UInt64&>()), UInt64>, "a copy");
}

// ---- Arithmetic ----------------------------------------------------------------------------------

TEST(UInt64, Add)
{
    UInt64 const a(0xFFFFFFFF);
    EXPECT_EQ((a + UInt64(1)).int64(), 0x100000000); // the carry reaches the high word
    EXPECT_EQ((a + UInt64(-0x100000000)).int64(), -1);
    EXPECT_EQ((UInt64(most) + UInt64(1)).int64(), least);
    EXPECT_EQ((UInt64(least) + UInt64(least)).int64(), 0);
}

TEST(UInt64, Subtract)
{
    EXPECT_EQ((UInt64(0x100000000) - UInt64(1)).int64(), 0xFFFFFFFF);
    EXPECT_EQ((UInt64(2) - UInt64(5)).int64(), -3);
    EXPECT_EQ((UInt64(least) - UInt64(1)).int64(), most);
}

TEST(UInt64, Multiply)
{
    EXPECT_EQ((UInt64(-3) * UInt64(5)).int64(), -15);
    EXPECT_EQ((UInt64(0x100000001) * UInt64(0x100000001)).int64(), 0x200000001); // 2^64 is lost
    EXPECT_EQ((UInt64(least) * UInt64(-1)).int64(), least);
    EXPECT_EQ((UInt64(most) * UInt64(2)).int64(), -2);
}

TEST(UInt64, DivideTruncatesTowardsZero)
{
    EXPECT_EQ((UInt64(-7) / UInt64(2)).int64(), -3);
    EXPECT_EQ((UInt64(7) / UInt64(-2)).int64(), -3);
    EXPECT_EQ((UInt64(-7) / UInt64(-2)).int64(), 3);
    EXPECT_EQ((UInt64(7) / UInt64(2)).int64(), 3);
    EXPECT_EQ((UInt64(-1) / UInt64(2)).int64(), 0); // signed: not 2^63 − 1
    EXPECT_EQ((UInt64(0x700000000) / UInt64(0x200000000)).int64(), 3);
    EXPECT_EQ((UInt64(9) / UInt64(-1)).int64(), -9);
    EXPECT_EQ((UInt64(least) / UInt64(2)).int64(), -0x4000000000000000);
}

TEST(UInt64, DivideWrapsForTheOneQuotientThatOverflows)
{
    EXPECT_EQ((UInt64(least) / UInt64(-1)).int64(), least);
    EXPECT_EQ((UInt64(least) / UInt64(1)).int64(), least);
    EXPECT_EQ((UInt64(least + 1) / UInt64(-1)).int64(), most);
}

#if defined(__x86_64__) || defined(__i386__)
TEST(UInt64DeathTest, DivideByZeroIsThePlatforms)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // LAPACK may have started threads
    EXPECT_DEATH(static_cast<void>(Opaque((UInt64(7) / UInt64(0)).int64())), "");
}
#endif

TEST(UInt64, MultiplyAssignDoesNothing)
{
    UInt64 value(6);
    EXPECT_EQ(&(value *= UInt64(7)), &value);
    EXPECT_EQ(value.int64(), 6);
    value *= UInt64(0);
    EXPECT_EQ(value.int64(), 6);
    value *= value;
    EXPECT_EQ(value.int64(), 6);
}

TEST(UInt64, AddAssign)
{
    UInt64 value(0x100000000);
    EXPECT_EQ((value += -1).int64(), 0xFFFFFFFF); // the borrow reaches the high word
    EXPECT_EQ(value.int64(), 0xFFFFFFFF);
    EXPECT_EQ((value += 2).int64(), 0x100000001);
    value += std::numeric_limits<int>::min(); // sign-extended
    EXPECT_EQ(value.int64(), 0x80000001);
    UInt64 highest(most);
    highest += 1;
    EXPECT_EQ(highest.int64(), least);
    // The result is a copy: adding to it leaves the object unchanged.
    UInt64 counter(1);
    (counter += 1) += 10;
    EXPECT_EQ(counter.int64(), 2);
}

TEST(UInt64, SubtractAssign)
{
    UInt64 value(0x100000000);
    EXPECT_EQ((value -= 1).int64(), 0xFFFFFFFF);
    EXPECT_EQ((value -= -2).int64(), 0x100000001);
    value -= std::numeric_limits<int>::min();
    EXPECT_EQ(value.int64(), 0x180000001);
    UInt64 lowest(least);
    lowest -= 1;
    EXPECT_EQ(lowest.int64(), most);
    UInt64 counter(1);
    (counter -= 1) -= 10;
    EXPECT_EQ(counter.int64(), 0);
}

TEST(UInt64, Increment)
{
    UInt64 value(0xFFFFFFFF);
    EXPECT_EQ((++value).int64(), 0x100000000);
    EXPECT_EQ(value.int64(), 0x100000000);
    EXPECT_EQ((value++).int64(), 0x100000000);
    EXPECT_EQ(value.int64(), 0x100000001);
    ++(++value); // the second works on a copy
    EXPECT_EQ(value.int64(), 0x100000002);
}

TEST(UInt64, Decrement)
{
    UInt64 value(0x100000000);
    EXPECT_EQ((--value).int64(), 0xFFFFFFFF);
    EXPECT_EQ((value--).int64(), 0xFFFFFFFF);
    EXPECT_EQ(value.int64(), 0xFFFFFFFE);
    UInt64 zero;
    EXPECT_EQ((--zero).int64(), -1);
}

// ---- Conversion ----------------------------------------------------------------------------------

TEST(UInt64, ToIntDropsTheHighWord)
{
    EXPECT_EQ(static_cast<int>(UInt64(0x100000002)), 2);
    EXPECT_EQ(static_cast<int>(UInt64(-1)), -1);
    EXPECT_EQ(static_cast<int>(UInt64(0x80000000)), std::numeric_limits<int>::min());
    EXPECT_EQ(static_cast<int>(UInt64(least)), 0);
    int const implicitOne = UInt64(5); // no conversion is explicit
    EXPECT_EQ(implicitOne, 5);
}

TEST(UInt64, ToFloatAndDoubleAreSignedAndRoundedOnce)
{
    EXPECT_SAME_BITS(static_cast<double>(UInt64(-1)), -1.0);
    EXPECT_SAME_BITS(static_cast<float>(UInt64(-1)), -1.0f);
    EXPECT_SAME_BITS(static_cast<double>(UInt64(least)), -0x1p+63);
    EXPECT_SAME_BITS(static_cast<float>(UInt64(most)), 0x1p+63f);
    EXPECT_SAME_BITS(static_cast<double>(UInt64(0)), 0.0);
    // 2^53 + 1 is a tie and rounds to even; 2^60 + 2^36 + 1 is above the midpoint of two singles,
    // but not after rounding to a double.
    EXPECT_SAME_BITS(static_cast<double>(UInt64((static_cast<__int64>(1) << 53) + 1)), 0x1p+53);
    EXPECT_SAME_BITS(
        static_cast<float>(UInt64((static_cast<__int64>(1) << 60) + (static_cast<__int64>(1) << 36) + 1)),
        0x1p+60f + 0x1p+37f);
}

TEST(UInt64, ToInt64)
{
    UInt64 const value(least + 5);
    __int64 const converted = value;
    EXPECT_EQ(converted, least + 5);
    EXPECT_EQ(value.int64(), least + 5);
    static_assert(std::is_same_v<decltype(value.int64()), __int64>, "");
}

} // namespace
