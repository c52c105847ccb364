#pragma once
#include <vexor/arrays/private/EigenKernels.h>
#include <vexor/arrays/private/MatrixKernels.h>
#include <vexor/arrays/private/SumKernels.h>
#include <vexor/arrays/private/VectorKernels.h>

// Each source that includes this file defines one instruction set's kernels; Registers.h says how.

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

/// Null for a kernel that does not pay off; the plain set's takes its place. Two lanes do not pay off if divisions, row
/// exchanges, conversions from single or shuffles dominate: the plain set takes 0.6 to 0.95 of their time.
template <class Kernel>
constexpr Kernel If(bool isWorthwhile, Kernel kernel)
{
    return isWorthwhile ? kernel : nullptr;
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
constexpr SingleKernel<Element> NormalizeKernel()
{
#if defined(VEXOR_SET_FUSED)
    if constexpr (sizeof(Element) == sizeof(double))
        return Normalize<size>;
    else
#endif
        return Single<NormalizeRule<Element>, SingleOperation::Normalize, size, size, Element>;
}

template <int size, class Element>
constexpr VectorKernels<Element> KernelsOf()
{
    using P = PairOperation;
    using S = SingleOperation;
    using T = TestOperation;
    using M = MapOperation;
    constexpr bool isWide = width > 2;
    constexpr bool isDouble = sizeof(Element) == sizeof(double);
    using OnPairs = PairKernel<Element>;
    using OnSingles = SingleKernel<Element>;
    using OnTests = TestKernel<Element>;
    return {
        {RunFlat<AddRule, size, P::Add, Element>, RunFlat<SubtractRule, size, P::Subtract, Element>,
         RunFlat<MultiplyRule, size, P::ElemMult, Element>, Scale<size, Element>,
         If<OnPairs>(isWide, CrossKernel<size, Element>()),
         If<OnPairs>(isWide || (size == 3 && isDouble), RunCombined<DotRule, P::Dot, size, Element>),
         RunCombined<DistanceSqToRule<Element>, P::DistanceSqTo, size, Element>,
         If<OnPairs>(isWide || isDouble, RunCombined<DistanceToRule<Element>, P::DistanceTo, size, Element>),
         AngleKernel<size, Element>()},
        {Negate<size, Element>,
         If<OnSingles>(size == 3 || isWide, Single<LengthSquaredRule, S::LengthSquared, size, 1, Element>),
         Single<LengthRule<Element>, S::Length, size, 1, Element>,
         If<OnSingles>(isWide || isDouble, NormalizeKernel<size, Element>())},
        {If<OnTests>(isWide, Test<T::IsParallelTo, size, Element>),
         If<OnTests>(isWide, Test<T::IsCodirectionalTo, size, Element>),
         If<OnTests>(isWide, Test<T::IsPerpendicularTo, size, Element>),
         If<OnTests>(isWide || isDouble, Test<T::IsUnitParallelTo, size, Element>),
         If<OnTests>(isWide, Test<T::IsUnitCodirectionalTo, size, Element>),
         If<OnTests>(isWide, Test<T::IsUnitPerpendicularTo, size, Element>),
         If<OnTests>(isWide || (size == 3 && isDouble), Test<T::IsEqualTo, size, Element>),
         TestPoints<size, Element>},
        {MapKernelOf<M::Linear, size, Element>(), MapKernelOf<M::LinearToSingle, size, Element>(),
         MapKernelOf<M::Affine, size, Element>()},
        {SumUp<size, Element>, FindExtremes<size, Element>},
        SumProducts<size, Element>};
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
    {SumUp<1, double>, FindExtremes<1, double>},
    {SumUp<1, float>, FindExtremes<1, float>},
    RotatePoint,
    MultiplyQuaternions,
    GetRotationMatrix,
    MultiplyMatrices,
    If<PairKernel<double>>(width > 2, MultiplyVectors),
    If<SingleKernel<double>>(width > 2, Invert),
    If<PairKernel<double>>(width > 2, Solve),
    eigenSymKernel,
};

} // namespace vexor::arrays::detail::VEXOR_SET
