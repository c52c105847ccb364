#pragma once
#include <vexor/arrays/Arrays.h>
#include <vexor/arrays/private/KernelSet.h>

#include <support/Bits.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

// What the tests of the array functions share: operands, the loop over a member with its results and
// the place at which it fails, and the comparison of an array function with it in all instruction sets.

namespace arrays_test {

using vexor::arrays::detail::KernelSet;

/// Runs the body with each instruction set of this machine, and restores the choice.
template <class Body>
void WithEachSet(Body body)
{
    KernelSet const* const before = vexor::arrays::detail::chosen;
    for (int i = 0; KernelSet const* set = vexor::arrays::detail::RunnableSet(i); ++i) {
        vexor::arrays::detail::chosen = set;
        body(std::string(set->name));
    }
    vexor::arrays::detail::chosen = before;
}

// ---- Values --------------------------------------------------------------------------------------------

/// The numbers of a value: all of it for the plain classes, the nine elements of a matrix.
template <class Value>
struct NumbersOf {
    using Number = double;
};
template <>
struct NumbersOf<float> {
    using Number = float;
};
template <>
struct NumbersOf<Vec3Flt> {
    using Number = float;
};
template <>
struct NumbersOf<Vec2Flt> {
    using Number = float;
};
template <>
struct NumbersOf<Pnt3Flt> {
    using Number = float;
};
template <>
struct NumbersOf<Pnt2Flt> {
    using Number = float;
};
template <>
struct NumbersOf<unsigned char> {
    using Number = unsigned char;
};

template <class Value>
using Number = typename NumbersOf<Value>::Number;
template <class Value>
constexpr int numberCount = std::is_same_v<Value, Mat3Dbl> ? 9 : int(sizeof(Value) / sizeof(Number<Value>));

template <class Value>
void SetNumber(Value& value, int index, double number)
{
    auto const narrow = static_cast<Number<Value>>(number);
    std::memcpy(reinterpret_cast<unsigned char*>(&value) + std::size_t(index) * sizeof narrow, &narrow,
                sizeof narrow);
}

/// Ordinary numbers, or some that overflow, underflow, cancel and have no value, scattered among them.
enum class Kind { Ordinary, Strewn };

/// The special values of a single lane. Some are too large or too small for squares, others for float.
inline std::vector<double> Specials()
{
    using vexor_test::infinity;
    using vexor_test::nan;
    return {0.0,    -0.0,    infinity, -infinity, nan,     0x1p-1074, -0x1p-1040, 0x1p-1022,
            1e-200, 1e-130,  -1e-38,   1e-45,     3e38,    -3.5e38,   1e120,      1e160,
            -1e300, 1.7e308, 1.0,      -2.0,      0x1p-60, -0x1p60,   1e-11};
}

class Operands {
public:
    explicit Operands(unsigned seed) : engine(seed) {}

    double Next(Kind kind)
    {
        static std::vector<double> const specials = Specials();
        unsigned const choice = Pick(kind == Kind::Strewn ? 40 : 1U << 30U);
        if (kind == Kind::Strewn && choice == 0)
            return specials[Pick(unsigned(specials.size()))];
        double const magnitude = std::ldexp(1.0 + double(engine() >> 12U) * 0x1p-52, int(Pick(7)) - 3);
        return Pick(2) ? magnitude : -magnitude;
    }

    template <class Value>
    std::vector<Value> Many(std::size_t count, Kind kind)
    {
        std::vector<Value> values(count);
        for (Value& value : values) {
            for (int k = 0; k < numberCount<Value>; ++k)
                SetNumber(value, k, Next(kind));
            if (kind == Kind::Strewn && Pick(60) == 0) { // as a whole null, or equal
                double const number = Pick(2) ? 0.0 : 1.0;
                for (int k = 0; k < numberCount<Value>; ++k)
                    SetNumber(value, k, number);
            }
        }
        return values;
    }

    unsigned Pick(unsigned count) { return unsigned(engine() >> 33U) % count; }

private:
    std::mt19937_64 engine;
};

// ---- Results ---------------------------------------------------------------------------------------------

/// A heap block that ends where the array ends, so that AddressSanitizer detects an access beyond it, begins
/// that many numbers after an aligned address, and is filled with a pattern.
template <class Value>
class Block {
public:
    explicit Block(std::size_t valueCount, std::size_t offset = 0)
        : count(valueCount), offsetBytes(offset * sizeof(Number<Value>)), bytes(new unsigned char[Size()])
    {
        std::memset(bytes.get(), pattern, Size());
    }
    Block(std::vector<Value> const& values, std::size_t valueCount, std::size_t offset = 0)
        : Block(valueCount, offset)
    {
        if (valueCount != 0)
            std::memcpy(static_cast<void*>(Data()), values.data(), valueCount * sizeof(Value));
    }

    Value* Data() { return reinterpret_cast<Value*>(bytes.get() + offsetBytes); }
    static constexpr unsigned char pattern = 0x5a;

private:
    std::size_t Size() const { return offsetBytes + count * sizeof(Value); }

    std::size_t count;
    std::size_t offsetBytes;
    std::unique_ptr<unsigned char[]> bytes;
};

/// The outcome of a loop: its results, and the exception that ended it and where.
template <class Result>
struct Outcome {
    std::vector<Result> results;
    std::string exception;
};

/// The loop over a member: `member(i)` is result i.
template <class Result>
Outcome<Result> Loop(std::size_t count, std::function<Result(std::size_t)> const& member)
{
    Outcome<Result> outcome;
    try {
        for (std::size_t i = 0; i < count; ++i)
            outcome.results.push_back(member(i));
    } catch (std::exception const& exception) {
        outcome.exception = typeid(exception).name();
    } catch (VexorException const& exception) {
        outcome.exception = typeid(exception).name();
    }
    return outcome;
}

template <class Value>
bool SameNumbers(Value const& left, Value const& right)
{
    Number<Value> a[numberCount<Value>];
    Number<Value> b[numberCount<Value>];
    std::memcpy(a, &left, sizeof a);
    std::memcpy(b, &right, sizeof b);
    for (int k = 0; k < numberCount<Value>; ++k) {
        if constexpr (std::is_same_v<Number<Value>, unsigned char>) {
            if (a[k] != b[k])
                return false;
        } else if (!vexor_test::SameBits(a[k], b[k])) {
            return false;
        }
    }
    return true;
}

/// Runs `function(results)` on a block and compares the first `count` elements with the loop's outcome: the
/// same results up to the failure, the same exception, and after it the contents of `before`, if given,
/// or else the pattern. Bytes of a matrix beyond its elements are unchanged.
template <class Result>
testing::AssertionResult Matches(Outcome<Result> const& expected, std::size_t count, Result* results,
                                 std::function<void()> const& function)
{
    std::vector<unsigned char> before(count * sizeof(Result));
    if (count != 0)
        std::memcpy(before.data(), static_cast<void const*>(results), before.size());
    std::string exception;
    try {
        function();
    } catch (std::exception const& raised) {
        exception = typeid(raised).name();
    } catch (VexorException const& raised) {
        exception = typeid(raised).name();
    }
    bool const fails = expected.results.size() < count;
    if (exception != (fails ? expected.exception : std::string()))
        return testing::AssertionFailure()
               << "raised '" << exception << "' at count " << count << ", the loop '"
               << (fails ? expected.exception : std::string()) << "'";
    constexpr std::size_t numbers = sizeof(Number<Result>) * std::size_t(numberCount<Result>);
    auto const* const bytes = reinterpret_cast<unsigned char const*>(results);
    for (std::size_t i = 0; i < count; ++i) {
        if (i < expected.results.size()) {
            if (!SameNumbers(results[i], expected.results[i])) {
                testing::AssertionResult failure = testing::AssertionFailure();
                failure << "element " << i << " of " << count << ":";
                for (int k = 0; k < numberCount<Result>; ++k) {
                    Number<Result> actual, wanted;
                    std::memcpy(&actual, bytes + i * sizeof(Result) + std::size_t(k) * sizeof actual,
                                sizeof actual);
                    std::memcpy(&wanted,
                                reinterpret_cast<unsigned char const*>(&expected.results[i])
                                    + std::size_t(k) * sizeof wanted,
                                sizeof wanted);
                    failure << ' ' << double(actual) << " not " << double(wanted);
                }
                return failure;
            }
            if (std::memcmp(bytes + i * sizeof(Result) + numbers,
                            before.data() + i * sizeof(Result) + numbers, sizeof(Result) - numbers)
                != 0)
                return testing::AssertionFailure() << "wrote behind the elements of " << i;
        } else if (std::memcmp(bytes + i * sizeof(Result), before.data() + i * sizeof(Result), sizeof(Result))
                   != 0) {
            return testing::AssertionFailure() << "changed element " << i << " behind the failure";
        }
    }
    return testing::AssertionSuccess();
}

// ---- The comparison ----------------------------------------------------------------------------------------

constexpr std::size_t allCounts = 200;

/// The result of a member or operator as an array function writes it: a predicate's int becomes a byte.
template <class Raw>
using ElementOf =
    std::conditional_t<std::is_same_v<std::decay_t<Raw>, int>, unsigned char, std::decay_t<Raw>>;

/// A function of two operands in its three forms, and the member. Types alone are template parameters, so
/// that the comparison below is compiled once for all functions of the same types.
template <class Left, class Right, class Result>
struct PairForms {
    std::function<void(Left const*, Right const*, Result*, std::size_t)> both;
    std::function<void(Left const*, Right const&, Result*, std::size_t)> oneRight;
    std::function<void(Left const&, Right const*, Result*, std::size_t)> oneLeft;
    std::function<Result(Left const&, Right const&)> member;
};

/// The three forms of a function of two operands against their loops: every count, some alignments, results
/// beside and over each operand that is an array of their type.
template <class Left, class Right, class Result>
void CompareForms(std::string const& name, std::vector<Left> const& lefts, std::vector<Right> const& rights,
                  PairForms<Left, Right, Result> const& forms, bool everyCount)
{
    std::size_t const most = lefts.size();
    auto const both = Loop<Result>(most, [&](std::size_t i) { return forms.member(lefts[i], rights[i]); });
    auto const oneRight =
        Loop<Result>(most, [&](std::size_t i) { return forms.member(lefts[i], rights[0]); });
    auto const oneLeft = Loop<Result>(most, [&](std::size_t i) { return forms.member(lefts[0], rights[i]); });
    WithEachSet([&](std::string const& set) {
        for (std::size_t count = everyCount ? 0 : most; count <= most; ++count) {
            std::size_t const offset = everyCount ? count % 8 : 0;
            Block<Left> left(lefts, count, offset % 3);
            Block<Right> right(rights, count, offset % 5);
            std::string const what = name + ", " + set;
            {
                Block<Result> results(count, offset);
                ASSERT_TRUE(Matches(both, count, results.Data(), [&] {
                    forms.both(left.Data(), right.Data(), results.Data(), count);
                })) << what;
            }
            {
                Block<Result> results(count, offset);
                ASSERT_TRUE(Matches(oneRight, count, results.Data(),
                                    [&] { forms.oneRight(left.Data(), rights[0], results.Data(), count); }))
                    << what << ", one on the right";
            }
            {
                Block<Result> results(count, offset);
                ASSERT_TRUE(Matches(oneLeft, count, results.Data(),
                                    [&] { forms.oneLeft(lefts[0], right.Data(), results.Data(), count); }))
                    << what << ", one on the left";
            }
            if constexpr (std::is_same_v<Result, Left>) {
                Block<Left> over(lefts, count, offset);
                ASSERT_TRUE(Matches(both, count, over.Data(),
                                    [&] { forms.both(over.Data(), right.Data(), over.Data(), count); }))
                    << what << ", over the left";
                if (count != 0) { // the one value lies in the results
                    Block<Left> all(lefts, count, offset);
                    ASSERT_TRUE(Matches(oneLeft, count, all.Data(),
                                        [&] { forms.oneLeft(*all.Data(), right.Data(), all.Data(), count); }))
                        << what << ", over the one on the left";
                }
            }
            if constexpr (std::is_same_v<Result, Right>) {
                Block<Right> over(rights, count, offset);
                ASSERT_TRUE(Matches(both, count, over.Data(),
                                    [&] { forms.both(left.Data(), over.Data(), over.Data(), count); }))
                    << what << ", over the right";
            }
        }
    });
}

/// The same for a function and a member that take operands in any form.
template <class Left, class Right, class Function, class Member>
auto FormsOf(Function function, Member member)
{
    using Result = ElementOf<decltype(member(std::declval<Left const&>(), std::declval<Right const&>()))>;
    return PairForms<Left, Right, Result>{
        function, function, function,
        [member](Left const& left, Right const& right) { return static_cast<Result>(member(left, right)); }};
}

template <class Left, class Right, class Function, class Member>
void ComparePair(std::string const& name, std::vector<Left> const& lefts, std::vector<Right> const& rights,
                 Function function, Member member, bool everyCount)
{
    CompareForms(name, lefts, rights, FormsOf<Left, Right>(function, member), everyCount);
}

/// A function of one operand and its member.
template <class Value, class Result>
struct SingleForm {
    std::function<void(Value const*, Result*, std::size_t)> function;
    std::function<Result(Value const&)> member;
};

template <class Value, class Result>
void CompareForm(std::string const& name, std::vector<Value> const& values,
                 SingleForm<Value, Result> const& form, bool everyCount)
{
    std::size_t const most = values.size();
    auto const expected = Loop<Result>(most, [&](std::size_t i) { return form.member(values[i]); });
    WithEachSet([&](std::string const& set) {
        for (std::size_t count = everyCount ? 0 : most; count <= most; ++count) {
            std::size_t const offset = everyCount ? count % 8 : 0;
            Block<Value> operands(values, count, offset % 3);
            std::string const what = name + ", " + set;
            {
                Block<Result> results(count, offset);
                ASSERT_TRUE(Matches(expected, count, results.Data(), [&] {
                    form.function(operands.Data(), results.Data(), count);
                })) << what;
            }
            if constexpr (std::is_same_v<Result, Value>) {
                Block<Value> over(values, count, offset);
                ASSERT_TRUE(Matches(expected, count, over.Data(),
                                    [&] { form.function(over.Data(), over.Data(), count); }))
                    << what << ", in place";
            }
        }
    });
}

template <class Value, class Function, class Member>
auto FormOf(Function function, Member member)
{
    return SingleForm<Value, std::decay_t<decltype(member(std::declval<Value const&>()))>>{function, member};
}

template <class Value, class Function, class Member>
void CompareSingle(std::string const& name, std::vector<Value> const& values, Function function,
                   Member member, bool everyCount)
{
    CompareForm(name, values, FormOf<Value>(function, member), everyCount);
}

/// The place of a special value: one component, or the whole element.
template <class Value>
void WithSpecialInEachLane(std::vector<Value> const& ordinary, std::size_t positions,
                           std::function<void(std::vector<Value> const&)> const& body)
{
    for (double special : Specials()) {
        for (std::size_t position = 0; position < positions; ++position) {
            for (int k = -1; k < numberCount<Value>; ++k) {
                if (numberCount<Value> == 9 && k >= 0 && (position + std::size_t(k)) % 4 != 0)
                    continue; // for matrices a part suffices
                std::vector<Value> values(ordinary);
                if (k >= 0) {
                    SetNumber(values[position], k, special);
                } else {
                    for (int all = 0; all < numberCount<Value>; ++all)
                        SetNumber(values[position], all, special);
                }
                body(values);
                if (testing::Test::HasFatalFailure())
                    return;
            }
        }
    }
}

constexpr std::size_t laneCount = 17; // two of the widest registers and one element

/// Long arrays run loops of their own, which prefetch.
constexpr std::size_t longCount = vexor::arrays::detail::largeCount + 117;

/// The full test of a function of two operands.
template <class Left, class Right, class Result>
void ExamineForms(std::string const& name, PairForms<Left, Right, Result> const& forms)
{
    Operands operands(1);
    for (Kind kind : {Kind::Ordinary, Kind::Strewn}) {
        for (int repeat = 0; repeat < 3; ++repeat)
            ASSERT_NO_FATAL_FAILURE(CompareForms(name, operands.Many<Left>(allCounts, kind),
                                                 operands.Many<Right>(allCounts, kind), forms, true));
    }
    ASSERT_NO_FATAL_FAILURE(CompareForms(name, operands.Many<Left>(longCount, Kind::Ordinary),
                                         operands.Many<Right>(longCount, Kind::Ordinary), forms, false));
    auto const lefts = operands.Many<Left>(laneCount, Kind::Ordinary);
    auto const rights = operands.Many<Right>(laneCount, Kind::Ordinary);
    WithSpecialInEachLane<Left>(lefts, laneCount, [&](std::vector<Left> const& special) {
        CompareForms(name, special, rights, forms, false);
    });
    WithSpecialInEachLane<Right>(rights, laneCount, [&](std::vector<Right> const& special) {
        CompareForms(name, lefts, special, forms, false);
    });
}

template <class Left, class Right, class Function, class Member>
void ExaminePair(std::string const& name, Function function, Member member)
{
    ExamineForms(name, FormsOf<Left, Right>(function, member));
}

template <class Value, class Result>
void ExamineForm(std::string const& name, SingleForm<Value, Result> const& form)
{
    Operands operands(2);
    for (Kind kind : {Kind::Ordinary, Kind::Strewn}) {
        for (int repeat = 0; repeat < 3; ++repeat)
            ASSERT_NO_FATAL_FAILURE(CompareForm(name, operands.Many<Value>(allCounts, kind), form, true));
    }
    ASSERT_NO_FATAL_FAILURE(CompareForm(name, operands.Many<Value>(longCount, Kind::Ordinary), form, false));
    auto const values = operands.Many<Value>(laneCount, Kind::Ordinary);
    WithSpecialInEachLane<Value>(values, laneCount, [&](std::vector<Value> const& special) {
        CompareForm(name, special, form, false);
    });
}

template <class Value, class Function, class Member>
void ExamineSingle(std::string const& name, Function function, Member member)
{
    ExamineForm(name, FormOf<Value>(function, member));
}

} // namespace arrays_test

/// A function of vexor::arrays as an object.
#define VEXOR_FUNCTION(name) [](auto const&... operands) { vexor::arrays::name(operands...); }
