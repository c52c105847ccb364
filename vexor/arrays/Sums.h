#pragma once
#include <vexor/arrays/detail/Functions.h>

#include <limits>

// Sums, centroids, covariances and boxes of arrays. Their order of terms is not that of a plain loop:
// the bits are the same for every instruction set and for every way to share the work between threads or
// machines.
//
// The order: an array is divided into blocks of 4,096 elements from its beginning; the last one may be
// shorter. Within a block, running sums that start at 0 take turns: 24 for numbers, 12 for elements of the
// plane, 8 for elements of space; element i is added to sum i mod that number. The sums of a block are then
// combined in pairs of neighbours, 0 with 1, 2 with 3 and so on, until one is left; the last one of an odd
// number is carried over. The blocks' results are combined in the same way. All is computed in double;
// singles are widened.
//
// The error of a sum of n elements of space is at most (512 + 3 + ⌈log₂(blocks)⌉)·2⁻⁵³·Σ|xᵢ|; that of a plain
// loop is up to (n − 1)·2⁻⁵³·Σ|xᵢ|.
//
// To distribute the work: compute `SumOfBlock` (`CovarianceOfBlock`, `BoxOfBlock`) for each block anywhere,
// and pass the blocks' results in the order of the blocks to `CombineAll`, or one by one to a `Pairwise`.

namespace vexor::arrays {

/// The elements of a block.
inline constexpr std::size_t blockSize = 4096;

/// How many blocks an array of `count` elements has.
constexpr std::size_t BlockCount(std::size_t count)
{
    return count / blockSize + (count % blockSize != 0);
}

/// The least and the greatest coordinates of points. Without points: +∞ and −∞, which `Combine` ignores.
template <class Point>
struct Box {
    Point lower; ///< The least coordinates.
    Point upper; ///< The greatest coordinates.
};

// ---- Two neighbours ----------------------------------------------------------------------------------

/// The sum of the left part and the right part.
template <class Partial>
Partial Combine(Partial const& left, Partial const& right)
{
    return left + right;
}

/// The box around two boxes. Of a 0 and a −0 the left one is kept.
template <class Point>
Box<Point> Combine(Box<Point> const& left, Box<Point> const& right)
{
    using Element = detail::Element<Point>;
    constexpr int size = detail::ShapeOf<Point>::size;
    Box<Point> result = left;
    auto* const lower = reinterpret_cast<Element*>(&result.lower);
    auto* const upper = reinterpret_cast<Element*>(&result.upper);
    auto const* const otherLower = reinterpret_cast<Element const*>(&right.lower);
    auto const* const otherUpper = reinterpret_cast<Element const*>(&right.upper);
    for (int k = 0; k < size; ++k) {
        lower[k] = otherLower[k] < lower[k] ? otherLower[k] : lower[k];
        upper[k] = otherUpper[k] > upper[k] ? otherUpper[k] : upper[k];
    }
    return result;
}

/// Takes the results of blocks in order and combines them in pairs of neighbours. It holds one result for
/// each power of two among the number of blocks taken.
template <class Partial>
class Pairwise {
public:
    /// Starts without blocks; `ofNone` is the result of no block.
    explicit Pairwise(Partial const& ofNone) : total(ofNone) {}

    /// Takes the result of the next block.
    void Add(Partial const& next)
    {
        Partial sum = next;
        std::size_t level = 0;
        for (std::size_t rest = taken; (rest & 1U) != 0; rest >>= 1U)
            sum = Combine(levels[level++], sum);
        levels[level] = sum;
        ++taken;
    }
    /// The result of all blocks taken; without blocks, the argument of the constructor.
    Partial Total() const
    {
        Partial sum = total;
        bool isFirst = true;
        std::size_t level = 0;
        for (std::size_t rest = taken; rest != 0; rest >>= 1U, ++level) {
            if ((rest & 1U) == 0)
                continue;
            sum = isFirst ? levels[level] : Combine(levels[level], sum);
            isFirst = false;
        }
        return sum;
    }

private:
    Partial total;
    Partial levels[64];
    std::size_t taken = 0;
};

/// Combines the results of all blocks in pairs of neighbours.
template <class Partial>
Partial CombineAll(Partial const* partials, std::size_t count, Partial const& ofNone)
{
    Pairwise<Partial> pairwise(ofNone);
    for (std::size_t i = 0; i < count; ++i)
        pairwise.Add(partials[i]);
    return pairwise.Total();
}

namespace detail {

/// The type of a sum of these elements: a double vector, or a double.
template <class Value>
using SumOf = std::conditional_t<ShapeOf<Value>::size == 3, Vec3Dbl,
                                 std::conditional_t<ShapeOf<Value>::size == 2, Vec2Dbl, double>>;
template <class Value>
using MatrixOf = std::conditional_t<ShapeOf<Value>::size == 3, Mat3Dbl, Mat2Dbl>;
template <class Value>
using CentroidOf = std::conditional_t<ShapeOf<Value>::size == 3, Pnt3Dbl, Pnt2Dbl>;

/// Calls `block(data, count)` for each block of a view and combines the results. Without elements it is called once.
template <class Value, class Partial, class Block>
Partial OverBlocks(View<Value> const& view, Partial const& ofNone, Block block)
{
    if (view.count <= blockSize)
        return block(view.data, view.count);
    Pairwise<Partial> pairwise(ofNone);
    for (std::size_t begin = 0; begin < view.count; begin += blockSize) {
        std::size_t const rest = view.count - begin;
        pairwise.Add(block(view.data + begin, rest < blockSize ? rest : blockSize));
    }
    return pairwise.Total();
}

template <class Value>
View<Value> ArrayOf(View<Value> const& view)
{
    VEXOR_CHECK(!view.isOne, "an array is summed up");
    return view;
}

} // namespace detail

// ---- Blocks --------------------------------------------------------------------------------------------

/// The sum of a block of at most 4,096 numbers, vectors or points: a double, a `Vec2Dbl` or a `Vec3Dbl`.
template <class Value>
detail::SumOf<Value> SumOfBlock(Value const* values, std::size_t count)
{
    VEXOR_CHECK(count <= blockSize, "a block has at most 4,096 elements");
    detail::SumOf<Value> sum(0.0);
    detail::SumBlock<detail::Element<Value>, detail::ShapeOf<Value>::size>(
        reinterpret_cast<detail::Element<Value> const*>(values), count, reinterpret_cast<double*>(&sum));
    return sum;
}

/// The sum of the outer products d·dᵀ of a block; d is an element minus the centroid.
template <class Value>
detail::MatrixOf<Value> CovarianceOfBlock(Value const* values, std::size_t count,
                                          detail::CentroidOf<Value> const& centroid)
{
    VEXOR_CHECK(count <= blockSize, "a block has at most 4,096 elements");
    constexpr int size = detail::ShapeOf<Value>::size;
    double products[6];
    detail::CovarianceBlock<detail::Element<Value>, size>(
        reinterpret_cast<detail::Element<Value> const*>(values), count, &centroid.x, products);
    detail::MatrixOf<Value> sum(0.0);
    int next = 0;
    for (int i = 0; i < size; ++i) {
        for (int k = i; k < size; ++k)
            sum(i, k) = sum(k, i) = products[next++];
    }
    return sum;
}

/// The box around the points of a block. A NaN coordinate is ignored.
template <class Value>
Box<Value> BoxOfBlock(Value const* values, std::size_t count)
{
    VEXOR_CHECK(count <= blockSize, "a block has at most 4,096 elements");
    using Element = detail::Element<Value>;
    Box<Value> box{};
    detail::ExtremesBlock<Element, detail::ShapeOf<Value>::size>(
        reinterpret_cast<Element const*>(values), count, reinterpret_cast<Element*>(&box.lower),
        reinterpret_cast<Element*>(&box.upper));
    return box;
}

// ---- Arrays ----------------------------------------------------------------------------------------------

/// The sum of numbers, vectors or points: a double, a `Vec2Dbl` or a `Vec3Dbl`; 0 without elements.
template <class Values, class... Count>
auto Sum(Values const& values, Count... count)
{
    auto const view = detail::ArrayOf(detail::ViewOf(values, static_cast<std::size_t>(count)...));
    using Value = std::decay_t<decltype(*view.data)>;
    return detail::OverBlocks(view, detail::SumOf<Value>(0.0), SumOfBlock<Value>);
}

/// The sum divided by the count: a `Pnt3Dbl` or a `Pnt2Dbl`. Raises `VexorComputationFailed` for no points.
template <class Values, class... Count>
auto Centroid(Values const& values, Count... count)
{
    auto const view = detail::ArrayOf(detail::ViewOf(values, static_cast<std::size_t>(count)...));
    using Value = std::decay_t<decltype(*view.data)>;
    if (view.count == 0)
        vexor::detail::RaiseComputationFailed();
    auto sum = Sum(view.data, view.count);
    sum /= static_cast<double>(view.count);
    return detail::CentroidOf<Value>(sum);
}

/// The sum of the outer products d·dᵀ divided by the count; d is a point minus the centroid: a `Mat3Dbl` or a
/// `Mat2Dbl`. Two passes, so that points far from the origin lose no digits. Raises `VexorComputationFailed`
/// without points.
template <class Values, class... Count>
auto Covariance(Values const& values, Count... count)
{
    auto const view = detail::ArrayOf(detail::ViewOf(values, static_cast<std::size_t>(count)...));
    using Value = std::decay_t<decltype(*view.data)>;
    auto const centroid = Centroid(view.data, view.count);
    auto sum = detail::OverBlocks(view, detail::MatrixOf<Value>(0.0),
                                  [&centroid](Value const* block, std::size_t size) {
                                      return CovarianceOfBlock(block, size, centroid);
                                  });
    sum /= static_cast<double>(view.count);
    return sum;
}

/// The box around points or vectors. A NaN coordinate is ignored; without elements, or with only NaNs, the
/// box is from +∞ to −∞.
template <class Values, class... Count>
auto BoundingBox(Values const& values, Count... count)
{
    auto const view = detail::ArrayOf(detail::ViewOf(values, static_cast<std::size_t>(count)...));
    using Value = std::decay_t<decltype(*view.data)>;
    return detail::OverBlocks(view, BoxOfBlock<Value>(view.data, 0), BoxOfBlock<Value>);
}

/// The least and the greatest number, as a box. A NaN is ignored.
template <class Values, class... Count>
auto MinMax(Values const& values, Count... count)
{
    return BoundingBox(values, static_cast<std::size_t>(count)...);
}

} // namespace vexor::arrays
