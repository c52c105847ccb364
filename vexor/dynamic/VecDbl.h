#pragma once
#include <vexor/vectors/Vec3Dbl.h>

class MatDbl;
class VecFlt;

VEXOR_EXACT_BEGIN

/// A vector of doubles whose size, at least 1, is chosen at run time.
///
/// It owns its elements, or it is a view on an array of the caller's. A view copies nothing, reads and writes
/// the elements in place, and never frees the array. The caller keeps the array alive as long as the view
/// uses it. New elements are unset.
///
/// Sums run over the elements in index order from 0.0 and are rounded at each step. A tolerance argument is
/// not converted: an angular one is a sine squared, a length one is a squared length. A negative one, the
/// default, selects the value of `gVexorTolerance`. Every tolerance test is inclusive. Predicates return 1 or
/// 0 and allocate nothing.
///
/// A size below 1 or a failed allocation raises `VexorAllocationFailed`; the object is unchanged. Operands of
/// different sizes raise `VexorDimensionMismatch` before anything is changed, in every operation on two
/// vectors except `Dot`, `OuterProduct`, `==` and `!=`.
class VEXOR_CLASS VecDbl {
public:
    // ---- Construction and size -----------------------------------------------------------------

    /// Creates one unset element.
    VEXOR_API VecDbl();
    /// Creates that many unset elements.
    VEXOR_INLINE explicit VecDbl(int newSize) : VecDbl(newSize, static_cast<double*>(nullptr)) {}
    /// Creates a view on that many elements of the caller's, or that many unset elements if the pointer is
    /// null.
    VEXOR_API VecDbl(int newSize, double* externalStorage);
    /// Creates that many elements and sets them to the value, in the caller's array too.
    VEXOR_API VecDbl(int newSize, double value, double* externalStorage = nullptr);
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    VecDbl(int newSize, Integer value) : VecDbl(newSize, static_cast<double>(value))
    {}
    /// Copies the elements into own storage, even from a view.
    VEXOR_API VecDbl(VecDbl const& other);
    /// Creates three elements from the components.
    VEXOR_API VecDbl(Vec3Dbl const& vector);
    /// Widens each element exactly. Requires VecFlt.h.
    VEXOR_API VecDbl(VecFlt const& other);
    /// Frees own storage; the caller's storage is not freed.
    VEXOR_API ~VecDbl();

    /// Copies the other's size and elements into own storage. A view that is assigned to stops being a view
    /// and does not change the caller's array. A view assigned to itself ends with unset elements.
    VEXOR_API VecDbl& operator=(VecDbl const& other);
    /// As above, widening each element exactly. Requires VecFlt.h.
    VEXOR_API VecDbl& operator=(VecFlt const& other);

    /// Changes the size. Without a pointer a view becomes a vector with own storage. Elements are not carried
    /// over. A vector that already has own storage of that size is unchanged, and a pointer is ignored.
    ///
    /// A literal 0 does not compile: as a pointer it would keep the elements of an unchanged size, as a
    /// number it would overwrite them. Compilers show the line of this declaration with their message.
    VEXOR_API void ReSize(int newSize, double* externalStorage = nullptr); // write nullptr or 0.0
    /// As above, then sets every element to the value.
    VEXOR_API void ReSize(int newSize, double value, double* externalStorage = nullptr);
    /// The number of elements, at least 1.
    VEXOR_INLINE int Size() const { return size; }

    // ---- Access --------------------------------------------------------------------------------

    /// The element of that index, counted from 0. The index is not checked.
    VEXOR_INLINE double& operator[](int index)
    {
        VEXOR_CHECK(index >= 0 && index < size, "index out of range");
        return values[index];
    }
    /// The same, read-only.
    VEXOR_INLINE double const& operator[](int index) const
    {
        VEXOR_CHECK(index >= 0 && index < size, "index out of range");
        return values[index];
    }
    /// The same operation as `operator[]`.
    VEXOR_INLINE double& operator()(int index) { return (*this)[index]; }
    /// The same, read-only.
    VEXOR_INLINE double const& operator()(int index) const { return (*this)[index]; }

    /// Sets every element to the value.
    VEXOR_API VecDbl& SetValue(double value);
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    VecDbl& SetValue(Integer value)
    {
        return SetValue(static_cast<double>(value));
    }
    /// Copies `Size()` values from the array.
    VEXOR_API VecDbl& SetValue(double const* const array);
    /// Copies the `Size()` values to the array.
    VEXOR_API void GetValue(double* const array) const;

    // ---- Exact comparison ------------------------------------------------------------------------

    /// Exact equality of all elements; a NaN is unequal to everything. Vectors of different sizes are
    /// unequal; no exception is raised.
    VEXOR_API int operator==(VecDbl const& other) const;
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(VecDbl const& other) const { return !(*this == other); }

    // ---- Arithmetic ------------------------------------------------------------------------------

    /// Multiplies each element by the scalar.
    VEXOR_API VecDbl& operator*=(double scalar);
    /// Divides each element by the scalar. A zero divisor is not checked.
    VEXOR_API VecDbl& operator/=(double scalar);
    /// Adds element by element. Raises `VexorDimensionMismatch` if the sizes differ.
    VEXOR_API VecDbl& operator+=(VecDbl const& other);
    /// Subtracts element by element. Raises `VexorDimensionMismatch` if the sizes differ.
    VEXOR_API VecDbl& operator-=(VecDbl const& other);
    /// Flips the sign of each element; 0 becomes −0.
    VEXOR_API VecDbl& Negate();
    /// The negated copy.
    VEXOR_API VecDbl GetNegatedCopy() const;

    // ---- Sums, products, length ------------------------------------------------------------------

    /// The sum of the elements in index order, from 0.0, rounded at each step.
    VEXOR_API double Sum() const;
    /// The sum of the squares in index order, from 0, rounded at each step: a plain sum. It is accurate for
    /// elements between about 1e-146 and 1e150. Above, it overflows to infinity. Below, it loses digits;
    /// below about 1e-162 it is 0.
    VEXOR_API double LengthSquared() const;
    /// The square root of that sum, accurate over the whole range of a double.
    VEXOR_API double Length() const;
    /// The sum of the products in index order, from 0, over this vector's size. The sizes are not compared:
    /// `other` must not be shorter. It is a plain sum, accurate for elements between about 1e-77 and 1e77, or
    /// 0. Larger products give an infinity, or NaN if two infinities cancel; smaller ones lose digits or are
    /// 0.
    VEXOR_API double Dot(VecDbl const& other) const;
    /// Divides each element by `Length()`. Raises `VexorNullVector`, with the vector unchanged, if every
    /// element is exactly 0. Any other vector is normalised, even if `Length()` itself is outside the range
    /// of a double.
    VEXOR_API VecDbl& Normalize();
    /// The normalised vector, by `Normalize` on a copy.
    VEXOR_API VecDbl GetNormalizedCopy() const;
    /// The element-wise product.
    VEXOR_API VecDbl ElemMult(VecDbl const& other) const;
    /// The element-wise quotient. A zero divisor is not checked.
    VEXOR_API VecDbl ElemDiv(VecDbl const& other) const;
    /// The outer product, always a 3×3 matrix. Element (i, j) is this[i]·other[j] for i and j below this
    /// vector's size. The other elements hold that size as a number, so only size 3 gives the whole product.
    /// The sizes are not compared: `other` must not be shorter. Raises `VexorDimensionMismatch` if this
    /// vector has more than three elements. Requires MatDbl.h.
    VEXOR_API MatDbl OuterProduct(VecDbl const& other) const;

    // ---- Projection, angle, area -----------------------------------------------------------------

    /// The component of this vector along `target`, accurate over the whole range of a double. Raises
    /// `VexorNullVector` if `target` is null.
    VEXOR_API VecDbl GetProjectionOnTo(VecDbl const& target) const;
    /// The unsigned angle in radians, from 0 to π; 0 if one of the vectors is exactly null. Correct over the
    /// whole range of a double. An arc cosine loses half the digits near 0 and π: below about 1.5e-8 the
    /// angle is 0.
    VEXOR_API double GetAngleWith(VecDbl const& other) const;
    /// The area 0.5·√(A·B − d·d) with d the dot product and A, B the squared lengths, plain sums. A·B
    /// overflows for elements above about 1e77 and loses digits below about 1e-73. The difference is not
    /// clamped: nearly parallel vectors can give NaN.
    VEXOR_API double GetAreaFormedByTriangleWith(VecDbl const& other) const;

    // ---- Extremes --------------------------------------------------------------------------------
    // On a tie the first element wins. The scan starts from a bound and not from an element: −1e20 for a
    // maximum, 1e20 for a minimum. If no element passes the bound, the value is the bound, and the index is 0
    // and meaningless. A NaN never passes it. The absolute value is v if v > 0, else −v, so that of a zero
    // vector is −0.

    /// The largest element.
    VEXOR_API double MaxValue() const;
    /// The index of the largest element.
    VEXOR_API int MaxValueIdx() const;
    /// The smallest element.
    VEXOR_API double MinValue() const;
    /// The index of the smallest element.
    VEXOR_API int MinValueIdx() const;
    /// The largest absolute value.
    VEXOR_API double MaxAbsValue() const;
    /// The index of the largest absolute value.
    VEXOR_API int MaxAbsValueIdx() const;
    /// The smallest absolute value.
    VEXOR_API double MinAbsValue() const;
    /// The index of the smallest absolute value.
    VEXOR_API int MinAbsValueIdx() const;

    // ---- Predicates ------------------------------------------------------------------------------
    // With d the dot product and A, B the squared lengths, Q = ((d·d) / A) / B is the squared cosine. A
    // vector whose squared length is within the length tolerance has no direction: the first three direction
    // tests return 0 for it. The results are correct for vectors of length between about 1e-77 and 1e77;
    // `Vec3Dbl` documents the results for others.

    /// 1 if every element is exactly 0, of either sign. Uses no tolerance.
    VEXOR_API int IsNull() const;
    /// 1 if `LengthSquared()` is within the tolerance, a squared length.
    VEXOR_API int IsZeroLength(double length = -1.0) const;
    /// 1 if 1 − Q is within `angular`, a sine squared (parallel or antiparallel); `length` is a squared
    /// length.
    VEXOR_API int IsParallelTo(VecDbl const& other, double angular = -1.0, double length = -1.0) const;
    /// 1 if parallel (`angular` a sine squared, `length` a squared length) and the dot product is above 0.
    VEXOR_API int IsCodirectionalTo(VecDbl const& other, double angular = -1.0, double length = -1.0) const;
    /// 1 if Q is within `angular`, a sine squared; `length` is a squared length.
    VEXOR_API int IsPerpendicularTo(VecDbl const& other, double angular = -1.0, double length = -1.0) const;
    /// For two unit vectors: 1 if |1 − d·d| is within the tolerance, a sine squared.
    VEXOR_API int IsUnitParallelTo(VecDbl const& other, double angular = -1.0) const;
    /// For two unit vectors: 1 if parallel as above, within a sine squared, and d is above 0.
    VEXOR_API int IsUnitCodirectionalTo(VecDbl const& other, double angular = -1.0) const;
    /// For two unit vectors: 1 if d·d is within the tolerance, a sine squared.
    VEXOR_API int IsUnitPerpendicularTo(VecDbl const& other, double angular = -1.0) const;
    /// 1 if the directions agree within `angular`, a sine squared, and the difference is within `length`, a
    /// squared length. Two exactly null vectors are equal. A vector that is not null but within the global's
    /// length tolerance is unequal to everything, even to itself, for every `length`.
    VEXOR_API int IsEqualTo(VecDbl const& other, double angular = -1.0, double length = -1.0) const;

private:
    friend class MatDbl; // passes the elements to LAPACK, and installs a solution of another size

    VEXOR_LOCAL void Init(int newSize, double* externalStorage);
    // Copies the elements that fit to another block, which becomes own storage of that size.
    VEXOR_LOCAL void MoveTo(double* block, int newSize);

    double* values; // never null
    int size;       // at least 1
    int isExternal; // 1 when the array is the caller's
};

// ---- Free operators: new vectors with own storage ------------------------------------------------------

/// Each element times the scalar.
VEXOR_API VecDbl operator*(VecDbl const& vector, double scalar);
/// The same, the scalar on the left.
VEXOR_API VecDbl operator*(double scalar, VecDbl const& vector);
/// The quotient: each element divided by the scalar. A zero divisor is not checked.
VEXOR_API VecDbl operator/(VecDbl const& vector, double scalar);
/// The negated copy: flips the sign of each element; 0 becomes −0.
VEXOR_API VecDbl operator-(VecDbl const& vector);
/// The sum, element by element. Raises `VexorDimensionMismatch` for different sizes.
VEXOR_API VecDbl operator+(VecDbl const& left, VecDbl const& right);
/// The difference, element by element. Raises `VexorDimensionMismatch` for different sizes.
VEXOR_API VecDbl operator-(VecDbl const& left, VecDbl const& right);

// ---- Members of Vec3Dbl that name VecDbl -----------------------------------------------------------------

VEXOR_INLINE Vec3Dbl::Vec3Dbl(VecDbl const& other)
    : x(other[0]), y(other.Size() > 1 ? other[1] : 0.0), z(other.Size() > 2 ? other[2] : 0.0)
{}

VEXOR_EXACT_END
