#pragma once
#include <cstddef>
#include <functional>
#include <vector>

// The test program's own heap operators (Allocations.cpp) count what is taken and given back, and can be told
// to fail.

namespace vexor_test {

/// How a request that is not met says so.
enum class Refusal {
    BadAlloc,     ///< the throwing operator throws std::bad_alloc
    OddException, ///< the throwing operator throws an int, as a client's new-handler might
    Null          ///< the throwing operator returns null, which it should not
};

/// Blocks taken and not yet given back.
long LiveBlocks();

/// Runs the operation and tells how many blocks it asked for.
int CountRequests(std::function<void()> const& operation);

/// Runs the operation and tells how many bytes each block has that it asked for, in order; of the first 16.
std::vector<std::size_t> RequestedSizes(std::function<void()> const& operation);

/// Runs the operation with its k-th request, from 1, refused. True if there was such a request and
/// `VexorAllocationFailed` came of it, false if the operation ran through; any other exception leaves.
bool RunWithRefusal(int k, Refusal form, std::function<void()> const& operation);

} // namespace vexor_test
