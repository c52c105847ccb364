#include "Bind.h"

#include <vexor/arrays/Arrays.h>

#include <algorithm>
#include <cstring>

// vexor.arrays: the component's functions over NumPy arrays. They call the component's functions over plain elements,
// since the element type and the dimension are known at run time only.

namespace vexor::python {

namespace {

namespace arrays = vexor::arrays;
namespace detail = vexor::arrays::detail;
using Shape = std::vector<py::ssize_t>;

// ---- Operands and results --------------------------------------------------------------------------------

/// An array of elements, or one element, as contiguous doubles or singles.
struct Operand {
    py::array array;
    Shape element; ///< The shape of an element: (), (2,), (3,), (4,) or (3, 3).
    py::ssize_t count;
    bool isOne;    ///< One element for all.
    bool isSingle; ///< float32.

    template <class E>
    E const* Data() const
    {
        return static_cast<E const*>(array.data());
    }
    template <class E>
    detail::Operand<E> Elements() const
    {
        return {Data<E>(), isOne};
    }
    int Dimension() const { return element.empty() ? 1 : static_cast<int>(element[0]); }
};

std::string ShapesText(std::vector<Shape> const& elements)
{
    std::string text;
    for (Shape shape : elements) {
        shape.insert(shape.begin(), -1);
        text += (text.empty() ? "" : " or ") + ShapeText(shape);
    }
    return text;
}

/// Contiguous doubles and singles are used in place; other numbers are converted to doubles, other layouts copied.
Operand Read(py::handle object, char const* argument, std::vector<Shape> const& elements)
{
    auto array = py::array::ensure(object);
    std::string const wanted = std::string(argument) + ": wanted numbers of shape " + ShapesText(elements);
    if (!array || std::string_view("biuf").find(array.dtype().kind()) == std::string_view::npos) {
        PyErr_Clear();
        throw py::type_error(wanted + ", not " + ClassName(object));
    }
    bool const isSingle = array.dtype().kind() == 'f' && array.itemsize() == 4;
    Shape const shape(array.shape(), array.shape() + array.ndim());
    for (Shape const& element : elements) {
        bool const isOne = shape == element;
        bool const isMany = shape.size() == element.size() + 1
                            && std::equal(element.begin(), element.end(), shape.begin() + 1);
        if (!isOne && !isMany)
            continue;
        py::array contiguous;
        if (isSingle)
            contiguous = py::array_t<float, py::array::c_style | py::array::forcecast>::ensure(array);
        else
            contiguous = py::array_t<double, py::array::c_style | py::array::forcecast>::ensure(array);
        if (!contiguous)
            throw py::error_already_set();
        return {contiguous, element, isOne ? 1 : shape[0], isOne, isSingle};
    }
    throw py::value_error(wanted + ", got shape " + ShapeText(shape));
}

std::vector<Shape> const vectorShapes = {{3}, {2}};
std::vector<Shape> const numbers = {{}};
std::vector<Shape> const quaternionShape = {{4}};
std::vector<Shape> const matrixShape = {{3, 3}};

/// The count of the results. A count of 1 beside another one is one element for all.
template <class... Operands>
py::ssize_t CommonCount(Operands&... operands)
{
    py::ssize_t count = 1;
    for (Operand* operand : {&operands...}) {
        if (!operand->isOne && operand->count != 1)
            count = operand->count;
    }
    for (Operand* operand : {&operands...}) {
        if (operand->count == count)
            continue;
        if (operand->count != 1)
            throw py::value_error("the operands have " + std::to_string(count) + " and "
                                  + std::to_string(operand->count) + " elements");
        operand->isOne = true;
    }
    return count;
}

void RequireOneType(Operand const& left, Operand const& right)
{
    if (left.isSingle != right.isSingle)
        throw py::type_error("right: wanted elements of type "
                             + std::string(left.isSingle ? "float32" : "float64")
                             + " as those of left; vexor.arrays.Convert converts");
    if (left.element != right.element)
        throw py::value_error("right: wanted shape " + ShapesText({left.element}) + " as that of left");
}

/// The results' array: `out`, or a new one. One element for all operands gives one element.
template <class... Operands>
py::array Results(py::object const& out, py::dtype const& type, py::ssize_t count, Shape const& element,
                  Operands&... operands)
{
    Shape shape = element;
    if (((operands.array.ndim() != static_cast<py::ssize_t>(operands.element.size())) || ...))
        shape.insert(shape.begin(), count);
    if (out.is_none())
        return py::array(type, shape);
    std::string const wanted = "out: wanted a writable array of type "
                               + py::str(py::object(type)).cast<std::string>() + " and shape "
                               + ShapeText(shape) + " in C order";
    if (!py::isinstance<py::array>(out))
        throw py::type_error(wanted + ", not " + ClassName(out));
    auto results = py::reinterpret_borrow<py::array>(out);
    Shape const found(results.shape(), results.shape() + results.ndim());
    auto const flags = py::detail::array_proxy(results.ptr())->flags;
    int const needed = py::detail::npy_api::NPY_ARRAY_C_CONTIGUOUS_ | py::detail::npy_api::NPY_ARRAY_ALIGNED_;
    if (found != shape || !results.dtype().equal(type) || (flags & needed) != needed || !results.writeable())
        throw py::value_error(wanted);
    // The library takes the same array as operand and results, and no other overlap.
    auto const begin = static_cast<char const*>(results.data());
    auto const end = begin + results.nbytes();
    for (Operand* operand : {&operands...}) {
        auto const first = static_cast<char const*>(operand->array.data());
        bool const overlaps = first < end && begin < first + operand->array.nbytes();
        bool const isSame = first == begin && operand->array.nbytes() == results.nbytes()
                            && operand->element == element && operand->array.itemsize() == results.itemsize();
        if (overlaps && !isSame)
            operand->array = py::array(operand->array.attr("copy")());
    }
    return results;
}

template <class E>
E* DataOf(py::array& array)
{
    return static_cast<E*>(array.mutable_data());
}

py::dtype RealType(bool isSingle)
{
    return isSingle ? py::dtype::of<float>() : py::dtype::of<double>();
}

/// Calls the function with an example of the element type and the dimension.
template <class Function>
void ForElements(Operand const& operand, Function function)
{
    auto const ofType = [&](auto example) {
        if (operand.Dimension() == 3)
            function(example, std::integral_constant<int, 3>());
        else
            function(example, std::integral_constant<int, 2>());
    };
    operand.isSingle ? ofType(float()) : ofType(double());
}

std::string At(char const* function, std::size_t index)
{
    return std::string(function) + ": element " + std::to_string(index);
}

// ---- Vectors and points ----------------------------------------------------------------------------------

struct PairFunction {
    char const* name;
    detail::PairOperation operation;
    bool givesNumbers;
};
constexpr PairFunction pairFunctions[] = {
    {"Add", detail::PairOperation::Add, false},
    {"Subtract", detail::PairOperation::Subtract, false},
    {"ElemMult", detail::PairOperation::ElemMult, false},
    {"Scale", detail::PairOperation::Scale, false},
    {"Cross", detail::PairOperation::Cross, false},
    {"Dot", detail::PairOperation::Dot, true},
    {"DistanceSqTo", detail::PairOperation::DistanceSqTo, true},
    {"DistanceTo", detail::PairOperation::DistanceTo, true},
    {"GetAngleWith", detail::PairOperation::GetAngleWith, true},
};

py::array ComputePair(PairFunction const& function, py::object const& leftObject,
                      py::object const& rightObject, py::object const& out)
{
    auto left = Read(leftObject, "left", vectorShapes);
    bool const isScaled = function.operation == detail::PairOperation::Scale;
    auto right = Read(rightObject, isScaled ? "scalars" : "right", isScaled ? numbers : vectorShapes);
    if (isScaled && right.isOne && left.isSingle && !right.isSingle) {
        right.array = py::array_t<float, py::array::c_style | py::array::forcecast>::ensure(right.array);
        right.isSingle = true;
    }
    if (isScaled && right.isSingle != left.isSingle)
        throw py::type_error("scalars: wanted elements of the type of the vectors");
    if (!isScaled)
        RequireOneType(left, right);
    auto const count = CommonCount(left, right);
    bool const givesNumbers =
        function.givesNumbers
        || (function.operation == detail::PairOperation::Cross && left.Dimension() == 2);
    auto results =
        Results(out, RealType(left.isSingle), count, givesNumbers ? Shape() : left.element, left, right);
    ForElements(left, [&](auto example, auto dimension) {
        using E = decltype(example);
        auto* const data = DataOf<E>(results);
        py::gil_scoped_release release;
        detail::Compute<E, dimension>(function.operation, left.Elements<E>(), right.Elements<E>(), data,
                                      static_cast<std::size_t>(count));
    });
    return results;
}

struct SingleFunction {
    char const* name;
    detail::SingleOperation operation;
    bool givesNumbers;
};
constexpr SingleFunction singleFunctions[] = {
    {"Negate", detail::SingleOperation::Negate, false},
    {"LengthSquared", detail::SingleOperation::LengthSquared, true},
    {"Length", detail::SingleOperation::Length, true},
    {"Normalize", detail::SingleOperation::Normalize, false},
};

template <class E>
std::size_t FirstNull(E const* elements, std::size_t count, int dimension)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (std::all_of(elements + i * static_cast<std::size_t>(dimension),
                        elements + (i + 1) * static_cast<std::size_t>(dimension),
                        [](E value) { return value == 0; }))
            return i;
    }
    return count;
}

py::array ComputeSingle(SingleFunction const& function, py::object const& operand, py::object const& out)
{
    auto vectors = Read(operand, "vectors", vectorShapes);
    auto const count = static_cast<std::size_t>(vectors.count);
    auto results = Results(out, RealType(vectors.isSingle), vectors.count,
                           function.givesNumbers ? Shape() : vectors.element, vectors);
    ForElements(vectors, [&](auto example, auto dimension) {
        using E = decltype(example);
        auto* const data = DataOf<E>(results);
        E const* const elements = vectors.Data<E>();
        // In place the vectors before the null one are lost, so it is looked for first.
        bool const isInPlace = function.operation == detail::SingleOperation::Normalize && elements == data;
        std::size_t const null = isInPlace ? FirstNull(elements, count, dimension) : count;
        try {
            py::gil_scoped_release release;
            detail::Compute<E, dimension>(function.operation, elements, data, count);
        } catch (VexorException const& exception) {
            RaiseFor(exception, At(function.name, isInPlace ? null : FirstNull(elements, count, dimension)));
        }
    });
    return results;
}

struct TestFunction {
    char const* name;
    detail::TestOperation operation;
};
constexpr TestFunction testFunctions[] = {
    {"IsParallelTo", detail::TestOperation::IsParallelTo},
    {"IsCodirectionalTo", detail::TestOperation::IsCodirectionalTo},
    {"IsPerpendicularTo", detail::TestOperation::IsPerpendicularTo},
    {"IsUnitParallelTo", detail::TestOperation::IsUnitParallelTo},
    {"IsUnitCodirectionalTo", detail::TestOperation::IsUnitCodirectionalTo},
    {"IsUnitPerpendicularTo", detail::TestOperation::IsUnitPerpendicularTo},
    {"IsEqualTo", detail::TestOperation::IsEqualTo},
};

py::array Test(detail::TestOperation operation, py::object const& leftObject, py::object const& rightObject,
               double angular, double length, py::object const& out)
{
    auto left = Read(leftObject, "left", vectorShapes);
    auto right = Read(rightObject, "right", vectorShapes);
    RequireOneType(left, right);
    auto const count = CommonCount(left, right);
    auto results = Results(out, py::dtype::of<bool>(), count, {}, left, right);
    ForElements(left, [&](auto example, auto dimension) {
        using E = decltype(example);
        auto* const data = DataOf<unsigned char>(results);
        py::gil_scoped_release release;
        detail::Test<E, dimension>(operation, left.Elements<E>(), right.Elements<E>(),
                                   static_cast<E>(angular), static_cast<E>(length), data,
                                   static_cast<std::size_t>(count));
    });
    return results;
}

py::array Convert(py::array const& values, py::object const& out)
{
    bool const isSingle = values.dtype().kind() == 'f' && values.itemsize() == 4;
    Shape const shape(values.shape(), values.shape() + values.ndim());
    auto read = Read(values.attr("reshape")(-1), "values", numbers);
    auto results = Results(out.is_none() ? out : py::object(out.attr("reshape")(-1)), RealType(!isSingle),
                           read.count, {}, read);
    auto const count = static_cast<std::size_t>(read.count);
    if (isSingle)
        detail::Convert(read.Data<float>(), DataOf<double>(results), count);
    else
        detail::Convert(read.Data<double>(), DataOf<float>(results), count);
    return out.is_none() ? py::array(results.attr("reshape")(shape)) : py::array(out);
}

// ---- Matrices --------------------------------------------------------------------------------------------
// A Mat3Dbl has the row order of a factorisation behind its elements, and an array of shape (n, 3, 3) does not. So
// matrices pass through blocks that stay in the first-level cache.

constexpr std::size_t matrixBlock = 64;

class MatrixBlock {
public:
    /// Copies matrices from the array; one matrix for all is copied once.
    void Load(double const* elements, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(static_cast<void*>(&matrices[i]), elements + 9 * i, 9 * sizeof(double));
    }
    void Store(double* elements, std::size_t count) const
    {
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(elements + 9 * i, static_cast<void const*>(&matrices[i]), 9 * sizeof(double));
    }
    Mat3Dbl* Data() { return matrices; }
    Mat3Dbl const& operator[](std::size_t index) const { return matrices[index]; }

private:
    Mat3Dbl matrices[matrixBlock];
};

/// Runs `work(begin, count)` block by block without Python's lock. If it raises, `member(k)` finds the first element of
/// the block that raises, and `finish(begin, k)` stores the results before it.
template <class Work, class Member, class Finish>
void ForBlocks(char const* function, py::ssize_t total, Work work, Member member, Finish finish)
{
    std::size_t begin = 0;
    std::size_t size = 0;
    try {
        py::gil_scoped_release release;
        for (; begin < static_cast<std::size_t>(total); begin += size) {
            size = std::min(matrixBlock, static_cast<std::size_t>(total) - begin);
            work(begin, size);
            finish(begin, size);
        }
    } catch (VexorException const& exception) {
        std::size_t failed = 0;
        for (; failed < size; ++failed) {
            try {
                member(begin, failed);
            } catch (VexorException const&) {
                break;
            }
        }
        finish(begin, failed);
        RaiseFor(exception, At(function, begin + failed));
    }
}

Operand ReadDoubles(py::object const& object, char const* argument, std::vector<Shape> const& elements)
{
    auto operand = Read(object, argument, elements);
    if (operand.isSingle)
        throw py::type_error(std::string(argument) + ": wanted elements of type float64");
    return operand;
}

py::array Invert(py::object const& object, py::object const& out)
{
    auto matrices = ReadDoubles(object, "matrices", matrixShape);
    auto results = Results(out, RealType(false), matrices.count, {3, 3}, matrices);
    double const* const from = matrices.Data<double>();
    double* const to = DataOf<double>(results);
    MatrixBlock in;
    MatrixBlock inverse;
    ForBlocks(
        "Invert", matrices.count,
        [&](std::size_t begin, std::size_t size) {
            in.Load(from + 9 * begin, size);
            detail::Invert(in.Data(), inverse.Data(), size);
        },
        [&](std::size_t, std::size_t k) { (void)in[k].GetInvertedCopy(); },
        [&](std::size_t begin, std::size_t size) { inverse.Store(to + 9 * begin, size); });
    return results;
}

py::array Solve(py::object const& object, py::object const& sides, py::object const& out)
{
    auto matrices = ReadDoubles(object, "matrices", matrixShape);
    auto rightSides = ReadDoubles(sides, "rightSides", {{3}});
    auto const count = CommonCount(matrices, rightSides);
    auto results = Results(out, RealType(false), count, {3}, matrices, rightSides);
    double const* const from = matrices.Data<double>();
    double const* const right = rightSides.Data<double>();
    double* const to = DataOf<double>(results);
    Vec3Dbl const one(rightSides.isOne ? Vec3Dbl(right[0], right[1], right[2]) : Vec3Dbl(0.0));
    MatrixBlock in;
    if (matrices.isOne)
        in.Load(from, 1);
    ForBlocks(
        "Solve", count,
        [&](std::size_t begin, std::size_t size) {
            if (!matrices.isOne)
                in.Load(from + 9 * begin, size);
            detail::Solve({in.Data(), matrices.isOne},
                          {rightSides.isOne ? &one.x : right + 3 * begin, rightSides.isOne}, to + 3 * begin,
                          size);
        },
        [&](std::size_t, std::size_t k) {
            Vec3Dbl unit(1.0);
            Mat3Dbl(in[matrices.isOne ? 0 : k]).Solve(unit);
        },
        [](std::size_t, std::size_t) {});
    return results;
}

template <bool withVectors>
py::object EigenSym(py::object const& object, py::object const& out)
{
    auto matrices = ReadDoubles(object, "matrices", matrixShape);
    py::object const outValues = !withVectors || out.is_none() ? out : py::object(out.cast<py::tuple>()[0]);
    py::object const outVectors =
        !withVectors || out.is_none() ? py::object(py::none()) : py::object(out.cast<py::tuple>()[1]);
    auto values = Results(outValues, RealType(false), matrices.count, {3}, matrices);
    py::array vectors =
        withVectors ? Results(outVectors, RealType(false), matrices.count, {3, 3}, matrices) : values;
    double const* const from = matrices.Data<double>();
    auto* const toValues = reinterpret_cast<Vec3Dbl*>(DataOf<double>(values));
    double* const toVectors = DataOf<double>(vectors);
    MatrixBlock in;
    MatrixBlock rows;
    ForBlocks(
        withVectors ? "EigenSym" : "EigenSymValues", matrices.count,
        [&](std::size_t begin, std::size_t size) {
            in.Load(from + 9 * begin, size);
            detail::EigenSym(in.Data(), toValues + begin, withVectors ? rows.Data() : nullptr, size);
        },
        [&](std::size_t, std::size_t k) {
            Vec3Dbl unused(0.0);
            Mat3Dbl(in[k]).EigenSym(unused, withVectors);
        },
        [&](std::size_t begin, std::size_t size) {
            if (withVectors)
                rows.Store(toVectors + 9 * begin, size);
        });
    if (withVectors)
        return py::make_tuple(values, vectors);
    return std::move(values);
}

// ---- Quaternions and maps --------------------------------------------------------------------------------

py::array RotatePoint(py::object const& left, py::object const& right, py::object const& out)
{
    auto quaternions = ReadDoubles(left, "quaternions", quaternionShape);
    auto points = ReadDoubles(right, "points", {{3}});
    auto const count = CommonCount(quaternions, points);
    auto results = Results(out, RealType(false), count, {3}, quaternions, points);
    auto* const data = DataOf<double>(results);
    py::gil_scoped_release release;
    detail::RotatePoint(quaternions.Elements<double>(), points.Elements<double>(), data,
                        static_cast<std::size_t>(count));
    return results;
}

py::array GetRotationMatrix(py::object const& object, py::object const& out)
{
    auto quaternions = ReadDoubles(object, "quaternions", quaternionShape);
    auto results = Results(out, RealType(false), quaternions.count, {3, 3}, quaternions);
    auto const* const from = reinterpret_cast<Quaternion const*>(quaternions.Data<double>());
    double* const to = DataOf<double>(results);
    MatrixBlock block;
    ForBlocks(
        "GetRotationMatrix", quaternions.count,
        [&](std::size_t begin, std::size_t size) {
            detail::GetRotationMatrix(from + begin, block.Data(), size);
        },
        [](std::size_t, std::size_t) {},
        [&](std::size_t begin, std::size_t size) { block.Store(to + 9 * begin, size); });
    return results;
}

/// One map times vectors, or times points.
template <class MapClass, class Vector, class Point, class SingleVector, class SinglePoint>
py::array MapAll(MapClass const& map, py::object const& right, bool points, py::object const& out)
{
    constexpr int dimension = detail::ShapeOf<Vector>::size;
    auto values = Read(right, points ? "points" : "vectors", {{dimension}});
    auto results = Results(out, RealType(values.isSingle), values.count, values.element, values);
    auto const elements = detail::ElementsOfMap(map);
    auto const run = [&](auto example, detail::MapOperation operation) {
        using E = decltype(example);
        auto* const data = DataOf<E>(results);
        py::gil_scoped_release release;
        detail::Map<E, dimension>(operation, elements.values, values.Data<E>(), data,
                                  static_cast<std::size_t>(values.count));
    };
    if (values.isSingle)
        run(float(), points ? detail::OperationOf<MapClass, SinglePoint>()
                            : detail::OperationOf<MapClass, SingleVector>());
    else
        run(double(),
            points ? detail::OperationOf<MapClass, Point>() : detail::OperationOf<MapClass, Vector>());
    return results;
}

template <class MapClass>
py::array MapInSpace(MapClass const& map, py::object const& right, bool points, py::object const& out)
{
    return MapAll<MapClass, Vec3Dbl, Pnt3Dbl, Vec3Flt, Pnt3Flt>(map, right, points, out);
}

template <class MapClass>
py::array MapInPlane(MapClass const& map, py::object const& right, bool points, py::object const& out)
{
    return MapAll<MapClass, Vec2Dbl, Pnt2Dbl, Vec2Flt, Pnt2Flt>(map, right, points, out);
}

py::array MultiplyMatrices(Operand matrices, py::object const& right, py::object const& out)
{
    auto values = ReadDoubles(right, "right", {{3, 3}, {3}});
    bool const isProduct = values.element.size() == 2;
    auto const count = CommonCount(matrices, values);
    auto results = Results(out, RealType(false), count, values.element, matrices, values);
    double const* const from = matrices.Data<double>();
    double const* const by = values.Data<double>();
    double* const to = DataOf<double>(results);
    std::size_t const width = isProduct ? 9 : 3;
    double one[9];
    std::copy_n(by, values.isOne ? width : 0, one);
    MatrixBlock left;
    MatrixBlock factors;
    MatrixBlock products;
    if (matrices.isOne)
        left.Load(from, 1);
    if (isProduct && values.isOne)
        factors.Load(one, 1);
    ForBlocks(
        "Multiply", count,
        [&](std::size_t begin, std::size_t size) {
            if (!matrices.isOne)
                left.Load(from + 9 * begin, size);
            detail::Matrices const operand{left.Data(), matrices.isOne};
            if (!isProduct) {
                detail::MultiplyVectors(operand, {values.isOne ? one : by + 3 * begin, values.isOne},
                                        to + 3 * begin, size);
                return;
            }
            if (!values.isOne)
                factors.Load(by + 9 * begin, size);
            detail::MultiplyMatrices(operand, {factors.Data(), values.isOne}, products.Data(), size);
        },
        [](std::size_t, std::size_t) {},
        [&](std::size_t begin, std::size_t size) {
            if (isProduct)
                products.Store(to + 9 * begin, size);
        });
    return results;
}

py::array Multiply(py::object const& left, py::object const& right, py::object const& out, bool points)
{
    if (py::isinstance<AffMat3Dbl>(left))
        return MapInSpace(left.cast<AffMat3Dbl const&>(), right, points, out);
    if (py::isinstance<AffMat2Dbl>(left))
        return MapInPlane(left.cast<AffMat2Dbl const&>(), right, points, out);
    auto operand = ReadDoubles(left, "left", {{4}, {3, 3}, {2, 2}});
    if (operand.element == Shape{4}) {
        auto factors = ReadDoubles(right, "right", quaternionShape);
        auto const count = CommonCount(operand, factors);
        auto results = Results(out, RealType(false), count, {4}, operand, factors);
        auto* const data = DataOf<double>(results);
        py::gil_scoped_release release;
        detail::MultiplyQuaternions(operand.Elements<double>(), factors.Elements<double>(), data,
                                    static_cast<std::size_t>(count));
        return results;
    }
    double const* const m = operand.Data<double>();
    if (operand.element == Shape{2, 2}) {
        if (operand.count != 1)
            throw py::value_error("left: wanted one matrix of shape (2, 2), got "
                                  + std::to_string(operand.count));
        return MapInPlane(Mat2Dbl(Vec2Dbl(m[0], m[1]), Vec2Dbl(m[2], m[3])), right, points, out);
    }
    auto const shape = py::array::ensure(right);
    bool const isOfVectors = shape && shape.ndim() == 2 && shape.shape(1) == 3 && operand.isOne;
    if (isOfVectors)
        return MapInSpace(
            Mat3Dbl(Vec3Dbl(m[0], m[1], m[2]), Vec3Dbl(m[3], m[4], m[5]), Vec3Dbl(m[6], m[7], m[8])), right,
            points, out);
    PyErr_Clear();
    if (points)
        throw py::value_error(
            "points: arrays of matrices are multiplied by vectors; one map is multiplied by points");
    return MultiplyMatrices(operand, right, out);
}

// ---- Sums ------------------------------------------------------------------------------------------------

inline py::object ToObject(py::object object)
{
    return object;
}

template <class Value, class = std::enable_if_t<!std::is_base_of_v<py::object, Value>>>
py::object ToObject(Value const& value)
{
    return py::cast(value);
}

/// Calls the function with the array's elements as numbers or points.
template <class Function>
py::object ForPoints(py::object const& object, bool ofNumbers, Function function)
{
    auto const values = Read(object, "values", ofNumbers ? std::vector<Shape>{{3}, {2}, {}} : vectorShapes);
    if (values.isOne)
        throw py::value_error("values: wanted an array, not one element");
    auto const count = static_cast<std::size_t>(values.count);
    auto const with = [&](auto const* first) {
        using Value = std::decay_t<decltype(*first)>;
        return ToObject(function(reinterpret_cast<Value const*>(values.array.data()), count));
    };
    switch (values.Dimension()) {
    case 3:
        return values.isSingle ? with(static_cast<Pnt3Flt const*>(nullptr))
                               : with(static_cast<Pnt3Dbl const*>(nullptr));
    case 2:
        return values.isSingle ? with(static_cast<Pnt2Flt const*>(nullptr))
                               : with(static_cast<Pnt2Dbl const*>(nullptr));
    default:
        return values.isSingle ? with(static_cast<float const*>(nullptr))
                               : with(static_cast<double const*>(nullptr));
    }
}

/// Runs without Python's lock.
template <class Function>
auto Unlocked(Function function)
{
    py::gil_scoped_release release;
    return function();
}

void RequireBlock(std::size_t count)
{
    if (count > arrays::blockSize)
        throw py::value_error("values: a block has at most 4096 elements, got " + std::to_string(count));
}

template <class Value>
py::tuple BoxTuple(arrays::Box<Value> const& box)
{
    return py::make_tuple(box.lower, box.upper);
}

template <class Partial>
Partial Combined(std::vector<Partial> const& partials, Partial const& ofNone)
{
    return arrays::CombineAll(partials.data(), partials.size(), ofNone);
}

template <class Value>
bool AreAll(py::sequence const& items)
{
    return std::all_of(items.begin(), items.end(),
                       [](auto const& item) { return py::isinstance<Value>(item); });
}

/// The blocks' results in order, combined in pairs of neighbours.
template <class Partial>
py::object CombineList(py::sequence const& items, Partial const& ofNone)
{
    std::vector<Partial> partials;
    for (auto const& item : items)
        partials.push_back(item.cast<Partial>());
    return py::cast(Combined(partials, ofNone));
}

template <class Point>
bool AreBoxes(py::sequence const& items)
{
    return std::all_of(items.begin(), items.end(), [](auto const& item) {
        return py::isinstance<py::tuple>(item) && py::len(item) == 2
               && AreAll<Point>(py::reinterpret_borrow<py::sequence>(item));
    });
}

template <class Point>
py::object CombineBoxList(py::sequence const& items)
{
    std::vector<arrays::Box<Point>> boxes;
    for (auto const& item : items) {
        auto const pair = py::reinterpret_borrow<py::tuple>(item);
        boxes.push_back({pair[0].template cast<Point>(), pair[1].template cast<Point>()});
    }
    return BoxTuple(arrays::CombineAll(boxes.data(), boxes.size(), boxes[0]));
}

py::object CombineAll(py::sequence const& partials)
{
    if (py::len(partials) == 0)
        throw py::value_error("partials: wanted the results of at least one block");
    if (AreAll<Vec3Dbl>(partials))
        return CombineList(partials, Vec3Dbl(0.0));
    if (AreAll<Vec2Dbl>(partials))
        return CombineList(partials, Vec2Dbl(0.0));
    if (AreAll<Mat3Dbl>(partials))
        return CombineList(partials, Mat3Dbl(0.0));
    if (AreAll<Mat2Dbl>(partials))
        return CombineList(partials, Mat2Dbl(0.0));
    if (AreAll<py::float_>(partials))
        return CombineList(partials, 0.0);
    if (AreBoxes<Pnt3Dbl>(partials))
        return CombineBoxList<Pnt3Dbl>(partials);
    if (AreBoxes<Pnt3Flt>(partials))
        return CombineBoxList<Pnt3Flt>(partials);
    if (AreBoxes<Pnt2Dbl>(partials))
        return CombineBoxList<Pnt2Dbl>(partials);
    if (AreBoxes<Pnt2Flt>(partials))
        return CombineBoxList<Pnt2Flt>(partials);
    if (AreBoxes<py::float_>(partials))
        return CombineBoxList<double>(partials);
    throw py::type_error("partials: wanted a list of results of SumOfBlock, CovarianceOfBlock or BoxOfBlock, "
                         "all of one class");
}

} // namespace

void BindArrays(py::module_& module)
{
    auto m = module.def_submodule("_arrays");
    m.attr("__name__") = "vexor.arrays";
    auto const doc = [](std::string const& name, std::string const& note = "") {
        return std::string(CommentOf("arrays." + name)) + (note.empty() ? "" : "\n\nPython: " + note);
    };
    auto const left = py::arg("left");
    auto const right = py::arg("right");
    auto const vectors = py::arg("vectors");
    auto const matrices = py::arg("matrices");
    auto const quaternions = py::arg("quaternions");
    auto const values = py::arg("values");
    auto const out = py::arg("out") = py::none();

    for (PairFunction const& function : pairFunctions) {
        bool const isScaled = function.operation == detail::PairOperation::Scale;
        m.def(
            function.name,
            [function](py::object const& a, py::object const& b, py::object const& c) {
                return ComputePair(function, a, b, c);
            },
            doc(function.name).c_str(), isScaled ? vectors : left, isScaled ? py::arg("scalars") : right,
            out);
    }
    for (SingleFunction const& function : singleFunctions)
        m.def(
            function.name,
            [function](py::object const& a, py::object const& c) { return ComputeSingle(function, a, c); },
            doc(function.name).c_str(), vectors, out);
    for (TestFunction const& function : testFunctions) {
        bool const isUnit = std::string_view(function.name).substr(0, 6) == "IsUnit";
        bool const isEqual = function.operation == detail::TestOperation::IsEqualTo;
        auto const angular = py::arg("angular") = -1.0;
        if (isUnit)
            m.def(
                function.name,
                [function](py::object const& a, py::object const& b, double sine, py::object const& c) {
                    return Test(function.operation, a, b, sine, -1.0, c);
                },
                doc(function.name).c_str(), left, right, angular, out);
        else if (!isEqual)
            m.def(
                function.name,
                [function](py::object const& a, py::object const& b, double sine, double length,
                           py::object const& c) { return Test(function.operation, a, b, sine, length, c); },
                doc(function.name).c_str(), left, right, angular, py::arg("length") = -1.0, out);
        else
            m.def(
                function.name,
                [](py::object const& a, py::object const& b, double sine, double length, py::object const& c,
                   bool points) {
                    return Test(points ? detail::TestOperation::IsPointEqualTo
                                       : detail::TestOperation::IsEqualTo,
                                a, b, sine, length, c);
                },
                doc(function.name, "`points=True` compares points.").c_str(), left, right, angular,
                py::arg("length") = -1.0, out, py::kw_only(), py::arg("points") = false);
    }
    m.def("Convert", &Convert, doc("Convert").c_str(), values, out);
    m.def(
        "Multiply", &Multiply,
        doc("Multiply",
            "`points=True` multiplies points: an affine map then adds its translation, and a Mat3Dbl rounds "
            "to single. Of affine maps and of Mat2Dbl the left operand is one.")
            .c_str(),
        left, right, out, py::kw_only(), py::arg("points") = false);
    m.def("RotatePoint", &RotatePoint, doc("RotatePoint").c_str(), quaternions, py::arg("points"), out);
    m.def("GetRotationMatrix", &GetRotationMatrix, doc("GetRotationMatrix").c_str(), quaternions, out);
    m.def("Invert", &Invert, doc("Invert").c_str(), matrices, out);
    m.def("Solve", &Solve, doc("Solve").c_str(), matrices, py::arg("rightSides"), out);
    m.def("EigenSymValues", &EigenSym<false>, doc("EigenSymValues").c_str(), matrices, out);
    m.def("EigenSym", &EigenSym<true>,
          doc("EigenSym", "returns (eigenValues, vectors); `out` is a tuple of two arrays.").c_str(),
          matrices, out);

    m.attr("blockSize") = arrays::blockSize;
    m.def("BlockCount", &arrays::BlockCount, doc("BlockCount").c_str(), py::arg("count"));
    m.def(
        "Sum",
        [](py::object const& object) {
            return ForPoints(object, true, [](auto const* first, std::size_t count) {
                return Unlocked([&] { return arrays::Sum(first, count); });
            });
        },
        doc("Sum").c_str(), values);
    m.def(
        "SumOfBlock",
        [](py::object const& object) {
            return ForPoints(object, true, [](auto const* first, std::size_t count) {
                RequireBlock(count);
                return Unlocked([&] { return arrays::SumOfBlock(first, count); });
            });
        },
        doc("SumOfBlock").c_str(), values);
    // `if constexpr` leaves out numbers, which ForPoints refuses here.
    auto const ofPoints = [](auto function) {
        return [function](auto const* first, std::size_t count) {
            if constexpr (std::is_class_v<std::decay_t<decltype(*first)>>)
                return function(first, count);
            else
                return *first;
        };
    };
    m.def(
        "Centroid",
        [ofPoints](py::object const& object) {
            return ForPoints(object, false, ofPoints([](auto const* first, std::size_t count) {
                                 return Unlocked([&] { return arrays::Centroid(first, count); });
                             }));
        },
        doc("Centroid").c_str(), values);
    m.def(
        "Covariance",
        [ofPoints](py::object const& object) {
            return ForPoints(object, false, ofPoints([](auto const* first, std::size_t count) {
                                 return Unlocked([&] { return arrays::Covariance(first, count); });
                             }));
        },
        doc("Covariance").c_str(), values);
    m.def(
        "CovarianceOfBlock",
        [ofPoints](py::object const& object, py::object const& centroid) {
            return ForPoints(object, false, ofPoints([&centroid](auto const* first, std::size_t count) {
                                 RequireBlock(count);
                                 using Centroid = detail::CentroidOf<std::decay_t<decltype(*first)>>;
                                 if (!py::isinstance<Centroid>(centroid))
                                     throw py::type_error(
                                         "centroid: wanted a point of doubles of the array's dimension, not "
                                         + ClassName(centroid));
                                 auto const centre = centroid.cast<Centroid>();
                                 return Unlocked(
                                     [&] { return arrays::CovarianceOfBlock(first, count, centre); });
                             }));
        },
        doc("CovarianceOfBlock").c_str(), values, py::arg("centroid"));
    auto const boxOf = [](auto const* first, std::size_t count) {
        return BoxTuple(Unlocked([&] { return arrays::BoundingBox(first, count); }));
    };
    m.def(
        "BoundingBox",
        [boxOf, ofPoints](py::object const& object) { return ForPoints(object, false, ofPoints(boxOf)); },
        doc("BoundingBox", "returns (lower, upper).").c_str(), values);
    m.def(
        "MinMax", [boxOf](py::object const& object) { return ForPoints(object, true, boxOf); },
        doc("MinMax", "returns (least, greatest).").c_str(), values);
    m.def(
        "BoxOfBlock",
        [](py::object const& object) {
            return ForPoints(object, true, [](auto const* first, std::size_t count) {
                RequireBlock(count);
                return BoxTuple(Unlocked([&] { return arrays::BoxOfBlock(first, count); }));
            });
        },
        doc("BoxOfBlock", "returns (lower, upper).").c_str(), values);
    m.def("CombineAll", &CombineAll,
          doc("CombineAll", "`partials` is a list of the blocks' results, in order.").c_str(),
          py::arg("partials"));
}

} // namespace vexor::python
