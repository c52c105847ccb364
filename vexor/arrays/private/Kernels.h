#pragma once
#include <vexor/arrays/private/MatrixKernels.h>
#include <vexor/arrays/private/SpectrumKernels.h>
#include <vexor/arrays/private/SumKernels.h>
#include <vexor/arrays/private/VectorKernels.h>

// Each source that includes this file defines one instruction set's kernels; Registers.h says how.

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

/// Two lanes do not pay for themselves where divisions or exchanges of rows take the time: there the plain set is
/// up to 1.3 times as fast.
template <class Kernel>
constexpr Kernel UnlessBaseline(Kernel kernel)
{
    return width == 2 ? nullptr : kernel;
}

template <int size, class Element>
constexpr VectorKernels<Element> KernelsOf()
{
    using P = PairOperation;
    using S = SingleOperation;
    using T = TestOperation;
    using M = MapOperation;
    constexpr int crossSize = size == 3 ? 3 : 1;
    return {
        {RunFlat<AddRule, size, P::Add, Element>, RunFlat<SubtractRule, size, P::Subtract, Element>,
         RunFlat<MultiplyRule, size, P::ElemMult, Element>, Scale<size, Element>,
         Pair<CrossRule, P::Cross, size, crossSize, Element>,
         Pair<DotRule<Element>, P::Dot, size, 1, Element>, Distance<P::DistanceSqTo, size, Element>,
         Distance<P::DistanceTo, size, Element>, AngleKernel<size, Element>()},
        {Negate<size, Element>, Single<LengthSquaredRule, S::LengthSquared, size, 1, Element>,
         Single<LengthRule<Element>, S::Length, size, 1, Element>,
         Single<NormalizeRule<Element>, S::Normalize, size, size, Element>},
        {Test<T::IsParallelTo, size, Element>, Test<T::IsCodirectionalTo, size, Element>,
         Test<T::IsPerpendicularTo, size, Element>, Test<T::IsUnitParallelTo, size, Element>,
         Test<T::IsUnitCodirectionalTo, size, Element>, Test<T::IsUnitPerpendicularTo, size, Element>,
         Test<T::IsEqualTo, size, Element>, TestPoints<size, Element>},
        {Map<M::Linear, size, Element>, Map<M::LinearToSingle, size, Element>, Map<M::Affine, size, Element>},
        AddProducts<size, Element>};
}

} // namespace

// NOLINTNEXTLINE(misc-definitions-in-headers)
KernelSet const kernels = {
    VEXOR_SET_NAME,
    KernelsOf<3, double>(),
    KernelsOf<3, float>(),
    KernelsOf<2, double>(),
    KernelsOf<2, float>(),
    ToSingle,
    ToDouble,
    AddElements<double>,
    AddElements<float>,
    FindExtremes<double>,
    FindExtremes<float>,
    RotatePoint,
    MultiplyQuaternions,
    GetRotationMatrix,
    MultiplyMatrices,
    MultiplyVectors,
    UnlessBaseline<SingleKernel<double>>(Invert),
    Solve,
    eigenSymKernel,
};

} // namespace vexor::arrays::detail::VEXOR_SET
