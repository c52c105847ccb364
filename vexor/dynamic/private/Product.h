#pragma once
#include <vexor/foundation/private/Registers.h>

// The product of two matrices in the registers of one instruction set (see Registers.h).
//
// The invariant that makes it the same as the plain triple loop: a lane of a register belongs to one element
// of the result. It starts at 0.0 and adds that element's terms for rising k: one product rounded, then one
// sum rounded, never fused. Vectors, tiles, packing and blocks decide only which elements are computed
// together and where their factors are read. Between two blocks of k an element is stored in the result as a
// double, which loses nothing. If a count is not a multiple of the width, the last register overlaps the one
// before it: the shared elements are computed twice from the same values and stored twice with the same bits.

VEXOR_SET_BEGIN

namespace vexor::detail::VEXOR_SET {

namespace {

/// How many registers of rows a tile has: with tileColumns columns they fill three quarters
/// of the register file with sums and leave the rest for factors.
constexpr int tileVectors = 3;
constexpr int tileColumns = registerCount / 4;

/// How many inner steps of a tile's rows are packed at a time: at most 96 KiB on the stack, which is a small
/// part of any stack and of the second-level cache.
constexpr int panelInner = 512;

/// The operands of a tile: each one's first element and the distance from column to column.
struct TileOperands {
    double const* left;
    Offset leftStride;
    double const* right;
    Offset rightStride;
    double* result;
    Offset resultStride;
};

/// One tile of the result, its sums in registers for all of the inner steps. It has `rows` rows, more than
/// (vectors − 1)·width and at most vectors·width. The sums start at 0 or at the values in the result.
template <int width, int vectors, int columns>
void MultiplyTile(int rows, int inner, bool startsAtZero, TileOperands const& operands)
{
    using Vector = Register<double, width>;
    Offset const lastRow = rows - width; // the last register's
    auto const rowOf = [lastRow](int v) { return v < vectors - 1 ? Offset(v) * width : lastRow; };

    Vector sums[columns][vectors];
    VEXOR_UNROLL(16)
    for (int j = 0; j < columns; ++j) {
        VEXOR_UNROLL(16)
        for (int v = 0; v < vectors; ++v) {
            double const* const from = operands.result + j * operands.resultStride + rowOf(v);
            sums[j][v] = startsAtZero ? Vector{} : Load<Vector>(from);
        }
    }

    double const* left = operands.left;
    double const* right = operands.right;
    for (int k = 0; k < inner; ++k) {
        Vector elements[vectors];
        VEXOR_UNROLL(16)
        for (int v = 0; v < vectors; ++v)
            elements[v] = Load<Vector>(left + rowOf(v));
        VEXOR_UNROLL(16)
        for (int j = 0; j < columns; ++j) {
            double const factor = right[j * operands.rightStride];
            VEXOR_UNROLL(16)
            for (int v = 0; v < vectors; ++v)
                sums[j][v] += elements[v] * factor;
        }
        left += operands.leftStride;
        ++right;
    }

    VEXOR_UNROLL(16)
    for (int j = 0; j < columns; ++j) {
        VEXOR_UNROLL(16)
        for (int v = 0; v < vectors; ++v)
            Store(operands.result + j * operands.resultStride + rowOf(v), sums[j][v]);
    }
}

using TileFunction = void (*)(int rows, int inner, bool startsAtZero, TileOperands const& operands);

/// The tiles with that many registers of rows, indexed by the number of columns: [columns − 1].
template <int width, int vectors, class Columns>
struct TilesOf;
template <int width, int vectors, int... j>
struct TilesOf<width, vectors, std::integer_sequence<int, j...>> {
    static constexpr TileFunction tiles[] = {MultiplyTile<width, vectors, j + 1>...};
};

/// The tile for a size. Only the widest registers are used three at a time: rows that fill fewer than two
/// registers of a width use that width, and one row uses single elements.
template <int width>
TileFunction TileFor(int rows, int columns)
{
    using Columns = std::make_integer_sequence<int, tileColumns>;
    if constexpr (width == registerWidth) {
        if (rows > 2 * width)
            return TilesOf<width, tileVectors, Columns>::tiles[columns - 1];
    }
    if constexpr (width > 1) {
        if (rows > width)
            return TilesOf<width, 2, Columns>::tiles[columns - 1];
    }
    return TilesOf<width, 1, Columns>::tiles[columns - 1];
}

/// The rows of the next tile: a full tile, or the remaining rows. If rows are left after it, they fill a
/// register.
template <int width>
int NextRows(int rest)
{
    constexpr int full = tileVectors * width;
    if (rest <= full)
        return rest;
    return rest <= full + width ? full - width : full;
}

/// The columns of the next step, at most `most`; the last two steps share the remaining columns, since narrow
/// steps are slow.
inline int NextColumns(int rest, int most)
{
    if (rest <= most)
        return rest;
    return rest < 2 * most ? (rest + 1) / 2 : most;
}

/// Copies a tile's rows of the left operand, column after column without gaps.
template <int width>
void Pack(int rows, int inner, double const* from, Offset stride, double* to)
{
    constexpr int full = tileVectors * width;
    for (int k = 0; k < inner; ++k, from += stride, to += rows) {
        if (rows == full) {
            __builtin_memcpy(to, from, full * sizeof(double));
        } else {
            for (int i = 0; i < rows; ++i)
                to[i] = from[i];
        }
    }
}

/// A tile's rows times all columns.
template <int width>
void MultiplyAcross(int rows, int columns, int inner, bool startsAtZero, TileOperands const& operands)
{
    for (int j = 0, across = 0; j < columns; j += across) {
        across = NextColumns(columns - j, tileColumns);
        TileFor<width>(rows, across)(rows, inner, startsAtZero,
                                     {operands.left, operands.leftStride,
                                      operands.right + j * operands.rightStride, operands.rightStride,
                                      operands.result + j * operands.resultStride, operands.resultStride});
    }
}

/// The product for a left operand that is too large to be read in place repeatedly. A tile's rows are packed,
/// some inner steps at a time, and multiplied into every column of the result.
template <int width>
void MultiplyPacked(int rows, int columns, int inner, double const* left, double const* right, double* result)
{
    alignas(64) double panel[tileVectors * width * panelInner];

    for (int k = 0; k < inner; k += panelInner) {
        int const depth = inner - k < panelInner ? inner - k : panelInner;
        for (int i = 0, step = 0; i < rows; i += step) {
            step = NextRows<width>(rows - i);
            Pack<width>(step, depth, left + Offset(k) * rows + i, rows, panel);
            MultiplyAcross<width>(step, columns, depth, k == 0,
                                  {panel, step, right + k, inner, result + i, rows});
        }
    }
}

/// The product of the operands in place, without packing.
template <int width>
void MultiplyUnpacked(int rows, int columns, int inner, double const* left, double const* right,
                      double* result)
{
    for (int i = 0, step = 0; i < rows; i += step) {
        step = NextRows<width>(rows - i);
        MultiplyAcross<width>(step, columns, inner, true, {left + i, rows, right, inner, result + i, rows});
    }
}

template <int width>
void Multiply(int rows, int columns, int inner, double const* left, double const* right, double* result)
{
    if constexpr (width > 1) {
        if (rows < width)
            return Multiply<width / 2>(rows, columns, inner, left, right, result);
    }
    if constexpr (width == registerWidth) {
        // Packing is faster if a packed element is used often and the operand exceeds 256 KiB, the
        // second-level cache of some processors: its columns are then far apart for caches and pages.
        if (columns > 8 * tileColumns && Offset(rows) * inner > 32768)
            return MultiplyPacked<width>(rows, columns, inner, left, right, result);
    }
    MultiplyUnpacked<width>(rows, columns, inner, left, right, result);
}

void MultiplyColumnMajor(int rows, int columns, int inner, double const* left, double const* right,
                         double* result)
{
    Multiply<registerWidth>(rows, columns, inner, left, right, result);
}

} // namespace

} // namespace vexor::detail::VEXOR_SET

VEXOR_SET_END
