#include <vexor/foundation/VexorException.h>

#include <vexor/foundation/detail/Raise.h>

// Defined here and not inline, so that each class has one vtable and one typeinfo in the process: an
// exception then keeps its type across the library's boundary.

VexorException::VexorException() = default;
VexorException::VexorException(VexorException const&) = default;
VexorException& VexorException::operator=(VexorException const&) = default;
VexorException::~VexorException() = default;

VexorSingular::VexorSingular() = default;
VexorSingular::VexorSingular(VexorSingular const&) = default;
VexorSingular& VexorSingular::operator=(VexorSingular const&) = default;
VexorSingular::~VexorSingular() = default;

VexorDimensionMismatch::VexorDimensionMismatch() = default;
VexorDimensionMismatch::VexorDimensionMismatch(VexorDimensionMismatch const&) = default;
VexorDimensionMismatch& VexorDimensionMismatch::operator=(VexorDimensionMismatch const&) = default;
VexorDimensionMismatch::~VexorDimensionMismatch() = default;

VexorAllocationFailed::VexorAllocationFailed() = default;
VexorAllocationFailed::VexorAllocationFailed(VexorAllocationFailed const&) = default;
VexorAllocationFailed& VexorAllocationFailed::operator=(VexorAllocationFailed const&) = default;
VexorAllocationFailed::~VexorAllocationFailed() = default;

VexorComputationFailed::VexorComputationFailed() = default;
VexorComputationFailed::VexorComputationFailed(VexorComputationFailed const&) = default;
VexorComputationFailed& VexorComputationFailed::operator=(VexorComputationFailed const&) = default;
VexorComputationFailed::~VexorComputationFailed() = default;

VexorNullVector::VexorNullVector() = default;
VexorNullVector::VexorNullVector(VexorNullVector const&) = default;
VexorNullVector& VexorNullVector::operator=(VexorNullVector const&) = default;
VexorNullVector::~VexorNullVector() = default;

namespace vexor::detail {

void RaiseSingular()
{
    throw VexorSingular();
}

void RaiseDimensionMismatch()
{
    throw VexorDimensionMismatch();
}

void RaiseAllocationFailed()
{
    throw VexorAllocationFailed();
}

void RaiseComputationFailed()
{
    throw VexorComputationFailed();
}

void RaiseNullVector()
{
    throw VexorNullVector();
}

} // namespace vexor::detail
