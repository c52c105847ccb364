#include "oracle/Registry.h"

#include <algorithm>
#include <cstring>

#include <cfenv>

namespace oracle {

namespace {

std::uint64_t Key(std::string const& text)
{
    std::uint64_t key = 0xcbf29ce484222325u;
    for (char const c : text)
        key = (key ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    return key;
}

} // namespace

Slips slips;

bool Slips::Asked(char const* name)
{
    if (made)
        return std::strcmp(name, made) == 0;
    if (std::find(listed.begin(), listed.end(), name) == listed.end())
        listed.emplace_back(name);
    return false;
}

Operation::Operation(std::string operationName) : name(std::move(operationName)), key(Key(name)) {}

std::vector<std::unique_ptr<Operation>>& Operations()
{
    static std::vector<std::unique_ptr<Operation>> operations;
    return operations;
}

Exceptions exceptions;

namespace {

constexpr int watchedExceptions = FE_INVALID | FE_DIVBYZERO;

/// Prevents the compiler from moving arithmetic on the pointed-to value across this call.
void Fence(void const* data)
{
#if defined(__GNUC__)
    __asm__ volatile("" : : "r"(data) : "memory");
#else
    static void const* volatile fence;
    fence = data;
#endif
}

} // namespace

void Exceptions::Begin(void const* operands)
{
    if (!watched)
        return;
    raised = 0;
    std::feclearexcept(FE_ALL_EXCEPT);
#if defined(__GLIBC__)
    if (trapping)
        feenableexcept(watchedExceptions);
#endif
    Fence(operands);
}

void Exceptions::End(void const* result)
{
    if (!watched)
        return;
    Fence(result);
    raised = std::fetestexcept(watchedExceptions);
#if defined(__GLIBC__)
    fedisableexcept(watchedExceptions);
#endif
}

} // namespace oracle
