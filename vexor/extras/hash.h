#pragma once
#include <vexor/extras/detail/Layout.h>
#include <vexor/foundation/UInt64.h>

#include <cstdint>
#include <functional>

// std::hash for vectors, points and `UInt64`, consistent with `operator==`: equal values have equal hashes,
// even 0.0 and −0.0. A NaN is unequal to everything, so a container never finds a value that holds one.

namespace vexor::detail {

/// Mixes every bit into the whole word: the finaliser of SplitMix64 (Steele, Lea and Flood 2014).
inline std::uint64_t SpreadBits(std::uint64_t bits)
{
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9u;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebu;
    return bits ^ (bits >> 31);
}

/// The hash of a sequence of elements: it depends on their order and number.
template <class Value>
struct ElementHash {
    std::size_t operator()(Value const& value) const
    {
        using Element = ElementType<Value>;
        std::uint64_t state = 0x9e3779b97f4a7c15u;
        for (int i = 0; i < VectorSize(value); ++i) {
            // std::hash itself gives 0.0 and −0.0 the same hash.
            state = SpreadBits(state + 0x9e3779b97f4a7c15u + std::hash<Element>()(value[i]));
        }
        return static_cast<std::size_t>(state);
    }
};

} // namespace vexor::detail

namespace std {
// clang-format off
template <> struct hash<Vec2Dbl> : vexor::detail::ElementHash<Vec2Dbl> {};
template <> struct hash<Vec2Flt> : vexor::detail::ElementHash<Vec2Flt> {};
template <> struct hash<Vec2Int> : vexor::detail::ElementHash<Vec2Int> {};
template <> struct hash<Vec3Dbl> : vexor::detail::ElementHash<Vec3Dbl> {};
template <> struct hash<Vec3Flt> : vexor::detail::ElementHash<Vec3Flt> {};
template <> struct hash<VecDbl> : vexor::detail::ElementHash<VecDbl> {};
template <> struct hash<VecFlt> : vexor::detail::ElementHash<VecFlt> {};
template <> struct hash<Pnt2Dbl> : vexor::detail::ElementHash<Pnt2Dbl> {};
template <> struct hash<Pnt2Flt> : vexor::detail::ElementHash<Pnt2Flt> {};
template <> struct hash<Pnt3Dbl> : vexor::detail::ElementHash<Pnt3Dbl> {};
template <> struct hash<Pnt3Flt> : vexor::detail::ElementHash<Pnt3Flt> {};
// clang-format on

template <>
struct hash<UInt64> {
    std::size_t operator()(UInt64 const& value) const
    {
        return static_cast<std::size_t>(vexor::detail::SpreadBits(static_cast<std::uint64_t>(value.int64())));
    }
};

/// `UInt64::operator==` is not const, so the primary template does not compile for the const keys of a
/// container.
template <>
struct equal_to<UInt64> {
    bool operator()(UInt64 const& left, UInt64 const& right) const { return left.int64() == right.int64(); }
};
} // namespace std
