// The calls of docs/guides/surprising-calls.md that compile and should not be written, with what they do, and
// the remedies of both its tables.
#include <vexor/vexor.h>

#include <cstdio>
#include <utility>

namespace {

void Print(char const* call, Vec3Dbl const& v)
{
    std::printf("%-28s (%g, %g, %g)\n", call, v.x, v.y, v.z);
}

void Print(char const* call, double value)
{
    std::printf("%-28s %g\n", call, value);
}

} // namespace

int main()
{
    Print("Vec3Dbl(1, 2, 3) + 1", Vec3Dbl(1, 2, 3) + 1);
    Print("Vec3Dbl(0, 0, 0) == 0", Vec3Dbl(0, 0, 0) == 0);
    Print("Vec3Dbl(1, 2, 3).Dot(2)", Vec3Dbl(1, 2, 3).Dot(2));
    double const fraction = 3.9;
    Print("VecDbl(3.9).Size()", VecDbl(static_cast<int>(fraction)).Size());
    UInt64 u(1);
    UInt64 w(0x100000002);
    u += w;
    Print("u += w", u.int64() == 3 ? 3 : -1);
    u *= w;
    Print("u *= w", u.int64() == 3 ? 3 : -1);
    u = u + w;
    std::printf("%-28s 0x%llx\n", "u = u + w", static_cast<unsigned long long>(u.int64()));
    Print("Quaternion(0, 0, 0, 1, 0).s", Quaternion(0, 0, 0, 1, 0).s);
    Print("q.SetValue(0, 0, 0, 1, 0).s", Quaternion().SetValue(0, 0, 0, 1, 0).s);
    Mat3Dbl const fixed(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 10));
    MatDbl dynamic(fixed.GetTransposedCopy()); // has the elements of `fixed` in the same places
    Print("dynamic == fixed", dynamic == fixed);
    Print("Mat3Dbl(dynamic) == fixed", Mat3Dbl(dynamic) == fixed);

    Vec3Dbl v(0);
    v = Vec3Dbl(1, 2, 3);
    Print("v = Vec3Dbl(1, 2, 3)", v);
    Print("v.SetValue(0)", v.SetValue(0));
    VecDbl values(3, 0);
    values += VecDbl(values.Size(), 1.0);
    Print("values += VecDbl(3, 1.0)", Vec3Dbl(values));
    values.ReSize(3, nullptr);
    Print("values.ReSize(3, nullptr)", Vec3Dbl(values));
    values.ReSize(3, 0.0);
    Print("values.ReSize(3, 0.0)", Vec3Dbl(values));
    Print("Vec3Flt(1, 2, 3) * 2.0f", Vec3Dbl(Vec3Flt(1, 2, 3) * 2.0f));
    Print("Vec3Dbl(Vec3Flt) * 2.0", Vec3Dbl(Vec3Flt(1, 2, 3)) * 2.0);
    Print("a == std::as_const(b)", u == std::as_const(w));
    Print("a.int64() == b.int64()", u.int64() == w.int64());
}
