#pragma once
#include <vexor/foundation/detail/Raise.h>

#include <cstdint>
#include <limits>
#include <memory>

// Storage of the classes of run-time size. Everything they and their drivers take from the heap is
// taken here, so that a request that is not met ends in one way only: in `VexorAllocationFailed`,
// whatever the client's allocator or new-handler does to say so.

namespace vexor::detail {

/// Unset storage for at least one element, or null where there is none to be had: the request is more
/// than the address space holds, or the allocator refuses it, by returning null or by throwing anything.
void* TakeBytes(std::int64_t count, std::int64_t elementSize) noexcept;
void ReturnBytes(void* bytes) noexcept;

struct ReturnToHeap {
    void operator()(void* bytes) const noexcept { ReturnBytes(bytes); }
};

/// A block on its way into or out of an object, or a driver's workspace.
template <class Element>
using Owned = std::unique_ptr<Element[], ReturnToHeap>;

/// That many elements, unset; in checked builds floating elements hold signalling NaNs. Null where
/// there is no storage.
template <class Element>
Owned<Element> Take(std::int64_t count) noexcept;

extern template Owned<double> Take<double>(std::int64_t count) noexcept;
extern template Owned<float> Take<float>(std::int64_t count) noexcept;
extern template Owned<int> Take<int>(std::int64_t count) noexcept;
extern template Owned<double*> Take<double*>(std::int64_t count) noexcept;

/// The same, raising `VexorAllocationFailed` where there is no storage.
template <class Element>
inline Owned<Element> TakeOrRaise(std::int64_t count)
{
    Owned<Element> block = Take<Element>(count);
    if (!block)
        RaiseAllocationFailed();
    return block;
}

// The elements of a matrix begin at the start of a line of cache, so that no register of the kernels
// straddles two lines where the row count allows for it. The allocator promises less: a block asks it for
// some room more and begins within. Checked builds, and those under AddressSanitizer, take exact blocks, so
// that an access beyond either end does not fall into that room.

/// Elements of a matrix, unset (in checked builds signalling NaNs), or null. Such a block goes back by
/// ReturnBlock alone.
double* TakeBlock(std::int64_t count) noexcept;
void ReturnBlock(double* block) noexcept;

struct ReturnToBlocks {
    void operator()(double* block) const noexcept { ReturnBlock(block); }
};

/// A matrix's block on its way into or out of the object.
using OwnedBlock = std::unique_ptr<double[], ReturnToBlocks>;

/// A block, raising `VexorAllocationFailed` where there is no storage.
inline OwnedBlock TakeBlockOrRaise(std::int64_t count)
{
    OwnedBlock block(TakeBlock(count));
    if (!block)
        RaiseAllocationFailed();
    return block;
}

/// Workspace of a driver: `multiple` elements for each of `dimension`. LAPACK takes its length as an
/// int, so workspace whose length is none cannot be had and raises `VexorAllocationFailed` like any
/// other that is not there.
template <class Element>
struct Workspace {
    Owned<Element> block;
    int length;

    Workspace(int multiple, int dimension)
    {
        std::int64_t const wanted = static_cast<std::int64_t>(multiple) * dimension;
        if (wanted > std::numeric_limits<int>::max())
            RaiseAllocationFailed();
        block = TakeOrRaise<Element>(wanted);
        length = static_cast<int>(wanted);
    }
};

/// The number of elements of a matrix.
inline std::int64_t CountOf(int rows, int columns)
{
    return static_cast<std::int64_t>(rows) * columns;
}

/// Gives a vector, known by its three fields, a size and storage, the caller's where a pointer is
/// given. Own storage of that size stays as it is, and the pointer is then ignored. Returns the own
/// block that the vector gave up, for the caller to drop when nothing reads it any more. Raises
/// `VexorAllocationFailed`, with nothing changed, for a size below 1 and where there is no storage.
template <class Element>
inline Owned<Element> ShapeVector(Element*& values, int& size, int& isExternal, int newSize,
                                  Element* externalStorage)
{
    if (newSize < 1)
        RaiseAllocationFailed();
    if (newSize == size && !isExternal)
        return nullptr;
    VEXOR_CHECK(!externalStorage || isExternal || externalStorage != values,
                "a vector's own block is no caller's storage for it");

    Owned<Element> fresh = externalStorage ? nullptr : TakeOrRaise<Element>(newSize);
    Owned<Element> retired(isExternal ? nullptr : values);
    values = externalStorage ? externalStorage : fresh.release();
    size = newSize;
    isExternal = externalStorage ? 1 : 0;
    return retired;
}

inline void RequireSameSize(int left, int right)
{
    if (left != right)
        RaiseDimensionMismatch();
}

} // namespace vexor::detail
