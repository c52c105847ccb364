// std::format of every class. Neither g++ 12 nor clang 14 has std::format, so this is a separate program,
// without a test framework, for a compiler that has it. It needs C++20.
#include <vexor/extras/format.h>
#include <vexor/vexor.h>

#include <cstdio>
#include <string>

#if !defined(__cpp_lib_format)
#    error "this compiler has no std::format"
#endif

namespace {

int failures = 0;

void Expect(std::string const& found, char const* expected)
{
    if (found == expected)
        return;
    std::printf("%s, not %s\n", found.c_str(), expected);
    ++failures;
}

// The shortest digits that identify the number: those of a float in a class of floats.
void WithoutAFormat()
{
    Expect(std::format("{}", Vec2Dbl(1, 0.1)), "(1, 0.1)");
    Expect(std::format("{}", Vec3Dbl(1, 2, 0.1)), "(1, 2, 0.1)");
    Expect(std::format("{}", Vec2Flt(0.1f, 2)), "(0.1, 2)");
    Expect(std::format("{}", Vec3Flt(0.1f, 2, 3)), "(0.1, 2, 3)");
    Expect(std::format("{}", Vec2Int(-3, 4)), "(-3, 4)");
    Expect(std::format("{}", Pnt2Dbl(1, 0.1)), "(1, 0.1)");
    Expect(std::format("{}", Pnt3Dbl(1, 2, 0.1)), "(1, 2, 0.1)");
    Expect(std::format("{}", Pnt2Flt(0.1f, 2)), "(0.1, 2)");
    Expect(std::format("{}", Pnt3Flt(0.1f, 2, 3)), "(0.1, 2, 3)");
    Expect(std::format("{}", VecDbl(2, 0.5)), "(0.5, 0.5)");
    Expect(std::format("{}", VecFlt(2, 0.1f)), "(0.1, 0.1)");
    Expect(std::format("{}", Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4))), "((1, 2), (3, 4))");
    Expect(std::format("{}", Mat3Dbl(0.5)), "((0.5, 0.5, 0.5), (0.5, 0.5, 0.5), (0.5, 0.5, 0.5))");
    Expect(std::format("{}", MatDbl(1, 2, 0.5)), "((0.5, 0.5))");
    Expect(std::format("{}", AffMat2Dbl()), "((1, 0), (0, 1)) + (0, 0)");
    Expect(std::format("{}", AffMat3Dbl()), "((1, 0, 0), (0, 1, 0), (0, 0, 1)) + (0, 0, 0)");
    Expect(std::format("{}", Quaternion()), "(0, 0, 0; 1)");
    Expect(std::format("{} and {}", UInt64(-5), Vec2Dbl(1, 2)), "-5 and (1, 2)");
}

void WithTheFormatOfOneNumber()
{
    Expect(std::format("{:.3f}", Vec3Dbl(1, -2, 0.12345)), "(1.000, -2.000, 0.123)");
    Expect(std::format("{:a}", Vec2Dbl(1, 0.5)), "(1p+0, 1p-1)");
    Expect(std::format("{:>6.1f}", Mat2Dbl(1.25)), "((   1.2,    1.2), (   1.2,    1.2))");
    Expect(std::format("{:8.2e}", Quaternion()), "(0.00e+00, 0.00e+00, 0.00e+00; 1.00e+00)");
    Expect(std::format("{:+d}", Vec2Int(1, -2)), "(+1, -2)");
    Expect(std::format("{0:.{1}f}", Vec2Dbl(1, 2), 2), "(1.00, 2.00)");
}

} // namespace

int main()
{
    WithoutAFormat();
    WithTheFormatOfOneNumber();
    if (failures > 0)
        return 1;
    std::printf("vexor tests completed\n");
    return 0;
}
