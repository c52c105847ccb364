#pragma once
#include <cstddef>
#include <functional>
#include <vector>

// The test program's own heap operators (Allocations.cpp). They count the blocks allocated and freed, and can
// be told to fail.

namespace vexor_test {

/// How the allocator refuses a request.
enum class Refusal {
    BadAlloc,     ///< the throwing operator throws std::bad_alloc
    OddException, ///< the throwing operator throws an int, as a client's new-handler might
    Null          ///< the throwing operator returns null, which it should not
};

/// Blocks allocated and not yet freed.
long LiveBlocks();

/// Runs the operation and returns how many blocks it allocates.
int CountRequests(std::function<void()> const& operation);

/// Runs the operation and returns how many bytes it requests for each block, in order; at most 16 blocks.
std::vector<std::size_t> RequestedSizes(std::function<void()> const& operation);

/// Runs the operation with its k-th request, from 1, refused. True if there was such a request and it raised
/// `VexorAllocationFailed`; false if the operation completed. Any other exception passes through.
bool RunWithRefusal(int k, Refusal form, std::function<void()> const& operation);

} // namespace vexor_test
