#include "Bind.h"

namespace vexor::python {

namespace {

/// What the vectors of fixed size have alike, `Vec2Int` among them.
template <class Value>
Class<Value> BindCommon(py::module_& module, char const* name)
{
    Class<Value> c(module, name);
    if constexpr (isOneOf<Value, Vec3Dbl>)
        BindComponents<Value, Vec3Flt, VecDbl>(c, name);
    else if constexpr (isOneOf<Value, Vec2Dbl>)
        BindComponents<Value, Vec2Flt>(c, name);
    else
        BindComponents<Value>(c, name);

    c.Operator("__iadd__", "operator+=", &Value::operator+=);
    c.Operator("__isub__", "operator-=", &Value::operator-=);
    c.Operator("__add__", "operator+", [](Value const& left, Value const& right) { return left + right; });
    c.Operator("__sub__", "operator-", [](Value const& left, Value const& right) { return left - right; });
    c.Operator("__neg__", "operator-", [](Value const& vector) { return -vector; });
    c.Def("Negate", &Value::Negate);
    c.Def("GetNegatedCopy", &Value::GetNegatedCopy);
    c.Def("Dot", &Value::Dot, py::arg("other"));
    c.Def("ElemMult", &Value::ElemMult, py::arg("other"));
    c.Def("Length", &Value::Length);
    c.Def("MaxValue", &Value::MaxValue).Def("MinValue", &Value::MinValue);
    c.Def("MaxAbsValue", &Value::MaxAbsValue).Def("MinAbsValue", &Value::MinAbsValue);
    c.Def("MaxValueIdx", &Value::MaxValueIdx).Def("MinValueIdx", &Value::MinValueIdx);
    c.Def("MaxAbsValueIdx", &Value::MaxAbsValueIdx).Def("MinAbsValueIdx", &Value::MinAbsValueIdx);
    c.Def("IsNull", &Value::IsNull);
    return c;
}

/// What the vectors of doubles and singles have alike.
template <class Value>
Class<Value> BindReal(py::module_& module, char const* name)
{
    using E = Element<Value>;
    auto const angular = py::arg("angular") = E(-1);
    auto const length = py::arg("length") = E(-1);
    auto const other = py::arg("other");
    auto c = BindCommon<Value>(module, name);
    c.Def("Cross", &Value::Cross, other).Def("ElemDiv", &Value::ElemDiv, other);
    c.Def("OuterProduct", &Value::OuterProduct, other);
    c.Def("LengthSquared", &Value::LengthSquared);
    c.Def("Normalize", &Value::Normalize).Def("GetNormalizedCopy", &Value::GetNormalizedCopy);
    c.Def("IsZeroLength", &Value::IsZeroLength, length);
    c.Def("IsEqualTo", &Value::IsEqualTo, other, angular, length);
    c.Def("IsParallelTo", &Value::IsParallelTo, other, angular, length);
    c.Def("IsCodirectionalTo", &Value::IsCodirectionalTo, other, angular, length);
    c.Def("IsPerpendicularTo", &Value::IsPerpendicularTo, other, angular, length);
    c.Def("IsUnitParallelTo", &Value::IsUnitParallelTo, other, angular);
    c.Def("IsUnitCodirectionalTo", &Value::IsUnitCodirectionalTo, other, angular);
    c.Def("IsUnitPerpendicularTo", &Value::IsUnitPerpendicularTo, other, angular);
    c.Def("GetAngleWith", &Value::GetAngleWith, other);
    c.Def("GetAreaFormedByTriangleWith", &Value::GetAreaFormedByTriangleWith, other);
    c.Def("GetProjectionOnTo", &Value::GetProjectionOnTo, py::arg("target"));
    c.Def("GetPerpendicular", &Value::GetPerpendicular);
    return c;
}

template <void (Vec3Dbl::*order)(int&, int&, int&) const>
py::tuple OrderOf(Vec3Dbl const& vector)
{
    int indices[3];
    (vector.*order)(indices[0], indices[1], indices[2]);
    return py::make_tuple(indices[0], indices[1], indices[2]);
}

} // namespace

void BindVectors(py::module_& module)
{
    auto vec3 = BindReal<Vec3Dbl>(module, "Vec3Dbl");
    auto vec3Single = BindReal<Vec3Flt>(module, "Vec3Flt");
    auto vec2 = BindReal<Vec2Dbl>(module, "Vec2Dbl");
    auto vec2Single = BindReal<Vec2Flt>(module, "Vec2Flt");
    auto vec2Int = BindCommon<Vec2Int>(module, "Vec2Int");

    auto const other = py::arg("other");
    vec3.Operator("__lt__", "operator<", [](Vec3Dbl const& a, Vec3Dbl const& b) { return bool(a < b); });
    vec3.Def("ToVec3Flt", &Vec3Dbl::ToVec3Flt);
    vec3.Note("returns the three indices as a tuple.").Def("ValueOrder", &OrderOf<&Vec3Dbl::ValueOrder>);
    vec3.Note("returns the three indices as a tuple.")
        .Def("AbsValueOrder", &OrderOf<&Vec3Dbl::AbsValueOrder>);
    vec3.Def("GetCCWAngleWith", &Vec3Dbl::GetCCWAngleWith, other, py::arg("normal"));
    vec3.Def("GetPerpendicularNearestTo", &Vec3Dbl::GetPerpendicularNearestTo, py::arg("reference"));
    vec3.Def("Rotate", &Vec3Dbl::Rotate, py::arg("axis"), py::arg("angle"));
    vec3Single.Def("GetPerpendicularNearestTo", &Vec3Flt::GetPerpendicularNearestTo, py::arg("reference"));

    vec2.Operator("__lt__", "operator<", [](Vec2Dbl const& a, Vec2Dbl const& b) { return bool(a < b); });
    vec2.Def("ToVec2Flt", &Vec2Dbl::ToVec2Flt);
    vec2.Def("GetCCWAngleWith", &Vec2Dbl::GetCCWAngleWith, other);

    vec2Int.Def("IsZeroLength", &Vec2Int::IsZeroLength);
    vec2Int.Def("IsEqualTo", &Vec2Int::IsEqualTo, other);

    BindAssignments<Vec3Dbl, Vec3Flt, Pnt3Dbl, Pnt3Flt>(vec3);
    BindAssignments<Vec3Flt, Vec3Dbl, Pnt3Flt, Pnt3Dbl>(vec3Single);
    BindAssignments<Vec2Dbl, Vec2Flt, Pnt2Dbl, Pnt2Flt>(vec2);
    BindAssignments<Vec2Flt, Vec2Dbl, Pnt2Flt, Pnt2Dbl>(vec2Single);
    BindAssignments<Vec2Int>(vec2Int);
}

} // namespace vexor::python
