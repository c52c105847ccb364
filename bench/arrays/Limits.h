#include "Passes.h"

#include <vexor/arrays/private/MatrixKernels.h>

// What bounds an operation over registers from below: its divisions and roots alone, and its loads, stores and
// shuffles alone. Each source that includes this file defines one instruction set.

VEXOR_SET_BEGIN

namespace bench::VEXOR_SET {

namespace {

using namespace vexor::arrays::detail::VEXOR_SET;
using vexor::arrays::detail::matrixStride;
using vexor::arrays::detail::Size;

/// Hides from the compiler that a register keeps its value.
VEXOR_ALWAYS_INLINE void Hide(Doubles& values)
{
    __asm__ volatile("" : "+v"(values));
}

template <int size>
VEXOR_ALWAYS_INLINE void Hide(Lanes<size>& lanes)
{
    VEXOR_UNROLL(24)
    for (int k = 0; k < size; ++k)
        Hide(lanes.c[k]);
}

/// As many independent roots and divisions for each element as given.
template <int roots, int divisions>
void Divide(Size count)
{
    Doubles dividend = All(1.0);
    Doubles divisor = All(3.0);
    for (Size i = 0; i + width <= count; i += width) {
        Hide(dividend);
        Hide(divisor);
        VEXOR_UNROLL(24)
        for (int k = 0; k < roots; ++k) {
            Doubles operand = divisor;
            Hide(operand);
            Doubles root = Root(operand);
            Hide(root);
        }
        VEXOR_UNROLL(24)
        for (int k = 0; k < divisions; ++k) {
            Doubles operand = dividend;
            Hide(operand);
            Doubles quotient = operand / divisor;
            Hide(quotient);
        }
    }
}

/// The next multiple of a cache line. The loops of the library begin there.
template <class Element>
Element* NextLine(Element* at)
{
    return reinterpret_cast<Element*>((reinterpret_cast<std::uintptr_t>(at) + 63) / 64 * 64);
}

/// Takes elements of `size` doubles apart into lanes and puts them together, but for the last few.
template <int size>
void TakeApart(double const* from, double* to, Size count)
{
    from = NextLine(from);
    to = NextLine(to);
    count -= width;
    for (Size i = 0; i + width <= count; i += width) {
        Lanes<size> lanes = LoadLanes<size>(from + i * size);
        Hide(lanes);
        StoreLanes(to + i * size, lanes);
    }
}

template <int size>
void TakeTwoApart(double const* left, double const* right, double* to, Size count)
{
    left = NextLine(left);
    right = NextLine(right);
    to = NextLine(to);
    count -= width;
    for (Size i = 0; i + width <= count; i += width) {
        Lanes<size> a = LoadLanes<size>(left + i * size);
        Lanes<size> b = LoadLanes<size>(right + i * size);
        Hide(a);
        Hide(b);
        VEXOR_UNROLL(24)
        for (int k = 0; k < size; ++k)
            a.c[k] = a.c[k] + b.c[k];
        StoreLanes(to + i * size, a);
    }
}

} // namespace

} // namespace bench::VEXOR_SET

VEXOR_SET_END

namespace {

using namespace bench;

struct Three {
    double c[3];
};

Three MakeThree(double const* n)
{
    return {{n[0], n[1], n[2]}};
}

[[maybe_unused]] bool const registered = [] {
#if defined(VEXOR_SET_AVX512)
    bool const canRun = vexor::detail::HasAvx512();
#else
    bool const canRun = vexor::detail::HasAvx2();
#endif
    if (!canRun)
        return false;
    auto const divisions = [](std::string const& name, auto divide) {
        OverArrays<Three>(name, "divisions " VEXOR_SET_NAME, MakeNothing, MakeNothing,
                          [divide](Nothing const*, Nothing const*, Three*, std::size_t n) { divide(n); });
    };
    divisions("Normalize", bench::VEXOR_SET::Divide<1, 1>);
    divisions("Solve 3x3", bench::VEXOR_SET::Divide<0, 6>);
    divisions("Invert 3x3", bench::VEXOR_SET::Divide<0, 6>);
    for (char const* name : {"Affine map x point", "RotatePoint", "Normalize"})
        OverArrays<Three>(name, "shuffles " VEXOR_SET_NAME, MakeThree, MakeNothing,
                          [](Three const* from, Nothing const*, Three* to, std::size_t n) {
                              bench::VEXOR_SET::TakeApart<3>(from->c, to->c, n);
                          });
    OverArrays<Three>("Cross", "shuffles " VEXOR_SET_NAME, MakeThree, MakeThree,
                      [](Three const* left, Three const* right, Three* to, std::size_t n) {
                          bench::VEXOR_SET::TakeTwoApart<3>(left->c, right->c, to->c, n);
                      });
    return true;
}();

} // namespace
