#pragma once
#include <vexor/extras/detail/Text.h>

#include <ostream>

/// Writes a value of any class of the library: `Vec3Dbl(1, 2, 3)` as `(1, 2, 3)`, a matrix row by row as
/// `((1, 2), (3, 4))`, an affine map as linear part + translation, a quaternion as `(u, v, w; s)`, a `UInt64`
/// as its signed value, a tolerance as `angle a, length l`. Each number follows the stream's precision,
/// flags, fill and width; the width is 0 afterwards. With `std::setprecision(17)` the text of a double
/// converts back to the same double.
///
/// The operator is in the global namespace, where argument-dependent lookup finds it for the classes.
template <class Value, std::enable_if_t<vexor::detail::hasText<Value>, int> = 0>
std::ostream& operator<<(std::ostream& stream, Value const& value)
{
    std::streamsize const width = stream.width(0);
    vexor::detail::WalkText(
        value, [&stream](char const* text) { stream << text; },
        [&stream, width](auto number) {
            stream.width(width);
            stream << number;
        });
    return stream;
}
