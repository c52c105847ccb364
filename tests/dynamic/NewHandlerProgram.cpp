// A separate program with the compiler's heap operators: when storage runs out they call the client's
// new-handler, and anything that it throws must become `VexorAllocationFailed`.

#include "Elements.h"

#include <climits>
#include <new>
#include <stdexcept>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#    define VEXOR_TEST_OWN_HEAP 1
#elif defined(__has_feature)
#    if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#        define VEXOR_TEST_OWN_HEAP 1
#    endif
#endif

// A sanitizer's heap does not call a new-handler, and stops the program unless told to return null.
extern "C" char const* __asan_default_options();
extern "C" char const* __asan_default_options()
{
    return "allocator_may_return_null=1";
}
extern "C" char const* __tsan_default_options();
extern "C" char const* __tsan_default_options()
{
    return "allocator_may_return_null=1";
}

using namespace vexor_test;

namespace {

int handlerCalls = 0;

struct Odd {};

void ThrowBadAlloc()
{
    ++handlerCalls;
    throw std::bad_alloc();
}
void ThrowOdd()
{
    ++handlerCalls;
    throw Odd();
}
void ThrowRuntimeError()
{
    ++handlerCalls;
    throw std::runtime_error("out of storage");
}
void GiveUp()
{
    ++handlerCalls;
    std::set_new_handler(nullptr);
}

/// More than an address space of 64 bits holds, and less than the largest request.
constexpr int manyRows = 1 << 30;
constexpr int manyColumns = 1 << 16;

} // namespace

TEST(NewHandler, WhateverItThrowsIsAnAllocationFailure)
{
    for (std::new_handler handler :
         {static_cast<std::new_handler>(nullptr), &ThrowBadAlloc, &ThrowOdd, &ThrowRuntimeError, &GiveUp}) {
        struct Restore {
            ~Restore() { std::set_new_handler(nullptr); }
        } const restore;
        std::set_new_handler(handler);
        handlerCalls = 0;
        EXPECT_THROW(MatDbl(manyRows, manyColumns), VexorAllocationFailed);
#if !defined(VEXOR_TEST_OWN_HEAP) && !defined(_WIN32)
        EXPECT_EQ(handlerCalls, handler ? 1 : 0);
#endif
        std::set_new_handler(handler);
        MatDbl m = Mat({{1, 2}, {3, 4}});
        EXPECT_THROW(m.ReSize(manyRows, manyColumns), VexorAllocationFailed);
        EXPECT_TRUE(HoldsRows(m, {{1, 2}, {3, 4}}));
        EXPECT_THROW(m.ReSize(manyRows, manyColumns, 1.0), VexorAllocationFailed);
        EXPECT_TRUE(HoldsRows(m, {{1, 2}, {3, 4}}));
        m.ReSize(1, 2, 5.0);
        EXPECT_TRUE(HoldsRows(m, {{5, 5}}));
    }
}

TEST(NewHandler, IsNotAskedForWhatNoMemoryHolds)
{
    handlerCalls = 0;
    std::set_new_handler(&ThrowOdd);
    EXPECT_THROW(MatDbl(INT_MAX, INT_MAX), VexorAllocationFailed);
    EXPECT_THROW(VecDbl(0), VexorAllocationFailed);
    std::set_new_handler(nullptr);
    EXPECT_EQ(handlerCalls, 0);
}
