#pragma once
#include <vexor/arrays/private/MatrixKernels.h>
#include <vexor/arrays/private/SpectrumKernels.h>
#include <vexor/arrays/private/SumKernels.h>
#include <vexor/arrays/private/VectorKernels.h>

// Each source that includes this file defines one instruction set's kernels; Registers.h says how.

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

/// Null for the baseline, which uses the plain set. Two lanes do not pay off if divisions, row
/// exchanges, conversions from single or shuffles dominate: the plain set takes 0.6 to 0.95 of their time.
template <class Kernel>
constexpr Kernel UnlessBaseline(Kernel kernel, bool isWorthwhile = false)
{
    return width == 2 && !isWorthwhile ? nullptr : kernel;
}

template <MapOperation operation, int size, class Element>
constexpr MapKernel<Element> MapKernelOf()
{
    if constexpr (size == 2 && sizeof(Element) == sizeof(double) && operation != MapOperation::LinearToSingle)
        return MapInPlane<operation>;
    else
        return Map<operation, size, Element>;
}

template <int size, class Element>
constexpr PairKernel<Element> CrossKernel()
{
    if constexpr (size == 2)
        return RunCombined<CrossInPlaneRule, PairOperation::Cross, size, Element>;
    else
        return Pair<CrossRule, PairOperation::Cross, size, size, Element>;
}

template <int size, class Element>
constexpr VectorKernels<Element> KernelsOf()
{
    using P = PairOperation;
    using S = SingleOperation;
    using T = TestOperation;
    using M = MapOperation;
    constexpr bool isDouble = sizeof(Element) == sizeof(double);
    using OnPairs = PairKernel<Element>;
    using OnSingles = SingleKernel<Element>;
    using OnTests = TestKernel<Element>;
    return {
        {RunFlat<AddRule, size, P::Add, Element>, RunFlat<SubtractRule, size, P::Subtract, Element>,
         RunFlat<MultiplyRule, size, P::ElemMult, Element>, Scale<size, Element>,
         UnlessBaseline<OnPairs>(CrossKernel<size, Element>()),
         UnlessBaseline<OnPairs>(RunCombined<DotRule, P::Dot, size, Element>, size == 3 && isDouble),
         RunCombined<DistanceSqToRule<Element>, P::DistanceSqTo, size, Element>,
         UnlessBaseline<OnPairs>(RunCombined<DistanceToRule<Element>, P::DistanceTo, size, Element>,
                                 isDouble),
         AngleKernel<size, Element>()},
        {Negate<size, Element>,
         UnlessBaseline<OnSingles>(Single<LengthSquaredRule, S::LengthSquared, size, 1, Element>, size == 3),
         Single<LengthRule<Element>, S::Length, size, 1, Element>,
         UnlessBaseline<OnSingles>(Single<NormalizeRule<Element>, S::Normalize, size, size, Element>,
                                   isDouble)},
        {UnlessBaseline<OnTests>(Test<T::IsParallelTo, size, Element>),
         UnlessBaseline<OnTests>(Test<T::IsCodirectionalTo, size, Element>),
         UnlessBaseline<OnTests>(Test<T::IsPerpendicularTo, size, Element>),
         UnlessBaseline<OnTests>(Test<T::IsUnitParallelTo, size, Element>, isDouble),
         UnlessBaseline<OnTests>(Test<T::IsUnitCodirectionalTo, size, Element>),
         UnlessBaseline<OnTests>(Test<T::IsUnitPerpendicularTo, size, Element>),
         UnlessBaseline<OnTests>(Test<T::IsEqualTo, size, Element>, isDouble), TestPoints<size, Element>},
        {MapKernelOf<M::Linear, size, Element>(), MapKernelOf<M::LinearToSingle, size, Element>(),
         MapKernelOf<M::Affine, size, Element>()},
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
    UnlessBaseline<PairKernel<double>>(Solve),
    eigenSymKernel,
};

} // namespace vexor::arrays::detail::VEXOR_SET
