#pragma once
#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>
#include <vexor/extras/detail/Layout.h>
#include <vexor/foundation/VexorException.h>

#include <initializer_list>

// Vectors, points and matrices as ranges of their elements, for range-for and for algorithms. The iterators
// are pointers into the object, so a loop by reference writes to it. The order is that in memory: a `MatDbl`
// column by column, a fixed-size matrix row by row. `Mat2Dbl` and `Mat3Dbl` have 4 and 9 elements.
//
// The functions are in the global namespace, where range-for and std::ranges find them.

namespace vexor::detail {
template <class Value>
using IfRange = std::enable_if_t<kindOf<Value> != Kind::none, int>;
}

/// The first element.
template <class Value, vexor::detail::IfRange<Value> = 0>
auto* begin(Value& value)
{
    return vexor::detail::FirstElement(value);
}

/// One past the last element.
template <class Value, vexor::detail::IfRange<Value> = 0>
auto* end(Value& value)
{
    return vexor::detail::FirstElement(value) + vexor::detail::ElementCount(value);
}

/// The address of the first element.
template <class Value, vexor::detail::IfRange<Value> = 0>
auto* data(Value& value)
{
    return vexor::detail::FirstElement(value);
}

/// The number of elements.
template <class Value, vexor::detail::IfRange<Value> = 0>
std::size_t size(Value const& value)
{
    return vexor::detail::ElementCount(value);
}

namespace vexor {

/// Makes a vector of these elements: `vexor::Vector({1, 2, 3})`. Raises `VexorAllocationFailed` for an empty
/// list.
inline VecDbl Vector(std::initializer_list<double> elements)
{
    VecDbl result(static_cast<int>(elements.size()));
    int index = 0;
    for (double const element : elements)
        result[index++] = element;
    return result;
}

/// Makes a matrix of these rows: `vexor::Matrix({{1, 2}, {3, 4}})`. Raises `VexorDimensionMismatch` if the
/// rows differ in length and `VexorAllocationFailed` if there is no row or no column.
inline MatDbl Matrix(std::initializer_list<std::initializer_list<double>> rows)
{
    std::size_t const columns = rows.size() == 0 ? 0 : rows.begin()->size();
    for (std::initializer_list<double> const row : rows) {
        if (row.size() != columns)
            throw VexorDimensionMismatch();
    }
    MatDbl result(static_cast<int>(rows.size()), static_cast<int>(columns));
    int i = 0;
    for (std::initializer_list<double> const row : rows) {
        int j = 0;
        for (double const element : row)
            result(i, j++) = element;
        ++i;
    }
    return result;
}

} // namespace vexor
