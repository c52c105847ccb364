#pragma once
#include <vexor/arrays/private/MatrixKernels.h>
#include <vexor/arrays/private/VectorKernels.h>

// Each source that includes this file defines one instruction set's kernels; Registers.h says how.

namespace vexor::arrays::detail::VEXOR_SET {

// NOLINTNEXTLINE(misc-definitions-in-headers)
KernelSet const kernels = {
    VEXOR_SET_NAME,
#define VEXOR_SHAPE(Element, size, crossSize)                                                                \
    {                                                                                                        \
        {RunFlat<AddRule, size, PairOperation::Add, Element>,                                                \
         RunFlat<SubtractRule, size, PairOperation::Subtract, Element>,                                      \
         RunFlat<MultiplyRule, size, PairOperation::ElemMult, Element>,                                      \
         Scale<size, Element>,                                                                               \
         Pair<CrossRule, PairOperation::Cross, size, crossSize, Element>,                                    \
         Pair<DotRule<Element>, PairOperation::Dot, size, 1, Element>,                                       \
         Pair<DistanceSqToRule<Element>, PairOperation::DistanceSqTo, size, 1, Element>,                     \
         Pair<DistanceToRule<Element>, PairOperation::DistanceTo, size, 1, Element>,                         \
         nullptr},                                                                                           \
            {Negate<size, Element>,                                                                          \
             Single<LengthSquaredRule, SingleOperation::LengthSquared, size, 1, Element>,                    \
             Single<LengthRule<Element>, SingleOperation::Length, size, 1, Element>,                         \
             Single<NormalizeRule<Element>, SingleOperation::Normalize, size, size, Element>},               \
            {Test<TestOperation::IsParallelTo, size, Element>,                                               \
             Test<TestOperation::IsCodirectionalTo, size, Element>,                                          \
             Test<TestOperation::IsPerpendicularTo, size, Element>,                                          \
             Test<TestOperation::IsUnitParallelTo, size, Element>,                                           \
             Test<TestOperation::IsUnitCodirectionalTo, size, Element>,                                      \
             Test<TestOperation::IsUnitPerpendicularTo, size, Element>,                                      \
             Test<TestOperation::IsEqualTo, size, Element>,                                                  \
             Test<TestOperation::IsPointEqualTo, size, Element>},                                            \
        {                                                                                                    \
            Map<MapOperation::Linear, size, Element>, Map<MapOperation::LinearToSingle, size, Element>,      \
                Map<MapOperation::Affine, size, Element>                                                     \
        }                                                                                                    \
    }
    VEXOR_SHAPE(double, 3, 3),
    VEXOR_SHAPE(float, 3, 3),
    VEXOR_SHAPE(double, 2, 1),
    VEXOR_SHAPE(float, 2, 1),
#undef VEXOR_SHAPE
    ToSingle,
    ToDouble,
    RotatePoint,
    MultiplyQuaternions,
    GetRotationMatrix,
    MultiplyMatrices,
    MultiplyVectors,
    Invert,
    Solve,
    nullptr,
};

} // namespace vexor::arrays::detail::VEXOR_SET
