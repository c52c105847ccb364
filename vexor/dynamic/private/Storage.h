#pragma once
#include <vexor/foundation/detail/Raise.h>

#include <cstdint>
#include <limits>
#include <memory>

// Storage of the classes of run-time size. All heap storage of the classes and their drivers is allocated
// here, so a failed allocation always raises `VexorAllocationFailed`, however the client's allocator or
// new-handler reports it. The classes hold plain pointers, since their layout is fixed. `Owned` allocates and
// frees a block; `Exchange` and `ElementBlock` transfer its ownership.

namespace vexor::detail {

/// Unset storage for at least one element. Null if the request exceeds the address space or if the allocator
/// refuses it, by returning null or by throwing anything.
void* TakeBytes(std::int64_t count, std::int64_t elementSize) noexcept;
void ReturnBytes(void* bytes) noexcept;

/// Storage with the alignment that the allocator gives.
template <class Element>
struct Heap {
    /// That many elements, unset; in checked builds floating elements hold signalling NaNs. Null if the
    /// allocation fails.
    static Element* Take(std::int64_t count) noexcept;
    void operator()(Element* block) const noexcept { ReturnBytes(block); }
};

extern template struct Heap<double>;
extern template struct Heap<float>;
extern template struct Heap<int>;
extern template struct Heap<double*>;

/// Storage for the elements of a matrix, which begins at a cache line, so that no register of the kernels
/// straddles two lines if the row count allows it. The allocator guarantees less, so a block is
/// over-allocated and aligned inside. Checked builds, and those under AddressSanitizer, allocate exact
/// blocks, so that an access beyond either end does not hit the spare bytes.
struct LineHeap {
    static double* Take(std::int64_t count) noexcept;
    void operator()(double* block) const noexcept;
};

/// A block that no object owns at the moment, or a driver's workspace.
template <class Element, class Source = Heap<Element>>
using Owned = std::unique_ptr<Element[], Source>;
using OwnedBlock = Owned<double, LineHeap>;

/// That many elements. Raises `VexorAllocationFailed` if the allocation fails.
template <class Owner>
inline Owner TakeOrRaise(std::int64_t count)
{
    Owner block(Owner::deleter_type::Take(count));
    if (!block)
        RaiseAllocationFailed();
    return block;
}

/// Gives a field that owns its block another one. Returns the previous block, which is freed unless the
/// caller keeps it.
template <class Owner>
inline Owner Exchange(typename Owner::pointer& field, Owner fresh)
{
    Owner former(field);
    field = fresh.release();
    return former;
}

/// The element block of an object, described by two of its fields: its start, and whether it is the caller's.
/// Each change returns the own block that the object released, or null. That block is freed unless it is kept
/// because something may still read from it.
template <class Owner>
class ElementBlock {
public:
    using Pointer = typename Owner::pointer;

    ElementBlock(Pointer& startField, int& flagField) : start(startField), isExternal(flagField) {}

    bool IsOwn() const { return !isExternal; }

    /// Makes the block own storage.
    Owner Own(Owner fresh) { return Become(fresh.release(), 0); }

    /// Makes the object a view on the caller's block.
    Owner View(Pointer externalStorage)
    {
        VEXOR_CHECK(!IsOwn() || externalStorage != start,
                    "an object's own block is no caller's storage for it");
        return Become(externalStorage, 1);
    }

    /// Provides storage for another number of elements: the caller's block if there is one, else own storage,
    /// which is kept if it has that number. Raises `VexorAllocationFailed`, with nothing changed, if the
    /// allocation fails.
    Owner Fit(std::int64_t count, std::int64_t formerCount, Pointer externalStorage)
    {
        if (externalStorage)
            return View(externalStorage);
        if (IsOwn() && count == formerCount)
            return nullptr;
        return Own(TakeOrRaise<Owner>(count));
    }

    /// Frees own storage at the end of the object's lifetime.
    void Release() { Become(nullptr, 0); }

private:
    Owner Become(Pointer newStart, int newFlag)
    {
        Owner former(IsOwn() ? start : nullptr);
        start = newStart;
        isExternal = newFlag;
        return former;
    }

    Pointer& start;
    int& isExternal;
};

/// Gives a vector another size. Own storage of that size is kept, and the pointer is then ignored. Returns
/// what `Fit` returns. Raises `VexorAllocationFailed`, with nothing changed, for a size below 1 too.
template <class Owner>
inline Owner Resize(ElementBlock<Owner> elements, int& size, int newSize,
                    typename Owner::pointer externalStorage)
{
    if (newSize < 1)
        RaiseAllocationFailed();
    if (elements.IsOwn() && newSize == size)
        return nullptr;
    Owner former = elements.Fit(newSize, size, externalStorage);
    size = newSize;
    return former;
}

/// Workspace of a driver: `multiple` elements for each of `dimension`. LAPACK takes the length as an int; a
/// length that does not fit raises `VexorAllocationFailed`, like any failed allocation.
template <class Element>
struct Workspace {
    Owned<Element> block;
    int length;

    Workspace(int multiple, int dimension)
    {
        std::int64_t const wanted = static_cast<std::int64_t>(multiple) * dimension;
        if (wanted > std::numeric_limits<int>::max())
            RaiseAllocationFailed();
        block = TakeOrRaise<Owned<Element>>(wanted);
        length = static_cast<int>(wanted);
    }
};

/// The number of elements of a matrix.
inline std::int64_t CountOf(int rows, int columns)
{
    return static_cast<std::int64_t>(rows) * columns;
}

/// Fills the column table of a matrix whose block begins at `start`.
inline void PointColumns(double** columns, double* start, int rowCount, int columnCount)
{
    for (int j = 0; j < columnCount; ++j)
        columns[j] = start + CountOf(rowCount, j);
}

inline void RequireSameSize(int left, int right)
{
    if (left != right)
        RaiseDimensionMismatch();
}

} // namespace vexor::detail
