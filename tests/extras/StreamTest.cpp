#include <vexor/extras/stream.h>
#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

namespace {

template <class Value>
std::string Text(Value const& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

TEST(Stream, VectorsAndPointsAreListsInParentheses)
{
    EXPECT_EQ(Text(Vec3Dbl(1, 2, 3)), "(1, 2, 3)");
    EXPECT_EQ(Text(Vec3Flt(1.5f, -2.25f, 0)), "(1.5, -2.25, 0)");
    EXPECT_EQ(Text(Vec2Dbl(1, 2)), "(1, 2)");
    EXPECT_EQ(Text(Vec2Flt(1, 2)), "(1, 2)");
    EXPECT_EQ(Text(Vec2Int(-1, 2)), "(-1, 2)");
    EXPECT_EQ(Text(Pnt3Dbl(1, 2, 3)), "(1, 2, 3)");
    EXPECT_EQ(Text(Pnt3Flt(1, 2, 3)), "(1, 2, 3)");
    EXPECT_EQ(Text(Pnt2Dbl(1, 2)), "(1, 2)");
    EXPECT_EQ(Text(Pnt2Flt(1, 2)), "(1, 2)");
    VecDbl vector(2, 0.5);
    EXPECT_EQ(Text(vector), "(0.5, 0.5)");
    EXPECT_EQ(Text(VecFlt(1, 0.5f)), "(0.5)");
}

TEST(Stream, MatricesAreWrittenRowByRow)
{
    EXPECT_EQ(Text(Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4))), "((1, 2), (3, 4))");
    EXPECT_EQ(Text(Mat3Dbl(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 9))),
              "((1, 2, 3), (4, 5, 6), (7, 8, 9))");
    MatDbl matrix(2, 3, 0.0);
    matrix(0, 2) = 5.0;
    EXPECT_EQ(Text(matrix), "((0, 0, 5), (0, 0, 0))");
}

TEST(Stream, MapsQuaternionsCountersAndTolerances)
{
    EXPECT_EQ(Text(AffMat2Dbl(Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4)), Vec2Dbl(5, 6))),
              "((1, 2), (3, 4)) + (5, 6)");
    EXPECT_EQ(Text(AffMat3Dbl()), "((1, 0, 0), (0, 1, 0), (0, 0, 1)) + (0, 0, 0)");
    EXPECT_EQ(Text(Quaternion()), "(0, 0, 0; 1)");
    EXPECT_EQ(Text(UInt64(-5)), "-5");
    VexorTolerance tolerance;
    tolerance.SetAngle(0.25);
    tolerance.SetLength(0.5);
    EXPECT_EQ(Text(tolerance), "angle 0.25, length 0.5");
}

TEST(Stream, WidthFillAndPrecisionHoldForEachNumber)
{
    std::ostringstream stream;
    stream << std::fixed << std::setprecision(2) << std::setfill('*') << std::setw(6)
           << Vec3Dbl(1, 20, -3.456) << std::setw(5) << 7;
    EXPECT_EQ(stream.str(), "(**1.00, *20.00, *-3.46)****7");
}

TEST(Stream, SeventeenDigitsReadBackToTheSameDoubles)
{
    Vec3Dbl const written(0.1, 1.0 / 3.0, 5e-324);
    std::stringstream stream;
    stream << std::setprecision(17) << written;
    char ignored;
    std::string x, y, z;
    stream >> ignored;
    std::getline(stream, x, ',');
    std::getline(stream, y, ',');
    std::getline(stream, z, ')');
    EXPECT_EQ(Vec3Dbl(std::stod(x), std::stod(y), std::strtod(z.c_str(), nullptr)), written);
}

TEST(Stream, TakesNoValueOfAnotherType)
{
    std::ostringstream stream;
    stream << 3.0 << ' ' << 4 << ' ' << "text" << ' ' << 'c';
    EXPECT_EQ(stream.str(), "3 4 text c");
}

} // namespace
