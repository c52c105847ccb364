#include "Bind.h"

#include <cstring>

namespace vexor::python {

namespace {

template <class Matrix>
struct Row;
template <>
struct Row<Mat3Dbl> {
    using Type = Vec3Dbl;
    static constexpr int count = 3;
};
template <>
struct Row<Mat2Dbl> {
    using Type = Vec2Dbl;
    static constexpr int count = 2;
};

template <class Matrix>
py::tuple Rows(Matrix const& matrix)
{
    py::tuple rows(Row<Matrix>::count);
    for (unsigned int i = 0; i < Row<Matrix>::count; ++i)
        rows[i] = typename Row<Matrix>::Type(matrix.GetRow(i));
    return rows;
}

template <class Matrix>
Matrix FromRows(py::object const& values, char const* argument)
{
    constexpr int n = Row<Matrix>::count;
    if (IsNumber(values))
        return Matrix(ReadNumber<double>(values, argument));
    auto const elements = ReadArray<double>(values, {n, n}, argument);
    Matrix matrix(0.0);
    std::memcpy(vexor::detail::FirstElement(matrix), elements.data(), sizeof(double) * n * n);
    return matrix;
}

/// The right-hand sides: one vector, or a sequence of vectors.
template <class Vector>
std::vector<Vector> VectorsOf(py::sequence const& sequence)
{
    std::vector<Vector> vectors;
    for (auto const& item : sequence) {
        if (!py::isinstance<Vector>(item))
            throw py::type_error("rightSides: wanted a sequence of vectors, which holds a "
                                 + ClassName(item));
        vectors.push_back(item.template cast<Vector>());
    }
    return vectors;
}

template <class Matrix>
Class<Matrix> BindMatrix(py::module_& module, char const* className)
{
    using Vector = typename Row<Matrix>::Type;
    constexpr int n = Row<Matrix>::count;
    std::string const name = className;
    auto const row = py::arg("row");
    auto const column = py::arg("column");
    auto const values = py::arg("values");
    Class<Matrix> c(module, className);
    c.Note("without arguments all elements are 0. `values` is a number for all elements, or nested sequences "
           "or an "
           "array of shape "
           + ShapeText({n, n}) + ".");
    c.Init(py::init([] { return Matrix(0.0); }));
    if constexpr (n == 3)
        c.Init(py::init<Vector const&, Vector const&, Vector const&>(), py::arg("row0"), py::arg("row1"),
               py::arg("row2"));
    else
        c.Init(py::init<Vector const&, Vector const&>(), py::arg("row0"), py::arg("row1"));
    c.Init(py::init([name](py::object const& object) {
               if (py::isinstance<Matrix>(object))
                   return Matrix(object.cast<Matrix const&>());
               if constexpr (n == 3) {
                   if (py::isinstance<MatDbl>(object))
                       return Matrix(object.cast<MatDbl const&>());
               }
               RefuseOwnClass(object, name.c_str());
               return FromRows<Matrix>(object, (name + ": values").c_str());
           }),
           values);
    BindAssignments<Matrix>(c);

    auto const index = [](py::ssize_t i) { return static_cast<unsigned int>(CheckedIndex(i, n)); };
    c.Note("an index out of range raises IndexError. To write an element: m[row, column] = value.");
    c.Named(
        "__call__", "operator()",
        [](Matrix const& self, py::ssize_t i, py::ssize_t j) {
            return self(CheckedIndex(i, n), CheckedIndex(j, n));
        },
        row, column);
    c.Def(
        "__getitem__",
        [](Matrix const& self, std::pair<py::ssize_t, py::ssize_t> const& at) {
            return self(CheckedIndex(at.first, n), CheckedIndex(at.second, n));
        },
        py::arg("at"));
    c.Def(
        "__setitem__",
        [](Matrix& self, std::pair<py::ssize_t, py::ssize_t> const& at, double value) {
            self(CheckedIndex(at.first, n), CheckedIndex(at.second, n)) = value;
        },
        py::arg("at"), py::arg("value"));
    if constexpr (n == 3)
        c.Note("the row is a part of the matrix and keeps it alive.")
            .Def(
                "GetRow", [index](Matrix& self, py::ssize_t i) -> Vector& { return self.GetRow(index(i)); },
                row);
    else
        c.Note("returns a copy, since C++ has no form that writes.")
            .Def(
                "GetRow",
                [index](Matrix const& self, py::ssize_t i) { return Vector(self.GetRow(index(i))); }, row);
    c.Def(
        "SetRow",
        [index](Matrix& self, py::ssize_t i, Vector const& vector) -> Matrix& {
            return self.SetRow(index(i), vector);
        },
        row, values);
    c.Def(
        "GetCol", [index](Matrix const& self, py::ssize_t i) { return self.GetCol(index(i)); }, column);
    c.Def(
        "SetCol",
        [index](Matrix& self, py::ssize_t i, Vector const& vector) -> Matrix& {
            return self.SetCol(index(i), vector);
        },
        column, values);
    c.Def("GetDiagonal", &Matrix::GetDiagonal);
    c.Def("SetDiagonal", static_cast<Matrix& (Matrix::*)(Vector const&)>(&Matrix::SetDiagonal), values);
    c.Def("SetDiagonal", static_cast<Matrix& (Matrix::*)(double)>(&Matrix::SetDiagonal), py::arg("value"));
    c.Def("SetValue", static_cast<Matrix& (Matrix::*)(double)>(&Matrix::SetValue), py::arg("value"));
    if constexpr (n == 3)
        c.Def(
            "SetValue",
            static_cast<Matrix& (Matrix::*)(Vector const&, Vector const&, Vector const&)>(&Matrix::SetValue),
            py::arg("row0"), py::arg("row1"), py::arg("row2"));
    else
        c.Def("SetValue", static_cast<Matrix& (Matrix::*)(Vector const&, Vector const&)>(&Matrix::SetValue),
              py::arg("row0"), py::arg("row1"));
    c.Note("returns copies of the rows as a tuple.").Def("GetValue", &Rows<Matrix>);

    c.Def("Identity", &Matrix::Identity).Def("Transpose", &Matrix::Transpose);
    c.Def("GetTransposedCopy", &Matrix::GetTransposedCopy);
    c.Def("Negate", &Matrix::Negate).Def("GetNegatedCopy", &Matrix::GetNegatedCopy);
    c.Def("Invert", &Matrix::Invert).Def("GetInvertedCopy", &Matrix::GetInvertedCopy);
    c.EqualAndCopied();
    c.Operator("__imul__", "operator*=", &Matrix::operator*=);
    c.Operator("__itruediv__", "operator/=", &Matrix::operator/=);
    c.Operator("__iadd__", "operator+=", &Matrix::operator+=);
    c.Operator("__isub__", "operator-=", &Matrix::operator-=);
    c.Operator("__add__", "operator+", [](Matrix const& left, Matrix const& right) { return left + right; });
    c.Operator("__sub__", "operator-", [](Matrix const& left, Matrix const& right) { return left - right; });
    c.Operator("__neg__", "operator-", [](Matrix const& matrix) { return -matrix; });
    c.Operator("__mul__", "operator*", [](Matrix const& left, Matrix const& right) { return left * right; });
    c.Operator("__mul__", "operator*", [](Matrix const& left, Vector const& right) { return left * right; });
    c.Operator("__mul__", "operator*", [](Matrix const& left, double scalar) { return left * scalar; });
    c.Operator("__rmul__", "operator*", [](Matrix const& left, double scalar) { return scalar * left; });
    c.Operator("__truediv__", "operator/", [](Matrix const& left, double scalar) { return left / scalar; });

    c.ConvertedToArray();
    c.def_buffer([](Matrix& self) {
        return py::buffer_info(vexor::detail::FirstElement(self), {n, n},
                               {n * sizeof(double), sizeof(double)});
    });
    c.Def("__repr__", [name](Matrix const& self) {
        std::string text = name;
        for (unsigned int i = 0; i < n; ++i)
            text +=
                (i == 0 ? "(Vec" : ", Vec") + std::to_string(n) + "Dbl(" + ElementsText(self.GetRow(i)) + ")";
        return text + ")";
    });
    c.Def("__reduce__", [](py::object const& self) {
        return py::make_tuple(py::type::of(self), Rows(self.cast<Matrix const&>()));
    });
    return c;
}

/// ReSolve reads the row order of the last factorisation, which only a factorisation writes, behind the elements.
void RequireFactors(Mat3Dbl const& matrix)
{
    unsigned char order[3];
    std::memcpy(order, reinterpret_cast<unsigned char const*>(&matrix) + 9 * sizeof(double), 3);
    if (order[0] > 2 || order[1] > 2 || order[2] > 2)
        vexor::detail::RaiseComputationFailed();
}

py::tuple Decompose(py::object const& values)
{
    auto const square = py::array::ensure(values);
    if (!square || square.ndim() != 2 || square.shape(0) != square.shape(1)) {
        PyErr_Clear();
        throw py::value_error("matrix: wanted numbers of shape (n, n)");
    }
    auto const rows = square.shape(0);
    if (rows > 255)
        return py::make_tuple(-1, square, py::bytes());
    auto const read = ReadArray<double>(square, {rows, rows}, "matrix");
    py::array_t<double, py::array::c_style> factors({rows, rows});
    std::copy_n(read.data(), rows * rows, factors.mutable_data());
    std::vector<unsigned char> order(static_cast<std::size_t>(rows) + 1);
    int const status = small_decompose(factors.mutable_data(), order.data(), static_cast<int>(rows));
    return py::make_tuple(
        status, factors,
        py::bytes(reinterpret_cast<char const*>(order.data()), static_cast<std::size_t>(rows)));
}

py::array Substitute(py::object const& values, py::object const& rightSides, py::bytes const& pivotOrder)
{
    std::string order = pivotOrder;
    auto const rows = static_cast<py::ssize_t>(order.size());
    auto const factors = ReadArray<double>(values, {rows, rows}, "factors");
    for (char row : order)
        CheckedIndex(static_cast<unsigned char>(row), rows);
    auto const shape = py::array::ensure(rightSides);
    py::ssize_t const count = shape && shape.ndim() == 2 ? shape.shape(0) : 1;
    if (count != 1 && count != rows)
        throw py::value_error("rightSides: wanted numbers of shape (n,), (1, n) or (n, n)");
    bool const isMatrix = shape && shape.ndim() == 2;
    auto const read = ReadArray<double>(
        rightSides, isMatrix ? std::vector<py::ssize_t>{count, rows} : std::vector<py::ssize_t>{rows},
        "rightSides");
    py::array_t<double, py::array::c_style> solutions(
        std::vector<py::ssize_t>(read.shape(), read.shape() + read.ndim()));
    std::copy_n(read.data(), read.size(), solutions.mutable_data());
    std::vector<double> copy(factors.data(), factors.data() + factors.size());
    small_substitution(copy.data(), solutions.mutable_data(), reinterpret_cast<unsigned char*>(order.data()),
                       static_cast<int>(rows), static_cast<int>(count));
    return std::move(solutions);
}

} // namespace

void BindMatrices(py::module_& module)
{
    auto mat3 = BindMatrix<Mat3Dbl>(module, "Mat3Dbl");
    auto mat2 = BindMatrix<Mat2Dbl>(module, "Mat2Dbl");
    auto const side = py::arg("rightSide");
    auto const sides = py::arg("rightSides");
    std::string const solved = "returns the solution, or a list of them; the argument is unchanged. ";

    mat3.Def("RowSum", &Mat3Dbl::RowSum).Def("RowAverage", &Mat3Dbl::RowAverage);
    mat3.Operator("__mul__", "operator*",
                  [](Mat3Dbl const& left, Vec3Flt const& right) { return left * right; });
    mat3.Operator("__mul__", "operator*",
                  [](Mat3Dbl const& left, Pnt3Dbl const& right) { return left * right; });
    mat3.Operator("__mul__", "operator*",
                  [](Mat3Dbl const& left, Pnt3Flt const& right) { return left * right; });
    auto const oneOrThree = [](std::vector<Vec3Dbl> const& vectors) {
        if (vectors.size() != 1 && vectors.size() != 3)
            throw py::value_error("rightSides: wanted 1 or 3 vectors, got " + std::to_string(vectors.size()));
    };
    mat3.Note(solved + "A sequence has 1 or 3 vectors.");
    mat3.Def(
        "Solve",
        [](Mat3Dbl& self, Vec3Dbl vector) {
            self.Solve(vector);
            return vector;
        },
        side);
    mat3.Def(
        "Solve",
        [oneOrThree](Mat3Dbl& self, py::sequence const& sequence) {
            auto vectors = VectorsOf<Vec3Dbl>(sequence);
            oneOrThree(vectors);
            self.Solve(vectors.data(), static_cast<int>(vectors.size()));
            return vectors;
        },
        sides);
    mat3.Note(solved + "Raises VexorComputationFailed if the object has no row order of a factorisation.");
    mat3.Def(
        "ReSolve",
        [](Mat3Dbl& self, Vec3Dbl vector) {
            RequireFactors(self);
            self.ReSolve(vector);
            return vector;
        },
        side);
    mat3.Def(
        "ReSolve",
        [oneOrThree](Mat3Dbl& self, py::sequence const& sequence) {
            auto vectors = VectorsOf<Vec3Dbl>(sequence);
            oneOrThree(vectors);
            RequireFactors(self);
            self.ReSolve(vectors.data(), static_cast<int>(vectors.size()));
            return vectors;
        },
        sides);
    mat3.Note("returns the singular values.").Def("Svd", [](Mat3Dbl& self) {
        Vec3Dbl values(0.0);
        self.Svd(values);
        return values;
    });
    mat3.Note("returns the eigenvalues.")
        .Def(
            "EigenSym",
            [](Mat3Dbl& self, int wantVectors) {
                Vec3Dbl values(0.0);
                self.EigenSym(values, wantVectors);
                return values;
            },
            py::arg("wantVectors"));
    mat3.Note("returns the eigenvector.")
        .Def(
            "GetEigenVectorGivenEigenValue",
            [](Mat3Dbl& self, double value) {
                Vec3Dbl vector(0.0);
                self.GetEigenVectorGivenEigenValue(vector, value);
                return vector;
            },
            py::arg("eigenValue"));

    mat2.Operator("__mul__", "operator*",
                  [](Mat2Dbl const& left, Vec2Flt const& right) { return left * right; });
    // Only within a map do the two doubles that follow the matrix belong to the program.
    auto const requireMap = [](py::handle self) {
        if (reinterpret_cast<py::detail::instance*>(self.ptr())->owned)
            throw py::type_error(
                "only the LinearPart() of an AffMat2Dbl has the two numbers behind the matrix");
        return self.cast<Mat2Dbl*>();
    };
    mat2.Note("another matrix than the LinearPart() of an AffMat2Dbl raises TypeError.");
    mat2.Def("RowSum", [requireMap](py::object const& self) { return requireMap(self)->RowSum(); });
    mat2.Note("another matrix than the LinearPart() of an AffMat2Dbl raises TypeError.");
    mat2.Def("RowAverage", [requireMap](py::object const& self) { return requireMap(self)->RowAverage(); });
    for (char const* member : {"Solve", "ReSolve"}) {
        bool const inverts = member == std::string_view("Solve");
        mat2.Note(solved).Def(
            member,
            [inverts](Mat2Dbl& self, Vec2Dbl vector) {
                inverts ? self.Solve(vector) : self.ReSolve(vector);
                return vector;
            },
            side);
        mat2.Def(
            member,
            [inverts](Mat2Dbl& self, py::sequence const& sequence) {
                auto vectors = VectorsOf<Vec2Dbl>(sequence);
                auto const count = static_cast<int>(vectors.size());
                inverts ? self.Solve(vectors.data(), count) : self.ReSolve(vectors.data(), count);
                return vectors;
            },
            sides);
    }
    mat2.Note("returns the eigenvalues.")
        .Def(
            "EigenSym",
            [](Mat2Dbl& self, int withVectors) {
                Vec2Dbl values(0.0);
                self.EigenSym(values, withVectors);
                return values;
            },
            py::arg("withVectors"));

    auto const doc = [](char const* key, char const* note) {
        return std::string(CommentOf(key)) + "\n\nPython: " + note;
    };
    module.def(
        "small_decompose", &Decompose, py::arg("matrix"),
        doc("small_decompose",
            "returns (status, factors, pivotOrder); the argument is unchanged, and pivotOrder is bytes.")
            .c_str());
    module.def(
        "small_substitution", &Substitute, py::arg("factors"), py::arg("rightSides"), py::arg("pivotOrder"),
        doc("small_substitution", "returns the solutions; the arguments are unchanged. One right-hand side "
                                  "of shape (n,) or n of them in the rows of an array of shape (n, n).")
            .c_str());
}

} // namespace vexor::python
