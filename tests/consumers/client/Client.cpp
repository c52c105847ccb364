#include "Client.h"

#include <vexor/vexor.h>

#include <cstdint>
#include <cstring>

namespace {

/// FNV-1a over the bits of the numbers.
class Hash {
public:
    template <class Number>
    void Feed(Number value)
    {
        unsigned char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        for (unsigned char const byte : bytes)
            state = (state ^ byte) * 1099511628211ULL;
    }
    void Feed(Vec3Dbl const& v) { Feed(v.x), Feed(v.y), Feed(v.z); }
    void Feed(Vec3Flt const& v) { Feed(v.x), Feed(v.y), Feed(v.z); }
    unsigned long long Value() const { return state; }

private:
    unsigned long long state = 14695981039346656037ULL;
};

/// A number in [−1, 1) that uses all bits of its fraction.
double Next(std::uint64_t& seed)
{
    seed += 0x9e3779b97f4a7c15ULL;
    std::uint64_t mixed = seed;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebULL;
    mixed ^= mixed >> 31;
    return static_cast<double>(mixed >> 11) * 0x1p-52 - 1.0;
}

Vec3Dbl NextVector(std::uint64_t& seed)
{
    double const x = Next(seed);
    double const y = Next(seed);
    double const z = Next(seed);
    return Vec3Dbl(x, y, z);
}

} // namespace

int CountWrongAnswers()
{
    int wrong = 0;
    wrong += !(Vec3Dbl(1, 0, 0).Cross(Vec3Dbl(0, 1, 0)) == Vec3Dbl(0, 0, 1));
    wrong += !(Pnt3Dbl(1, 2, 3) - Pnt3Dbl(0, 0, 0) == Vec3Dbl(1, 2, 3));

    // The inlined getters read the library's own object, and the library's functions see what a client sets.
    double const before = gVexorTolerance.GetLength();
    gVexorTolerance.SetLength(2.0);
    wrong += !Vec3Dbl(1, 1, 1).IsZeroLength();
    wrong += !(Vec3Dbl(1, 1, 1).GetCCWAngleWith(Vec3Dbl(0, 1, 0), Vec3Dbl(0, 0, 1)) == 0.0);
    gVexorTolerance.SetLength(before);

    MatDbl matrix(2, 2, 0.0);
    matrix(0, 0) = 2.0;
    matrix(1, 1) = 4.0;
    VecDbl solution(2, 8.0);
    matrix.Solve(solution);
    wrong += !(solution[0] == 4.0 && solution[1] == 2.0);

    int caught = 0;
    try {
        Vec3Dbl(0.0).Normalize();
    } catch (VexorSingular const&) {
        ++wrong;
    } catch (VexorNullVector const&) {
        ++caught;
    }
    try {
        MatDbl(2, 2, 0.0).Solve(solution);
    } catch (VexorException const&) {
        ++caught;
    }
    return wrong + (caught != 2);
}

unsigned long long HashOfInlinedResults()
{
    Hash hash;
    std::uint64_t seed = 20240229;
    for (int i = 0; i < 20000; ++i) {
        Vec3Dbl const a = NextVector(seed);
        Vec3Dbl const b = NextVector(seed);
        Vec3Flt const f = a.ToVec3Flt();
        Vec3Flt const g = b.ToVec3Flt();
        Mat3Dbl const m(a, b, a.Cross(b));
        hash.Feed(a.Dot(b));
        hash.Feed(a.Cross(b));
        hash.Feed(a.GetNormalizedCopy());
        hash.Feed(a.IsParallelTo(b, 0.25));
        hash.Feed(f.Dot(g));
        hash.Feed(f.Cross(g));
        hash.Feed(f.GetNormalizedCopy());
        hash.Feed(m * a);
        hash.Feed((m * m).GetRow(1));
        hash.Feed((m * Pnt3Dbl(a)).Vector());
    }
    return hash.Value();
}
