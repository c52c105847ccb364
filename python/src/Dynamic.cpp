#include "Shared.h"

namespace vexor::python {

std::unordered_map<void const*, py::ssize_t>& Shares()
{
    static std::unordered_map<void const*, py::ssize_t> shares;
    return shares;
}

void ReleaseBuffer(PyObject*, Py_buffer* view)
{
    auto* const details = static_cast<Export*>(view->internal);
    auto const entry = Shares().find(details->owner);
    if (--entry->second == 0)
        Shares().erase(entry);
    delete details;
}

void RequireUnshared(void const* object)
{
    if (Shares().count(object) != 0)
        throw py::buffer_error(
            "an array or memoryview shares the elements, which this operation releases: delete it "
            "first, or work on a copy");
}

namespace {

/// Operations that may release the elements go through this.
template <class Value>
Value& Unshared(Value& value)
{
    RequireUnshared(&value);
    return value;
}

/// The elements of an array for a view: of that shape, writable, and stored as the class stores them.
template <class E>
E* StorageOf(py::handle object, std::vector<py::ssize_t> const& shape)
{
    std::string const type = sizeof(E) == 8 ? "float64" : "float32";
    std::string const copies = "; the class called with the array alone copies it";
    if (!py::isinstance<py::array>(object))
        throw py::type_error("externalStorage: a view needs a numpy.ndarray that holds the elements, not a "
                             + ClassName(object) + copies);
    auto array = py::reinterpret_borrow<py::array>(object);
    if (!py::isinstance<py::array_t<E>>(array))
        throw py::type_error("externalStorage: a view needs elements of type " + type + ", not "
                             + py::str(array.dtype()).template cast<std::string>() + copies);
    std::vector<py::ssize_t> const found(array.shape(), array.shape() + array.ndim());
    if (found != shape)
        throw py::value_error("externalStorage: wanted shape " + ShapeText(shape) + ", got "
                              + ShapeText(found));
    auto const flags = py::detail::array_proxy(array.ptr())->flags;
    if ((flags & py::detail::npy_api::NPY_ARRAY_F_CONTIGUOUS_) == 0)
        throw py::value_error(
            "externalStorage: a view needs elements stored column by column without gaps: make the "
            "array by numpy.asfortranarray or order='F'"
            + copies);
    if (!array.writeable())
        throw py::value_error("externalStorage: a view needs a writable array; this one is read-only"
                              + copies);
    if ((flags & py::detail::npy_api::NPY_ARRAY_ALIGNED_) == 0)
        throw py::value_error("externalStorage: a view needs aligned elements" + copies);
    return static_cast<E*>(array.mutable_data());
}

/// A size that the caller gives, for a shape.
py::ssize_t Positive(int count)
{
    if (count < 1)
        vexor::detail::RaiseAllocationFailed();
    return count;
}

// ---- Vectors ---------------------------------------------------------------------------------------------

/// The sizes are compared here, since C++ reads beyond the end of a shorter one.
template <class Value>
void RequireAsLong(Value const& self, Value const& other)
{
    if (other.Size() < self.Size())
        vexor::detail::RaiseDimensionMismatch();
}

template <class Value>
Value VectorFromObject(py::object const& values, char const* argument)
{
    using E = Element<Value>;
    auto const plain = py::array::ensure(values);
    PyErr_Clear();
    py::ssize_t const count = plain && plain.ndim() == 1 ? plain.size() : 1;
    auto const elements =
        ReadArray<E>(values, {plain && plain.ndim() == 1 && count == 0 ? 1 : count}, argument);
    if (count > 0x7fffffff)
        vexor::detail::RaiseAllocationFailed();
    Value vector(static_cast<int>(count), E(0));
    vector.SetValue(elements.data());
    return vector;
}

template <class Value>
Class<Value> BindVector(py::module_& module, char const* className)
{
    using E = Element<Value>;
    std::string const name = className;
    Class<Value> c(module, className);
    auto const newSize = py::arg("newSize");
    auto const storage = py::arg("externalStorage");
    auto const other = py::arg("other");
    auto const angular = py::arg("angular") = E(-1);
    auto const length = py::arg("length") = E(-1);

    c.Note("new elements are 0. `externalStorage` is a numpy array, which the view keeps alive; called with "
           "a sequence "
           "or array alone the vector copies it.");
    c.Init(py::init([] { return Value(1, E(0)); }));
    c.Init(py::init([](int count) { return Value(count, E(0)); }), newSize);
    c.Init(py::init([](int count, E value) { return Value(count, value); }), newSize, py::arg("value"));
    // By pointer, since a copy of a view is not a view.
    c.Init(py::init([](int count, E value, py::object const& array) {
               return new Value(count, value, StorageOf<E>(array, {Positive(count)}));
           }),
           newSize, py::arg("value"), storage, py::keep_alive<1, 4>());
    c.Init(py::init([](int count, py::object const& array) {
               return new Value(count, StorageOf<E>(array, {Positive(count)}));
           }),
           newSize, storage, py::keep_alive<1, 3>());
    c.Init(py::init<Value const&>(), other);
    if constexpr (isOneOf<Value, VecDbl>) {
        c.Init(py::init<Vec3Dbl const&>(), py::arg("vector"));
        c.Init(py::init<VecFlt const&>(), other);
    }
    c.Init(py::init([name](py::object const& values) {
               RefuseOwnClass(values, name.c_str());
               return VectorFromObject<Value>(values, (name + ": values").c_str());
           }),
           py::arg("values"));
    c.Note("`a.Assign(b)` is the C++ assignment `a = b`: a view stops being a view.");
    c.Named(
        "Assign",
        "operator=", [](Value& self, VecDbl const& from) -> Value& { return Unshared(self) = from; }, other);
    c.Def(
        "Assign", [](Value& self, VecFlt const& from) -> Value& { return Unshared(self) = from; }, other);
    c.Note("new elements are 0. Raises BufferError while an array shares the elements.");
    c.Def(
        "ReSize",
        [](Value& self, int count) {
            int const before = self.Size();
            Unshared(self).ReSize(count);
            if (count != before)
                self.SetValue(E(0));
        },
        newSize);
    c.Def(
        "ReSize", [](Value& self, int count, E value) { Unshared(self).ReSize(count, value); }, newSize,
        py::arg("value"));
    c.Def(
        "ReSize",
        [](Value& self, int count, py::object const& array) {
            Unshared(self).ReSize(count, StorageOf<E>(array, {Positive(count)}));
        },
        newSize, storage, py::keep_alive<1, 3>());
    c.Def(
        "ReSize",
        [](Value& self, int count, E value, py::object const& array) {
            Unshared(self).ReSize(count, value, StorageOf<E>(array, {Positive(count)}));
        },
        newSize, py::arg("value"), storage, py::keep_alive<1, 4>());
    c.Def("Size", &Value::Size);

    auto const item = [](Value const& self, py::ssize_t index) {
        return self[CheckedIndex(index, self.Size())];
    };
    c.Note("an index out of range raises IndexError.");
    c.Named("__getitem__", "operator[]", item, py::arg("index"));
    c.Named("__call__", "operator()", item, py::arg("index"));
    c.Def(
        "__setitem__",
        [](Value& self, py::ssize_t index, E value) { self[CheckedIndex(index, self.Size())] = value; },
        py::arg("index"), py::arg("value"));
    c.Def("__len__", &Value::Size);
    c.Def(
        "SetValue",
        [name](Value& self, py::object const& values) -> Value& {
            if (IsNumber(values))
                return self.SetValue(ReadNumber<E>(values, "value"));
            return self.SetValue(
                ReadArray<E>(values, {self.Size()}, (name + ".SetValue: values").c_str()).data());
        },
        py::arg("values"));
    c.Note("returns the elements as an array.").Def("GetValue", [](Value const& self) {
        py::array_t<E> array(self.Size());
        self.GetValue(array.mutable_data());
        return array;
    });

    c.EqualAndCopied().Hashed();
    c.Operator("__imul__", "operator*=", &Value::operator*=);
    c.Operator("__itruediv__", "operator/=", &Value::operator/=);
    c.Operator("__iadd__", "operator+=", &Value::operator+=);
    c.Operator("__isub__", "operator-=", &Value::operator-=);
    c.Operator("__add__", "operator+", [](Value const& left, Value const& right) { return left + right; });
    c.Operator("__sub__", "operator-", [](Value const& left, Value const& right) { return left - right; });
    c.Operator("__neg__", "operator-", [](Value const& vector) { return -vector; });
    c.Operator("__mul__", "operator*", [](Value const& vector, E scalar) { return vector * scalar; });
    c.Operator("__rmul__", "operator*", [](Value const& vector, E scalar) { return scalar * vector; });
    c.Operator("__truediv__", "operator/", [](Value const& vector, E scalar) { return vector / scalar; });
    c.Def("Negate", &Value::Negate).Def("GetNegatedCopy", &Value::GetNegatedCopy);
    c.Def("LengthSquared", &Value::LengthSquared).Def("Length", &Value::Length);
    c.Note("a shorter `other` raises VexorDimensionMismatch.");
    c.Def(
        "Dot",
        [](Value const& self, Value const& right) {
            RequireAsLong(self, right);
            return self.Dot(right);
        },
        other);
    c.Def("Normalize", &Value::Normalize).Def("GetNormalizedCopy", &Value::GetNormalizedCopy);
    c.Def("ElemMult", &Value::ElemMult, other).Def("ElemDiv", &Value::ElemDiv, other);
    c.Def("GetProjectionOnTo", &Value::GetProjectionOnTo, py::arg("target"));
    c.Def("GetAngleWith", &Value::GetAngleWith, other);
    c.Def("GetAreaFormedByTriangleWith", &Value::GetAreaFormedByTriangleWith, other);
    c.Def("MaxValue", &Value::MaxValue).Def("MinValue", &Value::MinValue);
    c.Def("MaxAbsValue", &Value::MaxAbsValue).Def("MinAbsValue", &Value::MinAbsValue);
    c.Def("MaxValueIdx", &Value::MaxValueIdx).Def("MinValueIdx", &Value::MinValueIdx);
    c.Def("MaxAbsValueIdx", &Value::MaxAbsValueIdx).Def("MinAbsValueIdx", &Value::MinAbsValueIdx);
    c.Def("IsNull", &Value::IsNull).Def("IsZeroLength", &Value::IsZeroLength, length);
    c.Def("IsParallelTo", &Value::IsParallelTo, other, angular, length);
    c.Def("IsCodirectionalTo", &Value::IsCodirectionalTo, other, angular, length);
    c.Def("IsPerpendicularTo", &Value::IsPerpendicularTo, other, angular, length);
    c.Def("IsUnitParallelTo", &Value::IsUnitParallelTo, other, angular);
    c.Def("IsUnitCodirectionalTo", &Value::IsUnitCodirectionalTo, other, angular);
    c.Def("IsUnitPerpendicularTo", &Value::IsUnitPerpendicularTo, other, angular);
    c.Def("IsEqualTo", &Value::IsEqualTo, other, angular, length);

    c.ConvertedToArray();
    c.Def("__repr__", [name](Value const& self) { return name + "([" + ElementsText(self) + "])"; });
    c.Def("__reduce__", [](py::object const& self) {
        return py::make_tuple(py::type::of(self),
                              py::make_tuple(py::list(Elements(self.cast<Value const&>()))));
    });
    return c;
}

// ---- The matrix ------------------------------------------------------------------------------------------

double* MatrixStorage(int rows, int columns, py::object const& array)
{
    return StorageOf<double>(array, {Positive(rows), Positive(columns)});
}

MatDbl MatrixFromObject(py::object const& values)
{
    RefuseOwnClass(values, "MatDbl");
    auto const plain = py::array::ensure(values);
    PyErr_Clear();
    if (!plain || plain.ndim() != 2 || plain.size() == 0 || plain.shape(0) > 0x7fffffff
        || plain.shape(1) > 0x7fffffff)
        throw py::value_error("MatDbl: values: wanted numbers of shape (rows, columns), both at least 1");
    auto const rows = static_cast<int>(plain.shape(0));
    auto const columns = static_cast<int>(plain.shape(1));
    auto const elements = ReadArray<double>(values, {rows, columns}, "MatDbl: values");
    MatDbl matrix(rows, columns);
    auto const read = elements.unchecked<2>();
    for (int j = 0; j < columns; ++j) {
        for (int i = 0; i < rows; ++i)
            matrix(i, j) = read(i, j);
    }
    return matrix;
}

/// Binds a member that overwrites its argument, a vector or a matrix: the result is the overwritten copy.
template <void (MatDbl::*ofVector)(VecDbl&), void (MatDbl::*ofMatrix)(MatDbl&)>
void BindSolve(Class<MatDbl>& c, char const* member)
{
    c.Note("returns the solution; the argument is unchanged.");
    c.Def(
        member,
        [](MatDbl& self, VecDbl const& b) {
            VecDbl solution(b);
            (self.*ofVector)(solution);
            return solution;
        },
        py::arg("b"));
    c.Def(
        member,
        [](MatDbl& self, MatDbl const& b) {
            MatDbl solution(b);
            (self.*ofMatrix)(solution);
            return solution;
        },
        py::arg("b"));
}

py::list RowLists(MatDbl const& matrix)
{
    py::list rows;
    for (int i = 0; i < matrix.RowCount(); ++i)
        rows.append(py::list(Elements(matrix.GetRow(i))));
    return rows;
}

void BindMatDbl(py::module_& module)
{
    Class<MatDbl> c(module, "MatDbl");
    auto const rows = py::arg("rows");
    auto const cols = py::arg("cols");
    auto const value = py::arg("value");
    auto const storage = py::arg("externalStorage");
    auto const row = py::arg("row");
    auto const column = py::arg("column");
    auto const other = py::arg("other");

    c.Note("new elements are 0. `externalStorage` is a numpy array of shape (rows, cols) in Fortran order, "
           "which the "
           "view keeps alive; called with nested sequences or an array alone the matrix copies them.");
    c.Init(py::init([] { return MatDbl(1, 1, 0.0); }));
    c.Init(py::init([](int m, int n) { return MatDbl(m, n, 0.0); }), rows, cols);
    c.Init(py::init([](int m, int n, double x) { return MatDbl(m, n, x); }), rows, cols, value);
    c.Init(py::init([](int m, int n, py::object const& array) {
               return new MatDbl(m, n, MatrixStorage(m, n, array));
           }),
           rows, cols, storage, py::keep_alive<1, 4>());
    c.Init(py::init([](int m, int n, double x, py::object const& array) {
               return new MatDbl(m, n, x, MatrixStorage(m, n, array));
           }),
           rows, cols, value, storage, py::keep_alive<1, 5>());
    c.Init(py::init<MatDbl const&>(), other);
    c.Init(py::init<Mat3Dbl const&>(), other);
    c.Init(py::init(&MatrixFromObject), py::arg("values"));
    c.Note("`a.Assign(b)` is the C++ assignment `a = b`: a view stops being a view.");
    c.Named(
        "Assign",
        "operator=", [](MatDbl& self, MatDbl const& from) -> MatDbl& { return Unshared(self) = from; },
        other);
    c.Note("new elements are 0. Raises BufferError while an array shares the elements.");
    c.Def(
        "ReSize",
        [](MatDbl& self, int m, int n) {
            bool const keeps = py::ssize_t(m) * n == py::ssize_t(self.RowCount()) * self.ColumnCount();
            Unshared(self).ReSize(m, n);
            if (!keeps)
                self.SetValue(0.0);
        },
        rows, cols);
    c.Def(
        "ReSize", [](MatDbl& self, int m, int n, double x) { Unshared(self).ReSize(m, n, x); }, rows, cols,
        value);
    c.Def(
        "ReSize",
        [](MatDbl& self, int m, int n, py::object const& array) {
            Unshared(self).ReSize(m, n, MatrixStorage(m, n, array));
        },
        rows, cols, storage, py::keep_alive<1, 4>());
    c.Def(
        "ReSize",
        [](MatDbl& self, int m, int n, double x, py::object const& array) {
            Unshared(self).ReSize(m, n, x, MatrixStorage(m, n, array));
        },
        rows, cols, value, storage, py::keep_alive<1, 5>());
    c.Def("RowCount", &MatDbl::RowCount).Def("ColumnCount", &MatDbl::ColumnCount);

    c.Note("an index out of range raises IndexError. To write an element: m[row, column] = value.");
    c.Named(
        "__call__", "operator()",
        [](MatDbl const& self, py::ssize_t i, py::ssize_t j) {
            return self(CheckedIndex(i, self.RowCount()), CheckedIndex(j, self.ColumnCount()));
        },
        row, column);
    using Index = std::pair<py::ssize_t, py::ssize_t>;
    c.Def(
        "__getitem__",
        [](MatDbl const& self, Index const& at) {
            return self(CheckedIndex(at.first, self.RowCount()), CheckedIndex(at.second, self.ColumnCount()));
        },
        py::arg("at"));
    c.Def(
        "__setitem__",
        [](MatDbl& self, Index const& at, double x) {
            self(CheckedIndex(at.first, self.RowCount()), CheckedIndex(at.second, self.ColumnCount())) = x;
        },
        py::arg("at"), value);
    c.Note("an index out of range raises IndexError.");
    c.Def(
        "GetRow",
        [](MatDbl const& self, py::ssize_t i) { return self.GetRow(CheckedIndex(i, self.RowCount())); }, row);
    c.Note("an index out of range raises IndexError.");
    c.Def(
        "GetCol",
        [](MatDbl const& self, py::ssize_t j) { return self.GetCol(CheckedIndex(j, self.ColumnCount())); },
        column);
    c.Def("SetRow", &MatDbl::SetRow, row, py::arg("rowValues"));
    c.Def("SetCol", &MatDbl::SetCol, column, py::arg("columnValues"));
    c.Def("GetDiagonal", &MatDbl::GetDiagonal);
    c.Def("SetDiagonal", static_cast<MatDbl& (MatDbl::*)(VecDbl const&)>(&MatDbl::SetDiagonal),
          py::arg("diagonal"));
    c.Def("SetDiagonal", static_cast<MatDbl& (MatDbl::*)(double)>(&MatDbl::SetDiagonal), value);
    c.Def("SetValue", &MatDbl::SetValue, value).Def("Identity", &MatDbl::Identity);

    c.EqualAndCopied();
    c.Operator("__imul__", "operator*=", &MatDbl::operator*=);
    c.Operator("__itruediv__", "operator/=", &MatDbl::operator/=);
    c.Operator("__iadd__", "operator+=", &MatDbl::operator+=);
    c.Operator("__isub__", "operator-=", &MatDbl::operator-=);
    c.Operator("__add__", "operator+", [](MatDbl const& left, MatDbl const& right) { return left + right; });
    c.Operator("__sub__", "operator-", [](MatDbl const& left, MatDbl const& right) { return left - right; });
    c.Operator("__neg__", "operator-", [](MatDbl const& matrix) { return -matrix; });
    c.Operator("__mul__", "operator*", [](MatDbl const& left, MatDbl const& right) { return left * right; });
    c.Operator("__mul__", "operator*", [](MatDbl const& left, VecDbl const& right) { return left * right; });
    c.Operator("__mul__", "operator*", [](MatDbl const& left, VecFlt const& right) { return left * right; });
    c.Operator("__mul__", "operator*", [](MatDbl const& left, double scalar) { return left * scalar; });
    c.Operator("__rmul__", "operator*", [](MatDbl const& left, double scalar) { return scalar * left; });
    c.Operator("__truediv__", "operator/", [](MatDbl const& left, double scalar) { return left / scalar; });
    c.Def("Negate", &MatDbl::Negate).Def("GetNegatedCopy", &MatDbl::GetNegatedCopy);
    c.Note("raises BufferError while an array shares the elements.");
    c.Def("Transpose", [](MatDbl& self) -> MatDbl& { return Unshared(self).Transpose(); });
    c.Def("GetTransposedCopy", &MatDbl::GetTransposedCopy);
    c.Def("RowSum", &MatDbl::RowSum).Def("RowAverage", &MatDbl::RowAverage);

    BindSolve<&MatDbl::Solve, &MatDbl::Solve>(c, "Solve");
    BindSolve<&MatDbl::ReSolve, &MatDbl::ReSolve>(c, "ReSolve");
    BindSolve<&MatDbl::SolveSym, &MatDbl::SolveSym>(c, "SolveSym");
    BindSolve<&MatDbl::ReSolveSym, &MatDbl::ReSolveSym>(c, "ReSolveSym");
    BindSolve<&MatDbl::SolveLinearLeastSquares, &MatDbl::SolveLinearLeastSquares>(c,
                                                                                  "SolveLinearLeastSquares");
    c.Note("raises BufferError while an array shares the elements.");
    c.Def("Invert", [](MatDbl& self) -> MatDbl& { return Unshared(self).Invert(); });
    c.Def("GetInvertedCopy", &MatDbl::GetInvertedCopy);
    c.Note("returns the singular values.").Def("Svd", [](MatDbl& self) {
        VecDbl values(1, 0.0);
        self.Svd(values);
        return values;
    });
    c.Note("returns the eigenvalues.")
        .Def(
            "EigenSym",
            [](MatDbl& self, int wantVectors, int first, int last) {
                VecDbl values(self.RowCount(), 0.0);
                self.EigenSym(values, wantVectors, first, last);
                return values;
            },
            py::arg("wantVectors"), py::arg("firstIndex"), py::arg("lastIndex"));

    c.ConvertedToArray();
    c.Def("__repr__", [](MatDbl const& self) {
        std::string text = "MatDbl([";
        for (int i = 0; i < self.RowCount(); ++i)
            text += (i == 0 ? "[" : ", [") + ElementsText(self.GetRow(i)) + "]";
        return text + "])";
    });
    c.Note("the pivots of a factorisation are not pickled; a copy has them.");
    c.Def("__reduce__", [](py::object const& self) {
        return py::make_tuple(py::type::of(self), py::make_tuple(RowLists(self.cast<MatDbl const&>())));
    });
}

} // namespace

void BindDynamic(py::module_& module)
{
    auto vector = BindVector<VecDbl>(module, "VecDbl");
    BindVector<VecFlt>(module, "VecFlt");
    vector.Def("Sum", &VecDbl::Sum);
    vector.Note("a shorter `other` raises VexorDimensionMismatch. Elements beyond the size hold that size.");
    vector.Def(
        "OuterProduct",
        [](VecDbl const& self, VecDbl const& right) {
            if (self.Size() <= 3)
                RequireAsLong(self, right);
            return self.OuterProduct(right);
        },
        py::arg("other"));
    BindMatDbl(module);
}

} // namespace vexor::python
