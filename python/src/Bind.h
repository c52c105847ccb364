#pragma once
// What the sources of the Python module share. Each of them binds one folder of the library.

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <vexor/extras/detail/Layout.h>
#include <vexor/extras/hash.h>
#include <vexor/vexor.h>

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace py = pybind11;

namespace vexor::python {

// Each binds the classes of one folder.
void BindFoundation(py::module_& module);
void BindVectors(py::module_& module);
void BindPoints(py::module_& module);
void BindMatrices(py::module_& module);
void BindMaps(py::module_& module);
void BindRotations(py::module_& module);
void BindDynamic(py::module_& module);
void BindArrays(py::module_& module);

/// The comment of a class or member in the headers, by the key "Class.member"; empty if there is none.
std::string_view CommentOf(std::string const& key);
/// The keys of all comments.
std::vector<std::string> CommentKeys();

/// A number as Python prints it; `float('nan')` and `float('inf')` where Python has no literal.
std::string Text(double value);
/// The shortest text that a Python float and then a single are read from exactly.
std::string Text(float value);
inline std::string Text(int value)
{
    return std::to_string(value);
}

/// Whether the object is a number and not a sequence.
bool IsNumber(py::handle object);
/// Raises `TypeError` if the object is of a class of the library: these are converted by name only.
void RefuseOwnClass(py::handle object, char const* target);
/// "(2, 3)".
std::string ShapeText(std::vector<py::ssize_t> const& shape);

/// Raises the Python exception for one of the library's, with the place of the failure in its message.
[[noreturn]] void RaiseFor(VexorException const& exception, std::string const& where);

/// The index, or an `IndexError`: the library does not check indices.
inline int CheckedIndex(py::ssize_t index, py::ssize_t size)
{
    if (index < 0 || index >= size)
        throw py::index_error("index " + std::to_string(index) + " is not from 0 to "
                              + std::to_string(size - 1));
    return static_cast<int>(index);
}

inline std::string ClassName(py::handle object)
{
    return py::str(py::type::handle_of(object).attr("__name__")).cast<std::string>();
}

template <class Number>
Number ReadNumber(py::handle object, char const* argument)
{
    py::detail::make_caster<Number> caster;
    if (!caster.load(object, true)) {
        PyErr_Clear();
        throw py::type_error(std::string(argument) + ": wanted a number, not " + ClassName(object));
    }
    return py::detail::cast_op<Number>(caster);
}

/// The elements of a sequence or array of that shape, as an array in C order.
template <class Element>
py::array_t<Element, py::array::c_style> ReadArray(py::handle object, std::vector<py::ssize_t> const& shape,
                                                   char const* argument)
{
    auto const wanted = std::string(argument) + ": wanted numbers of shape " + ShapeText(shape);
    auto const plain = py::array::ensure(object);
    if (!plain || std::string_view("biuf").find(plain.dtype().kind()) == std::string_view::npos) {
        PyErr_Clear();
        throw py::type_error(wanted + ", not " + ClassName(object));
    }
    std::vector<py::ssize_t> const found(plain.shape(), plain.shape() + plain.ndim());
    if (found != shape)
        throw py::value_error(wanted + ", got shape " + ShapeText(found));
    auto array = py::array_t<Element, py::array::c_style | py::array::forcecast>::ensure(plain);
    if (!array) {
        PyErr_Clear();
        throw py::type_error(wanted + ", not " + ClassName(object));
    }
    return std::move(array);
}

/// pybind11's class with docstrings from the headers. The forms of a member are defined one after the other; the
/// first gets the docstring.
///
/// Every member passes `reference_internal`. A result by value is moved in any case; a reference to the object
/// itself gives the same Python object; a reference to a part keeps the whole alive.
template <class Value>
class Class : public py::class_<Value> {
public:
    /// The class of that name, which `Declare` has declared.
    Class(py::module_& module, char const* className)
        : py::class_<Value>(py::object(module.attr(className))), name(className)
    {
        // numpy then leaves `numpy_number * object` to the class.
        this->attr("__array_ufunc__") = py::none();
    }

    /// What differs in Python; added to the docstring of the next member.
    Class& Note(std::string const& text)
    {
        note = "\n\nPython: " + text;
        return *this;
    }

    template <class Function, class... Extra>
    Class& Def(char const* member, Function&& function, Extra const&... extra)
    {
        return Named(member, member, std::forward<Function>(function), extra...);
    }

    /// The same under the name of C++ in the headers, for operators and constructors.
    template <class Function, class... Extra>
    Class& Named(char const* member, char const* cxxName, Function&& function, Extra const&... extra)
    {
        std::string const doc = DocumentationOf(member, cxxName);
        this->def(member, std::forward<Function>(function), py::return_value_policy::reference_internal,
                  doc.c_str(), extra...);
        return *this;
    }

    /// An operator gives `NotImplemented` for operands of other classes.
    template <class Function>
    Class& Operator(char const* member, char const* cxxName, Function&& function)
    {
        return Named(member, cxxName, std::forward<Function>(function), py::is_operator());
    }

    template <class Initialiser, class... Extra>
    Class& Init(Initialiser&& initialiser, Extra const&... extra)
    {
        std::string const doc = DocumentationOf("__init__", name.c_str());
        this->def(std::forward<Initialiser>(initialiser), doc.c_str(), extra...);
        return *this;
    }

    template <class Element>
    Class& Field(char const* field, Element Value::*place)
    {
        this->def_readwrite(field, place, std::string(CommentOf(name + "." + field)).c_str());
        return *this;
    }

    /// Equality as a bool, and the copies of Python. `hashing` gives std::hash, else the class has no hash.
    Class& EqualAndCopied()
    {
        Operator("__eq__", "operator==", [](Value& left, Value& right) { return bool(left == right); });
        Operator("__ne__", "operator!=", [](Value& left, Value& right) { return bool(left != right); });
        return Copied();
    }

    Class& Copied()
    {
        Def("__copy__", [](Value const& value) { return Value(value); });
        return Def(
            "__deepcopy__", [](Value const& value, py::dict const&) { return Value(value); },
            py::arg("memo"));
    }

    Class& Hashed()
    {
        return Def("__hash__", [](Value const& value) { return std::hash<Value>()(value); });
    }

    /// numpy.array(object, dtype): the elements' own memory if the type is theirs.
    Class& ConvertedToArray()
    {
        return Def(
            "__array__",
            [](py::object const& self, py::object const& dtype) {
                auto const numpy = py::module_::import("numpy");
                return numpy.attr("asarray")(py::module_::import("builtins").attr("memoryview")(self), dtype);
            },
            py::arg("dtype") = py::none());
    }

private:
    std::string DocumentationOf(std::string const& member, std::string const& cxxName)
    {
        std::string const text =
            done.insert(member).second ? std::string(CommentOf(name + "." + cxxName)) : "";
        std::string const said = std::exchange(note, "");
        return text.empty() && !said.empty() ? said.substr(2) : text + said;
    }

    std::string name;
    std::string note;
    std::set<std::string> done;
};

// ---- Classes whose objects are elements and nothing else -------------------------------------------------

template <class Value>
using Element = vexor::detail::ElementType<Value>;
template <class Value>
inline constexpr int size = vexor::detail::Layout<Value>::count;
template <class Value, class... Others>
inline constexpr bool isOneOf = (std::is_same_v<Value, Others> || ...);

/// The elements as a tuple of Python numbers.
template <class Value>
py::tuple Elements(Value const& value)
{
    auto const count = vexor::detail::ElementCount(value);
    auto const* const first = vexor::detail::FirstElement(value);
    py::tuple result(count);
    for (std::size_t i = 0; i < count; ++i)
        result[i] = py::cast(first[i]);
    return result;
}

/// "Name(a, b, c)" of the elements.
template <class Value>
std::string ElementsText(Value const& value)
{
    std::string text;
    for (int i = 0; i < vexor::detail::VectorSize(value); ++i)
        text += (i != 0 ? ", " : "") + Text(value[i]);
    return text;
}

/// A vector or point from one number for all components, from one of the classes `From`, or from a sequence.
template <class Value, class... From>
Value FromObject(py::object const& object, char const* target)
{
    Value value(0);
    auto const tryClass = [&](auto const* example) {
        using Other = std::decay_t<decltype(*example)>;
        if (!py::isinstance<Other>(object))
            return false;
        value = Value(object.cast<Other const&>());
        return true;
    };
    if ((tryClass(static_cast<From const*>(nullptr)) || ...))
        return value;
    RefuseOwnClass(object, target);
    if (IsNumber(object))
        return Value(ReadNumber<Element<Value>>(object, target));
    auto const elements = ReadArray<Element<Value>>(object, {size<Value>}, target);
    value.SetValue(elements.data());
    return value;
}

/// What the vectors and points have alike.
template <class Value, class... From, class Binding>
void BindComponents(Binding& binding, char const* className)
{
    using E = Element<Value>;
    std::string const name = className;
    binding.Note("without arguments all components are 0. `values` is a number, a sequence or an array of "
                 + std::to_string(size<Value>) + " numbers, or one of the classes above.");
    binding.Init(py::init([] { return Value(0); }));
    if constexpr (size<Value> == 3)
        binding.Init(py::init<E, E, E>(), py::arg("x0"), py::arg("y0"), py::arg("z0"));
    else
        binding.Init(py::init<E, E>(), py::arg("x0"), py::arg("y0"));
    binding.Init(py::init([name](py::object const& values) {
                     return FromObject<Value, Value, From...>(values, name.c_str());
                 }),
                 py::arg("values"));
    binding.Field("x", &Value::x).Field("y", &Value::y);
    if constexpr (size<Value> == 3)
        binding.Field("z", &Value::z);

    if constexpr (size<Value> == 3)
        binding.Def("SetValue", static_cast<Value& (Value::*)(E, E, E)>(&Value::SetValue), py::arg("x0"),
                    py::arg("y0"), py::arg("z0"));
    else
        binding.Def("SetValue", static_cast<Value& (Value::*)(E, E)>(&Value::SetValue), py::arg("x0"),
                    py::arg("y0"));
    binding.Def(
        "SetValue",
        [name](Value& self, py::object const& values) -> Value& {
            return self = FromObject<Value>(values, (name + ".SetValue: values").c_str());
        },
        py::arg("values"));
    binding.Note("returns the components as a tuple.").Def("GetValue", &Elements<Value>);

    auto const item = [](Value const& self, py::ssize_t index) {
        return self[CheckedIndex(index, size<Value>)];
    };
    binding.Note("another index raises IndexError.");
    binding.Named("__getitem__", "operator[]", item, py::arg("index"));
    binding.Named("__call__", "operator()", item, py::arg("index"));
    binding.Def(
        "__setitem__",
        [](Value& self, py::ssize_t index, E value) { self[CheckedIndex(index, size<Value>)] = value; },
        py::arg("index"), py::arg("value"));
    binding.Def("__len__", [](Value const&) { return size<Value>; });

    binding.Operator("__imul__",
                     "operator*=", [](Value& self, E scalar) -> Value& { return self *= scalar; });
    if constexpr (!std::is_same_v<Value, Vec2Int>) {
        binding.Operator("__itruediv__",
                         "operator/=", [](Value& self, E scalar) -> Value& { return self /= scalar; });
        binding.Operator("__truediv__", "operator/",
                         [](Value const& self, E scalar) { return self / scalar; });
    }
    binding.Operator("__mul__", "operator*", [](Value const& self, E scalar) { return self * scalar; });
    binding.Operator("__rmul__", "operator*", [](Value const& self, E scalar) { return scalar * self; });

    binding.Def("IsLessThan", &Value::IsLessThan, py::arg("other"));
    binding.Def("IsGreaterThan", &Value::IsGreaterThan, py::arg("other"));
    binding.EqualAndCopied();
    binding.Hashed();
    binding.ConvertedToArray();
    binding.def_buffer([](Value& self) {
        return py::buffer_info(vexor::detail::FirstElement(self), py::ssize_t(size<Value>));
    });
    binding.Def("__repr__", [name](Value const& self) { return name + "(" + ElementsText(self) + ")"; });
    binding.Def("__reduce__", [](py::object const& self) {
        return py::make_tuple(py::type::of(self), Elements(self.cast<Value const&>()));
    });
}

/// C++ assigns from these classes.
template <class... From, class Value>
void BindAssignments(Class<Value>& binding)
{
    binding.Note(
        "`a.Assign(b)` is the C++ assignment `a = b`; in Python `a = b` gives the object b the name a.");
    (binding.Named(
         "Assign", "operator=", [](Value& self, From const& other) -> Value& { return self = other; },
         py::arg("other")),
     ...);
}

} // namespace vexor::python
