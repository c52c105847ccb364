// A class bound by pybind11 and nothing else: what a call of a member costs at least.
#include <pybind11/pybind11.h>

namespace {

struct Bare {
    double x;
    double Dot(Bare const& other) const { return x * other.x; }
    Bare Sum(Bare const& other) const { return {x + other.x}; }
};

} // namespace

PYBIND11_MODULE(bare, module)
{
    pybind11::class_<Bare>(module, "Bare")
        .def(pybind11::init<double>())
        .def("Dot", &Bare::Dot)
        .def("Sum", &Bare::Sum)
        .def("__len__", [](Bare const&) { return 1; });
}
