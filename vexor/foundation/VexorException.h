#pragma once
#include <vexor/foundation/Config.h>

/// The base class of the library's exceptions. It is never raised itself: every failure raises one of the
/// five derived classes, by value.
///
/// Only the type tells them apart: they have no message, no code and no base class from the standard library.
class VEXOR_API VexorException {
public:
    /// Constructs the exception, which holds no data.
    VexorException();
    /// Constructs another exception of this type; neither holds data.
    VexorException(VexorException const&);
    /// Does nothing, since the exception holds no data.
    VexorException& operator=(VexorException const&);
    /// Destroys the exception, which owns no resources.
    virtual ~VexorException();
};

/// A fixed-size matrix is singular and cannot be inverted or solved.
class VEXOR_API VexorSingular : public VexorException {
public:
    /// Constructs the exception, which holds no data.
    VexorSingular();
    /// Constructs another exception of this type; neither holds data.
    VexorSingular(VexorSingular const&);
    /// Does nothing, since the exception holds no data.
    VexorSingular& operator=(VexorSingular const&);
    /// Destroys the exception, which owns no resources.
    ~VexorSingular() override;
};

/// The sizes of operands of run-time size do not match, or the operation needs another size (a square matrix,
/// say).
class VEXOR_API VexorDimensionMismatch : public VexorException {
public:
    /// Constructs the exception, which holds no data.
    VexorDimensionMismatch();
    /// Constructs another exception of this type; neither holds data.
    VexorDimensionMismatch(VexorDimensionMismatch const&);
    /// Does nothing, since the exception holds no data.
    VexorDimensionMismatch& operator=(VexorDimensionMismatch const&);
    /// Destroys the exception, which owns no resources.
    ~VexorDimensionMismatch() override;
};

/// Storage for an object of run-time size could not be allocated, or its size is below 1.
class VEXOR_API VexorAllocationFailed : public VexorException {
public:
    /// Constructs the exception, which holds no data.
    VexorAllocationFailed();
    /// Constructs another exception of this type; neither holds data.
    VexorAllocationFailed(VexorAllocationFailed const&);
    /// Does nothing, since the exception holds no data.
    VexorAllocationFailed& operator=(VexorAllocationFailed const&);
    /// Destroys the exception, which owns no resources.
    ~VexorAllocationFailed() override;
};

/// A numerical driver reported failure.
class VEXOR_API VexorComputationFailed : public VexorException {
public:
    /// Constructs the exception, which holds no data.
    VexorComputationFailed();
    /// Constructs another exception of this type; neither holds data.
    VexorComputationFailed(VexorComputationFailed const&);
    /// Does nothing, since the exception holds no data.
    VexorComputationFailed& operator=(VexorComputationFailed const&);
    /// Destroys the exception, which owns no resources.
    ~VexorComputationFailed() override;
};

/// An operation that needs a direction got a null vector.
class VEXOR_API VexorNullVector : public VexorException {
public:
    /// Constructs the exception, which holds no data.
    VexorNullVector();
    /// Constructs another exception of this type; neither holds data.
    VexorNullVector(VexorNullVector const&);
    /// Does nothing, since the exception holds no data.
    VexorNullVector& operator=(VexorNullVector const&);
    /// Destroys the exception, which owns no resources.
    ~VexorNullVector() override;
};
