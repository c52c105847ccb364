#pragma once
#include <vexor/foundation/Config.h>

/// The root of the library's failures, never raised by itself: every failure is one of the five derived
/// classes, raised by value.
///
/// They are told apart by type alone: there is no text and no code, and no base class in the standard
/// library.
class VEXOR_API VexorException {
public:
    /// There is nothing to set.
    VexorException();
    /// There is nothing to copy.
    VexorException(VexorException const&);
    /// Does nothing: there is nothing to copy.
    VexorException& operator=(VexorException const&);
    /// There is nothing to free.
    virtual ~VexorException();
};

/// A fixed-size matrix is singular and cannot be inverted or solved.
class VEXOR_API VexorSingular : public VexorException {
public:
    /// There is nothing to set.
    VexorSingular();
    /// There is nothing to copy.
    VexorSingular(VexorSingular const&);
    /// Does nothing: there is nothing to copy.
    VexorSingular& operator=(VexorSingular const&);
    /// There is nothing to free.
    ~VexorSingular() override;
};

/// Operands of run-time size do not fit, or a size demanded of such an object is wrong.
class VEXOR_API VexorDimensionMismatch : public VexorException {
public:
    /// There is nothing to set.
    VexorDimensionMismatch();
    /// There is nothing to copy.
    VexorDimensionMismatch(VexorDimensionMismatch const&);
    /// Does nothing: there is nothing to copy.
    VexorDimensionMismatch& operator=(VexorDimensionMismatch const&);
    /// There is nothing to free.
    ~VexorDimensionMismatch() override;
};

/// A storage request of an object of run-time size was not met; a size below 1 counts as one.
class VEXOR_API VexorAllocationFailed : public VexorException {
public:
    /// There is nothing to set.
    VexorAllocationFailed();
    /// There is nothing to copy.
    VexorAllocationFailed(VexorAllocationFailed const&);
    /// Does nothing: there is nothing to copy.
    VexorAllocationFailed& operator=(VexorAllocationFailed const&);
    /// There is nothing to free.
    ~VexorAllocationFailed() override;
};

/// A numerical driver reported failure.
class VEXOR_API VexorComputationFailed : public VexorException {
public:
    /// There is nothing to set.
    VexorComputationFailed();
    /// There is nothing to copy.
    VexorComputationFailed(VexorComputationFailed const&);
    /// Does nothing: there is nothing to copy.
    VexorComputationFailed& operator=(VexorComputationFailed const&);
    /// There is nothing to free.
    ~VexorComputationFailed() override;
};

/// A null vector was given to an operation that needs a direction.
class VEXOR_API VexorNullVector : public VexorException {
public:
    /// There is nothing to set.
    VexorNullVector();
    /// There is nothing to copy.
    VexorNullVector(VexorNullVector const&);
    /// Does nothing: there is nothing to copy.
    VexorNullVector& operator=(VexorNullVector const&);
    /// There is nothing to free.
    ~VexorNullVector() override;
};
