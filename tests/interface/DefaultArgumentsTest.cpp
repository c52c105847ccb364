// The values of the default arguments: −1.0 for a tolerance, which selects the global, and null for the
// caller's storage. The tolerances are wide, so 0 or a small default would give the other result.

#include <vexor/vexor.h>

#include <support/Bits.h>
#include <support/Fixtures.h>

namespace {

class DefaultArguments : public testing::Test {
protected:
    DefaultArguments()
    {
        gVexorTolerance.sin2Angle = 0.5f;
        gVexorTolerance.lengthSquared = 1.5f;
    }

private:
    vexor_test::RestoreTolerance restore_;
};

/// `x` of length 3, `diagonal` at 45° to it, `nearX` 1 apart from it and `shortX` of length 1: all within the
/// global's tolerances and outside any smaller ones.
template <class Vector, class Scalar>
void ExpectGlobalDefaults(Vector const& x, Vector const& diagonal, Vector const& nearX, Vector const& shortX)
{
    EXPECT_EQ(x.IsParallelTo(diagonal), 1);
    EXPECT_EQ(x.IsParallelTo(diagonal, Scalar(0.4)), 0);
    EXPECT_EQ(x.IsCodirectionalTo(diagonal), 1);
    EXPECT_EQ(x.IsPerpendicularTo(diagonal), 1);
    EXPECT_EQ(x.IsEqualTo(nearX), 1);
    EXPECT_EQ(x.IsEqualTo(nearX, Scalar(0.5)), 1);
    EXPECT_EQ(x.IsEqualTo(nearX, Scalar(0.5), Scalar(0.9)), 0);
    EXPECT_EQ(shortX.IsZeroLength(), 1);
    EXPECT_EQ(shortX.IsZeroLength(Scalar(0.9)), 0);
    // The length tolerance, too: a vector of length 1 counts as zero length.
    EXPECT_EQ(shortX.IsParallelTo(x), 0);
    EXPECT_EQ(shortX.IsParallelTo(x, Scalar(-1), Scalar(0)), 1);
    EXPECT_EQ(shortX.IsCodirectionalTo(x), 0);
    EXPECT_EQ(shortX.IsPerpendicularTo(diagonal), 0);
    EXPECT_EQ(shortX.IsPerpendicularTo(diagonal, Scalar(-1), Scalar(0)), 1);
    // In the unit forms d·d must be within 0.5 of 1, or below 0.5.
    Vector const unit = shortX;
    Vector const shorter = shortX * Scalar(0.75);
    EXPECT_EQ(unit.IsUnitParallelTo(shorter), 1);
    EXPECT_EQ(unit.IsUnitParallelTo(shorter, Scalar(0.1)), 0);
    EXPECT_EQ(unit.IsUnitCodirectionalTo(shorter), 1);
    Vector const halved = shortX * Scalar(0.5);
    EXPECT_EQ(unit.IsUnitPerpendicularTo(halved), 1);
    EXPECT_EQ(unit.IsUnitPerpendicularTo(halved, Scalar(0.1)), 0);
}

TEST_F(DefaultArguments, FixedSizeVectors)
{
    ExpectGlobalDefaults<Vec3Dbl, double>({3.0, 0.0, 0.0}, {3.0, 3.0, 0.0}, {4.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    ExpectGlobalDefaults<Vec3Flt, float>({3.0f, 0.0f, 0.0f}, {3.0f, 3.0f, 0.0f}, {4.0f, 0.0f, 0.0f},
                                         {1.0f, 0.0f, 0.0f});
    ExpectGlobalDefaults<Vec2Dbl, double>({3.0, 0.0}, {3.0, 3.0}, {4.0, 0.0}, {1.0, 0.0});
    ExpectGlobalDefaults<Vec2Flt, float>({3.0f, 0.0f}, {3.0f, 3.0f}, {4.0f, 0.0f}, {1.0f, 0.0f});
}

template <class Vector>
Vector Made(double x, double y)
{
    Vector v(2);
    v[0] = static_cast<std::decay_t<decltype(v[0])>>(x);
    v[1] = static_cast<std::decay_t<decltype(v[1])>>(y);
    return v;
}

TEST_F(DefaultArguments, VectorsOfRunTimeSize)
{
    ExpectGlobalDefaults<VecDbl, double>(Made<VecDbl>(3.0, 0.0), Made<VecDbl>(3.0, 3.0),
                                         Made<VecDbl>(4.0, 0.0), Made<VecDbl>(1.0, 0.0));
    ExpectGlobalDefaults<VecFlt, float>(Made<VecFlt>(3.0, 0.0), Made<VecFlt>(3.0, 3.0),
                                        Made<VecFlt>(4.0, 0.0), Made<VecFlt>(1.0, 0.0));
}

TEST_F(DefaultArguments, Points)
{
    // The global's squared length is 1.5: a distance of 1.2 is within it, one of 1.3 is not.
    EXPECT_EQ(Pnt3Dbl(0.0).IsEqualTo(Pnt3Dbl(1.2, 0.0, 0.0)), 1);
    EXPECT_EQ(Pnt3Dbl(0.0).IsEqualTo(Pnt3Dbl(1.3, 0.0, 0.0)), 0);
    EXPECT_EQ(Pnt3Flt(0.0f).IsEqualTo(Pnt3Flt(1.2f, 0.0f, 0.0f)), 1);
    EXPECT_EQ(Pnt3Flt(0.0f).IsEqualTo(Pnt3Flt(1.3f, 0.0f, 0.0f)), 0);
    EXPECT_EQ(Pnt2Dbl(0.0).IsEqualTo(Pnt2Dbl(1.2, 0.0)), 1);
    EXPECT_EQ(Pnt2Dbl(0.0).IsEqualTo(Pnt2Dbl(1.3, 0.0)), 0);
    EXPECT_EQ(Pnt2Flt(0.0f).IsEqualTo(Pnt2Flt(1.2f, 0.0f)), 1);
    EXPECT_EQ(Pnt2Flt(0.0f).IsEqualTo(Pnt2Flt(1.3f, 0.0f)), 0);
}

TEST_F(DefaultArguments, StorageIsOwn)
{
    // With null as default the object owns its elements: a copy of it keeps its elements when the
    // object is destroyed, and nothing is written to the caller's storage.
    VecDbl doubles(2, 1.0);
    doubles.ReSize(3);
    EXPECT_EQ(doubles.Size(), 3);
    doubles.ReSize(4, 2.0);
    EXPECT_EQ(doubles[3], 2.0);
    VecFlt floats(2, 1.0f);
    floats.ReSize(3);
    EXPECT_EQ(floats.Size(), 3);
    floats.ReSize(4, 2.0f);
    EXPECT_EQ(floats[3], 2.0f);
    MatDbl matrix(2, 2, 1.0);
    matrix.ReSize(3, 2);
    EXPECT_EQ(matrix.RowCount(), 3);
    matrix.ReSize(2, 4, 2.0);
    EXPECT_EQ(matrix(1, 3), 2.0);
    EXPECT_EQ(VecDbl(5).Size(), 5);
    EXPECT_EQ(VecFlt(5).Size(), 5);
    EXPECT_EQ(MatDbl(5, 6).ColumnCount(), 6);
}

} // namespace
