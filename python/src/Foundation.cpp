#include "Bind.h"

#include <vexor/elementary.h>

namespace vexor::python {

namespace {

enum class Failure { Any, Singular, DimensionMismatch, AllocationFailed, ComputationFailed, NullVector };

/// The Python class of each exception, and what its instances say.
struct ExceptionClass {
    char const* name;
    char const* message;
    PyObject* type;
};

ExceptionClass& ClassOf(Failure failure)
{
    static ExceptionClass classes[] = {
        {"VexorException", "a failure", nullptr},
        {"VexorSingular", "the matrix is singular", nullptr},
        {"VexorDimensionMismatch", "the sizes do not match", nullptr},
        {"VexorAllocationFailed", "storage could not be allocated, or a size is below 1", nullptr},
        {"VexorComputationFailed", "the computation failed", nullptr},
        {"VexorNullVector", "an operation that needs a direction got a null vector", nullptr},
    };
    return classes[static_cast<int>(failure)];
}

Failure KindOf(VexorException const& exception)
{
    if (dynamic_cast<VexorSingular const*>(&exception) != nullptr)
        return Failure::Singular;
    if (dynamic_cast<VexorDimensionMismatch const*>(&exception) != nullptr)
        return Failure::DimensionMismatch;
    if (dynamic_cast<VexorAllocationFailed const*>(&exception) != nullptr)
        return Failure::AllocationFailed;
    if (dynamic_cast<VexorComputationFailed const*>(&exception) != nullptr)
        return Failure::ComputationFailed;
    return dynamic_cast<VexorNullVector const*>(&exception) != nullptr ? Failure::NullVector : Failure::Any;
}

void BindExceptions(py::module_& module)
{
    PyObject* base = PyExc_Exception;
    for (int i = 0; i <= static_cast<int>(Failure::NullVector); ++i) {
        ExceptionClass& entry = ClassOf(static_cast<Failure>(i));
        std::string const doc(CommentOf(entry.name));
        entry.type = PyErr_NewExceptionWithDoc((std::string("vexor.") + entry.name).c_str(), doc.c_str(),
                                               base, nullptr);
        if (entry.type == nullptr)
            throw py::error_already_set();
        module.attr(entry.name) = py::handle(entry.type);
        if (i == 0)
            base = entry.type;
    }
    py::register_exception_translator([](std::exception_ptr raised) {
        try {
            std::rethrow_exception(raised);
        } catch (VexorException const& exception) {
            ExceptionClass const& entry = ClassOf(KindOf(exception));
            PyErr_SetString(entry.type, entry.message);
        }
    });
}

void BindTolerance(py::module_& module)
{
    Class<VexorTolerance> c(module, "VexorTolerance");
    c.Init(py::init<>());
    c.Init(py::init<VexorTolerance const&>(), py::arg("other"));
    BindAssignments<VexorTolerance>(c);
    c.Field("angle", &VexorTolerance::angle).Field("sin2Angle", &VexorTolerance::sin2Angle);
    c.Field("length", &VexorTolerance::length).Field("lengthSquared", &VexorTolerance::lengthSquared);
    c.Def("SetAngle", &VexorTolerance::SetAngle, py::arg("radians"));
    c.Def("GetAngle", &VexorTolerance::GetAngle).Def("GetSin2Angle", &VexorTolerance::GetSin2Angle);
    c.Def("SetLength", &VexorTolerance::SetLength, py::arg("length"));
    c.Def("GetLength", &VexorTolerance::GetLength).Def("GetLengthSquared", &VexorTolerance::GetLengthSquared);
    c.Copied();
    auto const fields = [](VexorTolerance const& t) {
        return py::make_tuple(t.angle, t.sin2Angle, t.length, t.lengthSquared);
    };
    c.Def("__repr__", [](VexorTolerance const& t) {
        return "<VexorTolerance angle=" + Text(t.angle) + " sin2Angle=" + Text(t.sin2Angle)
               + " length=" + Text(t.length) + " lengthSquared=" + Text(t.lengthSquared) + ">";
    });
    c.Def("__reduce__", [fields](py::object const& self) {
        return py::make_tuple(py::module_::import("vexor").attr("_VexorTolerance"),
                              fields(self.cast<VexorTolerance const&>()));
    });
    module.attr("gVexorTolerance") = py::cast(&gVexorTolerance, py::return_value_policy::reference);
}

void BindUInt64(py::module_& module)
{
    using Integer = std::int64_t;
    Class<UInt64> c(module, "UInt64");
    auto const value = py::arg("value");
    c.Init(py::init<>());
    c.Init(py::init<UInt64 const&>(), py::arg("other"));
    c.Init(py::init([](Integer number) { return UInt64(static_cast<__int64>(number)); }), value);
    BindAssignments<UInt64>(c);
    c.Def(
        "Assign", [](UInt64& self, Integer number) -> UInt64& { return self = static_cast<__int64>(number); },
        value);
    c.Field("lowWord", &UInt64::lowWord).Field("highWord", &UInt64::highWord);
    c.EqualAndCopied().Hashed();
    c.Operator("__ge__", "operator>=", [](UInt64& left, UInt64 const& right) { return left >= right; });
    c.Operator("__le__", "operator<=", [](UInt64& left, UInt64 const& right) { return left <= right; });
    c.Operator("__add__", "operator+", &UInt64::operator+);
    c.Operator("__sub__", "operator-", &UInt64::operator-);
    c.Operator("__mul__", "operator*", &UInt64::operator*);
    c.Note("a division by zero raises ZeroDivisionError.");
    c.Operator("__truediv__", "operator/", [](UInt64 const& left, UInt64 const& right) {
        if (right.int64() == 0) {
            PyErr_SetString(PyExc_ZeroDivisionError, "division by zero");
            throw py::error_already_set();
        }
        return left / right;
    });
    c.Operator("__imul__", "operator*=", &UInt64::operator*=);
    c.Note("changes the object; the result is the object itself. It also stands for ++.");
    c.Operator("__iadd__", "operator+=", [](UInt64& self, int number) -> UInt64& {
        self += number;
        return self;
    });
    c.Note("changes the object; the result is the object itself. It also stands for --.");
    c.Operator("__isub__", "operator-=", [](UInt64& self, int number) -> UInt64& {
        self -= number;
        return self;
    });
    c.Note("V, as `int64`. `lowWord` has the low 32 bits.");
    c.Named("__int__", "operator__int64", [](UInt64 const& self) { return Integer(self.int64()); });
    c.Named("__float__", "operatordouble", [](UInt64 const& self) { return static_cast<double>(self); });
    c.Def("int64", [](UInt64 const& self) { return Integer(self.int64()); });
    c.Def("__repr__", [](UInt64 const& self) { return "UInt64(" + std::to_string(self.int64()) + ")"; });
    c.Def("__reduce__", [](py::object const& self) {
        return py::make_tuple(py::type::of(self),
                              py::make_tuple(Integer(self.cast<UInt64 const&>().int64())));
    });
}

} // namespace

void RaiseFor(VexorException const& exception, std::string const& where)
{
    ExceptionClass const& entry = ClassOf(KindOf(exception));
    PyErr_SetString(entry.type, (where + ": " + entry.message).c_str());
    throw py::error_already_set();
}

void BindFoundation(py::module_& module)
{
    BindExceptions(module);
    BindTolerance(module);
    BindUInt64(module);
    auto const doc = [](char const* key) { return std::string(CommentOf(key)); };
    auto const x = py::arg("x");
    module.def("Sin", &vexor::Sin, doc("Sin").c_str(), x);
    module.def("Cos", &vexor::Cos, doc("Cos").c_str(), x);
    module.def(
        "SinCos",
        [](double angle) {
            auto const both = vexor::SinCos(angle);
            return py::make_tuple(both.sine, both.cosine);
        },
        (doc("SinCos") + "\n\nPython: returns (sine, cosine).").c_str(), x);
    module.def("Acos", &vexor::Acos, doc("Acos").c_str(), x);
    module.def("Atan2", &vexor::Atan2, doc("Atan2").c_str(), py::arg("y"), x);
}

} // namespace vexor::python
