#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

// GoogleTest uses the system's regular expressions if there are any, else its own simple ones.
#if GTEST_USES_SIMPLE_RE
#    define DIGITS "\\d+"
#else
#    define DIGITS "[0-9]+"
#endif

// Each misuse ends the process with the file and line of the operation and the message; the nearest permitted
// call does not.
#define EXPECT_STOP(statement, file, text)                                                                   \
    EXPECT_DEATH(static_cast<void>(statement), "vexor/.*/" file ":" DIGITS ": vexor: " text)

namespace {

// Indices at run time, so that no compiler warns of the misuse under test.
int Index(int value)
{
    int volatile hidden = value;
    return hidden;
}

template <class Vector>
void ExpectIndexStops(Vector vector, int size, char const* message)
{
    Vector const& constant = vector;
    for (int index :
         {-1, size, size + 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_DEATH(static_cast<void>(vector[Index(index)]), message) << index;
        EXPECT_DEATH(static_cast<void>(constant[Index(index)]), message) << index;
    }
    for (int index = 0; index < size; ++index)
        EXPECT_EQ(vector[index], constant[index]);
}

/// Row and column are checked separately: an index out of range is refused even if it would reach an element
/// of another row.
template <class Matrix>
void ExpectIndexStops(Matrix matrix, int rows, int columns, int lastColumn, char const* message)
{
    Matrix const& constant = matrix;
    auto const expectStop = [&](int row, int column) {
        EXPECT_DEATH(static_cast<void>(matrix(Index(row), Index(column))), message) << row << ' ' << column;
        EXPECT_DEATH(static_cast<void>(constant(Index(row), Index(column))), message) << row << ' ' << column;
    };
    expectStop(-1, 0);
    expectStop(rows, 0);
    expectStop(1, -1);
    expectStop(std::numeric_limits<int>::max(), 0);
    expectStop(-1, columns - 1);
    expectStop(rows, columns - 1);
    if (lastColumn >= columns)
        expectStop(0, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            EXPECT_EQ(matrix(row, column), constant(row, column));
    }
}

/// Whether every column above some bound is the last one.
constexpr int lastColumnRepeats = -1;
constexpr int noColumnRepeats = std::numeric_limits<int>::max();

Mat3Dbl Regular()
{
    return Mat3Dbl(Vec3Dbl(4.0, 1.0, 0.0), Vec3Dbl(1.0, 3.0, 1.0), Vec3Dbl(0.0, 1.0, 2.0));
}

MatDbl RegularOfRunTimeSize()
{
    return MatDbl(Regular()); // symmetric
}

} // namespace

// ---- Indices ---------------------------------------------------------------------------------------

TEST(CheckedIndex, FixedSizeVectors)
{
    ExpectIndexStops(Vec3Dbl(1.0), 3, "vexor/.*/Vec3Dbl.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(Vec3Flt(1.0f), 3, "vexor/.*/Vec3Flt.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(Vec2Dbl(1.0), 2, "vexor/.*/Vec2Dbl.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(Vec2Flt(1.0f), 2, "vexor/.*/Vec2Flt.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(Vec2Int(1), 2, "vexor/.*/Vec2Int.h:" DIGITS ": vexor: index out of range");
}

TEST(CheckedIndex, Points)
{
    ExpectIndexStops(Pnt3Dbl(1.0), 3, "vexor/.*/Pnt3Dbl.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(Pnt3Flt(1.0f), 3, "vexor/.*/Pnt3Flt.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(Pnt2Dbl(1.0), 2, "vexor/.*/Pnt2Dbl.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(Pnt2Flt(1.0f), 2, "vexor/.*/Pnt2Flt.h:" DIGITS ": vexor: index out of range");
}

TEST(CheckedIndex, DynamicVectors)
{
    ExpectIndexStops(VecDbl(4, 1.0), 4, "vexor/.*/VecDbl.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(VecFlt(4, 1.0f), 4, "vexor/.*/VecFlt.h:" DIGITS ": vexor: index out of range");
    VecDbl doubles(4, 1.0);
    VecFlt floats(4, 1.0f);
    EXPECT_STOP(doubles(Index(4)), "VecDbl.h", "index out of range");
    EXPECT_STOP(floats(Index(-1)), "VecFlt.h", "index out of range");
}

TEST(CheckedIndex, Matrices)
{
    ExpectIndexStops(Mat3Dbl(1.0), 3, 3, noColumnRepeats,
                     "vexor/.*/Mat3Dbl.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(Mat2Dbl(1.0), 2, 2, noColumnRepeats,
                     "vexor/.*/Mat2Dbl.h:" DIGITS ": vexor: index out of range");
    ExpectIndexStops(MatDbl(2, 4, 1.0), 2, 4, noColumnRepeats,
                     "vexor/.*/MatDbl.h:" DIGITS ": vexor: index out of range");
}

TEST(CheckedIndex, RowsAndColumnsOfMatrices)
{
    Mat3Dbl three(1.0);
    Mat3Dbl const& constant = three;
    for (unsigned int index : {3U, 7U, 0xffffffffU}) {
        EXPECT_STOP(three.GetRow(index), "Mat3Dbl.h", "index out of range");
        EXPECT_STOP(constant.GetRow(index), "Mat3Dbl.h", "index out of range");
        EXPECT_STOP(three.SetRow(index, Vec3Dbl(1.0)), "Mat3Dbl.h", "index out of range");
        EXPECT_STOP(three.GetCol(index), "Mat3Dbl.h", "index out of range");
        EXPECT_STOP(three.SetCol(index, Vec3Dbl(1.0)), "Mat3Dbl.h", "index out of range");
    }
    Mat2Dbl two(1.0);
    for (unsigned int index : {2U, 3U, 0xffffffffU}) {
        EXPECT_STOP(two.GetRow(index), "Mat2Dbl.h", "index out of range");
        EXPECT_STOP(two.SetRow(index, Vec2Dbl(1.0)), "Mat2Dbl.h", "index out of range");
        EXPECT_STOP(two.GetCol(index), "Mat2Dbl.h", "index out of range");
        EXPECT_STOP(two.SetCol(index, Vec2Dbl(1.0)), "Mat2Dbl.h", "index out of range");
    }
    MatDbl const dynamic(2, 4, 1.0);
    EXPECT_STOP(dynamic.GetRow(-1), "MatDbl.cpp", "index out of range");
    EXPECT_STOP(dynamic.GetRow(2), "MatDbl.cpp", "index out of range");
    EXPECT_STOP(dynamic.GetCol(-1), "MatDbl.cpp", "index out of range");
    EXPECT_STOP(dynamic.GetCol(4), "MatDbl.cpp", "index out of range");
    EXPECT_EQ(dynamic.GetCol(3)[1], 1.0);
}

TEST(CheckedIndex, AffineMaps)
{
    // Every column from the translation's on is the translation.
    ExpectIndexStops(AffMat3Dbl(1.0), 3, 4, lastColumnRepeats, "vexor: index out of range");
    ExpectIndexStops(AffMat2Dbl(), 2, 3, lastColumnRepeats, "vexor: index out of range");
    EXPECT_EQ(AffMat3Dbl()(1, Index(1000)), 0.0);
    EXPECT_EQ(AffMat2Dbl()(1, Index(1000)), 0.0);
    // GetCol has the translation in column 3 only.
    AffMat3Dbl const map(2.0);
    EXPECT_EQ(map.GetCol(3).x, 2.0);
    EXPECT_STOP(map.GetCol(4), "Mat3Dbl.h", "index out of range");
    EXPECT_STOP(map.GetCol(-1), "Mat3Dbl.h", "index out of range");
}

TEST(CheckedIndex, Quaternion)
{
    Quaternion turn;
    Quaternion const& constant = turn;
    EXPECT_EQ(turn[Index(1000)], 1.0); // the scalar, for every index from 3 on
    EXPECT_STOP(turn[Index(-1)], "Quaternion.h", "index out of range");
    EXPECT_STOP(constant[Index(-1)], "Quaternion.h", "index out of range");
    EXPECT_STOP(turn.GetCol(Index(3)), "Vec3Dbl.h", "index out of range");
    EXPECT_STOP(turn.GetRow(Index(-1)), "Vec3Dbl.h", "index out of range");
}

// ---- Sizes -----------------------------------------------------------------------------------------

TEST(CheckedSize, Dot)
{
    VecDbl const doubles(2, 1.0);
    EXPECT_EQ(doubles.Dot(VecDbl(2, 3.0)), 6.0);
    EXPECT_EQ(doubles.Dot(VecDbl(3, 3.0)), 6.0); // longer than this vector
    EXPECT_STOP(doubles.Dot(VecDbl(1, 3.0)), "VecDbl.cpp", "Dot with a shorter vector");
    VecFlt const floats(2, 1.0f);
    EXPECT_EQ(floats.Dot(VecFlt(2, 3.0f)), 6.0f);
    EXPECT_EQ(floats.Dot(VecFlt(3, 3.0f)), 6.0f);
    EXPECT_STOP(floats.Dot(VecFlt(1, 3.0f)), "VecFlt.cpp", "Dot with a shorter vector");
}

TEST(CheckedSize, OuterProduct)
{
    VecDbl const three(3, 1.0);
    EXPECT_EQ(VecDbl(2, 3.0).OuterProduct(three)(1, 1), 3.0);
    EXPECT_STOP(three.OuterProduct(VecDbl(2, 1.0)), "MatDbl.cpp", "OuterProduct with a shorter vector");
    EXPECT_THROW(VecDbl(4, 1.0).OuterProduct(three), VexorDimensionMismatch);
}

// ---- Factors of a 3×3 matrix -------------------------------------------------------------------------

TEST(CheckedMat3Dbl, ReSolveOfWhatIsNoFactors)
{
    Vec3Dbl b(1.0);
    Mat3Dbl plain = Regular();
    EXPECT_STOP(plain.ReSolve(b), "Mat3Dbl.cpp", "ReSolve on a matrix that was not factorised");
    EXPECT_STOP(plain.ReSolve(&b, 1), "Mat3Dbl.cpp", "ReSolve on a matrix that was not factorised");

    Mat3Dbl factors = Regular();
    factors.Solve(b);
    Mat3Dbl copy(factors); // copies only the elements
    EXPECT_STOP(copy.ReSolve(b), "Mat3Dbl.cpp", "ReSolve on a matrix that was not factorised");

    Mat3Dbl inverse = Regular();
    inverse.Invert();
    EXPECT_STOP(inverse.ReSolve(b), "Mat3Dbl.cpp", "ReSolve on a matrix that was not factorised");
    factors = Regular();
    factors.Solve(b);
    factors = Regular();
    factors.Invert();
    EXPECT_STOP(factors.ReSolve(b), "Mat3Dbl.cpp", "ReSolve on a matrix that was not factorised");

    Mat3Dbl singular(1.0);
    EXPECT_THROW(singular.Solve(b), VexorSingular);
    EXPECT_STOP(singular.ReSolve(b), "Mat3Dbl.cpp", "ReSolve on a matrix that was not factorised");
}

TEST(CheckedMat3Dbl, ReSolveAfterAChangeOfAnyElement)
{
    for (int i = 0; i < 9; ++i) {
        Mat3Dbl factors = Regular();
        Vec3Dbl b(1.0);
        factors.Solve(b);
        double& element = factors(i / 3, i % 3);
        double const kept = element;
        element = std::nextafter(kept, 100.0);
        EXPECT_STOP(factors.ReSolve(b), "Mat3Dbl.cpp", ".* has changed since") << i;
        element = kept;
        factors.ReSolve(b);
    }
}

TEST(CheckedMat3Dbl, ReSolveOfFactors)
{
    // 4x + y = 6, x + 3y + z = 10, y + 2z = 8 for (1, 2, 3).
    Mat3Dbl factors = Regular();
    Vec3Dbl b(6.0, 10.0, 8.0);
    factors.Solve(b);
    for (int i = 0; i < 2; ++i) {
        Vec3Dbl c[3] = {Vec3Dbl(6.0, 10.0, 8.0), Vec3Dbl(0.0), Vec3Dbl(12.0, 20.0, 16.0)};
        factors.ReSolve(c, 3);
        EXPECT_EQ(c[0], b);
        EXPECT_EQ(c[2], 2.0 * b);
    }
    Mat3Dbl again = Regular();
    Vec3Dbl d[3] = {Vec3Dbl(6.0, 10.0, 8.0), Vec3Dbl(0.0), Vec3Dbl(0.0)};
    again.Solve(d, 3);
    EXPECT_EQ(d[0], b);
    again.ReSolve(d[1]);
}

TEST(CheckedMat3Dbl, CountOfRightSides)
{
    Vec3Dbl b[6] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    for (int count : {4, 6}) { // the last of these lies beyond the array
        Mat3Dbl matrix = Regular();
        EXPECT_STOP(matrix.Solve(b, count), "Mat3Dbl.cpp", "Solve for more than three right-hand sides")
            << count;
        matrix.Solve(b, 1);
        EXPECT_STOP(matrix.ReSolve(b, count), "Mat3Dbl.cpp", "ReSolve for more than three right-hand sides")
            << count;
    }
    // A count below 1 solves nothing, with or without factors.
    for (int count : {-1, 0}) {
        Mat3Dbl matrix = Regular();
        Vec3Dbl side(6.0, 10.0, 8.0);
        matrix.ReSolve(&side, count);
        matrix.Solve(&side, count);
        EXPECT_EQ(side, Vec3Dbl(6.0, 10.0, 8.0));
        matrix.ReSolve(side);
        EXPECT_LT((side - Vec3Dbl(1.0, 2.0, 3.0)).Length(), 1e-14);
    }
    // With two right-hand sides, the second is elements 2 to 4: the last of the first solution, and two more.
    Mat3Dbl matrix = Regular();
    Vec3Dbl sides[2] = {Vec3Dbl(6.0, 10.0, 8.0), Vec3Dbl(0.0, 0.0, 7.0)};
    matrix.Solve(sides, 2);
    EXPECT_NEAR(sides[0].x, 1.0, 1e-14);
    EXPECT_NEAR(sides[0].y, 2.0, 1e-14);
    EXPECT_EQ(sides[1].z, 7.0);
    matrix.ReSolve(sides, 2);
}

// ---- Factors of a matrix of run-time size ------------------------------------------------------------

TEST(CheckedMatDbl, ReSolveOfTheOtherKind)
{
    VecDbl b(3, 1.0);
    MatDbl c(3, 2, 1.0);
    MatDbl general = RegularOfRunTimeSize();
    general.Solve(b);
    MatDbl symmetric = RegularOfRunTimeSize();
    symmetric.SolveSym(b);
    MatDbl generalCopy(1, 1);
    generalCopy = general;
    MatDbl symmetricCopy(symmetric);
    for (MatDbl* factors : {&general, &generalCopy}) {
        EXPECT_STOP(factors->ReSolveSym(b), "MatDblDrivers.cpp", "ReSolveSym on the factors that Solve left");
        EXPECT_STOP(factors->ReSolveSym(c), "MatDblDrivers.cpp", "ReSolveSym on the factors that Solve left");
        factors->ReSolve(b);
        factors->ReSolve(c);
    }
    for (MatDbl* factors : {&symmetric, &symmetricCopy}) {
        EXPECT_STOP(factors->ReSolve(b), "MatDblDrivers.cpp", "ReSolve on the factors that SolveSym left");
        EXPECT_STOP(factors->ReSolve(c), "MatDblDrivers.cpp", "ReSolve on the factors that SolveSym left");
        factors->ReSolveSym(b);
        factors->ReSolveSym(c);
    }
    // The last factorisation counts.
    symmetric = RegularOfRunTimeSize();
    symmetric.SolveSym(b);
    for (int i = 0; i < 9; ++i)
        symmetric(i / 3, i % 3) = Regular()(i / 3, i % 3);
    symmetric.Solve(b);
    symmetric.ReSolve(b);
}

TEST(CheckedMatDbl, ReSolveAfterAChangeOfAnyElement)
{
    for (int i = 0; i < 9; ++i) {
        VecDbl b(3, 1.0);
        MatDbl general = RegularOfRunTimeSize();
        general.Solve(b);
        double const kept = general(i / 3, i % 3);
        general(i / 3, i % 3) = std::nextafter(kept, 100.0);
        EXPECT_STOP(general.ReSolve(b), "MatDblDrivers.cpp", "ReSolve on a matrix that has changed") << i;
        MatDbl copy(general);
        EXPECT_STOP(copy.ReSolve(b), "MatDblDrivers.cpp", "ReSolve on a matrix that has changed") << i;
        general(i / 3, i % 3) = kept;
        general.ReSolve(b);

        MatDbl symmetric = RegularOfRunTimeSize();
        symmetric.SolveSym(b);
        symmetric(i / 3, i % 3) += 1.0;
        if (i / 3 > i % 3) { // elements below the diagonal are not read
            symmetric.ReSolveSym(b);
        } else {
            EXPECT_STOP(symmetric.ReSolveSym(b), "MatDblDrivers.cpp",
                        "ReSolveSym on a matrix that has changed")
                << i;
        }
    }
}

TEST(CheckedMatDbl, ReSolveOfAViewWhoseBlockWasWrittenTo)
{
    double block[4] = {2.0, 1.0, 1.0, 3.0};
    MatDbl view(2, 2, block);
    VecDbl b(2, 1.0);
    view.Solve(b);
    view.ReSolve(b);
    block[3] = 5.0;
    EXPECT_STOP(view.ReSolve(b), "MatDblDrivers.cpp", "ReSolve on a matrix that has changed");
}

TEST(CheckedMatDbl, ExceptionsStay)
{
    VecDbl b(3, 1.0);
    MatDbl plain = RegularOfRunTimeSize();
    EXPECT_THROW(plain.ReSolve(b), VexorComputationFailed);
    EXPECT_THROW(plain.ReSolveSym(b), VexorComputationFailed);
    plain.Solve(b);
    VecDbl wrong(2, 1.0);
    EXPECT_THROW(plain.ReSolve(wrong), VexorDimensionMismatch);
}

// ---- Unit axes -------------------------------------------------------------------------------------

TEST(CheckedAxis, MustBeUnit)
{
    double const tooLong = std::sqrt(1.0 + 1.1e-6);
    double const tooShort = std::sqrt(1.0 - 1.1e-6);
    Pnt3Dbl const point(1.0, 2.0, 3.0);
    for (double length : {1e-3, 2.0, tooLong, tooShort}) {
        SCOPED_TRACE(length);
        Vec3Dbl const axis(0.0, 0.6 * length, 0.8 * length);
        Vec3Dbl vector(1.0);
        AffMat3Dbl map;
        EXPECT_STOP(vector.Rotate(axis, 1.0), "Vec3Dbl.cpp",
                    "Rotate about an axis that is not a unit vector");
        EXPECT_STOP(map.SetRotation(point, axis, 1.0), "AffMat3Dbl.cpp",
                    "SetRotation about an axis that is not a unit vector");
    }
}

// A null axis has a result: the part along (1, 0, 0), times the cosine.
TEST(CheckedAxis, NullPasses)
{
    Vec3Dbl const null(0.0, -0.0, 0.0);
    EXPECT_EQ(Vec3Dbl(2.0, 3.0, 4.0).Rotate(null, 1.0), Vec3Dbl(2.0 * std::cos(1.0), 0.0, 0.0));
    AffMat3Dbl map;
    map.SetRotation(Pnt3Dbl(0.0), null, 1.0);
    EXPECT_EQ(map.LinearPart(), Mat3Dbl(Vec3Dbl(std::cos(1.0), 0.0, 0.0), Vec3Dbl(0.0), Vec3Dbl(0.0)));
}

// With the flag 0 a quaternion accepts every axis.
TEST(CheckedAxis, AnyPassesWithTheFlag0)
{
    Quaternion expected;
    for (double length : {0.0, 0.5, 2.0}) {
        expected.SetValue(0.0, 0.0, length * std::sin(0.5), std::cos(0.5), 0);
        Vec3Dbl const axis(0.0, 0.0, length);
        EXPECT_EQ(Quaternion(axis, 1.0, 0), expected);
        EXPECT_EQ(Quaternion(0.0, 0.0, length, 1.0, 0), expected);
        EXPECT_EQ(Quaternion().SetAxisAngle(axis, 1.0, 0), expected);
        EXPECT_EQ(Quaternion().SetAxisAngle(0.0, 0.0, length, 1.0, 0), expected);
        expected.SetValue(0.0, 0.0, length * 0.5, std::sqrt(0.75),
                          0); // of the half angle, for the cosine 0.5
        EXPECT_EQ(Quaternion().SetAxisCosAngle(axis, 0.5, 0), expected);
    }
}

TEST(CheckedAxis, NearlyUnitPasses)
{
    for (double length : {1.0, std::sqrt(1.0 + 0.9e-6), std::sqrt(1.0 - 0.9e-6)}) {
        Vec3Dbl const axis(0.0, 0.6 * length, 0.8 * length);
        Vec3Dbl(1.0).Rotate(axis, 1.0);
        AffMat3Dbl().SetRotation(Pnt3Dbl(0.0), axis, 1.0);
        Quaternion(axis, 1.0, 0).SetAxisCosAngle(axis, 0.5, 0);
    }
    // A NaN propagates.
    double const nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(Vec3Dbl(1.0).Rotate(Vec3Dbl(nan, 0.0, 0.0), 1.0).x));
    // An axis of single precision, and one that the operation normalises.
    Vec3Dbl(1.0).Rotate(Vec3Dbl(Vec3Flt(1.0f, 2.0f, 3.0f).Normalize()), 1.0);
    Quaternion(1.0, 2.0, 3.0, 1.0, 1).SetAxisCosAngle(Vec3Dbl(7.0), 0.5, 1);
    EXPECT_THROW(Quaternion(Vec3Dbl(0.0), 1.0, 1), VexorNullVector);
}

// ---- Storage ---------------------------------------------------------------------------------------

TEST(CheckedStorage, OwnBlockAsCallersStorage)
{
    VecDbl doubles(4, 1.0);
    VecFlt floats(4, 1.0f);
    MatDbl matrix(2, 3, 1.0);
    EXPECT_STOP(doubles.ReSize(3, &doubles[0]), "Storage.h", "an object's own block is no caller's storage");
    EXPECT_STOP(floats.ReSize(5, &floats[0]), "Storage.h", "an object's own block is no caller's storage");
    EXPECT_STOP(matrix.ReSize(3, 2, &matrix(0, 0)), "Storage.h",
                "an object's own block is no caller's storage");
    EXPECT_STOP(matrix.ReSize(2, 2, &matrix(0, 0)), "Storage.h",
                "an object's own block is no caller's storage");
    // If the size does not change, the pointer is ignored.
    doubles.ReSize(4, &doubles[0]);
    floats.ReSize(4, &floats[0]);
    matrix.ReSize(2, 3, &matrix(0, 0));
    // A view's block belongs to the caller.
    double block[6] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
    VecDbl view(6, block);
    view.ReSize(2, &view[0]);
    MatDbl matrixView(2, 3, block);
    matrixView.ReSize(3, 2, &matrixView(0, 0));
    EXPECT_EQ(view[1], 2.0);
    EXPECT_EQ(matrixView(2, 1), 6.0);
}

// ---- Division of the counter -------------------------------------------------------------------------

TEST(CheckedDivision, ByZero)
{
    EXPECT_STOP((UInt64(7) / UInt64(Index(0))).int64(), "UInt64.cpp", "division by zero");
    EXPECT_STOP((UInt64(0) / UInt64(Index(0))).int64(), "UInt64.cpp", "division by zero");
    EXPECT_EQ((UInt64(7) / UInt64(Index(1))).int64(), 7);
    std::int64_t const least = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ((UInt64(least) / UInt64(Index(-1))).int64(), least);
}
