#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/private/KernelSet.h>

#include <support/Bits.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#if defined(__GNUC__) && defined(__x86_64__) && !defined(_WIN32)
#    include <cpuid.h>
#endif

#if defined(__has_feature)
#    if __has_feature(address_sanitizer)
#        define VEXOR_TEST_ADDRESS_SANITIZER
#    endif
#endif

// Every set of kernels that this machine can run, compared byte for byte with the loops that state the
// rule. The library does not export the kernels, so this program compiles them again.

namespace {

using vexor::detail::KernelSet;
using vexor_test::SameBits;

std::vector<KernelSet const*> RunnableSets()
{
    std::vector<KernelSet const*> sets = {&vexor::detail::plain::kernels};
#if defined(__GNUC__)
    sets.push_back(&vexor::detail::baseline::kernels);
#endif
#if defined(VEXOR_WIDE_SETS)
    if (vexor::detail::HasAvx2())
        sets.push_back(&vexor::detail::avx2::kernels);
    if (vexor::detail::HasAvx512())
        sets.push_back(&vexor::detail::avx512::kernels);
#endif
    return sets;
}

#if defined(__GNUC__) && defined(__x86_64__) && !defined(_WIN32)
/// What this CPU and its operating system support, read from the CPU: leaf 7 of CPUID, and the register
/// states that the system saves.
std::vector<std::string> SetsOfThisProcessor()
{
    std::vector<std::string> names = {"plain", "baseline"};
    unsigned a = 0, b = 0, c = 0, d = 0;
    if (!__get_cpuid(1, &a, &b, &c, &d) || !(c & (1u << 27)))
        return names;
    unsigned states = 0, high = 0;
    __asm__("xgetbv" : "=a"(states), "=d"(high) : "c"(0));
    if (!__get_cpuid_count(7, 0, &a, &b, &c, &d))
        return names;
    if ((states & 0x6) == 0x6 && (b & (1u << 5)))
        names.push_back("AVX2");
    unsigned const parts = (1u << 16) | (1u << 17) | (1u << 31); // F, DQ and VL
    if ((states & 0xe6) == 0xe6 && (b & parts) == parts)
        names.push_back("AVX-512");
    return names;
}
#endif

// ---- Operands ------------------------------------------------------------------------------------

enum class Kind {
    Finite, ///< products that overflow, underflow and cancel, denormals, zeros of both signs
    Special ///< the same with some infinities and NaNs
};

class Operands {
public:
    Operands(Kind kind, unsigned seed) : kind_(kind), engine_(seed) {}

    double Next()
    {
        double const sign = Pick(2) ? 1.0 : -1.0;
        unsigned const choice = Pick(64);
        if (choice < 4)
            return sign * 0.0;
        if (choice < 8)
            return sign * std::ldexp(double(1 + Pick(1000)), -1074); // denormal
        if (choice < 11)
            return sign * std::ldexp(Mantissa(), -530); // the product of two of them is denormal
        if (choice < 12 && kind_ == Kind::Special)
            return Pick(3) ? sign * vexor_test::infinity : vexor_test::nan;
        if (choice < 13 && kind_ == Kind::Special)
            return sign * std::ldexp(Mantissa(), 600); // the product of two of them overflows
        return sign * std::ldexp(Mantissa(), int(Pick(12)) - 6);
    }

    std::vector<double> Many(std::size_t count)
    {
        std::vector<double> values(count);
        for (double& value : values)
            value = Next();
        return values;
    }

private:
    unsigned Pick(unsigned count) { return unsigned(engine_() >> 33) % count; }
    double Mantissa() { return 1.0 + double(engine_() >> 12) * 0x1p-52; }

    Kind kind_;
    std::mt19937_64 engine_;
};

// ---- The rule, as plain loops ----------------------------------------------------------------------

std::size_t At(int i, int j, int rows)
{
    return std::size_t(j) * std::size_t(rows) + std::size_t(i);
}

std::size_t Count(int rows, int columns)
{
    return std::size_t(rows) * std::size_t(columns);
}

std::vector<double> Product(int rows, int columns, int inner, std::vector<double> const& left,
                            std::vector<double> const& right)
{
    std::vector<double> result(Count(rows, columns));
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < columns; ++j) {
            double sum = 0.0;
            for (int k = 0; k < inner; ++k) {
                double const term = right[At(k, j, inner)] * left[At(i, k, rows)];
                sum = sum + term;
            }
            result[At(i, j, rows)] = sum;
        }
    }
    return result;
}

std::vector<float> ProductSingle(int rows, int columns, std::vector<double> const& matrix,
                                 std::vector<float> const& vector)
{
    std::vector<float> result(std::size_t(rows), 0.0f);
    for (int i = 0; i < rows; ++i) {
        for (int k = 0; k < columns; ++k) {
            float volatile const term = float(double(vector[std::size_t(k)]) * matrix[At(i, k, rows)]);
            float volatile const sum = result[std::size_t(i)] + term;
            result[std::size_t(i)] = sum;
        }
    }
    return result;
}

// ---- Comparison --------------------------------------------------------------------------------------

/// A result with elements around it that a kernel must not change.
template <class Number>
class Guarded {
public:
    explicit Guarded(std::size_t count) : values_(count + 2 * margin, guard) {}

    Number* Data() { return values_.data() + margin; }

    testing::AssertionResult Equals(std::vector<Number> const& expected)
    {
        for (std::size_t i = 0; i < margin; ++i) {
            if (values_[i] != guard || values_[values_.size() - 1 - i] != guard)
                return testing::AssertionFailure() << "wrote outside the result";
        }
        if (std::memcmp(Data(), expected.data(), expected.size() * sizeof(Number)) == 0)
            return testing::AssertionSuccess();
        for (std::size_t i = 0; i < expected.size(); ++i) {
            if (!SameBits(Data()[i], expected[i]))
                return testing::AssertionFailure()
                       << "element " << i << " is " << Data()[i] << " and not " << expected[i];
        }
        return testing::AssertionSuccess(); // the bits of some NaNs differ, as they may
    }

private:
    static constexpr std::size_t margin = 8;
    static constexpr Number guard = Number(-12345.0);
    std::vector<Number> values_;
};

std::string Shape(KernelSet const& set, int rows, int columns, int inner = 0)
{
    return std::string(set.name) + ", " + std::to_string(rows) + " x " + std::to_string(columns)
           + (inner ? ", inner " + std::to_string(inner) : std::string());
}

void CheckProduct(int rows, int columns, int inner, std::vector<double> const& left,
                  std::vector<double> const& right)
{
    std::vector<double> const expected = Product(rows, columns, inner, left, right);
    for (KernelSet const* set : RunnableSets()) {
        Guarded<double> result(expected.size());
        set->multiplyColumnMajor(rows, columns, inner, left.data(), right.data(), result.Data());
        ASSERT_TRUE(result.Equals(expected)) << Shape(*set, rows, columns, inner);
    }
}

void CheckProduct(int rows, int columns, int inner, Operands& operands)
{
    CheckProduct(rows, columns, inner, operands.Many(Count(rows, inner)),
                 operands.Many(Count(inner, columns)));
}

void CheckVector(int rows, int columns, Operands& operands)
{
    std::vector<double> const matrix = operands.Many(Count(rows, columns));
    std::vector<double> const vector = operands.Many(std::size_t(columns));
    std::vector<double> const expected = Product(rows, 1, columns, matrix, vector);
    for (KernelSet const* set : RunnableSets()) {
        Guarded<double> result(expected.size());
        set->multiplyVector(rows, columns, matrix.data(), vector.data(), result.Data());
        ASSERT_TRUE(result.Equals(expected)) << Shape(*set, rows, columns);
    }
}

void CheckVectorSingle(int rows, int columns, Operands& operands)
{
    std::vector<double> const matrix = operands.Many(Count(rows, columns));
    std::vector<float> vector;
    for (int k = 0; k < columns; ++k)
        vector.push_back(float(operands.Next()));
    std::vector<float> const expected = ProductSingle(rows, columns, matrix, vector);
    for (KernelSet const* set : RunnableSets()) {
        Guarded<float> result(expected.size());
        set->multiplyVectorSingle(rows, columns, matrix.data(), vector.data(), result.Data());
        ASSERT_TRUE(result.Equals(expected)) << Shape(*set, rows, columns);
    }
}

/// Elements that a copy through arithmetic would change: NaNs of all payloads and both signs, denormals,
/// zeros of both signs, and between them different numbers, so that exchanged elements show.
std::vector<double> BitPatterns(std::size_t count)
{
    constexpr std::uint64_t sign = 0x8000000000000000u;
    constexpr std::uint64_t quietNan = 0x7ff8000000000000u;
    std::vector<double> values(count);
    for (std::size_t k = 0; k < count; ++k) {
        std::uint64_t const number = k + 1;
        std::uint64_t const patterns[] = {quietNan | number, number, sign | quietNan | number, 0,
                                          sign | number,     sign};
        std::uint64_t pattern = patterns[k / 2 % 6];
        if (k % 2 == 0) {
            double const finite = 1.0 + double(k);
            std::memcpy(&pattern, &finite, sizeof pattern);
        }
        std::memcpy(&values[k], &pattern, sizeof pattern);
    }
    return values;
}

std::vector<double> Transposed(int rows, int columns, std::vector<double> const& matrix)
{
    std::vector<double> result(matrix.size());
    for (int j = 0; j < columns; ++j) {
        for (int i = 0; i < rows; ++i)
            std::memcpy(&result[At(j, i, columns)], &matrix[At(i, j, rows)], sizeof(double));
    }
    return result;
}

bool SameBytes(double const* actual, std::vector<double> const& expected)
{
    return std::memcmp(actual, expected.data(), expected.size() * sizeof(double)) == 0;
}

/// With a matrix that begins that many elements after the start of a cache line.
void CheckTransposeInPlace(int rows, std::size_t offset, std::vector<double> const& matrix,
                           std::vector<double> const& expected)
{
    constexpr std::size_t line = 8;
    constexpr double guard = -12345.0;
    for (KernelSet const* set : RunnableSets()) {
        std::vector<double> room(matrix.size() + 3 * line, guard);
        std::size_t const past = reinterpret_cast<std::uintptr_t>(room.data()) / sizeof(double) % line;
        double* const start = room.data() + line + (line - past) + offset;
        std::memcpy(start, matrix.data(), matrix.size() * sizeof(double));
        set->transposeSquare(rows, start);
        ASSERT_TRUE(SameBytes(start, expected)) << Shape(*set, rows, rows) << ", offset " << offset;
        for (double const* at = room.data(); at != room.data() + room.size(); ++at)
            ASSERT_TRUE((at >= start && at < start + matrix.size()) || *at == guard)
                << Shape(*set, rows, rows) << " wrote outside";
    }
}

void CheckTranspose(int rows, int columns)
{
    std::vector<double> const matrix = BitPatterns(Count(rows, columns));
    std::vector<double> const expected = Transposed(rows, columns, matrix);
    for (KernelSet const* set : RunnableSets()) {
        Guarded<double> result(expected.size());
        set->transposeInto(rows, columns, matrix.data(), result.Data());
        ASSERT_TRUE(SameBytes(result.Data(), expected)) << Shape(*set, rows, columns);
        ASSERT_TRUE(result.Equals(expected)) << Shape(*set, rows, columns);
    }
}

constexpr int smallSizes = 40;

} // namespace

// ---- The product -------------------------------------------------------------------------------------

// Which sets the tests below run. `scripts/test` prints this line.
TEST(Kernels, RunEverySetOfThisProcessor)
{
    std::vector<std::string> ran;
    for (KernelSet const* set : RunnableSets())
        ran.push_back(set->name);
    std::string line = "Kernel sets that ran:";
    for (std::string const& name : ran)
        line += " " + name;
#if defined(__GNUC__) && defined(__x86_64__) && !defined(_WIN32)
    std::vector<std::string> const expected = SetsOfThisProcessor();
    line += "; left out, which this processor does not have:";
    for (char const* name : {"AVX2", "AVX-512"})
        if (std::find(expected.begin(), expected.end(), name) == expected.end())
            line += std::string(" ") + name;
    if (expected.size() == 4)
        line += " none";
    EXPECT_EQ(ran, expected);
#else
    EXPECT_EQ(ran.front(), "plain");
#    if defined(__GNUC__)
    EXPECT_EQ(ran.back(), "baseline");
#    endif
#endif
    std::printf("%s\n", line.c_str());
}

TEST(Kernels, MultiplyColumnMajorAllSmallShapes)
{
    Operands operands(Kind::Finite, 1);
    std::vector<double> const left = operands.Many(Count(smallSizes, smallSizes));
    std::vector<double> const right = operands.Many(Count(smallSizes, smallSizes));
    for (int rows = 1; rows <= smallSizes; ++rows) {
        for (int columns = 1; columns <= smallSizes; ++columns) {
            for (int inner = 1; inner <= smallSizes; ++inner)
                CheckProduct(rows, columns, inner, left, right);
        }
    }
}

TEST(Kernels, MultiplyColumnMajorInfinitiesAndNan)
{
    Operands operands(Kind::Special, 2);
    for (int rows = 1; rows <= smallSizes; ++rows) {
        for (int columns = 1; columns <= smallSizes; ++columns)
            CheckProduct(rows, columns, 1 + (7 * rows + 3 * columns) % 13, operands);
    }
    CheckProduct(100, 40, 300, operands);
}

// Large enough to be packed: every remainder of rows and columns, and partial sums that are stored in the
// result between two and between three blocks of the inner index.
TEST(Kernels, MultiplyColumnMajorPacked)
{
    for (Kind kind : {Kind::Finite, Kind::Special}) {
        Operands operands(kind, 3);
        for (int rows = 65; rows <= 100; ++rows)
            CheckProduct(rows, 65 + rows % 16, 506 + rows % 16, operands);
        for (int columns = 60; columns <= 85; ++columns)
            CheckProduct(66, columns, 513, operands);
        for (int inner : {511, 512, 513, 1023, 1024, 1025, 1100})
            CheckProduct(71, 67, inner, operands);
        CheckProduct(1, 70, 33000, operands);
        CheckProduct(5, 70, 7000, operands);
    }
}

TEST(Kernels, MultiplyColumnMajorLongAndThin)
{
    Operands operands(Kind::Finite, 4);
    for (int thin : {1, 2, 3, 5, 8, 13}) {
        CheckProduct(1000, thin, 7, operands);
        CheckProduct(thin, 1000, 7, operands);
        CheckProduct(7, thin, 1000, operands);
        CheckProduct(thin, 7, 1000, operands);
        CheckProduct(300, 200, thin, operands);
    }
}

TEST(Kernels, MultiplyColumnMajorRandomShapes)
{
    std::mt19937 shapes(5);
    std::uniform_int_distribution<int> size(1, 200);
    Operands operands(Kind::Finite, 5);
    for (int round = 0; round < 60; ++round) {
        int const rows = size(shapes);
        int const columns = size(shapes);
        CheckProduct(rows, columns, size(shapes), operands);
    }
}

// A fused multiply-add would leave 2^-104 here, which rounding the product drops.
TEST(Kernels, MultiplyColumnMajorRoundsEachProduct)
{
    double const nearOne = 1.0 + 0x1p-52;
    int const size = 30;
    // Row i, column j: 1·(−1 − 2^−51) + nearOne·nearOne, the product rounded to 1 + 2^−51.
    std::vector<double> left(2 * size, 1.0);
    std::vector<double> right(2 * size, -(1.0 + 0x1p-51));
    for (int i = 0; i < size; ++i) {
        left[At(i, 1, size)] = nearOne;
        right[At(1, i, 2)] = nearOne;
    }
    for (KernelSet const* set : RunnableSets()) {
        std::vector<double> result(size * size, 7.0);
        set->multiplyColumnMajor(size, size, 2, left.data(), right.data(), result.data());
        for (double element : result)
            ASSERT_TRUE(SameBits(element, 0.0)) << set->name;
    }
}

// Sums start at +0, so a sum of terms that are all −0 is +0.
TEST(Kernels, SumsStartAtPositiveZero)
{
    std::vector<double> const left(40 * 40, -0.0);
    std::vector<double> const right(40 * 40, 1.0);
    std::vector<float> const single(40, 1.0f);
    for (KernelSet const* set : RunnableSets()) {
        for (int size = 1; size <= 40; ++size) {
            std::vector<double> result(Count(size, size), 7.0);
            set->multiplyColumnMajor(size, size, 1, left.data(), right.data(), result.data());
            for (double element : result)
                ASSERT_TRUE(SameBits(element, 0.0)) << set->name << ", " << size;
            set->multiplyVector(size, size, left.data(), right.data(), result.data());
            ASSERT_TRUE(SameBits(result[0], 0.0)) << set->name << ", " << size;
            std::vector<float> resultSingle(std::size_t(size), 7.0f);
            set->multiplyVectorSingle(size, size, left.data(), single.data(), resultSingle.data());
            ASSERT_TRUE(SameBits(resultSingle[0], 0.0f)) << set->name << ", " << size;
        }
    }
}

// ---- Matrix × vector -----------------------------------------------------------------------------------

TEST(Kernels, MultiplyVector)
{
    for (Kind kind : {Kind::Finite, Kind::Special}) {
        Operands operands(kind, 6);
        for (int rows = 1; rows <= smallSizes; ++rows) {
            for (int columns = 1; columns <= smallSizes; ++columns)
                CheckVector(rows, columns, operands);
        }
        for (int rows : {100, 127, 2047, 2048, 2049, 2055, 2056, 2057, 4100})
            CheckVector(rows, 19, operands);
        CheckVector(37, 3000, operands);
    }
}

TEST(Kernels, MultiplyVectorSingle)
{
    for (Kind kind : {Kind::Finite, Kind::Special}) {
        Operands operands(kind, 7);
        for (int rows = 1; rows <= smallSizes; ++rows) {
            for (int columns = 1; columns <= smallSizes; ++columns)
                CheckVectorSingle(rows, columns, operands);
        }
        for (int rows : {2047, 2048, 2049, 2057, 4100})
            CheckVectorSingle(rows, 19, operands);
        CheckVectorSingle(37, 3000, operands);
    }
}

// 1 + 1e-9 is 1 in single precision, although the matrix is double.
TEST(Kernels, MultiplyVectorSingleRoundsEachTermAndEachSum)
{
    int const size = 21;
    std::vector<double> matrix(2 * size);
    for (int i = 0; i < size; ++i) {
        matrix[At(i, 0, size)] = 1.0;
        matrix[At(i, 1, size)] = 1e-9;
    }
    std::vector<float> const ones(2, 1.0f);
    for (KernelSet const* set : RunnableSets()) {
        std::vector<float> result(size, 7.0f);
        set->multiplyVectorSingle(size, 2, matrix.data(), ones.data(), result.data());
        for (float element : result)
            ASSERT_TRUE(SameBits(element, 1.0f)) << set->name;
    }
    // The term 1 + 2^-24 is a tie and rounds to 1. Unrounded, it would add 2^-24 to the sum, which the next
    // 2^-24 would raise to 1 + 2^-23.
    for (int i = 0; i < size; ++i) {
        matrix[At(i, 0, size)] = 0x1p-24;
        matrix[At(i, 1, size)] = 1.0 + 0x1p-24;
    }
    for (KernelSet const* set : RunnableSets()) {
        std::vector<float> result(size, 7.0f);
        set->multiplyVectorSingle(size, 2, matrix.data(), ones.data(), result.data());
        for (float element : result)
            ASSERT_TRUE(SameBits(element, 1.0f)) << set->name;
    }
}

// ---- Transposition ---------------------------------------------------------------------------------------

TEST(Kernels, TransposeInto)
{
    for (int rows = 1; rows <= 70; ++rows) {
        for (int columns = 1; columns <= 70; ++columns)
            CheckTranspose(rows, columns);
    }
    for (int size : {511, 512, 513, 520, 528}) // large ones depend on where cache lines begin
        CheckTranspose(size, size);
    CheckTranspose(512, 30);
    CheckTranspose(30, 512);
    CheckTranspose(1, 1000);
    CheckTranspose(1000, 1);
    CheckTranspose(129, 517);
    CheckTranspose(517, 517);
}

TEST(Kernels, TransposeSquare)
{
    auto const check = [](int size, std::initializer_list<std::size_t> offsets) {
        std::vector<double> const matrix = BitPatterns(Count(size, size));
        std::vector<double> const expected = Transposed(size, size, matrix);
        for (std::size_t offset : offsets)
            CheckTransposeInPlace(size, offset, matrix, expected);
    };
    for (int size = 1; size <= 200; ++size)
        check(size, {0, std::size_t(size) % 8});
    // Columns that compete for the same cache sets.
    for (int size : {160, 168, 176, 184, 256, 384, 512})
        check(size, {0, 1, 2, 3, 4, 5, 6, 7});
    for (int size : {255, 257, 511, 513, 640, 768, 1023, 1024, 1025, 1248, 1249, 1250, 1280, 1281, 1288, 1408,
                     1536, 1537})
        check(size, {0, 2, 5});
}

// ---- The library's own choice ------------------------------------------------------------------------------

TEST(Kernels, MatDblGivesTheSameBits)
{
    Operands operands(Kind::Finite, 8);
    for (int size : {1, 2, 3, 5, 8, 13, 21, 34, 55, 89, 144}) {
        std::vector<double> left = operands.Many(Count(size, size + 3));
        std::vector<double> right = operands.Many(Count(size + 3, size + 1));
        MatDbl const a(size, size + 3, left.data());
        MatDbl const b(size + 3, size + 1, right.data());
        MatDbl const product = a * b;
        std::vector<double> const expected = Product(size, size + 1, size + 3, left, right);
        VecDbl const column = a * b.GetCol(0);
        MatDbl const transposed = a.GetTransposedCopy();
        for (int i = 0; i < size; ++i) {
            for (int j = 0; j < size + 1; ++j)
                ASSERT_TRUE(SameBits(product(i, j), expected[At(i, j, size)])) << size;
            ASSERT_TRUE(SameBits(column[i], expected[At(i, 0, size)])) << size;
            for (int k = 0; k < size + 3; ++k)
                ASSERT_TRUE(SameBits(transposed(k, i), a(i, k))) << size;
        }
    }
}

TEST(Kernels, MatDblTransposesEveryBit)
{
    auto const check = [](int rows, int columns) {
        std::vector<double> const matrix = BitPatterns(Count(rows, columns));
        std::vector<double> const expected = Transposed(rows, columns, matrix);
        std::vector<double> block = matrix;
        MatDbl view(rows, columns, block.data());
        MatDbl own(view);
        ASSERT_TRUE(SameBytes(&view.GetTransposedCopy()(0, 0), expected)) << rows << " x " << columns;
        ASSERT_TRUE(SameBytes(&own.Transpose()(0, 0), expected)) << rows << " x " << columns;
        ASSERT_EQ(own.RowCount(), columns);
        ASSERT_EQ(own.ColumnCount(), rows);
        ASSERT_TRUE(SameBytes(&own.Transpose()(0, 0), matrix)) << rows << " x " << columns << ", twice";
        view.Transpose();
        ASSERT_TRUE(SameBytes(block.data(), expected)) << rows << " x " << columns << ", a view";
    };
    for (int size = 1; size <= 200; ++size) {
        check(size, size);
        check(size, size + 1);
        check(2 * size, size);
        check(size, 201 - size);
    }
    check(512, 512);
    check(513, 513);
    check(1024, 1024);
    check(1281, 1281);
    check(500, 1300);
    check(1300, 500);
}

TEST(Kernels, BlocksBeginAtALineOfCache)
{
#if defined(VEXOR_CHECKED) || defined(__SANITIZE_ADDRESS__) || defined(VEXOR_TEST_ADDRESS_SANITIZER)
    GTEST_SKIP() << "these builds take exact blocks";
#endif
    auto const isAtLine = [](MatDbl const& matrix) {
        return reinterpret_cast<std::uintptr_t>(&matrix(0, 0)) % 64 == 0;
    };
    for (int rows = 1; rows <= 40; ++rows) {
        for (int columns : {1, 2, 3, 17, 64}) {
            MatDbl matrix(rows, columns, 1.0);
            EXPECT_TRUE(isAtLine(matrix)) << rows << " x " << columns;
            EXPECT_TRUE(isAtLine(matrix.GetTransposedCopy())) << rows << " x " << columns;
            matrix.ReSize(rows + 1, columns);
            EXPECT_TRUE(isAtLine(matrix)) << rows << " x " << columns;
        }
    }
    EXPECT_TRUE(isAtLine(MatDbl(1000, 1000)));
}
