#pragma once
#include <vexor/dynamic/private/KernelSet.h>
#include <vexor/dynamic/private/MatrixTimesVector.h>
#include <vexor/dynamic/private/Product.h>
#include <vexor/dynamic/private/Transposition.h>

// Each source that includes this file defines one instruction set's kernels; Registers.h says how.

namespace vexor::detail::VEXOR_SET {

// NOLINTNEXTLINE(misc-definitions-in-headers)
KernelSet const kernels = {VEXOR_SET_NAME,       MultiplyColumnMajor, MultiplyVector,
                           MultiplyVectorSingle, TransposeInto,       TransposeSquare};

} // namespace vexor::detail::VEXOR_SET
