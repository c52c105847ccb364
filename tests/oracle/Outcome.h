#pragma once
#include <cstdint>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include "oracle/Rounded.h"

namespace oracle {

/// What an operation can raise, in the library and in a statement.
enum class Raise { None, Singular, DimensionMismatch, AllocationFailed, ComputationFailed, NullVector };

/// Thrown by a statement whose rule raises.
struct Raised {
    Raise what;
};

/// Thrown by a statement whose rule leaves the outcome open: any outcome agrees.
struct Open {};

/// The results of one call, bit for bit; all NaNs are equal.
class Outcome {
public:
    void Clear()
    {
        raise = Raise::None;
        caught = false;
        words.clear();
    }

    void Put(double value)
    {
        std::uint64_t bits = 0x7ff8000000000000u;
        if (value == value)
            std::memcpy(&bits, &value, sizeof bits);
        words.push_back({bits, 'd'});
    }
    void Put(float value)
    {
        std::uint32_t bits = 0x7fc00000u;
        if (value == value)
            std::memcpy(&bits, &value, sizeof bits);
        words.push_back({bits, 'f'});
    }
    void Put(std::int64_t value) { words.push_back({static_cast<std::uint64_t>(value), 'i'}); }
    void Put(int value) { Put(static_cast<std::int64_t>(value)); }
    void Put(bool value) { Put(static_cast<std::int64_t>(value)); }
    /// The exception of an operation whose object is compared afterwards.
    void Put(Raise value)
    {
        Put(static_cast<std::int64_t>(value));
        caught = caught || value != Raise::None;
    }
    void Put(Dbl const& value) { Put(value.Value()); }
    void Put(Flt const& value) { Put(value.Value()); }

    void SetRaise(Raise value) { raise = value; }

    friend bool operator==(Outcome const& left, Outcome const& right)
    {
        return left.raise == right.raise && left.words == right.words;
    }
    friend bool operator!=(Outcome const& left, Outcome const& right) { return !(left == right); }

    std::string Text() const;

    /// All floating-point numbers are finite.
    bool IsFinite() const;
    /// All are 0, or of a size with which no operation comes near the ends of its range.
    bool IsOrdinary() const;
    bool HasRaised() const { return raise != Raise::None || caught; }

private:
    struct Word {
        std::uint64_t bits;
        char kind; // 'd', 'f' or 'i'
        double Number() const;
        friend bool operator==(Word const& a, Word const& b) { return a.bits == b.bits && a.kind == b.kind; }
    };

    Raise raise = Raise::None;
    bool caught = false;
    std::vector<Word> words;
};

} // namespace oracle
