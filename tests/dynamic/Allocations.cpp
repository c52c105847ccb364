#include "dynamic/Allocations.h"

#include <vexor/foundation/VexorException.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

/// The size is stored before each block; the block stays aligned. Not on Windows: there this operator also
/// frees blocks that a DLL allocated by its own heap operators, without a header.
#if defined(_WIN32)
constexpr std::size_t headerSize = 0;
#else
constexpr std::size_t headerSize = alignof(std::max_align_t);
#endif

std::atomic<long> liveBlocks{0};
std::atomic<int> requests{0};
std::size_t sizes[16] = {}; // of the allocations since sizesFrom
std::atomic<int> sizesFrom{0};
std::atomic<int> refuseAt{0}; // counts down to the allocation that is refused; 0 for none
vexor_test::Refusal refusalForm = vexor_test::Refusal::BadAlloc;

void* TakeBlock(std::size_t bytes)
{
    int const request = requests++ - sizesFrom;
    if (request >= 0 && request < 16)
        sizes[request] = bytes;
    if (refuseAt > 0 && --refuseAt == 0) {
        switch (refusalForm) {
        case vexor_test::Refusal::BadAlloc:
            throw std::bad_alloc();
        case vexor_test::Refusal::OddException:
            throw 42;
        case vexor_test::Refusal::Null:
            return nullptr;
        }
    }
    auto* const header = bytes > SIZE_MAX - headerSize
                             ? nullptr
                             : static_cast<unsigned char*>(std::malloc(headerSize + bytes));
    if (!header)
        throw std::bad_alloc();
    if (headerSize > 0)
        std::memcpy(header, &bytes, sizeof bytes);
    ++liveBlocks;
    return header + headerSize;
}

void GiveBlockBack(void* block)
{
    if (!block)
        return;
    --liveBlocks;
    // Code that still reads the first elements of it reads NaN.
    unsigned char* const header = static_cast<unsigned char*>(block) - headerSize;
    std::size_t bytes = 0;
    if (headerSize > 0)
        std::memcpy(&bytes, header, sizeof bytes);
    std::memset(block, 0xff, std::min<std::size_t>(bytes, 4096));
    std::free(header);
}

} // namespace

// A sanitizer's heap stops the program at a request that is too large unless told to return null.
extern "C" char const* __asan_default_options();
extern "C" char const* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

// As in the standard: the forms that do not throw return null whatever the throwing forms throw.
void* operator new(std::size_t bytes)
{
    return TakeBlock(bytes);
}
void* operator new[](std::size_t bytes)
{
    return TakeBlock(bytes);
}
void* operator new(std::size_t bytes, std::nothrow_t const&) noexcept
{
    try {
        return TakeBlock(bytes);
    } catch (...) {
        return nullptr;
    }
}
void* operator new[](std::size_t bytes, std::nothrow_t const&) noexcept
{
    return operator new(bytes, std::nothrow);
}
void operator delete(void* block) noexcept
{
    GiveBlockBack(block);
}
void operator delete[](void* block) noexcept
{
    GiveBlockBack(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    GiveBlockBack(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    GiveBlockBack(block);
}
void operator delete(void* block, std::nothrow_t const&) noexcept
{
    GiveBlockBack(block);
}
void operator delete[](void* block, std::nothrow_t const&) noexcept
{
    GiveBlockBack(block);
}

namespace vexor_test {

long LiveBlocks()
{
    return liveBlocks;
}

int CountRequests(std::function<void()> const& operation)
{
    int const before = requests;
    operation();
    return requests - before;
}

std::vector<std::size_t> RequestedSizes(std::function<void()> const& operation)
{
    sizesFrom = requests.load();
    int const count = std::min(CountRequests(operation), 16);
    return std::vector<std::size_t>(sizes, sizes + count);
}

bool RunWithRefusal(int k, Refusal form, std::function<void()> const& operation)
{
    struct Disarm {
        ~Disarm() { refuseAt = 0; }
    } const disarm;
    refusalForm = form;
    refuseAt = k;
    try {
        operation();
    } catch (VexorAllocationFailed const&) {
        return true;
    }
    return false;
}

} // namespace vexor_test
