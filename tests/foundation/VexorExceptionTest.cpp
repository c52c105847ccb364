#include <vexor/foundation/VexorException.h>

#include <vexor/foundation/detail/Raise.h>

#include <exception>
#include <type_traits>
#include <typeinfo>

#include <gtest/gtest.h>

namespace {

// Returns which of the handlers catches what the function raises.
enum class Caught { nothing, standard, singular, dimension, allocation, computation, nullVector, root };

template <class Function>
Caught CaughtFrom(Function function)
{
    try {
        function();
    } catch (std::exception const&) {
        return Caught::standard;
    } catch (VexorSingular const&) {
        return Caught::singular;
    } catch (VexorDimensionMismatch const&) {
        return Caught::dimension;
    } catch (VexorAllocationFailed const&) {
        return Caught::allocation;
    } catch (VexorComputationFailed const&) {
        return Caught::computation;
    } catch (VexorNullVector const&) {
        return Caught::nullVector;
    } catch (VexorException const&) {
        return Caught::root;
    }
    return Caught::nothing;
}

template <class Exception>
void Raise()
{
    throw Exception();
}

template <class Exception>
bool RootHandlerCatches()
{
    try {
        Raise<Exception>();
    } catch (VexorException const& caught) {
        return typeid(caught) == typeid(Exception);
    }
    return false;
}

template <class Exception>
class VexorExceptionFamily : public testing::Test {};

using Derived = testing::Types<VexorSingular, VexorDimensionMismatch, VexorAllocationFailed,
                               VexorComputationFailed, VexorNullVector>;
TYPED_TEST_SUITE(VexorExceptionFamily, Derived, );

TYPED_TEST(VexorExceptionFamily, RootHandlerCatchesIt)
{
    EXPECT_TRUE(RootHandlerCatches<TypeParam>());
}

TYPED_TEST(VexorExceptionFamily, NoOtherHandlerOfTheFamilyCatchesIt)
{
    bool caughtAsItself = false;
    try {
        Raise<TypeParam>();
    } catch (TypeParam const&) {
        caughtAsItself = true;
    } catch (...) {
    }
    EXPECT_TRUE(caughtAsItself);
    EXPECT_EQ(int(std::is_base_of_v<VexorSingular, TypeParam>)
                  + int(std::is_base_of_v<VexorDimensionMismatch, TypeParam>)
                  + int(std::is_base_of_v<VexorAllocationFailed, TypeParam>)
                  + int(std::is_base_of_v<VexorComputationFailed, TypeParam>)
                  + int(std::is_base_of_v<VexorNullVector, TypeParam>),
              1);
}

TYPED_TEST(VexorExceptionFamily, CopyAndAssignACaughtObject)
{
    try {
        Raise<TypeParam>();
    } catch (TypeParam& caught) {
        TypeParam copy(caught);
        TypeParam other;
        EXPECT_EQ(&(other = copy), &other);
        EXPECT_EQ(&(caught = caught), &caught);
        EXPECT_EQ(typeid(copy), typeid(caught));
    }
}

TYPED_TEST(VexorExceptionFamily, DestroysThroughTheRoot)
{
    VexorException* const owned = new TypeParam;
    EXPECT_NE(dynamic_cast<TypeParam*>(owned), nullptr);
    delete owned; // the destructor is virtual: otherwise this would be freed with the wrong size
}

TEST(VexorException, RootCopiesAndAssigns)
{
    VexorException root;
    VexorException const copy(root);
    EXPECT_EQ(&(root = copy), &root);
}

// Exceptions that the library itself raises, across the boundary of the shared library.
TEST(VexorException, RaisedByTheLibrary)
{
    EXPECT_EQ(CaughtFrom(vexor::detail::RaiseSingular), Caught::singular);
    EXPECT_EQ(CaughtFrom(vexor::detail::RaiseDimensionMismatch), Caught::dimension);
    EXPECT_EQ(CaughtFrom(vexor::detail::RaiseAllocationFailed), Caught::allocation);
    EXPECT_EQ(CaughtFrom(vexor::detail::RaiseComputationFailed), Caught::computation);
    EXPECT_EQ(CaughtFrom(vexor::detail::RaiseNullVector), Caught::nullVector);
    EXPECT_EQ(CaughtFrom(Raise<VexorException>), Caught::root);
}

TEST(VexorException, EachRaiseIsAFreshObject)
{
    VexorException const* first = nullptr;
    try {
        vexor::detail::RaiseSingular();
    } catch (VexorException const& outer) {
        first = &outer;
        try {
            vexor::detail::RaiseSingular();
        } catch (VexorException const& inner) {
            EXPECT_NE(&inner, first);
        }
    }
    EXPECT_NE(first, nullptr);
}

} // namespace
