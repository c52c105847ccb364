#include <arrays/Loops.h>

// Maps.h compared with loops over the operators and members, byte for byte, in every instruction set.

namespace {

using namespace arrays_test;

auto const multiply = [](auto const& left, auto const& right, auto* results, std::size_t count) {
    vexor::arrays::Multiply(left, right, results, count);
};
auto const product = [](auto const& left, auto const& right) { return left * right; };

/// One map over arrays of a class, for ordinary values, scattered ones and special ones in every lane.
template <class Value, class MapClass>
void ExamineMap(char const* name, MapClass const& map)
{
    ExamineSingle<Value>(
        name,
        [&map](Value const* values, Value* results, std::size_t count) {
            vexor::arrays::Multiply(map, values, results, count);
        },
        [&map](Value const& value) { return map * value; });
}

Mat3Dbl const matrix3(Vec3Dbl(0.3, -1.7, 2.1), Vec3Dbl(1.1, 0.2, -0.4), Vec3Dbl(-0.6, 0.9, 1.3));
AffMat3Dbl const map3(matrix3, Vec3Dbl(10.1, -20.2, 0.3));
Mat2Dbl const matrix2(Vec2Dbl(0.3, -1.7), Vec2Dbl(1.1, 0.2));
AffMat2Dbl const map2(matrix2, Vec2Dbl(10.1, -20.2));

TEST(ArraysMaps, OneMatrixInSpace)
{
    ExamineMap<Vec3Dbl>("Mat3Dbl * Vec3Dbl", matrix3);
    ExamineMap<Vec3Flt>("Mat3Dbl * Vec3Flt", matrix3);
    ExamineMap<Pnt3Dbl>("Mat3Dbl * Pnt3Dbl", matrix3); // rounds to single
    ExamineMap<Pnt3Flt>("Mat3Dbl * Pnt3Flt", matrix3);
}

TEST(ArraysMaps, OneAffineMapInSpace)
{
    ExamineMap<Vec3Dbl>("AffMat3Dbl * Vec3Dbl", map3);
    ExamineMap<Vec3Flt>("AffMat3Dbl * Vec3Flt", map3);
    ExamineMap<Pnt3Dbl>("AffMat3Dbl * Pnt3Dbl", map3);
    ExamineMap<Pnt3Flt>("AffMat3Dbl * Pnt3Flt", map3);
}

TEST(ArraysMaps, OneMapInThePlane)
{
    ExamineMap<Vec2Dbl>("Mat2Dbl * Vec2Dbl", matrix2);
    ExamineMap<Vec2Flt>("Mat2Dbl * Vec2Flt", matrix2);
    ExamineMap<Vec2Dbl>("AffMat2Dbl * Vec2Dbl", map2);
    ExamineMap<Vec2Flt>("AffMat2Dbl * Vec2Flt", map2);
    ExamineMap<Pnt2Dbl>("AffMat2Dbl * Pnt2Dbl", map2);
    ExamineMap<Pnt2Flt>("AffMat2Dbl * Pnt2Flt", map2);
}

// Zeros of both signs, infinities and NaN in the map.
TEST(ArraysMaps, SpecialElementsOfTheMap)
{
    Operands operands(5);
    for (int repeat = 0; repeat < 40; ++repeat) {
        auto const matrices = operands.Many<Mat3Dbl>(1, Kind::Strewn);
        auto const translations = operands.Many<Vec3Dbl>(1, Kind::Strewn);
        AffMat3Dbl const map(matrices[0], translations[0]);
        auto const points = operands.Many<Pnt3Dbl>(laneCount, Kind::Strewn);
        CompareSingle(
            "AffMat3Dbl * Pnt3Dbl", points,
            [&](Pnt3Dbl const* from, Pnt3Dbl* to, std::size_t count) {
                vexor::arrays::Multiply(map, from, to, count);
            },
            [&](Pnt3Dbl const& point) { return map * point; }, false);
    }
}

TEST(ArraysMaps, ArrayOfMatrices)
{
    ExaminePair<Mat3Dbl, Vec3Dbl>("Mat3Dbl * Vec3Dbl", multiply, product);
    ExaminePair<Mat3Dbl, Mat3Dbl>("Mat3Dbl * Mat3Dbl", multiply, product);
}

TEST(ArraysMaps, ArrayOfOtherMaps)
{
    Operands operands(6);
    std::vector<AffMat3Dbl> maps;
    for (int i = 0; i < 20; ++i)
        maps.emplace_back(operands.Many<Mat3Dbl>(1, Kind::Ordinary)[0],
                          operands.Many<Vec3Dbl>(1, Kind::Ordinary)[0]);
    auto const points = operands.Many<Pnt3Dbl>(20, Kind::Ordinary);
    std::vector<Pnt3Dbl> results(20);
    vexor::arrays::Multiply(maps, points, results);
    for (std::size_t i = 0; i < 20; ++i)
        EXPECT_TRUE(results[i] == maps[i] * points[i]) << i;
    vexor::arrays::Multiply(maps, points[3], results);
    for (std::size_t i = 0; i < 20; ++i)
        EXPECT_TRUE(results[i] == maps[i] * points[3]) << i;
}

TEST(ArraysMaps, RotatePoint)
{
    auto const rotate = [](auto const& quaternions, auto const& points, auto* results, std::size_t count) {
        vexor::arrays::RotatePoint(quaternions, points, results, count);
    };
    auto const member = [](Quaternion const& q, auto const& point) { return q.RotatePoint(point); };
    ExaminePair<Quaternion, Vec3Dbl>("RotatePoint", rotate, member);
    ExaminePair<Quaternion, Pnt3Dbl>("RotatePoint", rotate, member);
}

TEST(ArraysMaps, QuaternionProduct)
{
    ExaminePair<Quaternion, Quaternion>("Quaternion * Quaternion", multiply, product);
}

TEST(ArraysMaps, GetRotationMatrix)
{
    ExamineSingle<Quaternion>(
        "GetRotationMatrix",
        [](Quaternion const* from, Mat3Dbl* to, std::size_t count) {
            vexor::arrays::GetRotationMatrix(from, to, count);
        },
        [](Quaternion const& q) {
            Mat3Dbl matrix;
            q.GetRotationMatrix(matrix);
            return matrix;
        });
}

} // namespace
