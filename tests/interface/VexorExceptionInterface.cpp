#include <vexor/vexor.h>

#include "Interface.h"

#include <exception>

namespace {

/// Only what makes it polymorphic: the destructor is the only virtual function.
template <class Exception>
constexpr bool holdsNothing = sizeof(Exception) == sizeof(void*)
                              && std::is_polymorphic_v<Exception>&& std::has_virtual_destructor_v<
                                  Exception> && !std::is_abstract_v<Exception> && !std::is_final_v<Exception>;

template <class Exception>
constexpr bool isCopiedAndAssigned =
    std::is_default_constructible_v<Exception>&& std::is_copy_constructible_v<Exception>&&
        std::is_same_v<decltype(std::declval<Exception&>() = std::declval<Exception const&>()), Exception&>;

template <class Exception>
constexpr bool isOfTheFamily =
    holdsNothing<Exception>&& isCopiedAndAssigned<Exception> && !std::is_base_of_v<std::exception, Exception>;

template <class Exception>
constexpr bool isDerived =
    isOfTheFamily<Exception>&& std::is_base_of_v<VexorException, Exception>&&
        std::is_convertible_v<Exception*, VexorException*> && !std::is_same_v<Exception, VexorException>;

static_assert(isOfTheFamily<VexorException>);
static_assert(isDerived<VexorSingular>);
static_assert(isDerived<VexorDimensionMismatch>);
static_assert(isDerived<VexorAllocationFailed>);
static_assert(isDerived<VexorComputationFailed>);
static_assert(isDerived<VexorNullVector>);

// None of the five derives from another.
template <class Exception>
constexpr int derivedBases = int(std::is_base_of_v<VexorSingular, Exception>)
                             + int(std::is_base_of_v<VexorDimensionMismatch, Exception>)
                             + int(std::is_base_of_v<VexorAllocationFailed, Exception>)
                             + int(std::is_base_of_v<VexorComputationFailed, Exception>)
                             + int(std::is_base_of_v<VexorNullVector, Exception>);
static_assert(derivedBases<VexorException> == 0);
static_assert(derivedBases<VexorSingular> == 1 && derivedBases<VexorDimensionMismatch> == 1);
static_assert(derivedBases<VexorAllocationFailed> == 1 && derivedBases<VexorComputationFailed> == 1);
static_assert(derivedBases<VexorNullVector> == 1);

using Class = VexorNullVector;
NO_CONSTRUCTOR(char const*);
NO_CONSTRUCTOR(int);
NO_MEMBER(what);
NO_MEMBER(message);
NO_MEMBER(code);

} // namespace
