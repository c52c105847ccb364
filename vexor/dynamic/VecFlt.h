#pragma once
#include <vexor/dynamic/MatDbl.h>

VEXOR_EXACT_BEGIN

/// A vector of floats whose size, at least 1, is chosen at run time: the single-precision counterpart of
/// `VecDbl`, with the same storage, exceptions and rules.
///
/// Everything is computed in double; comments say where a value is rounded to single. A running sum is
/// rounded to single after each term, unlike the sums of the fixed-size `Vec3Flt`. Tolerances are as in
/// `VecDbl`. The class has no sum of the elements and no outer product.
class VEXOR_CLASS VecFlt {
public:
    // ---- Construction and size -----------------------------------------------------------------
    // No constructor takes a `VecDbl`: to narrow one, assign it.

    /// Creates one unset element.
    VEXOR_API VecFlt();
    /// Creates that many unset elements.
    VEXOR_INLINE explicit VecFlt(int newSize) : VecFlt(newSize, static_cast<float*>(nullptr)) {}
    /// Creates a view on that many elements of the caller's, or that many unset elements if the pointer is
    /// null.
    VEXOR_API VecFlt(int newSize, float* externalStorage);
    /// Creates that many elements and sets them to the value, in the caller's array too.
    VEXOR_API VecFlt(int newSize, float value, float* externalStorage = nullptr);
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    VecFlt(int newSize, Integer value) : VecFlt(newSize, static_cast<float>(value))
    {}
    /// Copies the elements into own storage, even from a view.
    VEXOR_API VecFlt(VecFlt const& other);
    /// Frees own storage; the caller's storage is not freed.
    VEXOR_API ~VecFlt();

    /// Copies the other's size and elements into own storage. A view that is assigned to stops being a view
    /// and does not change the caller's array. A view assigned to itself ends with unset elements.
    VEXOR_API VecFlt& operator=(VecFlt const& other);
    /// As above, rounding each element to single. An element that is too large becomes an infinity.
    VEXOR_API VecFlt& operator=(VecDbl const& other);

    /// Changes the size. Without a pointer a view becomes a vector with own storage. Elements are not carried
    /// over. A vector that already has own storage of that size is unchanged, and a pointer is ignored.
    ///
    /// A literal 0 does not compile: as a pointer it would keep the elements of an unchanged size, as a
    /// number it would overwrite them. Compilers show the line of this declaration with their message.
    VEXOR_API void ReSize(int newSize, float* externalStorage = nullptr); // write nullptr or 0.0f
    /// As above, then sets every element to the value.
    VEXOR_API void ReSize(int newSize, float value, float* externalStorage = nullptr);
    /// The number of elements, at least 1.
    VEXOR_INLINE int Size() const { return size; }

    // ---- Access --------------------------------------------------------------------------------

    /// The element of that index, counted from 0. The index is not checked.
    VEXOR_INLINE float& operator[](int index)
    {
        VEXOR_CHECK(index >= 0 && index < size, "index out of range");
        return values[index];
    }
    /// The same, read-only.
    VEXOR_INLINE float const& operator[](int index) const
    {
        VEXOR_CHECK(index >= 0 && index < size, "index out of range");
        return values[index];
    }
    /// The same operation as `operator[]`.
    VEXOR_INLINE float& operator()(int index) { return (*this)[index]; }
    /// The same, read-only.
    VEXOR_INLINE float const& operator()(int index) const { return (*this)[index]; }

    /// Sets every element to the value.
    VEXOR_API VecFlt& SetValue(float value);
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    VecFlt& SetValue(Integer value)
    {
        return SetValue(static_cast<float>(value));
    }
    /// Copies `Size()` values from the array.
    VEXOR_API VecFlt& SetValue(float const* const array);
    /// Copies the `Size()` values to the array.
    VEXOR_API void GetValue(float* const array) const;

    // ---- Exact comparison ------------------------------------------------------------------------

    /// Exact equality of all elements; a NaN is unequal to everything. Vectors of different sizes are
    /// unequal; no exception is raised.
    VEXOR_API int operator==(VecFlt const& other) const;
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(VecFlt const& other) const { return !(*this == other); }

    // ---- Arithmetic: each element rounded once -----------------------------------------------------

    /// Multiplies each element by the scalar.
    VEXOR_API VecFlt& operator*=(float scalar);
    /// Divides each element by the scalar. A zero divisor is not checked.
    VEXOR_API VecFlt& operator/=(float scalar);
    /// Adds element by element. Raises `VexorDimensionMismatch` if the sizes differ.
    VEXOR_API VecFlt& operator+=(VecFlt const& other);
    /// Subtracts element by element. Raises `VexorDimensionMismatch` if the sizes differ.
    VEXOR_API VecFlt& operator-=(VecFlt const& other);
    /// Flips the sign of each element; 0 becomes −0.
    VEXOR_API VecFlt& Negate();
    /// The negated copy.
    VEXOR_API VecFlt GetNegatedCopy() const;

    // ---- Products, length ------------------------------------------------------------------------

    /// The sum of the squares, a running sum, rounded after each square. A square below half of the sum's
    /// last place no longer changes it.
    VEXOR_API float LengthSquared() const;
    /// The square root of the rounded `LengthSquared()`, rounded.
    VEXOR_API float Length() const;
    /// The dot product, a running sum over this vector's size, rounded after each product. The sizes are not
    /// compared: `other` must not be shorter.
    VEXOR_API float Dot(VecFlt const& other) const;
    /// Divides each element by the rounded `Length()`. Raises `VexorNullVector`, with the vector unchanged,
    /// if every element is exactly 0.
    VEXOR_API VecFlt& Normalize();
    /// The normalised vector, by `Normalize` on a copy.
    VEXOR_API VecFlt GetNormalizedCopy() const;
    /// The element-wise product.
    VEXOR_API VecFlt ElemMult(VecFlt const& other) const;
    /// The element-wise quotient. A zero divisor is not checked.
    VEXOR_API VecFlt ElemDiv(VecFlt const& other) const;

    // ---- Projection, angle, area -----------------------------------------------------------------

    /// The component of this vector along `target`. Raises `VexorNullVector` if `target` is null.
    VEXOR_API VecFlt GetProjectionOnTo(VecFlt const& target) const;
    /// The unsigned angle in radians, from 0 to the single nearest π; 0 if one of the rounded lengths
    /// is 0. The cosine stays in double; its arc cosine is rounded.
    VEXOR_API float GetAngleWith(VecFlt const& other) const;
    /// The area 0.5·√(A·B − d·d) with d the dot product and A, B the squared lengths: the difference, its
    /// square root and the product are each rounded. Nearly parallel vectors can give NaN.
    VEXOR_API float GetAreaFormedByTriangleWith(VecFlt const& other) const;

    // ---- Extremes --------------------------------------------------------------------------------
    // As in VecDbl; the bounds are −1e20 and 1e20 rounded to single.

    /// The largest element.
    VEXOR_API float MaxValue() const;
    /// The index of the largest element.
    VEXOR_API int MaxValueIdx() const;
    /// The smallest element.
    VEXOR_API float MinValue() const;
    /// The index of the smallest element.
    VEXOR_API int MinValueIdx() const;
    /// The largest absolute value.
    VEXOR_API float MaxAbsValue() const;
    /// The index of the largest absolute value.
    VEXOR_API int MaxAbsValueIdx() const;
    /// The smallest absolute value.
    VEXOR_API float MinAbsValue() const;
    /// The index of the smallest absolute value.
    VEXOR_API int MinAbsValueIdx() const;

    // ---- Predicates ------------------------------------------------------------------------------
    // As in VecDbl. The dot product and the squared lengths are rounded to single; Q and 1 − Q are computed
    // from them in double, and the value compared with the tolerance is rounded once.

    /// 1 if every element is exactly 0, of either sign. Uses no tolerance.
    VEXOR_API int IsNull() const;
    /// 1 if the rounded `LengthSquared()` is within the tolerance, a squared length.
    VEXOR_API int IsZeroLength(float length = -1.0f) const;
    /// 1 if 1 − Q is within `angular`, a sine squared (parallel or antiparallel); `length` is a squared
    /// length.
    VEXOR_API int IsParallelTo(VecFlt const& other, float angular = -1.0f, float length = -1.0f) const;
    /// 1 if parallel (`angular` a sine squared, `length` a squared length) and the dot product is above 0.
    VEXOR_API int IsCodirectionalTo(VecFlt const& other, float angular = -1.0f, float length = -1.0f) const;
    /// 1 if Q is within `angular`, a sine squared; `length` is a squared length.
    VEXOR_API int IsPerpendicularTo(VecFlt const& other, float angular = -1.0f, float length = -1.0f) const;
    /// For two unit vectors: 1 if |1 − d·d|, rounded, is within the tolerance, a sine squared.
    VEXOR_API int IsUnitParallelTo(VecFlt const& other, float angular = -1.0f) const;
    /// For two unit vectors: 1 if parallel as above, within a sine squared, and d is above 0.
    VEXOR_API int IsUnitCodirectionalTo(VecFlt const& other, float angular = -1.0f) const;
    /// For two unit vectors: 1 if d·d, rounded, is within the tolerance, a sine squared.
    VEXOR_API int IsUnitPerpendicularTo(VecFlt const& other, float angular = -1.0f) const;
    /// 1 if the directions agree within `angular`, a sine squared, and the difference is within `length`, a
    /// squared length. Each element of the difference is rounded, and its squared length after each square.
    VEXOR_API int IsEqualTo(VecFlt const& other, float angular = -1.0f, float length = -1.0f) const;

private:
    VEXOR_LOCAL void Init(int newSize, float* externalStorage);

    float* values;  // never null
    int size;       // at least 1
    int isExternal; // 1 when the array is the caller's
};

// ---- Free operators: new vectors with own storage, each element rounded once ----------------------------

/// Each element times the scalar, rounded once.
VEXOR_API VecFlt operator*(VecFlt const& vector, float scalar);
/// The same, the scalar on the left.
VEXOR_API VecFlt operator*(float scalar, VecFlt const& vector);
/// The quotient: each element divided by the scalar. A zero divisor is not checked.
VEXOR_API VecFlt operator/(VecFlt const& vector, float scalar);
/// The negated copy: flips the sign of each element; 0 becomes −0.
VEXOR_API VecFlt operator-(VecFlt const& vector);
/// The sum, each element rounded once. Raises `VexorDimensionMismatch` for different sizes.
VEXOR_API VecFlt operator+(VecFlt const& left, VecFlt const& right);
/// The difference, each element rounded once. Raises `VexorDimensionMismatch` for different sizes.
VEXOR_API VecFlt operator-(VecFlt const& left, VecFlt const& right);

/// Matrix times column vector in single precision, although the matrix is double: each product, formed
/// in double, is rounded to single, and so is each partial sum. Raises `VexorDimensionMismatch` unless
/// the matrix has as many columns as the vector has elements.
VEXOR_API VecFlt operator*(MatDbl const& matrix, VecFlt const& vector);

VEXOR_EXACT_END
