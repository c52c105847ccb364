#include "Bind.h"

namespace vexor::python {

void BindRotations(py::module_& module)
{
    Class<Quaternion> c(module, "Quaternion");
    auto const axis = py::arg("axis");
    auto const angle = py::arg("angle");
    auto const normalize = py::arg("normalize");
    auto const x = py::arg("x");
    auto const y = py::arg("y");
    auto const z = py::arg("z");
    c.Init(py::init<>());
    c.Init(py::init<Quaternion const&>(), py::arg("other"));
    c.Init(py::init<double, double, double, double, int>(), x, y, z, angle, normalize);
    c.Init(py::init<Vec3Dbl const&, double, int>(), axis, angle, normalize);
    c.Init(py::init<Mat3Dbl const&>(), py::arg("matrix"));
    BindAssignments<Quaternion>(c);
    c.Field("u", &Quaternion::u)
        .Field("v", &Quaternion::v)
        .Field("w", &Quaternion::w)
        .Field("s", &Quaternion::s);

    auto const index = [](py::ssize_t i) { return i > 3 ? 3 : CheckedIndex(i, 4); };
    c.Note("a negative index raises IndexError.");
    c.Named(
        "__getitem__", "operator[]",
        [index](Quaternion const& self, py::ssize_t i) { return self[index(i)]; }, py::arg("index"));
    c.Def(
        "__setitem__", [index](Quaternion& self, py::ssize_t i, double value) { self[index(i)] = value; },
        py::arg("index"), py::arg("value"));
    c.Def("__len__", [](Quaternion const&) { return 4; });
    auto const components = [](Quaternion const& q) { return py::make_tuple(q.u, q.v, q.w, q.s); };
    c.Def("__iter__", [components](Quaternion const& self) { return py::iter(components(self)); });

    c.EqualAndCopied();
    c.Operator("__lt__", "operator<", &Quaternion::operator<);
    c.Def("GetSParam", &Quaternion::GetSParam).Def("GetUvwParam", &Quaternion::GetUvwParam);
    c.Def("Identity", &Quaternion::Identity).Def("IsIdentity", &Quaternion::IsIdentity);
    c.Def("SetValue", &Quaternion::SetValue, py::arg("u0"), py::arg("v0"), py::arg("w0"), py::arg("s0"),
          normalize);
    c.Def("Normalize", &Quaternion::Normalize);
    c.Def("Invert", &Quaternion::Invert)
        .Def("NegateAngle", &Quaternion::NegateAngle)
        .Def("Inverse", &Quaternion::Inverse);
    c.Operator("__mul__", "operator*", &Quaternion::operator*);
    c.Def("RotatePoint", static_cast<Vec3Dbl (Quaternion::*)(Vec3Dbl const&) const>(&Quaternion::RotatePoint),
          py::arg("vector"));
    c.Def("RotatePoint", static_cast<Pnt3Dbl (Quaternion::*)(Pnt3Dbl const&) const>(&Quaternion::RotatePoint),
          py::arg("point"));
    c.Def("GetAngle", &Quaternion::GetAngle).Def("GetAbsoluteAngle", &Quaternion::GetAbsoluteAngle);
    c.Def("Distance", &Quaternion::Distance, py::arg("other"));
    c.Def("SetAxisAngle",
          static_cast<Quaternion& (Quaternion::*)(double, double, double, double, int)>(
              &Quaternion::SetAxisAngle),
          x, y, z, angle, normalize);
    c.Def("SetAxisAngle",
          static_cast<Quaternion& (Quaternion::*)(Vec3Dbl const&, double, int)>(&Quaternion::SetAxisAngle),
          axis, angle, normalize);
    c.Def("SetAxisCosAngle", &Quaternion::SetAxisCosAngle, axis, py::arg("cosine"), normalize);
    c.Def("GetAxis", &Quaternion::GetAxis, normalize);
    c.Def("SetFromMatrix", &Quaternion::SetFromMatrix, py::arg("matrix"));
    c.Note("returns the matrix.").Def("GetRotationMatrix", [](Quaternion const& self) {
        Mat3Dbl matrix(0.0);
        self.GetRotationMatrix(matrix);
        return matrix;
    });
    c.Def(
        "GetCol", [](Quaternion const& self, py::ssize_t i) { return self.GetCol(CheckedIndex(i, 3)); },
        py::arg("index"));
    c.Def(
        "GetRow", [](Quaternion const& self, py::ssize_t i) { return self.GetRow(CheckedIndex(i, 3)); },
        py::arg("index"));
    c.Def("XAxis", &Quaternion::XAxis).Def("YAxis", &Quaternion::YAxis).Def("ZAxis", &Quaternion::ZAxis);
    c.Def("GetEulerAngles", &Quaternion::GetEulerAngles);
    c.Def("SetFromEulerAngles", &Quaternion::SetFromEulerAngles, py::arg("angles"));

    c.ConvertedToArray();
    c.def_buffer([](Quaternion& self) { return py::buffer_info(&self.u, py::ssize_t(4)); });
    c.Note("the constructor takes an axis and an angle, so the components are set by SetValue.");
    c.Def("__repr__", [](Quaternion const& q) {
        return "Quaternion().SetValue(" + Text(q.u) + ", " + Text(q.v) + ", " + Text(q.w) + ", " + Text(q.s)
               + ", 0)";
    });
    c.Def("__reduce__", [components](py::object const& self) {
        return py::make_tuple(py::module_::import("vexor").attr("_Quaternion"),
                              components(self.cast<Quaternion const&>()));
    });
}

} // namespace vexor::python
