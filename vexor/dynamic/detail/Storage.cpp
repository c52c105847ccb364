#include <vexor/dynamic/detail/Storage.h>

#include <cstddef>
#include <limits>
#include <new>
#include <type_traits>

namespace vexor::detail {

void* TakeBytes(std::int64_t count, std::int64_t elementSize) noexcept
{
    // Also on a 32-bit machine no block exceeds half the address space.
    constexpr std::int64_t most = std::numeric_limits<std::ptrdiff_t>::max();
    if (count > most / elementSize)
        return nullptr;
    // The form that does not throw turns whatever the throwing one or a new-handler throws into null.
    return ::operator new(static_cast<std::size_t>(count * elementSize), std::nothrow);
}

void ReturnBytes(void* bytes) noexcept
{
    ::operator delete(bytes);
}

template <class Element>
Owned<Element> Take(std::int64_t count) noexcept
{
    auto* const block = static_cast<Element*>(TakeBytes(count, sizeof(Element)));
#if defined(VEXOR_CHECKED)
    if constexpr (std::is_floating_point_v<Element>) {
        for (std::int64_t i = 0; block && i < count; ++i)
            block[i] = std::numeric_limits<Element>::signaling_NaN();
    }
#endif
    return Owned<Element>(block);
}

template Owned<double> Take<double>(std::int64_t count) noexcept;
template Owned<float> Take<float>(std::int64_t count) noexcept;
template Owned<int> Take<int>(std::int64_t count) noexcept;
template Owned<double*> Take<double*>(std::int64_t count) noexcept;

} // namespace vexor::detail
