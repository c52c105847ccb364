#pragma once
#include <vexor/foundation/Config.h>

// Every failure of the library is one of the five derived classes below, raised by value. They are
// told apart by type alone: there is no text and no code, and no base class in the standard library.

/// The root of the family. Never raised by itself.
class VEXOR_API VexorException {
public:
    VexorException();
    VexorException(VexorException const&);
    VexorException& operator=(VexorException const&);
    virtual ~VexorException();
};

/// A fixed-size matrix is singular and cannot be inverted or solved.
class VEXOR_API VexorSingular : public VexorException {
public:
    VexorSingular();
    VexorSingular(VexorSingular const&);
    VexorSingular& operator=(VexorSingular const&);
    ~VexorSingular() override;
};

/// Operands of run-time size do not fit, or a size demanded of such an object is wrong.
class VEXOR_API VexorDimensionMismatch : public VexorException {
public:
    VexorDimensionMismatch();
    VexorDimensionMismatch(VexorDimensionMismatch const&);
    VexorDimensionMismatch& operator=(VexorDimensionMismatch const&);
    ~VexorDimensionMismatch() override;
};

/// A storage request of an object of run-time size was not met; a size below 1 counts as one.
class VEXOR_API VexorAllocationFailed : public VexorException {
public:
    VexorAllocationFailed();
    VexorAllocationFailed(VexorAllocationFailed const&);
    VexorAllocationFailed& operator=(VexorAllocationFailed const&);
    ~VexorAllocationFailed() override;
};

/// A numerical driver reported failure.
class VEXOR_API VexorComputationFailed : public VexorException {
public:
    VexorComputationFailed();
    VexorComputationFailed(VexorComputationFailed const&);
    VexorComputationFailed& operator=(VexorComputationFailed const&);
    ~VexorComputationFailed() override;
};

/// A null vector was given to an operation that needs a direction.
class VEXOR_API VexorNullVector : public VexorException {
public:
    VexorNullVector();
    VexorNullVector(VexorNullVector const&);
    VexorNullVector& operator=(VexorNullVector const&);
    ~VexorNullVector() override;
};
