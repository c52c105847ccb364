#pragma once
#include <vexor/vectors/Vec3Dbl.h>

class MatDbl;
class VecFlt;

VEXOR_EXACT_BEGIN

/// A vector of doubles whose size, at least 1, is chosen at run time.
///
/// It owns its elements, or it is a view on an array of the caller's: nothing is copied then, the
/// elements are read and written in place, and the array is never freed. The caller keeps it alive as
/// long as the view uses it. Fresh elements are unset.
///
/// Sums run over the elements in index order from 0.0 and are rounded at each step. A tolerance
/// argument is compared as it stands: an angular one is the square of a sine, a length one is a
/// squared length; a negative one, the default, selects the value of `gVexorTolerance`. Every
/// tolerance test is inclusive. Predicates return 1 or 0 and allocate nothing.
///
/// A size below 1 and storage that cannot be had raise `VexorAllocationFailed`, the object unchanged.
/// Operands of different sizes raise `VexorDimensionMismatch` before anything is changed, in every
/// operation on two vectors but `Dot`, `OuterProduct`, `==` and `!=`.
class VEXOR_CLASS VecDbl {
public:
    // ---- Construction and size -----------------------------------------------------------------

    /// One unset element.
    VEXOR_API VecDbl();
    /// That many unset elements.
    VEXOR_INLINE explicit VecDbl(int newSize) : VecDbl(newSize, static_cast<double*>(nullptr)) {}
    /// A view on that many elements of the caller's; that many unset elements if the pointer is null.
    VEXOR_API VecDbl(int newSize, double* externalStorage);
    /// That many elements of the value; it is written through into the caller's array as well.
    VEXOR_API VecDbl(int newSize, double value, double* externalStorage = nullptr);
    /// The same for any integer type: a literal 0 is a number here, not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    VecDbl(int newSize, Integer value) : VecDbl(newSize, static_cast<double>(value))
    {}
    /// A copy owns its elements, also the copy of a view.
    VEXOR_API VecDbl(VecDbl const& other);
    /// The three components.
    VEXOR_API VecDbl(Vec3Dbl const& vector);
    /// Widens each element exactly. Comes with VecFlt.h.
    VEXOR_API VecDbl(VecFlt const& other);
    /// Frees own storage; a block of the caller stays.
    VEXOR_API ~VecDbl();

    /// Takes the other's size and elements into own storage: a view that is assigned to leaves the
    /// caller's array as it is. A view assigned to itself is left with unset elements.
    VEXOR_API VecDbl& operator=(VecDbl const& other);
    /// As above, widening each element exactly. Comes with VecFlt.h.
    VEXOR_API VecDbl& operator=(VecFlt const& other);

    /// Changes the size, and lets go of a view unless a pointer is given. Elements are not carried
    /// over. A vector with own storage of that size already stays as it is, pointer or no pointer.
    ///
    /// A literal 0 is refused, since as a pointer it keeps the elements of an unchanged size and as a number
    /// it overwrites them. Compilers show the line of the declaration with their message.
    VEXOR_API void ReSize(int newSize, double* externalStorage = nullptr); // write nullptr or 0.0
    /// As above, and every element then takes the value.
    VEXOR_API void ReSize(int newSize, double value, double* externalStorage = nullptr);
    /// The number of elements, at least 1.
    VEXOR_INLINE int Size() const { return size; }

    // ---- Access --------------------------------------------------------------------------------

    /// The element of that index, from 0, which is not checked.
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

    /// Every element takes the value.
    VEXOR_API VecDbl& SetValue(double value);
    /// The same for any integer type: a literal 0 is a number here, not a null pointer.
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

    /// Exact, element by element; a NaN is unequal to everything. Vectors of different sizes are
    /// unequal, without a raise.
    VEXOR_API int operator==(VecDbl const& other) const;
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(VecDbl const& other) const { return !(*this == other); }

    // ---- Arithmetic ------------------------------------------------------------------------------

    /// Multiplies each element by the scalar.
    VEXOR_API VecDbl& operator*=(double scalar);
    /// One division for each element; a zero divisor is not checked.
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

    /// The elements added up in index order, from 0.0, rounded at each step.
    VEXOR_API double Sum() const;
    /// The sum of the squares in index order, from 0, rounded at each step: a plain sum. It is right for elements
    /// between about 1e-146 and 1e150. Beyond, it is infinity; below, it loses digits, and from about 1e-162 on
    /// it is 0.
    VEXOR_API double LengthSquared() const;
    /// The root of that sum, right over the whole range of a double.
    VEXOR_API double Length() const;
    /// The sum of the products in index order, from 0, over this vector's size. The sizes are not compared: the
    /// other must not be shorter. A plain sum: elements between about 1e-77 and 1e77, or 0, lose nothing. Larger
    /// products give an infinity, or NaN where two infinities cancel; smaller ones lose digits or are 0.
    VEXOR_API double Dot(VecDbl const& other) const;
    /// Divides each element by `Length()`. Raises `VexorNullVector`, the vector unchanged, if every
    /// element is exactly 0. However short or long, any other vector is normalised, also where `Length()` itself
    /// is out of a double's range.
    VEXOR_API VecDbl& Normalize();
    /// As `Normalize`, on a copy.
    VEXOR_API VecDbl GetNormalizedCopy() const;
    /// The products of the elements.
    VEXOR_API VecDbl ElemMult(VecDbl const& other) const;
    /// Each element divided by the other's; a zero divisor is not checked.
    VEXOR_API VecDbl ElemDiv(VecDbl const& other) const;
    /// Always a 3×3 matrix. Element (i, j) is this[i]·other[j] for i and j below this vector's size,
    /// the other elements hold that size as a number: only size 3 gives the whole product. The sizes
    /// are not compared: the other must not be shorter. Raises `VexorDimensionMismatch` where this
    /// vector has more than three elements. Comes with MatDbl.h.
    VEXOR_API MatDbl OuterProduct(VecDbl const& other) const;

    // ---- Projection, angle, area -----------------------------------------------------------------

    /// The component of this vector along `target`, right over the whole range of a double. Raises
    /// `VexorNullVector` if `target` is null.
    VEXOR_API VecDbl GetProjectionOnTo(VecDbl const& target) const;
    /// The unsigned angle in radians, from 0 to π; 0 if one of the vectors is exactly null. Right over the whole
    /// range of a double. An arc cosine loses half the digits near 0 and π: below about 1.5e-8 the angle is 0.
    VEXOR_API double GetAngleWith(VecDbl const& other) const;
    /// 0.5·√(A·B − d·d) with d the dot product and A, B the squared lengths, plain sums. A·B overflows for
    /// elements above about 1e77, and loses digits below about 1e-73. Nearly parallel vectors can give NaN: the
    /// difference is not clamped.
    VEXOR_API double GetAreaFormedByTriangleWith(VecDbl const& other) const;

    // ---- Extremes --------------------------------------------------------------------------------
    // The first of equal candidates wins. The scan starts from a bound, −1e20 for a maximum and 1e20
    // for a minimum, not from an element: where no element beats it, the bound is the value, and the
    // index is 0 and means nothing. A NaN beats nothing. Absolute values are formed as v if v > 0,
    // else −v, so that of a zero vector is −0.

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
    // With d the dot product and A, B the squared lengths, Q = ((d·d) / A) / B is the squared cosine.
    // A vector whose squared length is within the length tolerance has no direction: the first three
    // direction tests answer 0 for it. The answers are true for vectors between about 1e-77 and 1e77
    // long; `Vec3Dbl` says what they are for others.

    /// Every element exactly 0, of either sign. No tolerance.
    VEXOR_API int IsNull() const;
    /// `LengthSquared()` within the squared length given.
    VEXOR_API int IsZeroLength(double length = -1.0) const;
    /// Parallel or antiparallel: 1 − Q within the sine squared.
    VEXOR_API int IsParallelTo(VecDbl const& other, double angular = -1.0, double length = -1.0) const;
    /// Parallel, and the dot product above 0.
    VEXOR_API int IsCodirectionalTo(VecDbl const& other, double angular = -1.0, double length = -1.0) const;
    /// Q itself within the sine squared.
    VEXOR_API int IsPerpendicularTo(VecDbl const& other, double angular = -1.0, double length = -1.0) const;
    /// For two vectors known to be unit: |1 − d·d| within the sine squared.
    VEXOR_API int IsUnitParallelTo(VecDbl const& other, double angular = -1.0) const;
    /// For two vectors known to be unit: parallel as above, and d above 0.
    VEXOR_API int IsUnitCodirectionalTo(VecDbl const& other, double angular = -1.0) const;
    /// For two vectors known to be unit: d·d within the sine squared.
    VEXOR_API int IsUnitPerpendicularTo(VecDbl const& other, double angular = -1.0) const;
    /// The same direction within the angle (sine squared) and a difference within the length
    /// (squared). Two exactly null vectors are equal; a vector that is not null but within the
    /// global's length tolerance equals nothing, not even itself, whatever `length` says.
    VEXOR_API int IsEqualTo(VecDbl const& other, double angular = -1.0, double length = -1.0) const;

private:
    friend class MatDbl; // hands the elements to LAPACK, and installs a solution of another size

    VEXOR_LOCAL void Init(int newSize, double* externalStorage);
    // Carries the elements that fit over to another block, which becomes own storage of that size.
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
/// One division for each element; a zero divisor is not checked.
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
