#pragma once
#include <vexor/extras/detail/Layout.h>

class AffMat2Dbl;
class AffMat3Dbl;
class Quaternion;
class UInt64;
class VexorTolerance;

// The text form of every class, shared by streams and formatters: `(1, 2, 3)` for vectors and points, rows in
// the same parentheses for matrices, linear part + translation for affine maps, `(u, v, w; s)` for
// quaternions. The debugger views show the same text.

namespace vexor::detail {

template <class Value>
inline constexpr bool isAffineMap = std::is_same_v<Value, AffMat2Dbl> || std::is_same_v<Value, AffMat3Dbl>;

/// The type of the numbers in the text form; void for a type without a text form.
template <class Value>
struct TextElementOf {
    using Type = std::conditional_t<isAffineMap<Value> || std::is_same_v<Value, Quaternion>, double,
                                    ElementType<Value>>;
};
template <>
struct TextElementOf<UInt64> {
    using Type = long long;
};
template <>
struct TextElementOf<VexorTolerance> {
    using Type = float;
};

template <class Value>
using TextElement = typename TextElementOf<Value>::Type;

template <class Value>
inline constexpr bool hasText = !std::is_void_v<TextElement<Value>>;

/// Traverses the text form in order: calls `text` with each piece of punctuation and `number` with each
/// number.
template <class Value, class Text, class Number>
void WalkText(Value const& value, Text&& text, Number&& number)
{
    if constexpr (isVector<Value>) {
        text("(");
        for (int i = 0; i < VectorSize(value); ++i) {
            if (i > 0)
                text(", ");
            number(value[i]);
        }
        text(")");
    } else if constexpr (isMatrix<Value>) {
        for (int i = 0; i < RowsOf(value); ++i) {
            text(i == 0 ? "((" : ", (");
            for (int j = 0; j < ColumnsOf(value); ++j) {
                if (j > 0)
                    text(", ");
                number(value(i, j));
            }
            text(")");
        }
        text(")");
    } else if constexpr (isAffineMap<Value>) {
        WalkText(value.LinearPart(), text, number);
        text(" + ");
        WalkText(value.Translation(), text, number);
    } else if constexpr (std::is_same_v<Value, Quaternion>) {
        text("(");
        number(value.u);
        text(", ");
        number(value.v);
        text(", ");
        number(value.w);
        text("; ");
        number(value.s);
        text(")");
    } else if constexpr (std::is_same_v<Value, UInt64>) {
        number(static_cast<long long>(value.int64()));
    } else {
        static_assert(std::is_same_v<Value, VexorTolerance>, "the type has a text form");
        text("angle ");
        number(value.angle);
        text(", length ");
        number(value.length);
    }
}

} // namespace vexor::detail
