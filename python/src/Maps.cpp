#include "Bind.h"

namespace vexor::python {

namespace {

/// What the affine maps have alike; `columns` is the column of the translation.
template <class Map, class Matrix, class Vector, int columns>
Class<Map> BindMap(py::module_& module, char const* className)
{
    std::string const name = className;
    Class<Map> c(module, className);
    c.Init(py::init<>());
    if constexpr (columns == 3)
        c.Init(py::init<double>(), py::arg("value"));
    c.Init(py::init<Matrix const&, Vector const&>(), py::arg("linearPart"), py::arg("translation"));
    c.Init(py::init<Map const&>(), py::arg("other"));
    BindAssignments<Map>(c);
    c.Note("the part keeps the map alive.").Def("LinearPart", [](Map& self) -> Matrix& {
        return self.LinearPart();
    });
    c.Note("the part keeps the map alive.").Def("Translation", [](Map& self) -> Vector& {
        return self.Translation();
    });
    c.Def("SetLinearPart", &Map::SetLinearPart, py::arg("linearPart"));
    c.Def("SetTranslation", static_cast<Map& (Map::*)(Vector const&)>(&Map::SetTranslation),
          py::arg("translation"));
    auto const at = [](py::ssize_t row, py::ssize_t column) {
        return std::pair<int, int>(CheckedIndex(row, columns),
                                   column >= columns ? columns : CheckedIndex(column, columns));
    };
    c.Note("a row out of range or a negative column raises IndexError. To write an element: a[row, column] = "
           "value.");
    c.Named(
        "__call__", "operator()",
        [at](Map const& self, py::ssize_t row, py::ssize_t column) {
            auto const [i, j] = at(row, column);
            return self(i, j);
        },
        py::arg("row"), py::arg("column"));
    c.Def(
        "__getitem__",
        [at](Map const& self, std::pair<py::ssize_t, py::ssize_t> const& index) {
            auto const [i, j] = at(index.first, index.second);
            return self(i, j);
        },
        py::arg("at"));
    c.Def(
        "__setitem__",
        [at](Map& self, std::pair<py::ssize_t, py::ssize_t> const& index, double value) {
            auto const [i, j] = at(index.first, index.second);
            self(i, j) = value;
        },
        py::arg("at"), py::arg("value"));
    c.Def("Invert", &Map::Invert).Def("GetInvertedCopy", &Map::GetInvertedCopy);
    c.Operator("__mul__", "operator*", [](Map const& left, Map const& right) { return left * right; });
    c.Copied();
    c.Note("a copy of shape " + ShapeText({columns, columns + 1}) + ", the translation in the last column.")
        .Def(
            "__array__",
            [](Map const& self, py::object const& dtype) {
                py::array_t<double> array({columns, columns + 1});
                for (int row = 0; row < columns; ++row) {
                    for (int column = 0; column <= columns; ++column)
                        array.mutable_at(row, column) = self(row, column);
                }
                return py::object(array.attr("astype")(dtype.is_none() ? py::dtype::of<double>() : dtype));
            },
            py::arg("dtype") = py::none());
    c.Def("__repr__", [name](Map const& self) {
        return name + "(" + py::repr(py::cast(self.LinearPart())).template cast<std::string>() + ", "
               + py::repr(py::cast(self.Translation())).template cast<std::string>() + ")";
    });
    c.Def("__reduce__", [](py::object const& self) {
        auto const& map = self.cast<Map const&>();
        return py::make_tuple(py::type::of(self),
                              py::make_tuple(Matrix(map.LinearPart()), Vector(map.Translation())));
    });
    return c;
}

template <class... Values, class Map>
void BindProducts(Class<Map>& c)
{
    (c.Operator("__mul__", "operator*", [](Map const& map, Values const& value) { return map * value; }),
     ...);
}

} // namespace

void BindMaps(py::module_& module)
{
    auto map3 = BindMap<AffMat3Dbl, Mat3Dbl, Vec3Dbl, 3>(module, "AffMat3Dbl");
    auto map2 = BindMap<AffMat2Dbl, Mat2Dbl, Vec2Dbl, 2>(module, "AffMat2Dbl");
    BindProducts<Pnt3Dbl, Vec3Dbl, Vec3Flt, Pnt3Flt>(map3);
    BindProducts<Pnt2Dbl, Vec2Dbl, Vec2Flt, Pnt2Flt>(map2);

    map3.EqualAndCopied();
    map3.Def(
        "SetTranslation",
        static_cast<AffMat3Dbl& (AffMat3Dbl::*)(Pnt3Dbl const&, Pnt3Dbl const&)>(&AffMat3Dbl::SetTranslation),
        py::arg("from_"), py::arg("to"));
    map3.Def(
        "GetCol",
        [](AffMat3Dbl const& self, py::ssize_t column) { return self.GetCol(CheckedIndex(column, 4)); },
        py::arg("column"));
    map3.Note("returns an array of shape (3, 4).").Def("GetMatrixData", [](AffMat3Dbl const& self) {
        py::array_t<double> data({3, 4});
        self.GetMatrixData(data.mutable_data());
        return data;
    });
    map3.Note("`data` has the shape (3, 4) or (4, 4).")
        .Def(
            "SetMatrixData",
            [](AffMat3Dbl& self, py::object const& data) {
                auto const array = py::array::ensure(data);
                py::ssize_t const rows = array && array.ndim() == 2 && array.shape(0) == 4 ? 4 : 3;
                PyErr_Clear();
                auto const read = ReadArray<double>(data, {rows, 4}, "data");
                std::vector<double> elements(read.data(), read.data() + 12);
                self.SetMatrixData(elements.data());
            },
            py::arg("data"));
    map3.Operator("__iadd__", "operator+=", &AffMat3Dbl::operator+=);
    map3.Operator("__isub__", "operator-=", &AffMat3Dbl::operator-=);
    map3.Operator("__imul__", "operator*=", &AffMat3Dbl::operator*=);
    map3.Operator("__itruediv__", "operator/=", &AffMat3Dbl::operator/=);
    map3.Operator("__add__", "operator+", &AffMat3Dbl::operator+);
    map3.Operator("__sub__", "operator-", &AffMat3Dbl::operator-);
    map3.Def("Identity", &AffMat3Dbl::Identity);
    map3.Def("SetRotation",
             static_cast<AffMat3Dbl& (AffMat3Dbl::*)(Pnt3Dbl const&, Vec3Dbl const&, double)>(
                 &AffMat3Dbl::SetRotation),
             py::arg("point"), py::arg("axis"), py::arg("angle"));
    map3.Def("SetRotation",
             static_cast<AffMat3Dbl& (AffMat3Dbl::*)(Pnt3Dbl const&, Vec3Dbl const&, Vec3Dbl const&)>(
                 &AffMat3Dbl::SetRotation),
             py::arg("point"), py::arg("from_"), py::arg("to"));
}

} // namespace vexor::python
