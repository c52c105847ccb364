// The kernels for one instruction set. Each source that includes this file defines
//   VEXOR_KERNEL_NAMESPACE  the namespace that holds the set, and its name as VEXOR_KERNEL_NAME,
//   VEXOR_KERNEL_WIDTH      how many doubles a register holds,
//   VEXOR_KERNEL_COLUMNS    how many columns of a product advance together,
// and has the compiler generate code for that set. Nothing else is included here, lest an inline
// function shared with other sources be compiled for a CPU that is not there.
//
// The invariant that makes all this the same as the plain triple loop: a lane of a register belongs to
// one element of the result. It starts at 0.0 and takes that element's terms for rising k, one product
// rounded and then one sum rounded, never fused. Vectors, tiles, packing and blocks settle only which
// elements advance side by side and where their factors are read. Between two blocks of k an element
// rests in the result itself, as a double, which loses nothing. Where a count is no multiple of the
// width, the last register overlaps the one before it: the shared elements are then computed twice
// from the same values, and stored twice with the same bits.

// A source's text rather than a header. NOLINTBEGIN(misc-definitions-in-headers)

#define VEXOR_KERNEL_INLINE inline __attribute__((always_inline))
#define VEXOR_UNROLL _Pragma("GCC unroll 16")

VEXOR_EXACT_BEGIN

namespace vexor::detail::VEXOR_KERNEL_NAMESPACE {

namespace {

using Distance = std::ptrdiff_t;

// ---- Registers -----------------------------------------------------------------------------------

/// A register of `width` elements; a single element is no vector.
template <class Element, int width>
struct RegisterOf {
    typedef Element Type __attribute__((vector_size(width * sizeof(Element))));
};
template <class Element>
struct RegisterOf<Element, 1> {
    typedef Element Type;
};
template <class Element, int width>
using Register = typename RegisterOf<Element, width>::Type;

template <class Vector, class Element>
VEXOR_KERNEL_INLINE Vector Load(Element const* from)
{
    Vector vector;
    __builtin_memcpy(&vector, from, sizeof vector);
    return vector;
}

template <class Vector, class Element>
VEXOR_KERNEL_INLINE void Store(Element* to, Vector const& vector)
{
    __builtin_memcpy(to, &vector, sizeof vector);
}

/// Adds the product, rounded to the element type of the sum.
template <int width>
VEXOR_KERNEL_INLINE void AddProduct(Register<double, width>& sum, Register<double, width> const& elements,
                                    double factor)
{
    sum += elements * factor;
}

template <int width>
VEXOR_KERNEL_INLINE void AddProduct(Register<float, width>& sum, Register<double, width> const& elements,
                                    double factor)
{
    if constexpr (width == 1)
        sum += RoundToSingle(elements * factor);
    else
        sum += __builtin_convertvector(elements * factor, Register<float, width>);
}

// ---- The product -----------------------------------------------------------------------------------

/// How many registers of rows a tile has: with VEXOR_KERNEL_COLUMNS columns they fill three quarters
/// of the register file with sums and leave the rest for factors.
constexpr int tileVectors = 3;
constexpr int tileColumns = VEXOR_KERNEL_COLUMNS;

/// How many inner steps of a tile's rows are packed at a time: at most 96 KiB on the stack, which is a small
/// part of any stack and of the second-level cache.
constexpr int panelInner = 512;

/// Where a tile reads and writes: each operand's first element and the distance from column to column.
struct TileOperands {
    double const* left;
    Distance leftStride;
    double const* right;
    Distance rightStride;
    double* result;
    Distance resultStride;
};

/// One tile of the result, its sums in registers for all of the inner steps. It has `rows` rows, more
/// than (vectors − 1)·width and at most vectors·width. The sums start at 0 or where the result stands.
template <int width, int vectors, int columns>
void MultiplyTile(int rows, int inner, bool startsAtZero, TileOperands const& operands)
{
    using Vector = Register<double, width>;
    Distance const lastRow = rows - width; // the last register's
    auto const rowOf = [lastRow](int v) { return v < vectors - 1 ? Distance(v) * width : lastRow; };

    Vector sums[columns][vectors];
    VEXOR_UNROLL
    for (int j = 0; j < columns; ++j) {
        VEXOR_UNROLL
        for (int v = 0; v < vectors; ++v) {
            double const* const from = operands.result + j * operands.resultStride + rowOf(v);
            sums[j][v] = startsAtZero ? Vector{} : Load<Vector>(from);
        }
    }

    double const* left = operands.left;
    double const* right = operands.right;
    for (int k = 0; k < inner; ++k) {
        Vector elements[vectors];
        VEXOR_UNROLL
        for (int v = 0; v < vectors; ++v)
            elements[v] = Load<Vector>(left + rowOf(v));
        VEXOR_UNROLL
        for (int j = 0; j < columns; ++j) {
            double const factor = right[j * operands.rightStride];
            VEXOR_UNROLL
            for (int v = 0; v < vectors; ++v)
                AddProduct<width>(sums[j][v], elements[v], factor);
        }
        left += operands.leftStride;
        ++right;
    }

    VEXOR_UNROLL
    for (int j = 0; j < columns; ++j) {
        VEXOR_UNROLL
        for (int v = 0; v < vectors; ++v)
            Store(operands.result + j * operands.resultStride + rowOf(v), sums[j][v]);
    }
}

using TileFunction = void (*)(int rows, int inner, bool startsAtZero, TileOperands const& operands);

/// The tile for every size of edge: [registers − 1][columns − 1].
template <int width, class Columns>
struct TileTable;
template <int width, int... j>
struct TileTable<width, std::integer_sequence<int, j...>> {
    static constexpr TileFunction tiles[tileVectors][tileColumns] = {{MultiplyTile<width, 1, j + 1>...},
                                                                     {MultiplyTile<width, 2, j + 1>...},
                                                                     {MultiplyTile<width, 3, j + 1>...}};
};

template <int width>
void MultiplyAnyTile(int rows, int columns, int inner, bool startsAtZero, TileOperands const& operands)
{
    using Table = TileTable<width, std::make_integer_sequence<int, tileColumns>>;
    Table::tiles[(rows + width - 1) / width - 1][columns - 1](rows, inner, startsAtZero, operands);
}

/// The rows of the next tile: a full one, or what is left; never so many that the rest would not fill
/// a register.
template <int width>
int NextRows(int rest)
{
    constexpr int full = tileVectors * width;
    if (rest <= full)
        return rest;
    return rest <= full + width ? full - width : full;
}

/// The columns of the next step, at most `most`; the last two steps share what is left, as narrow ones
/// are slow.
inline int NextColumns(int rest, int most)
{
    if (rest <= most)
        return rest;
    return rest < 2 * most ? (rest + 1) / 2 : most;
}

/// Copies a tile's rows of the left operand, column after column without gaps.
template <int width>
void Pack(int rows, int inner, double const* from, Distance stride, double* to)
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
        MultiplyAnyTile<width>(rows, across, inner, startsAtZero,
                               {operands.left, operands.leftStride, operands.right + j * operands.rightStride,
                                operands.rightStride, operands.result + j * operands.resultStride,
                                operands.resultStride});
    }
}

/// The product where the left operand is too large to be read in place again and again: a tile's rows are
/// packed, a stretch of inner steps at a time, and multiplied into every column of the result.
template <int width>
void MultiplyPacked(int rows, int columns, int inner, double const* left, double const* right, double* result)
{
    alignas(64) double panel[tileVectors * width * panelInner];

    for (int k = 0; k < inner; k += panelInner) {
        int const depth = inner - k < panelInner ? inner - k : panelInner;
        for (int i = 0, step = 0; i < rows; i += step) {
            step = NextRows<width>(rows - i);
            Pack<width>(step, depth, left + Distance(k) * rows + i, rows, panel);
            MultiplyAcross<width>(step, columns, depth, k == 0,
                                  {panel, step, right + k, inner, result + i, rows});
        }
    }
}

/// The product on the operands where they stand.
template <int width>
void MultiplyInPlace(int rows, int columns, int inner, double const* left, double const* right,
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
    // Packing pays where a packed element is used often and the operand, at 256 KiB, outgrows the
    // second-level cache of some processors: its columns are then far apart for caches and pages.
    bool const packs =
        width == VEXOR_KERNEL_WIDTH && columns > 8 * tileColumns && Distance(rows) * inner > 32768;
    if (packs)
        MultiplyPacked<width>(rows, columns, inner, left, right, result);
    else
        MultiplyInPlace<width>(rows, columns, inner, left, right, result);
}

void MultiplyColumnMajor(int rows, int columns, int inner, double const* left, double const* right,
                         double* result)
{
    Multiply<VEXOR_KERNEL_WIDTH>(rows, columns, inner, left, right, result);
}

// ---- Matrix × vector -------------------------------------------------------------------------------

constexpr int stripColumns = 8;

/// Rows whose sums stay in the first-level cache while all columns are added to them.
constexpr int stripRows = 2048;

/// Adds each column's element times the column's factor to the sum, column by column.
template <class Element, int width, int columns>
VEXOR_KERNEL_INLINE void AddColumns(Register<Element, width>& sum, double const* elements, Distance stride,
                                    double const (&factors)[columns])
{
    VEXOR_UNROLL
    for (int k = 0; k < columns; ++k)
        AddProduct<width>(sum, Load<Register<double, width>>(elements + k * stride), factors[k]);
}

/// Adds some columns, each times its factor, to the result, or to 0.
template <class Element, int width, int columns>
void AddStrip(int rows, bool startsAtZero, double const* matrix, Distance stride, Element const* vector,
              Element* result)
{
    using Sum = Register<Element, width>;
    double factors[columns];
    VEXOR_UNROLL
    for (int k = 0; k < columns; ++k)
        factors[k] = vector[k];

    Distance const lastRow = rows - width;
    Sum last = startsAtZero ? Sum{} : Load<Sum>(result + lastRow); // before the loop changes some of it
    for (Distance i = 0; i < lastRow; i += width) {
        Sum sum = startsAtZero ? Sum{} : Load<Sum>(result + i);
        AddColumns<Element, width>(sum, matrix + i, stride, factors);
        Store(result + i, sum);
    }
    AddColumns<Element, width>(last, matrix + lastRow, stride, factors);
    Store(result + lastRow, last);
}

template <class Element>
using StripFunction = void (*)(int rows, bool startsAtZero, double const* matrix, Distance stride,
                               Element const* vector, Element* result);

/// The strip for every number of columns: [columns − 1].
template <class Element, int width, class Columns>
struct StripTable;
template <class Element, int width, int... k>
struct StripTable<Element, width, std::integer_sequence<int, k...>> {
    static constexpr StripFunction<Element> strips[stripColumns] = {AddStrip<Element, width, k + 1>...};
};

template <class Element, int width>
void MultiplyVectorBy(int rows, int columns, double const* matrix, Element const* vector, Element* result)
{
    if constexpr (width > 1) {
        if (rows < width)
            return MultiplyVectorBy<Element, width / 2>(rows, columns, matrix, vector, result);
    }
    using Table = StripTable<Element, width, std::make_integer_sequence<int, stripColumns>>;
    // A large matrix comes from memory, which follows a few columns better than many.
    int const most = rows < 512 ? stripColumns : stripColumns / 2;
    for (int i = 0, step = 0; i < rows; i += step) {
        step = rows - i < stripRows + width ? rows - i : stripRows;
        for (int k = 0, across = 0; k < columns; k += across) {
            across = NextColumns(columns - k, most);
            Table::strips[across - 1](step, k == 0, matrix + Distance(k) * rows + i, rows, vector + k,
                                      result + i);
        }
    }
}

void MultiplyVector(int rows, int columns, double const* matrix, double const* vector, double* result)
{
    MultiplyVectorBy<double, VEXOR_KERNEL_WIDTH>(rows, columns, matrix, vector, result);
}

void MultiplyVectorSingle(int rows, int columns, double const* matrix, float const* vector, float* result)
{
    MultiplyVectorBy<float, VEXOR_KERNEL_WIDTH>(rows, columns, matrix, vector, result);
}

// ---- Transposition -----------------------------------------------------------------------------------

/// Two registers' elements at the given places, those of `b` counted on from those of `a`.
template <class Vector, int... places>
VEXOR_KERNEL_INLINE Vector Shuffle(Vector const& a, Vector const& b, std::integer_sequence<int, places...>)
{
#if defined(__clang__)
    return __builtin_shufflevector(a, b, places...);
#else
    typedef long long Places __attribute__((vector_size(sizeof(Vector))));
    return __builtin_shuffle(a, b, Places{places...});
#endif
}

/// A square of width × width elements in registers, one column a register.
template <int width>
struct Square {
    using Vector = Register<double, width>;
    Vector columns[width];

    VEXOR_KERNEL_INLINE void Read(double const* from, Distance stride)
    {
        VEXOR_UNROLL
        for (int j = 0; j < width; ++j)
            columns[j] = Load<Vector>(from + j * stride);
    }

    VEXOR_KERNEL_INLINE void Write(double* to, Distance stride) const
    {
        VEXOR_UNROLL
        for (int j = 0; j < width; ++j)
            Store(to + j * stride, columns[j]);
    }

    /// Swaps the squares of `half` × `half` off the diagonal, for every half of the width.
    template <int half = width / 2>
    VEXOR_KERNEL_INLINE void Transpose()
    {
        if constexpr (half > 0) {
            SwapOffDiagonal<half>(std::make_integer_sequence<int, width>());
            Transpose<half / 2>();
        }
    }

    template <int half, int... i>
    VEXOR_KERNEL_INLINE void SwapOffDiagonal(std::integer_sequence<int, i...>)
    {
        VEXOR_UNROLL
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
    Distance stride;
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
        return Distance(at < 0 ? 0 : at + width <= count ? at : count - width);
    };
    for (int i = -rowsBefore; i < rows; i += width) {
        Distance const row = place(i, rows);
        for (int j = -columnsBefore; j < columns; j += width) {
            Distance const column = place(j, columns);
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
    Transpose<VEXOR_KERNEL_WIDTH>(rows, columns, {matrix, rows}, {result, columns},
                                  PastLineStart(rows, matrix, large), PastLineStart(columns, result, large));
}

/// Asks for the lines of cache in which a square's columns begin, to be written.
template <int width>
VEXOR_KERNEL_INLINE void AskFor(double const* square, Distance stride)
{
    VEXOR_UNROLL
    for (int j = 0; j < width; ++j)
        __builtin_prefetch(square + j * stride, 1);
}

/// Swaps the elements of some rows, in the columns before `endColumn` and left of the diagonal, with those
/// opposite.
inline void SwapElements(int beginRow, int endRow, int endColumn, Distance stride, double* matrix)
{
    for (Distance i = beginRow; i < endRow; ++i) {
        for (Distance j = 0; j < endColumn && j < i; ++j) {
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
    constexpr int width = VEXOR_KERNEL_WIDTH;
    constexpr int line = 8;
    Distance const stride = rows;
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
    constexpr Distance side = 64;
    alignas(64) double buffer[side * side];
    Distance const stride = rows;
    auto const count = [rows](Distance from) {
        return static_cast<int>(rows - from < side ? rows - from : side);
    };
    for (Distance j0 = 0; j0 < rows; j0 += side) {
        int const width = count(j0);
        for (Distance i0 = 0; i0 <= j0; i0 += side) {
            int const height = count(i0);
            double* const above = matrix + j0 * stride + i0;
            double* const below = matrix + i0 * stride + j0;
            for (int j = 0; j < width; ++j)
                __builtin_memcpy(buffer + j * side, above + j * stride, sizeof(double) * unsigned(height));
            if (i0 != j0)
                Transpose<VEXOR_KERNEL_WIDTH>(width, height, {below, stride}, {above, stride});
            Transpose<VEXOR_KERNEL_WIDTH>(height, width, {buffer, side}, {below, stride});
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
    constexpr bool hasWholeLines = VEXOR_KERNEL_WIDTH >= 8;
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

KernelSet const kernels = {VEXOR_KERNEL_NAME,    MultiplyColumnMajor, MultiplyVector,
                           MultiplyVectorSingle, TransposeInto,       TransposeSquare};

} // namespace vexor::detail::VEXOR_KERNEL_NAMESPACE

VEXOR_EXACT_END

// NOLINTEND(misc-definitions-in-headers)
