#pragma once
#include <vexor/foundation/VexorTolerance.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <new>

namespace vexor_test {

/// Restores the global tolerance, so that tests may set it.
class RestoreTolerance {
public:
    RestoreTolerance() : saved_(gVexorTolerance) {}
    ~RestoreTolerance() { gVexorTolerance = saved_; }
    RestoreTolerance(RestoreTolerance const&) = delete;
    RestoreTolerance& operator=(RestoreTolerance const&) = delete;

private:
    VexorTolerance saved_;
};

/// Fills memory with a pattern, default-constructs a Value in it with parentheses, and returns whether
/// the pattern is still there.
template <class Value>
bool DefaultConstructorWritesNothing()
{
    alignas(Value) unsigned char memory[sizeof(Value)];
    unsigned char pattern[sizeof(Value)];
    for (std::size_t i = 0; i < sizeof(Value); ++i)
        pattern[i] = static_cast<unsigned char>(37 * i + 11);
    std::memcpy(memory, pattern, sizeof(Value));
    Value* const value = ::new (static_cast<void*>(memory)) Value();
    bool const untouched = std::memcmp(memory, pattern, sizeof(Value)) == 0;
    value->~Value();
    return untouched;
}

/// The next number towards −∞ and towards +∞: one unit in the last place to either side.
template <class Number>
Number Below(Number value)
{
    return std::nextafter(value, -std::numeric_limits<Number>::infinity());
}

template <class Number>
Number Above(Number value)
{
    return std::nextafter(value, std::numeric_limits<Number>::infinity());
}

} // namespace vexor_test
