#pragma once
#include <cstdint>
#include <cstring>

namespace vexor::detail {

/// A checksum over the bits of doubles. Checked builds use it to detect that factors have changed. `start` is
/// 0, or the checksum of the values before these.
inline std::uint64_t Checksum(double const* values, std::int64_t count, std::uint64_t start = 0)
{
    std::uint64_t sum = start;
    for (std::int64_t i = 0; i < count; ++i) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, values + i, sizeof bits);
        sum = (sum + bits + 1) * 0x9e3779b97f4a7c15;
        sum ^= sum >> 29;
    }
    return sum;
}

} // namespace vexor::detail
