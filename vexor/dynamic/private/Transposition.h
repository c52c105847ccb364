#pragma once
#include <vexor/foundation/private/Registers.h>

// Transposition in the registers of one instruction set (see Registers.h).

VEXOR_SET_BEGIN

namespace vexor::detail::VEXOR_SET {

namespace {

/// A square of width × width elements in registers, one column a register.
template <int width>
struct Square {
    using Vector = Register<double, width>;
    Vector columns[width];

    VEXOR_ALWAYS_INLINE void Read(double const* from, Offset stride)
    {
        VEXOR_UNROLL(16)
        for (int j = 0; j < width; ++j)
            columns[j] = Load<Vector>(from + j * stride);
    }

    VEXOR_ALWAYS_INLINE void Write(double* to, Offset stride) const
    {
        VEXOR_UNROLL(16)
        for (int j = 0; j < width; ++j)
            Store(to + j * stride, columns[j]);
    }

    /// Swaps the squares of `half` × `half` off the diagonal, for every half of the width.
    template <int half = width / 2>
    VEXOR_ALWAYS_INLINE void Transpose()
    {
        if constexpr (half > 0) {
            SwapOffDiagonal<half>(std::make_integer_sequence<int, width>());
            Transpose<half / 2>();
        }
    }

    template <int half, int... i>
    VEXOR_ALWAYS_INLINE void SwapOffDiagonal(std::integer_sequence<int, i...>)
    {
        VEXOR_UNROLL(16)
        for (int j = 0; j < width; ++j) {
            if (j & half)
                continue;
            Vector const a = columns[j];
            Vector const b = columns[j + half];
            columns[j] = Shuffle(a, b, std::integer_sequence<int, (i & half ? width + i - half : i)...>());
            columns[j + half] =
                Shuffle(a, b, std::integer_sequence<int, (i & half ? width + i : i + half)...>());
        }
    }
};

/// By how many elements a matrix begins after the start of a line of cache, if all of its columns do:
/// there it pays for a large one that no register straddles two lines.
inline int PastLineStart(int rows, double const* matrix, int large)
{
    constexpr int line = 8;
    if (rows < large || rows % line != 0)
        return 0;
    return static_cast<int>(reinterpret_cast<std::uintptr_t>(matrix) / sizeof(double) % line);
}

/// A matrix, or a part of one, and the distance between its columns.
template <class Element>
struct Part {
    Element* start;
    Offset stride;
};

/// Goes through the matrix in strips of some rows, across all columns. So the result is written in a few
/// columns side by side, each from its beginning to its end, and no line of cache of either matrix is
/// wanted again when its strip is done, however its columns compete for places in the cache. The first
/// strip and the first column may begin before the matrix, by so many rows and columns.
template <int width>
void Transpose(int rows, int columns, Part<double const> matrix, Part<double> result, int rowsBefore = 0,
               int columnsBefore = 0)
{
    if constexpr (width > 1) {
        if (rows < width || columns < width)
            return Transpose<width / 2>(rows, columns, matrix, result);
    }
    // Squares stand side by side, but for the first and last ones, which are kept inside the matrix
    // and overlap their neighbours.
    auto const place = [](int at, int count) {
        return Offset(at < 0 ? 0 : at + width <= count ? at : count - width);
    };
    for (int i = -rowsBefore; i < rows; i += width) {
        Offset const row = place(i, rows);
        for (int j = -columnsBefore; j < columns; j += width) {
            Offset const column = place(j, columns);
            Square<width> square;
            square.Read(matrix.start + column * matrix.stride + row, matrix.stride);
            square.Transpose();
            square.Write(result.start + row * result.stride + column, result.stride);
        }
    }
}

void TransposeInto(int rows, int columns, double const* matrix, double* result)
{
    constexpr int large = 100;
    Transpose<registerWidth>(rows, columns, {matrix, rows}, {result, columns},
                             PastLineStart(rows, matrix, large), PastLineStart(columns, result, large));
}

/// Asks for the lines of cache in which a square's columns begin, to be written.
template <int width>
VEXOR_ALWAYS_INLINE void AskFor(double const* square, Offset stride)
{
    VEXOR_UNROLL(16)
    for (int j = 0; j < width; ++j)
        __builtin_prefetch(square + j * stride, 1);
}

/// Swaps the elements of some rows, in the columns before `endColumn` and left of the diagonal, with those
/// opposite.
inline void SwapElements(int beginRow, int endRow, int endColumn, Offset stride, double* matrix)
{
    for (Offset i = beginRow; i < endRow; ++i) {
        for (Offset j = 0; j < endColumn && j < i; ++j) {
            double const above = matrix[i * stride + j];
            matrix[i * stride + j] = matrix[j * stride + i];
            matrix[j * stride + i] = above;
        }
    }
}

/// Transposes in place: squares in pairs, those on the diagonal by themselves, and element by element
/// the rows before the first whole square and after the last. The pairs come in blocks of that side, so that
/// the lines of cache that a block touches stay there until they are used up. A pair may ask for the lines of
/// the one `ahead` rows further down, and as many columns further right.
template <int block, int ahead>
inline void TransposeInPlace(int rows, double* matrix)
{
    constexpr int width = registerWidth;
    constexpr int line = 8;
    Offset const stride = rows;
    int const begin = (line - PastLineStart(rows, matrix, 160)) % line;
    int const end = rows - (rows - begin) % width;

    SwapElements(0, end, begin, stride, matrix);
    for (int j0 = begin; j0 < end; j0 += block) {
        int const jEnd = j0 + block < end ? j0 + block : end;
        for (int i0 = begin; i0 <= j0; i0 += block) {
            for (int j = j0; j < jEnd; j += width) {
                for (int i = i0; i < i0 + block && i < j; i += width) {
                    double* const above = matrix + j * stride + i;
                    double* const below = matrix + i * stride + j;
                    if (ahead != 0 && i + ahead < j) {
                        AskFor<width>(above + ahead, stride);
                        AskFor<width>(below + ahead * stride, stride);
                    }
                    Square<width> upper;
                    Square<width> lower;
                    upper.Read(above, stride);
                    lower.Read(below, stride);
                    upper.Transpose();
                    lower.Transpose();
                    lower.Write(above, stride);
                    upper.Write(below, stride);
                }
            }
        }
    }
    for (int j = begin; j < end; j += width) {
        Square<width> square;
        square.Read(matrix + j * stride + j, stride);
        square.Transpose();
        square.Write(matrix + j * stride + j, stride);
    }
    SwapElements(end, rows, rows, stride, matrix);
}

/// Transposes in place, part after part through a buffer on the stack (32 KiB). Each part is read and written
/// in long runs down its columns: where registers straddle lines of cache that compete for a few places, a
/// line is done with before it is driven out.
inline void TransposeByParts(int rows, double* matrix)
{
    constexpr Offset side = 64;
    alignas(64) double buffer[side * side];
    Offset const stride = rows;
    auto const count = [rows](Offset from) {
        return static_cast<int>(rows - from < side ? rows - from : side);
    };
    for (Offset j0 = 0; j0 < rows; j0 += side) {
        int const width = count(j0);
        for (Offset i0 = 0; i0 <= j0; i0 += side) {
            int const height = count(i0);
            double* const above = matrix + j0 * stride + i0;
            double* const below = matrix + i0 * stride + j0;
            for (int j = 0; j < width; ++j)
                __builtin_memcpy(buffer + j * side, above + j * stride, sizeof(double) * unsigned(height));
            if (i0 != j0)
                Transpose<registerWidth>(width, height, {below, stride}, {above, stride});
            Transpose<registerWidth>(height, width, {buffer, side}, {below, stride});
        }
    }
}

/// Chooses the way by where the columns fall in the caches. Those that lie a large power of two apart
/// compete for a few places, hence small blocks, or the way through a buffer where a register is less than
/// a line or straddles two; others gain from large blocks. A huge matrix has each column on another page of
/// memory and outgrows the caches, so that it pays to ask for lines early; with registers of a whole line,
/// whose loads betray no direction to the processor, it does so sooner.
void TransposeSquare(int rows, double* matrix)
{
    constexpr bool hasWholeLines = registerWidth >= 8;
    constexpr int large = 400;
    constexpr int huge = 1250;
    bool const straddles = rows > 512 && rows % 512 == 1;
    if (straddles || (!hasWholeLines && rows % 512 == 0)) {
        TransposeByParts(rows, matrix);
    } else if (rows % 256 == 0) {
        if (!hasWholeLines || rows < large)
            TransposeInPlace<16, 0>(rows, matrix);
        else if (rows < huge)
            TransposeInPlace<16, 8>(rows, matrix);
        else
            TransposeInPlace<24, 24>(rows, matrix);
    } else if (rows >= huge) {
        TransposeInPlace<32, 32>(rows, matrix);
    } else if (rows % 128 == 0) {
        TransposeInPlace<32, 0>(rows, matrix);
    } else {
        TransposeInPlace<64, 0>(rows, matrix);
    }
}

} // namespace

} // namespace vexor::detail::VEXOR_SET

VEXOR_SET_END
