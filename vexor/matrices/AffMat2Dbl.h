#pragma once
#include <vexor/matrices/Mat2Dbl.h>
#include <vexor/points/Pnt2Dbl.h>
#include <vexor/points/Pnt2Flt.h>

VEXOR_EXACT_BEGIN

/// An affine map of the plane, x to L·x + t: a `Mat2Dbl` and, right behind it, a `Vec2Dbl`.
///
/// It can only be applied, composed and inverted. To reset a map, assign a default-constructed one. The
/// product with a point adds the translation, the product with a `Vec2Dbl` does not, and the product with a
/// `Vec2Flt` does.
class VEXOR_CLASS AffMat2Dbl {
public:
    // ---- Construction ------------------------------------------------------------------------

    /// The identity map.
    VEXOR_INLINE constexpr AffMat2Dbl() : linear(Vec2Dbl(1.0, 0.0), Vec2Dbl(0.0, 1.0)), translation(0.0) {}
    /// The map x ↦ L x + t from its two parts.
    VEXOR_INLINE constexpr AffMat2Dbl(Mat2Dbl const& linearPart, Vec2Dbl const& translationPart)
        : linear(linearPart), translation(translationPart)
    {}
    /// Copies both parts.
    AffMat2Dbl(AffMat2Dbl const&) = default;
    ~AffMat2Dbl() = default;

    /// Copies both parts.
    AffMat2Dbl& operator=(AffMat2Dbl const&) = default;

    // ---- Access ------------------------------------------------------------------------------

    /// L inside the map: writing to it changes the map.
    VEXOR_INLINE constexpr Mat2Dbl& LinearPart() { return linear; }
    /// The linear part, read-only.
    VEXOR_INLINE constexpr Mat2Dbl const& LinearPart() const { return linear; }
    /// t inside the map: writing to it changes the map.
    VEXOR_INLINE constexpr Vec2Dbl& Translation() { return translation; }
    /// The translation, read-only.
    VEXOR_INLINE constexpr Vec2Dbl const& Translation() const { return translation; }
    /// Sets L; t keeps its value.
    VEXOR_INLINE constexpr AffMat2Dbl& SetLinearPart(Mat2Dbl const& linearPart)
    {
        linear = linearPart;
        return *this;
    }
    /// Sets t; L keeps its value.
    VEXOR_INLINE constexpr AffMat2Dbl& SetTranslation(Vec2Dbl const& translationPart)
    {
        translation = translationPart;
        return *this;
    }
    /// The element of that row and column; every column of 2 or more is t. The indices are not checked
    /// otherwise.
    VEXOR_INLINE constexpr double& operator()(int row, int column)
    {
        return column >= 2 ? translation[row] : linear(row, column);
    }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator()(int row, int column) const
    {
        return column >= 2 ? translation[row] : linear(row, column);
    }

    // ---- Inverse -----------------------------------------------------------------------------

    /// The inverse map: L inverted, then t = −(L·t) with the new L. Raises `VexorSingular` by the rule
    /// of `Mat2Dbl::Invert`, the map unchanged.
    VEXOR_INLINE AffMat2Dbl& Invert()
    {
        linear.Invert();
        translation = -(linear * translation);
        return *this;
    }
    /// The inverse, by `Invert` on a copy.
    VEXOR_INLINE AffMat2Dbl GetInvertedCopy() const
    {
        AffMat2Dbl copy(*this);
        copy.Invert();
        return copy;
    }

private:
    Mat2Dbl linear;
    Vec2Dbl translation; // directly after the matrix, where Mat2Dbl::RowSum reads it
};

// ---- Free operators --------------------------------------------------------------------------------

/// Composition, the right operand applied first: L = L1·L2, t = (L1·t2) + t1.
VEXOR_INLINE constexpr AffMat2Dbl operator*(AffMat2Dbl const& left, AffMat2Dbl const& right)
{
    return AffMat2Dbl(left.LinearPart() * right.LinearPart(),
                      (left.LinearPart() * right.Translation()) + left.Translation());
}

/// L·x + t.
VEXOR_INLINE constexpr Pnt2Dbl operator*(AffMat2Dbl const& map, Pnt2Dbl const& point)
{
    return Pnt2Dbl(map.LinearPart() * point.Vector()) + map.Translation();
}

/// L·x: a double vector is a displacement and gets no translation.
VEXOR_INLINE constexpr Vec2Dbl operator*(AffMat2Dbl const& map, Vec2Dbl const& vector)
{
    return map.LinearPart() * vector;
}

/// L·x + t: the one product of a vector with an affine map that adds the translation. In the plane,
/// single-precision vectors hold the coordinates of single-precision points. For L·x alone write
/// `map.LinearPart() * x`. L·x is rounded to single; the sum with t is formed in double and rounded to single
/// again.
VEXOR_INLINE Vec2Flt operator*(AffMat2Dbl const& map, Vec2Flt const& vector)
{
    return (Vec2Dbl(map.LinearPart() * vector) + map.Translation()).ToVec2Flt();
}

/// L·x + t, computed as the product with a `Vec2Flt`, with its two roundings.
VEXOR_INLINE Pnt2Flt operator*(AffMat2Dbl const& map, Pnt2Flt const& point)
{
    return Pnt2Flt(map * point.Vector());
}

VEXOR_EXACT_END
