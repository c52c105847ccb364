#include "Bind.h"

namespace vexor::python {

namespace {

/// What the points have alike: `From` are the classes that construct one.
template <class Value, class Tolerance, class... From>
Class<Value> BindPoint(py::module_& module, char const* name)
{
    Class<Value> c(module, name);
    BindComponents<Value, From...>(c, name);
    c.Def("Vector", &Value::Vector);
    c.Def("DistanceSqTo", &Value::DistanceSqTo, py::arg("other"));
    c.Def("DistanceTo", &Value::DistanceTo, py::arg("other"));
    c.Def("IsEqualTo", &Value::IsEqualTo, py::arg("other"), py::arg("tolerance") = Tolerance(-1));
    c.Operator("__sub__", "operator-", [](Value const& left, Value const& right) { return left - right; });
    return c;
}

/// Adds and subtracts these vectors.
template <class... Vectors, class Value>
void BindMoves(Class<Value>& c)
{
    (c.Operator("__add__", "operator+", [](Value const& left, Vectors const& right) { return left + right; }),
     ...);
    (c.Operator("__sub__", "operator-", [](Value const& left, Vectors const& right) { return left - right; }),
     ...);
    (c.Operator("__iadd__",
                "operator+=", [](Value& self, Vectors const& right) -> Value& { return self += right; }),
     ...);
    (c.Operator("__isub__",
                "operator-=", [](Value& self, Vectors const& right) -> Value& { return self -= right; }),
     ...);
}

template <class Value>
void BindSumOfPoints(Class<Value>& c)
{
    c.Operator("__add__", "operator+", [](Value const& left, Value const& right) { return left + right; });
    c.Operator("__iadd__",
               "operator+=", [](Value& self, Value const& right) -> Value& { return self += right; });
}

template <class Value>
void BindOrder(Class<Value>& c)
{
    c.Operator("__lt__", "operator<", [](Value const& a, Value const& b) { return bool(a < b); });
}

} // namespace

void BindPoints(py::module_& module)
{
    auto pnt3 = BindPoint<Pnt3Dbl, double, Vec3Dbl, Pnt3Flt, Vec3Flt>(module, "Pnt3Dbl");
    auto pnt3Single = BindPoint<Pnt3Flt, float, Vec3Flt>(module, "Pnt3Flt");
    auto pnt2 = BindPoint<Pnt2Dbl, double, Vec2Dbl, Pnt2Flt, Vec2Flt>(module, "Pnt2Dbl");
    auto pnt2Single = BindPoint<Pnt2Flt, double, Vec2Flt>(module, "Pnt2Flt");

    BindSumOfPoints(pnt3);
    BindSumOfPoints(pnt3Single);
    BindSumOfPoints(pnt2);
    BindMoves<Vec3Dbl>(pnt3);
    BindMoves<Vec3Flt>(pnt3Single);
    BindMoves<Vec2Dbl>(pnt2);
    BindMoves<Vec2Dbl>(pnt2Single);
    BindOrder(pnt3);
    BindOrder(pnt3Single);
    BindOrder(pnt2);
    pnt3.Def("ToPnt3Flt", &Pnt3Dbl::ToPnt3Flt);
    pnt2.Def("ToPnt2Flt", &Pnt2Dbl::ToPnt2Flt);

    BindAssignments<Pnt3Dbl, Vec3Dbl, Pnt3Flt, Vec3Flt>(pnt3);
    BindAssignments<Pnt3Flt, Vec3Flt, Pnt3Dbl, Vec3Dbl>(pnt3Single);
    BindAssignments<Pnt2Dbl, Vec2Dbl, Pnt2Flt, Vec2Flt>(pnt2);
    BindAssignments<Pnt2Flt, Vec2Flt, Pnt2Dbl, Vec2Dbl>(pnt2Single);
}

} // namespace vexor::python
