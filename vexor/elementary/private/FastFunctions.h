#pragma once
#include <vexor/elementary/private/FastArcCosine.h>
#include <vexor/elementary/private/FastArcTangent.h>
#include <vexor/elementary/private/FastSine.h>
#include <vexor/elementary/private/FunctionSet.h>

namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE {

FunctionSet const functions = {VEXOR_ELEMENTARY_NAME, FastSin, FastCos, FastSinCos, FastAcos, FastAtan2};

} // namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE
