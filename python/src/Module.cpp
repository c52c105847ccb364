#include "Shared.h"

#include <charconv>
#include <cmath>
#include <unordered_map>

namespace vexor::python {

namespace {

std::unordered_map<std::string, std::string_view> const& Comments()
{
    static std::unordered_map<std::string, std::string_view> const comments = {
#include "Comments.inc"
    };
    return comments;
}

std::string TextOfSpecial(double value)
{
    std::string const sign = std::signbit(value) ? "-" : "";
    return sign + (std::isnan(value) ? "float('nan')" : "float('inf')");
}

template <class Value, class... Extra>
void Declare(py::module_& module, char const* name, Extra const&... extra)
{
    py::class_<Value>(module, name, std::string(CommentOf(name)).c_str(), extra...);
}

/// Declares the classes before their members, so that signatures can name them.
void DeclareClasses(py::module_& module)
{
    auto const shared = py::buffer_protocol();
    Declare<VexorTolerance>(module, "VexorTolerance");
    Declare<UInt64>(module, "UInt64");
    Declare<Vec3Dbl>(module, "Vec3Dbl", shared);
    Declare<Vec3Flt>(module, "Vec3Flt", shared);
    Declare<Vec2Dbl>(module, "Vec2Dbl", shared);
    Declare<Vec2Flt>(module, "Vec2Flt", shared);
    Declare<Vec2Int>(module, "Vec2Int", shared);
    Declare<Pnt3Dbl>(module, "Pnt3Dbl", shared);
    Declare<Pnt3Flt>(module, "Pnt3Flt", shared);
    Declare<Pnt2Dbl>(module, "Pnt2Dbl", shared);
    Declare<Pnt2Flt>(module, "Pnt2Flt", shared);
    Declare<Mat3Dbl>(module, "Mat3Dbl", shared);
    Declare<Mat2Dbl>(module, "Mat2Dbl", shared);
    Declare<AffMat3Dbl>(module, "AffMat3Dbl");
    Declare<AffMat2Dbl>(module, "AffMat2Dbl");
    Declare<Quaternion>(module, "Quaternion", shared);
    Declare<VecDbl>(module, "VecDbl", py::custom_type_setup(&ShareElements<VecDbl>));
    Declare<VecFlt>(module, "VecFlt", py::custom_type_setup(&ShareElements<VecFlt>));
    Declare<MatDbl>(module, "MatDbl", py::custom_type_setup(&ShareElements<MatDbl>));
}

} // namespace

std::string_view CommentOf(std::string const& key)
{
    auto const found = Comments().find(key);
    return found == Comments().end() ? std::string_view() : found->second;
}

std::vector<std::string> CommentKeys()
{
    std::vector<std::string> keys;
    for (auto const& entry : Comments())
        keys.push_back(entry.first);
    return keys;
}

std::string Text(double value)
{
    if (!std::isfinite(value))
        return TextOfSpecial(value);
    char* const text = PyOS_double_to_string(value, 'r', 0, Py_DTSF_ADD_DOT_0, nullptr);
    std::string result = text;
    PyMem_Free(text);
    return result;
}

std::string Text(float value)
{
    if (!std::isfinite(value))
        return TextOfSpecial(value);
    char buffer[64];
    auto const end = std::to_chars(buffer, buffer + sizeof(buffer), value).ptr;
    std::string const text(buffer, end);
    // Python reads a double from it, which is then rounded to single: rarely another one.
    double const read = PyOS_string_to_double(text.c_str(), nullptr, nullptr);
    if (static_cast<float>(read) != value)
        return Text(static_cast<double>(value));
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

bool IsNumber(py::handle object)
{
    return PyNumber_Check(object.ptr()) && !PySequence_Check(object.ptr());
}

void RefuseOwnClass(py::handle object, char const* target)
{
    if (py::detail::get_type_info(Py_TYPE(object.ptr())) != nullptr)
        throw py::type_error(std::string(target) + " does not take a " + ClassName(object));
}

std::string ShapeText(std::vector<py::ssize_t> const& shape)
{
    std::string text = "(";
    for (std::size_t i = 0; i < shape.size(); ++i)
        text += (i != 0 ? ", " : "") + (shape[i] < 0 ? std::string("n") : std::to_string(shape[i]));
    return text + (shape.size() == 1 ? ",)" : ")");
}

} // namespace vexor::python

PYBIND11_MODULE(_vexor, module)
{
    using namespace vexor::python;
    py::object const ownName = module.attr("__name__");
    module.attr("__name__") = "vexor"; // where the classes are found
    module.doc() = "Geometric and linear-algebra value classes with documented rounding.";
    DeclareClasses(module);
    BindFoundation(module);
    BindVectors(module);
    BindPoints(module);
    BindMatrices(module);
    BindMaps(module);
    BindRotations(module);
    BindDynamic(module);
    BindArrays(module);
    module.attr("_comment_keys") = py::cast(CommentKeys());
    module.attr("__name__") = ownName;
}
