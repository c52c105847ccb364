#include "common/InputError.h"
#include "Files.h"
#include "superpose/Superposition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using namespace examples;

double const degree = 3.141592653589793 / 180.0;

std::vector<Pnt3Dbl> const shape = {Pnt3Dbl(0.0, 0.0, 0.0), Pnt3Dbl(3.0, 0.5, 0.0),  Pnt3Dbl(3.5, 4.0, 1.0),
                                    Pnt3Dbl(1.0, 5.0, 4.0), Pnt3Dbl(-2.0, 6.0, 2.5), Pnt3Dbl(-3.0, 1.0, 7.0)};

std::vector<Pnt3Dbl> Moved(std::vector<Pnt3Dbl> points, AffMat3Dbl const& motion)
{
    for (Pnt3Dbl& point : points)
        point = motion * point;
    return points;
}

void ExpectIsRotation(Mat3Dbl const& matrix)
{
    Mat3Dbl const product = matrix * matrix.GetTransposedCopy();
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            EXPECT_NEAR(product(i, j), i == j ? 1.0 : 0.0, 1e-14);
    EXPECT_NEAR(matrix.GetRow(0).Cross(matrix.GetRow(1)).Dot(matrix.GetRow(2)), 1.0, 1e-14);
}

void ExpectSameMotion(AffMat3Dbl const& found, AffMat3Dbl const& expected)
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 4; ++j)
            EXPECT_NEAR(found(i, j), expected(i, j), 1e-13) << i << j;
}

/// Both methods must find the motion by which the fixed points were made from the moving ones.
void ExpectRecovered(std::vector<Pnt3Dbl> const& points, AffMat3Dbl const& motion)
{
    PointPairs const pairs{{}, Moved(points, motion), points};
    Correlation const correlation(pairs);
    ExpectSameMotion(correlation.BySvd().motion, motion);
    ExpectSameMotion(correlation.ByQuaternion().motion, motion);
}

TEST(Superposition, RecoversAMotion)
{
    Mat3Dbl const third(Vec3Dbl(2.0, -1.0, 2.0) / 3.0, Vec3Dbl(2.0, 2.0, -1.0) / 3.0,
                        Vec3Dbl(-1.0, 2.0, 2.0) / 3.0); // a rotation: rows of length 1, determinant 1
    ExpectRecovered(shape, AffMat3Dbl(third, Vec3Dbl(10.0, -20.0, 5.0)));
    ExpectRecovered(shape, AffMat3Dbl());
}

// The scalar part of the quaternion is 0 here.
TEST(Superposition, RecoversHalfTurns)
{
    for (int axis = 0; axis < 3; ++axis) {
        Mat3Dbl half(0.0);
        half.SetDiagonal(-1.0);
        half(axis, axis) = 1.0;
        ExpectRecovered(shape, AffMat3Dbl(half, Vec3Dbl(1.0, 2.0, 3.0)));
    }
}

// The third singular value is 0: only the cross product determines the third direction.
TEST(Superposition, RecoversTheMotionOfAFlatShape)
{
    std::vector<Pnt3Dbl> const flat = {Pnt3Dbl(0.0, 0.0, 1.0), Pnt3Dbl(4.0, 0.0, 1.0), Pnt3Dbl(4.0, 2.0, 1.0),
                                       Pnt3Dbl(-1.0, 5.0, 1.0)};
    Mat3Dbl const quarter(Vec3Dbl(0.0, 0.0, 1.0), Vec3Dbl(1.0, 0.0, 0.0), Vec3Dbl(0.0, 1.0, 0.0));
    ExpectRecovered(flat, AffMat3Dbl(quarter, Vec3Dbl(0.0, 7.0, 0.0)));
}

TEST(Superposition, RefusesPointsThatLeaveItOpen)
{
    EXPECT_THROW(Correlation({{}, {shape[0], shape[1]}, {shape[0], shape[1]}}), InputError);
    std::vector<Pnt3Dbl> const line = {Pnt3Dbl(1.0), Pnt3Dbl(2.0), Pnt3Dbl(4.0), Pnt3Dbl(7.0)};
    EXPECT_THROW(Correlation({{}, line, line}).BySvd(), InputError);
}

/// The expected result for a pair of structures, from rational sums and an eigensolver with 40 digits.
struct Expected {
    char const* fixed;
    char const* moving;
    bool isMirrored;
    std::size_t pairs;
    double before, after, degrees;
    Vec3Dbl axis;
};

class Structures : public testing::TestWithParam<Expected> {
protected:
    Structures()
    {
        std::vector<Residue> const fixed =
            ReadStructure(DataFile(std::string("proteins/") + GetParam().fixed));
        std::vector<Residue> moving = ReadStructure(DataFile(std::string("proteins/") + GetParam().moving));
        if (GetParam().isMirrored)
            for (Residue& residue : moving)
                residue.place.x = -residue.place.x;
        pairs = PairByNumber(fixed, moving);
    }

    void ExpectRight(Superposition const& found) const
    {
        Expected const& expected = GetParam();
        EXPECT_NEAR(Rmsd(pairs, found.motion), expected.after, 1e-12);
        EXPECT_NEAR(found.predictedRmsd, expected.after, 1e-9); // a root of a difference
        EXPECT_NEAR(found.rotation.GetAngle() / degree, expected.degrees, 1e-9);
        EXPECT_GT(found.rotation.GetAxis(1).Dot(expected.axis), 0.0);
        EXPECT_NEAR(found.rotation.GetAxis(1).Cross(expected.axis).Length(), 0.0, 1e-11);
        ExpectIsRotation(found.motion.LinearPart());
    }

    PointPairs pairs;
};

TEST_P(Structures, BothWaysGiveTheBestRotation)
{
    EXPECT_EQ(pairs.fixed.size(), GetParam().pairs);
    EXPECT_NEAR(Rmsd(pairs, AffMat3Dbl()), GetParam().before, 1e-12);
    Correlation const correlation(pairs);
    EXPECT_EQ(correlation.IsMirrored(), GetParam().isMirrored);
    Superposition const bySvd = correlation.BySvd();
    Superposition const byQuaternion = correlation.ByQuaternion();
    ExpectRight(bySvd);
    ExpectRight(byQuaternion);
    EXPECT_LT(bySvd.rotation.Distance(byQuaternion.rotation), 1e-7);
    EXPECT_LT(SmallAngleBetween(bySvd.rotation, byQuaternion.rotation), 1e-13);
}

// No rotation that differs from the best one, a little or much, gives a smaller distance.
TEST_P(Structures, NoOtherRotationIsBetter)
{
    Superposition const best = Correlation(pairs).BySvd();
    Pnt3Dbl fixedCentroid(0.0);
    for (Pnt3Dbl const& point : pairs.fixed)
        fixedCentroid += point;
    fixedCentroid /= static_cast<double>(pairs.fixed.size());

    std::mt19937 random(20261121);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    for (double const angle : {1e-4, 1e-2, 0.5, 3.0})
        for (int trial = 0; trial < 100; ++trial) {
            Vec3Dbl const axis = Vec3Dbl(uniform(random), uniform(random), uniform(random)).Normalize();
            AffMat3Dbl turn;
            turn.SetRotation(fixedCentroid, axis, angle);
            EXPECT_GT(Rmsd(pairs, turn * best.motion), Rmsd(pairs, best.motion));
        }
}

INSTANTIATE_TEST_SUITE_P(
    All, Structures,
    testing::Values(Expected{"1hpv_A.pdb", "1hpv_B.pdb", false, 99, 29.361669550244887, 0.23160481668828163,
                             179.82678020762675, Vec3Dbl(0.500392533588, 0.865798654083, -5.40070942204e-5)},
                    Expected{"1hpv_A.pdb", "1hpv_B.pdb", true, 99, 35.634284736994115, 10.586462339614684,
                             127.64026745451268, Vec3Dbl(0.325292031791, -0.902111797022, -0.283512609466)},
                    Expected{"1tii_D.pdb", "1tii_E.pdb", false, 98, 25.295496118834261, 0.26309341786415301,
                             72.58110305322201, Vec3Dbl(-0.937061918643, 0.25654352534, -0.236855188321)},
                    Expected{"1tii_D.pdb", "1tii_E.pdb", true, 98, 117.42797012976048, 12.165217823832584,
                             137.99845784277435, Vec3Dbl(-0.0119359027253, 0.535366575756, 0.844535472191)}),
    [](auto const& test) {
        return std::string(test.param.fixed).substr(0, 4) + (test.param.isMirrored ? "Mirrored" : "");
    });

TEST(SmallAngleBetween, ResolvesWhatAnArcCosineCannot)
{
    Quaternion const one(Vec3Dbl(0.0, 0.0, 1.0), 1.0, 1);
    Quaternion const other(Vec3Dbl(0.0, 0.0, 1.0), 1.0 + 1e-11, 1);
    EXPECT_NEAR(SmallAngleBetween(one, other), 1e-11, 1e-15);
    EXPECT_NEAR(SmallAngleBetween(one, Quaternion()), 1.0, 1e-15);
}

std::string Atom(char const* name, char alternative, char const* residue, char chain, char const* number,
                 char const* x)
{
    return std::string("ATOM      1  ") + name + alternative + residue + " " + chain + number + "   " + x
           + "   2.000   3.000  1.00  0.00\n";
}

TEST(ReadStructure, TakesOneCentralAtomAResidue)
{
    ScratchFile scratch("HEADER\n" + Atom("CA ", 'A', "GLY", 'A', "   1 ", "  1.000")
                        + Atom("CA ", 'B', "GLY", 'A', "   1 ", "  9.000") // an alternative place
                        + Atom("CB ", ' ', "ALA", 'A', "   2 ", "  9.000")
                        + Atom("CA ", ' ', "ALA", 'A', "   2 ", " -2.500")
                        + Atom("CA ", ' ', "ALA", 'A', "   2A", "  3.000") // inserted after 2
                        + "HETATM    1 CA    CA A   3       9.000   2.000   3.000  1.00  0.00\nENDMDL\n"
                        + Atom("CA ", ' ', "SER", 'A', "   4 ", "  9.000"));
    std::vector<Residue> const residues = ReadStructure(scratch.Path());
    ASSERT_EQ(residues.size(), 3U);
    EXPECT_EQ(residues[0].number, "1");
    EXPECT_EQ(residues[0].place, Pnt3Dbl(1.0, 2.0, 3.0));
    EXPECT_EQ(residues[1].name, "ALA");
    EXPECT_EQ(residues[1].place, Pnt3Dbl(-2.5, 2.0, 3.0));
    EXPECT_EQ(residues[2].number, "2A");
}

TEST(PairByNumber, LeavesOutWhatOneSideLacks)
{
    PointPairs const pairs =
        PairByNumber({{"1", "GLY", shape[0]}, {"2", "GLY", shape[1]}, {"3", "GLY", shape[2]}},
                     {{"3", "GLY", shape[3]}, {"1", "GLY", shape[4]}, {"7", "GLY", shape[5]}});
    EXPECT_EQ(pairs.numbers, (std::vector<std::string>{"1", "3"}));
    EXPECT_EQ(pairs.fixed[1], shape[2]);
    EXPECT_EQ(pairs.moving[1], shape[3]);
}

} // namespace
