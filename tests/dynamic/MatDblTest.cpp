#include <support/Bits.h>

#include <vexor/dynamic/MatDbl.h>

TEST(MatDbl, FromMat3DblTransposesAndTheWayBackDoesNot)
{
    Mat3Dbl const m(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 9));
    MatDbl const dynamic(m);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            EXPECT_EQ(dynamic(i, j), m(j, i));
    }
    EXPECT_EQ(Mat3Dbl(dynamic), m.GetTransposedCopy());
}

TEST(MatDbl, Product)
{
    MatDbl a(2, 3);
    MatDbl b(3, 2);
    double v = 1;
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 3; ++j)
            a(i, j) = b(j, i) = v++;
    MatDbl p = a * b;
    EXPECT_EQ(p(0, 0), 14);
    EXPECT_EQ(p(0, 1), 32);
    EXPECT_EQ(p(1, 0), 32);
    EXPECT_EQ(p(1, 1), 77);
    a.Transpose();
    EXPECT_TRUE(a == b);
}
