#include "Allocations.h"
#include "Elements.h"

#include <support/Sizes.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

// The rules at all sizes: an implementation by blocks must reach every element, keep the order of sums and treat the
// caller's block alike, however long the vector is. The expected values come from plain loops, one element a step.

namespace {

using vexor_test::CountRequests;
using vexor_test::LiveBlocks;
using vexor_test::Refusal;
using vexor_test::RunWithRefusal;

/// Numbers whose sums round at nearly every step, from 1/16 up to 1 in magnitude.
class Numbers {
public:
    template <class Number>
    Number Next()
    {
        state = state * 6364136223846793005U + 1442695040888963407U;
        double const size = 0.0625 + static_cast<double>(state >> 12) * 0x1p-52 * 0.9375;
        return static_cast<Number>((state >> 11) & 1 ? size : -size);
    }

    template <class Vector>
    Vector Any(int size)
    {
        Vector v(size);
        for (int i = 0; i < size; ++i)
            v[i] = Next<vexor_test::ElementType<Vector>>();
        return v;
    }

    MatDbl AnyMatrix(int rows, int columns)
    {
        MatDbl m(rows, columns);
        for (int j = 0; j < columns; ++j)
            for (int i = 0; i < rows; ++i)
                m(i, j) = Next<double>();
        return m;
    }

private:
    std::uint64_t state = 20261122;
};

/// All places of a short vector; of a long one the first and those of the last register or block.
template <class Visit>
void ForEachPlace(int size, Visit visit)
{
    for (int place = 0; place < size; ++place)
        if (size <= sizes::allUpTo || place == 0 || place >= size - 17)
            visit(place);
}

template <class Visit>
void ForEachShape(Visit visit)
{
    for (int n = 1; n <= sizes::matricesUpTo; ++n) {
        visit(n, n);
        visit(n, sizes::matricesUpTo + 1 - n);
    }
    for (sizes::Shape const& shape : sizes::largeMatrices)
        visit(shape.rows, shape.columns);
}

template <class Number>
Number Rounded(double value)
{
    Number volatile const rounded = static_cast<Number>(value);
    return rounded;
}

} // namespace

template <class Vector>
class VectorSizes : public testing::Test {
public:
    using Number = vexor_test::ElementType<Vector>;
    Numbers numbers;
};

using VectorTypes = testing::Types<VecDbl, VecFlt>;
TYPED_TEST_SUITE(VectorSizes, VectorTypes, );

TYPED_TEST(VectorSizes, ArithmeticReachesEveryElement)
{
    using V = TypeParam;
    using N = typename TestFixture::Number;
    sizes::ForEach([&](int size) {
        V const a = this->numbers.template Any<V>(size);
        V const b = this->numbers.template Any<V>(size);
        N const s = N(3);
        V const sum = a + b, difference = a - b, scaled = a * s, divided = a / s, negated = -a;
        V const products = a.ElemMult(b), quotients = a.ElemDiv(b);
        V added = a, subtracted = a, copy(a), assigned;
        added += b;
        subtracted -= b;
        assigned = a;
        V filled(a), read(a);
        filled.SetValue(N(5));
        std::vector<N> array(static_cast<std::size_t>(size));
        a.GetValue(array.data());
        read.SetValue(N(0)).SetValue(array.data());
        for (int i = 0; i < size; ++i) {
            ASSERT_EQ(sum[i], Rounded<N>(double(a[i]) + double(b[i]))) << size << " " << i;
            ASSERT_EQ(difference[i], Rounded<N>(double(a[i]) - double(b[i]))) << size << " " << i;
            ASSERT_EQ(added[i], sum[i]) << size << " " << i;
            ASSERT_EQ(subtracted[i], difference[i]) << size << " " << i;
            ASSERT_EQ(scaled[i], Rounded<N>(double(a[i]) * 3.0)) << size << " " << i;
            ASSERT_EQ(divided[i], Rounded<N>(double(a[i]) / 3.0)) << size << " " << i;
            ASSERT_EQ(negated[i], -a[i]) << size << " " << i;
            ASSERT_EQ(products[i], Rounded<N>(double(a[i]) * double(b[i]))) << size << " " << i;
            ASSERT_EQ(quotients[i], Rounded<N>(double(a[i]) / double(b[i]))) << size << " " << i;
            ASSERT_EQ(copy[i], a[i]) << size << " " << i;
            ASSERT_EQ(assigned[i], a[i]) << size << " " << i;
            ASSERT_EQ(filled[i], N(5)) << size << " " << i;
            ASSERT_EQ(read[i], a[i]) << size << " " << i;
        }
    });
}

TYPED_TEST(VectorSizes, ProductsAreAddedInIndexOrder)
{
    using V = TypeParam;
    using N = typename TestFixture::Number;
    sizes::ForEach([&](int size) {
        V const a = this->numbers.template Any<V>(size);
        V const b = this->numbers.template Any<V>(size);
        N dot = N(0), square = N(0);
        for (int i = 0; i < size; ++i) {
            double volatile const product = double(a[i]) * double(b[i]);
            double volatile const own = double(a[i]) * double(a[i]);
            dot = Rounded<N>(double(dot) + product);
            square = Rounded<N>(double(square) + own);
        }
        ASSERT_EQ(a.Dot(b), dot) << size;
        ASSERT_EQ(a.LengthSquared(), square) << size;
    });
}

TEST(VecDblSizes, SumRunsInIndexOrder)
{
    Numbers numbers;
    sizes::ForEach([&](int size) {
        VecDbl const a = numbers.Any<VecDbl>(size);
        double sum = 0.0;
        for (int i = 0; i < size; ++i)
            sum = Rounded<double>(sum + a[i]);
        ASSERT_EQ(a.Sum(), sum) << size;
    });
}

TYPED_TEST(VectorSizes, ComparisonsReadEveryElement)
{
    using V = TypeParam;
    using N = typename TestFixture::Number;
    sizes::ForEach([&](int size) {
        V a = this->numbers.template Any<V>(size);
        V b(a), zeros(size, N(0));
        ASSERT_TRUE(a == b && !(a != b) && a.IsEqualTo(b) && zeros.IsNull()) << size;
        ForEachPlace(size, [&](int place) {
            b[place] = -a[place];
            ASSERT_TRUE(a != b && !(a == b)) << size << " " << place;
            // The limits admit any direction, and no distance.
            ASSERT_FALSE(a.IsEqualTo(b, N(1), N(0))) << size << " " << place;
            b[place] = a[place];
            zeros[place] = std::numeric_limits<N>::denorm_min();
            ASSERT_FALSE(zeros.IsNull()) << size << " " << place;
            zeros[place] = N(0);
        });
    });
}

TYPED_TEST(VectorSizes, ExtremesReadEveryElement)
{
    using V = TypeParam;
    using N = typename TestFixture::Number;
    sizes::ForEach([&](int size) {
        V v = this->numbers.template Any<V>(size);
        ForEachPlace(size, [&](int place) {
            N const before = v[place];
            v[place] = N(2);
            ASSERT_TRUE(v.MaxValue() == N(2) && v.MaxValueIdx() == place) << size << " " << place;
            v[place] = N(-2);
            ASSERT_TRUE(v.MinValue() == N(-2) && v.MinValueIdx() == place) << size << " " << place;
            ASSERT_TRUE(v.MaxAbsValue() == N(2) && v.MaxAbsValueIdx() == place) << size << " " << place;
            v[place] = N(-0.03125);
            ASSERT_TRUE(v.MinAbsValue() == N(0.03125) && v.MinAbsValueIdx() == place) << size << " " << place;
            v[place] = before;
        });
    });
}

// A caller's block is neither freed nor moved, a vector's own block is freed, and no operation needs more blocks for
// more elements.
TYPED_TEST(VectorSizes, BlocksAreFreedByTheirOwners)
{
    using V = TypeParam;
    using N = typename TestFixture::Number;
    sizes::ForEach([&](int size) {
        long const before = LiveBlocks();
        {
            std::vector<N> block(static_cast<std::size_t>(size), N(7));
            {
                V view(size, block.data());
                V other(view);
                view = other; // now of its own
                V second(size, block.data());
                second.ReSize(size + 1);
                V third(size, N(8), block.data());
            }
            ASSERT_EQ(LiveBlocks(), before + 1) << size;
            ASSERT_EQ(block.back(), N(8)) << size;
        }
        ASSERT_EQ(LiveBlocks(), before) << size;
    });
}

#if defined(_WIN32)
// A DLL has heap operators of its own, which a program cannot replace.
#else
TYPED_TEST(VectorSizes, ResultsNeedOneBlockAndRefusalsLeaveNone)
{
    using V = TypeParam;
    using N = typename TestFixture::Number;
    sizes::ForEach([&](int size) {
        V a(size, N(1)), b(size, N(2));
        N sum = N(0);
        ASSERT_EQ(CountRequests([&] {
                      a += b;
                      a *= N(0.5);
                      sum += a.Dot(b) + a.Length() + a.MaxValue();
                      sum += static_cast<N>((a == b) + a.IsNull() + a.IsEqualTo(b) + a.IsParallelTo(b));
                  }),
                  0)
            << size;
        std::function<void()> const withResult[] = {[&] { a + b; }, [&] { a.GetNormalizedCopy(); },
                                                    [&] { V copy(a); }};
        for (auto const& operation : withResult) {
            ASSERT_EQ(CountRequests(operation), 1) << size;
            long const before = LiveBlocks();
            ASSERT_TRUE(RunWithRefusal(1, Refusal::BadAlloc, operation)) << size;
            ASSERT_EQ(LiveBlocks(), before) << size;
        }
    });
}
#endif

TEST(MatDblSizes, ArithmeticReachesEveryElement)
{
    Numbers numbers;
    ForEachShape([&](int rows, int columns) {
        MatDbl const a = numbers.AnyMatrix(rows, columns), b = numbers.AnyMatrix(rows, columns);
        MatDbl const sum = a + b, difference = a - b, scaled = 3.0 * a, divided = a / 3.0, negated = -a;
        MatDbl const transposed = a.GetTransposedCopy();
        MatDbl turned(a), added(a), subtracted(a), identity(a);
        turned.Transpose();
        added += b;
        subtracted -= b;
        identity.Identity();
        MatDbl filled(a);
        filled.SetValue(5.0);
        for (int j = 0; j < columns; ++j)
            for (int i = 0; i < rows; ++i) {
                ASSERT_EQ(sum(i, j), a(i, j) + b(i, j)) << rows << "×" << columns;
                ASSERT_EQ(difference(i, j), a(i, j) - b(i, j)) << rows << "×" << columns;
                ASSERT_EQ(added(i, j), sum(i, j)) << rows << "×" << columns;
                ASSERT_EQ(subtracted(i, j), difference(i, j)) << rows << "×" << columns;
                ASSERT_EQ(scaled(i, j), 3.0 * a(i, j)) << rows << "×" << columns;
                ASSERT_EQ(divided(i, j), a(i, j) / 3.0) << rows << "×" << columns;
                ASSERT_EQ(negated(i, j), -a(i, j)) << rows << "×" << columns;
                ASSERT_EQ(transposed(j, i), a(i, j)) << rows << "×" << columns;
                ASSERT_EQ(turned(j, i), a(i, j)) << rows << "×" << columns;
                ASSERT_EQ(filled(i, j), 5.0) << rows << "×" << columns;
                ASSERT_EQ(identity(i, j), i == j ? 1.0 : 0.0) << rows << "×" << columns;
            }
    });
}

TEST(MatDblSizes, SumsRunInRowOrder)
{
    Numbers numbers;
    ForEachShape([&](int rows, int columns) {
        MatDbl a = numbers.AnyMatrix(rows, columns);
        VecDbl const sums = a.RowSum(), averages = a.RowAverage();
        for (int j = 0; j < columns; ++j) {
            double sum = a(0, j);
            for (int i = 1; i < rows; ++i)
                sum = Rounded<double>(sum + a(i, j));
            ASSERT_EQ(sums[j], sum) << rows << "×" << columns;
            ASSERT_EQ(averages[j], sum / rows) << rows << "×" << columns;
        }
    });
}

TEST(MatDblSizes, ComparisonReadsEveryElement)
{
    Numbers numbers;
    ForEachShape([&](int rows, int columns) {
        MatDbl a = numbers.AnyMatrix(rows, columns);
        MatDbl b(a);
        ASSERT_TRUE(a == b && !(a != b)) << rows << "×" << columns;
        ForEachPlace(columns, [&](int j) {
            ForEachPlace(rows, [&](int i) {
                if (rows * columns > 400 && i < rows - 2 && j < columns - 2 && (i + j) % 7 != 0)
                    return;
                b(i, j) = -a(i, j);
                ASSERT_TRUE(a != b && !(a == b)) << rows << "×" << columns << " " << i << " " << j;
                b(i, j) = a(i, j);
            });
        });
    });
}

TEST(MatDblSizes, BlocksAreFreedByTheirOwners)
{
    ForEachShape([&](int rows, int columns) {
        long const before = LiveBlocks();
        {
            std::vector<double> block(static_cast<std::size_t>(rows * columns), 7.0);
            {
                MatDbl view(rows, columns, block.data());
                MatDbl other(view);
                view = other; // now of its own
                MatDbl second(rows, columns, block.data());
                second.ReSize(rows + 1, columns);
                MatDbl third(rows, columns, 8.0, block.data());
                third.Transpose();
            }
            ASSERT_EQ(LiveBlocks(), before + 1) << rows << "×" << columns;
            ASSERT_EQ(block.back(), 8.0) << rows << "×" << columns;
        }
        ASSERT_EQ(LiveBlocks(), before) << rows << "×" << columns;
    });
}
