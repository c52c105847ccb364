#pragma once
#include <vexor/foundation/private/Registers.h>

// Transposition in the registers of one instruction set (see Registers.h).

VEXOR_SET_BEGIN

namespace vexor::detail::VEXOR_SET {

namespace {

/// A square of width × width elements in registers, one register for each column.
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

constexpr int line = 8; ///< doubles in a cache line

/// The number of elements by which a matrix begins after the start of a cache line, if this is the same for
/// all of its columns. For a copy of 100 rows or more it is faster if no register straddles two lines: 2.0
/// times the speed with AVX-512 and 1.6 with AVX2 (128 rows; the operand is a view that begins two elements
/// after the start of a line).
inline int PastLineStart(int rows, double const* matrix)
{
    if (rows < 100 || rows % line != 0)
        return 0;
    return static_cast<int>(reinterpret_cast<std::uintptr_t>(matrix) / sizeof(double) % line);
}

/// Writes the transpose in strips of `width` rows across all columns. The result is thus written in a few
/// neighbouring columns, each from its beginning to its end. The first strip begins `rowsBefore` rows before
/// the matrix, and each strip `columnsBefore` columns before it. Squares that are not inside the matrix are
/// moved inside and overlap their neighbours.
template <int width>
void TransposeInto(int rows, int columns, double const* matrix, double* result, int rowsBefore = 0,
                   int columnsBefore = 0)
{
    if constexpr (width > 1) {
        if (rows < width || columns < width)
            return TransposeInto<width / 2>(rows, columns, matrix, result);
    }
    auto const inside = [](int at, int count) {
        return Offset(at < 0 ? 0 : at + width <= count ? at : count - width);
    };
    for (int i = -rowsBefore; i < rows; i += width) {
        Offset const row = inside(i, rows);
        for (int j = -columnsBefore; j < columns; j += width) {
            Offset const column = inside(j, columns);
            Square<width> square;
            square.Read(matrix + column * rows + row, rows);
            square.Transpose();
            square.Write(result + row * columns + column, columns);
        }
    }
}

void TransposeInto(int rows, int columns, double const* matrix, double* result)
{
    TransposeInto<registerWidth>(rows, columns, matrix, result, PastLineStart(rows, matrix),
                                 PastLineStart(columns, result));
}

/// Exchanges a part of a square matrix, rows × columns, with its reflection in the diagonal. A part on the
/// diagonal is its own reflection and exchanges the elements on either side. The sides are halved until both
/// are at most `most`. The cache lines that a part shares with its neighbours are then still in some cache
/// when the neighbours are processed, for caches of any size.
inline void Exchange(int rows, int columns, double* part, double* opposite, Offset stride, int most)
{
    bool const onDiagonal = part == opposite;
    if (rows > most || columns > most) {
        auto const exchange = [=](int i, int j, int partRows, int partColumns) {
            Exchange(partRows, partColumns, part + j * stride + i, opposite + i * stride + j, stride, most);
        };
        int const half = ((rows > columns ? rows : columns) / 2 + line - 1) / line * line;
        if (onDiagonal) {
            exchange(0, 0, half, half);
            exchange(0, half, half, rows - half);
            exchange(half, half, rows - half, rows - half);
        } else if (rows > columns) {
            exchange(0, 0, half, columns);
            exchange(half, 0, rows - half, columns);
        } else {
            exchange(0, 0, rows, half);
            exchange(0, half, rows, columns - half);
        }
        return;
    }

    constexpr int width = registerWidth;
    int const squareRows = rows / width * width;
    int const squareColumns = columns / width * width;
    for (Offset j = 0; j < squareColumns; j += width) {
        for (Offset i = 0; i < (onDiagonal ? j + width : squareRows); i += width) {
            double* const from = part + j * stride + i;
            double* const to = opposite + i * stride + j;
            Square<width> upper;
            Square<width> lower;
            upper.Read(from, stride);
            lower.Read(to, stride);
            upper.Transpose();
            lower.Transpose();
            lower.Write(from, stride);
            upper.Write(to, stride);
        }
    }
    if (squareRows == rows && squareColumns == columns)
        return;
    // Element by element where no square fits.
    for (Offset j = 0; j < columns; ++j) {
        for (Offset i = j < squareColumns ? squareRows : 0; i < (onDiagonal ? j : rows); ++i)
            std::swap(part[j * stride + i], opposite[i * stride + j]);
    }
}

/// Transposes in place. Columns that are a large power of two apart compete for the same cache sets. So a
/// part has no more columns than a first-level cache has ways: eight for each line within 4 KiB.
void TransposeSquare(int rows, double* matrix)
{
    int const powerOfTwo = rows & -rows;
    int const places = 8 * 4096 / int(sizeof(double)) / powerOfTwo;
    int const most = places < line ? line : places < 64 ? places : 64;
    Exchange(rows, rows, matrix, matrix, rows, most);
}

} // namespace

} // namespace vexor::detail::VEXOR_SET

VEXOR_SET_END
