#pragma once

// What the transcripts share: seeded operands, and the hash of results.

#include <vexor/vexor.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <type_traits>

namespace transcript {

namespace {

// No two operands are drawn within one call: compilers evaluate arguments in different orders.
//
// Floating-point flags apply to this source too, and must not change it: numbers that a single cannot
// hold are given as bits (-fsingle-precision-constant), and so is the test for NaN (-ffinite-math-only).

constexpr std::uint64_t signBit = 0x8000000000000000U;
constexpr std::uint64_t infinity = 0x7ff0000000000000U;

double FromBits(std::uint64_t bits)
{
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// ---- Operands ----------------------------------------------------------------------------------------

/// splitmix64: the same numbers on every platform.
class Source {
public:
    explicit Source(std::uint64_t seed) : state(seed) {}

    std::uint64_t Word()
    {
        state += 0x9e3779b97f4a7c15ULL;
        std::uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9ULL;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebULL;
        return mixed ^ (mixed >> 31);
    }

    int Below(int bound) { return static_cast<int>(Word() % static_cast<std::uint64_t>(bound)); }

    /// Mostly ordinary numbers; small integers, which tie; every eighth time a value at a limit.
    double Double()
    {
        static std::uint64_t const special[] = {
            0x0000000000000000U, // 0
            0x8000000000000000U, // −0
            0x3ff0000000000000U, // 1
            0xbff0000000000000U, // −1
            0x0000000000000001U, // 2^−1074
            0x8010000000000000U, // −2^−1022
            0x1eb67e9c127b6e74U, // 1e-160
            0xe126c2d4256ffcc3U, // −1e160
            0x7e37e43c8800759cU, // 1e300
            0x3ee4f8b588e368f1U, // 1e-5
            0x3eb0c6f7a0b5ed8dU, // 1e-6
            0x7ff0000000000000U, // ∞
            0xfff0000000000000U, // −∞
            0x7ff8000000000000U, // NaN
        };
        switch (Below(16)) {
        case 0:
            return FromBits(special[Below(14)]);
        case 1:
            return FromBits(special[Below(4)]);
        case 2:
        case 3:
            return Below(7) - 3;
        default:
            return Plain();
        }
    }

    /// In [−1, 1), scaled by a moderate power of two, using all bits.
    double Plain()
    {
        double const unit = static_cast<double>(Word() >> 11) * 0x1p-52 - 1.0;
        static double const scale[] = {1.0, 1.0, 1.0, 0x1p-20, 0x1p20, 0x1p-3, 0x1p3, 1.0};
        return unit * scale[Below(8)];
    }

    float Float() { return static_cast<float>(Hidden(Double())); }

    int Int() { return static_cast<int>(static_cast<std::uint32_t>(Below(4) ? Word() % 9 : Word()) + 0U); }

    double Tolerance()
    {
        static std::uint64_t const tolerance[] = {
            0xbff0000000000000U, // −1
            0x0000000000000000U, // 0
            0x3d06849b86a12b9bU, // 1e-14
            0x3f50624dd2f1a9fcU, // 1e-3
            0x3fd0000000000000U, // 0.25
            0x3ff0000000000000U, // 1
            0x3ddb7cdfd9d7bdbbU, // 1e-10
            0x8000000000000000U, // −0
        };
        return FromBits(tolerance[Below(8)]);
    }

private:
    std::uint64_t state;

    static double Hidden(double value)
    {
        double volatile hidden = value;
        return hidden;
    }
};

// ---- The hash ----------------------------------------------------------------------------------------

/// FNV-1a over bits. All NaNs count as one, since their sign and payload depend on the processor.
class Transcript {
public:
    void Bits(std::uint64_t bits)
    {
        for (int i = 0; i < 8; ++i, bits >>= 8)
            state = (state ^ (bits & 0xff)) * 1099511628211ULL;
        ++count;
    }

    void Add(double value)
    {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof value);
        Bits((bits & ~signBit) > infinity ? 0x7ff8000000000000ULL : bits);
    }
    void Add(float value)
    {
        std::uint32_t bits = 0;
        std::memcpy(&bits, &value, sizeof value);
        Bits((bits & 0x7fffffffU) > 0x7f800000U ? 0x7fc00000U : bits);
    }
    void Add(int value) { Bits(static_cast<std::uint64_t>(static_cast<std::int64_t>(value))); }
    void Add(bool value) { Bits(value); }
    void Add(long long value) { Bits(static_cast<std::uint64_t>(value)); }

    void Add(Vec3Dbl const& v) { Add(v.x), Add(v.y), Add(v.z); }
    void Add(Vec3Flt const& v) { Add(v.x), Add(v.y), Add(v.z); }
    void Add(Pnt3Dbl const& p) { Add(p.x), Add(p.y), Add(p.z); }
    void Add(Pnt3Flt const& p) { Add(p.x), Add(p.y), Add(p.z); }
    void Add(Vec2Dbl const& v) { Add(v.x), Add(v.y); }
    void Add(Vec2Flt const& v) { Add(v.x), Add(v.y); }
    void Add(Vec2Int const& v) { Add(v.x), Add(v.y); }
    void Add(Pnt2Dbl const& p) { Add(p.x), Add(p.y); }
    void Add(Pnt2Flt const& p) { Add(p.x), Add(p.y); }
    void Add(Quaternion const& q) { Add(q.u), Add(q.v), Add(q.w), Add(q.s); }
    void Add(UInt64 const& n) { Add(static_cast<long long>(n.int64())); }
    void Add(Mat3Dbl const& m) { Add(m.GetRow(0)), Add(m.GetRow(1)), Add(m.GetRow(2)); }
    void Add(Mat2Dbl const& m) { Add(m.GetRow(0)), Add(m.GetRow(1)); }
    void Add(AffMat3Dbl const& m) { Add(m.LinearPart()), Add(m.Translation()); }
    void Add(AffMat2Dbl const& m) { Add(m.LinearPart()), Add(m.Translation()); }
    void Add(VecDbl const& v)
    {
        for (int i = 0; i < v.Size(); ++i)
            Add(v[i]);
    }
    void Add(VecFlt const& v)
    {
        for (int i = 0; i < v.Size(); ++i)
            Add(v[i]);
    }
    void Add(MatDbl const& m)
    {
        for (int j = 0; j < m.ColumnCount(); ++j)
            for (int i = 0; i < m.RowCount(); ++i)
                Add(m(i, j));
    }

    /// The result of an operation, or which exception of the family it raises.
    template <class Operation>
    void Try(Operation operation)
    {
        try {
            Add(operation());
        } catch (VexorNullVector const&) {
            Bits(1001);
        } catch (VexorSingular const&) {
            Bits(1002);
        } catch (VexorComputationFailed const&) {
            Bits(1003);
        } catch (VexorDimensionMismatch const&) {
            Bits(1004);
        }
    }

    void Print(char const* name) const
    {
        std::printf("%-14s %016llx  (%llu results)\n", name, static_cast<unsigned long long>(state),
                    static_cast<unsigned long long>(count));
    }

    std::uint64_t Hash() const { return state; }

private:
    std::uint64_t state = 14695981039346656037ULL;
    std::uint64_t count = 0;
};

Vec3Dbl AnyVec3Dbl(Source& source)
{
    double const x = source.Double();
    double const y = source.Double();
    double const z = source.Double();
    return Vec3Dbl(x, y, z);
}

Vec2Dbl AnyVec2Dbl(Source& source)
{
    double const x = source.Double();
    double const y = source.Double();
    return Vec2Dbl(x, y);
}

/// The second operand: any, or the first one scaled or slightly changed, so that direction tests give both
/// results.
template <class Vector>
Vector Companion(Source& source, Vector const& first, Vector const& any)
{
    using Number = std::decay_t<decltype(first.x)>;
    switch (source.Below(4)) {
    case 0:
        return first * static_cast<Number>(3);
    case 1:
        return first + any * static_cast<Number>(FromBits(0x3e45798ee2308c3aU)); // 1e-8
    case 2:
        return -first;
    default:
        return any;
    }
}

Mat3Dbl AnyMat3Dbl(Source& source)
{
    Vec3Dbl const a = AnyVec3Dbl(source);
    Vec3Dbl const b = AnyVec3Dbl(source);
    Vec3Dbl const c = AnyVec3Dbl(source);
    return Mat3Dbl(a, b, c);
}

Mat2Dbl AnyMat2Dbl(Source& source)
{
    Vec2Dbl const a = AnyVec2Dbl(source);
    Vec2Dbl const b = AnyVec2Dbl(source);
    return Mat2Dbl(a, b);
}

AffMat3Dbl AnyAffMat3Dbl(Source& source)
{
    Mat3Dbl const linear = AnyMat3Dbl(source);
    return AffMat3Dbl(linear, AnyVec3Dbl(source));
}

AffMat2Dbl AnyAffMat2Dbl(Source& source)
{
    Mat2Dbl const linear = AnyMat2Dbl(source);
    return AffMat2Dbl(linear, AnyVec2Dbl(source));
}

// ---- Operations --------------------------------------------------------------------------------------

struct Class {
    char const* name;
    void (*run)(Transcript&, Source&);
    int share = 1; // of the rounds: one in so many
};

} // namespace

} // namespace transcript
