#include <vexor/dynamic/private/Storage.h>

#include <cstddef>
#include <limits>
#include <new>
#include <type_traits>

#if defined(VEXOR_CHECKED) || defined(__SANITIZE_ADDRESS__)
#    define VEXOR_EXACT_BLOCKS
#elif defined(__has_feature)
#    if __has_feature(address_sanitizer)
#        define VEXOR_EXACT_BLOCKS
#    endif
#endif

namespace vexor::detail {

void* TakeBytes(std::int64_t count, std::int64_t elementSize) noexcept
{
    // No block exceeds half the address space, even on a 32-bit machine.
    constexpr std::int64_t most = std::numeric_limits<std::ptrdiff_t>::max();
    if (count > most / elementSize)
        return nullptr;
    // The nothrow form returns null whatever the throwing form or a new-handler throws.
    return ::operator new(static_cast<std::size_t>(count * elementSize), std::nothrow);
}

void ReturnBytes(void* bytes) noexcept
{
    ::operator delete(bytes);
}

template <class Element>
Element* Heap<Element>::Take(std::int64_t count) noexcept
{
    auto* const block = static_cast<Element*>(TakeBytes(count, sizeof(Element)));
#if defined(VEXOR_CHECKED)
    if constexpr (std::is_floating_point_v<Element>) {
        for (std::int64_t i = 0; block && i < count; ++i)
            block[i] = std::numeric_limits<Element>::signaling_NaN();
    }
#endif
    return block;
}

template struct Heap<double>;
template struct Heap<float>;
template struct Heap<int>;
template struct Heap<double*>;

#if defined(VEXOR_EXACT_BLOCKS)

double* LineHeap::Take(std::int64_t count) noexcept
{
    return Heap<double>::Take(count);
}

void LineHeap::operator()(double* block) const noexcept
{
    ReturnBytes(block);
}

#else

namespace {
constexpr int line = 64;
}

double* LineHeap::Take(std::int64_t count) noexcept
{
    constexpr std::int64_t extra = line / sizeof(double);
    auto* const start = static_cast<unsigned char*>(TakeBytes(count + extra, sizeof(double)));
    if (!start)
        return nullptr;
    // At least one byte lies between the two starts; the last of them stores how many.
    auto const skipped = static_cast<unsigned char>(line - reinterpret_cast<std::uintptr_t>(start) % line);
    unsigned char* const block = start + skipped;
    block[-1] = skipped;
    return reinterpret_cast<double*>(block);
}

void LineHeap::operator()(double* block) const noexcept
{
    if (!block)
        return;
    auto* const bytes = reinterpret_cast<unsigned char*>(block);
    ReturnBytes(bytes - bytes[-1]);
}

#endif

} // namespace vexor::detail
