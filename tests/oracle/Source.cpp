#include "oracle/Source.h"

#include <algorithm>

namespace oracle {

GlobalTolerance globalTolerance = {};

namespace {

constexpr float defaultSin2Angle = 0x1.6849b8p-47f;
constexpr float defaultLengthSquared = 0x1.b7cdfcp-34f;

std::uint64_t Mix(std::uint64_t& state)
{
    std::uint64_t z = (state += 0x9e3779b97f4a7c15u);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
}

std::uint64_t RotatedLeft(std::uint64_t value, int by)
{
    return (value << by) | (value >> (64 - by));
}

} // namespace

Source::Source(std::uint64_t seed, std::uint64_t operation, std::uint64_t caseNumber)
{
    std::uint64_t mixed = seed;
    mixed = Mix(mixed) ^ operation;
    mixed = Mix(mixed) ^ caseNumber;
    for (std::uint64_t& word : state)
        word = Mix(mixed);

    int const kind = Below(20);
    mood = kind < 9    ? Mood::Plain
           : kind < 12 ? Mood::Integers
           : kind < 14 ? Mood::Short
           : kind < 16 ? Mood::Special
           : kind < 18 ? Mood::Scaled
           : kind < 19 ? Mood::Mixed
                       : Mood::AnyBits;
    exponent = OneIn(3) ? Below(1900) - 950 : (Below(2) ? 1 : -1) * (500 + Below(50));
    globalTolerance = {defaultSin2Angle, defaultLengthSquared};
}

Source::Source(std::uint8_t const* givenBytes, std::size_t count) : Source(count, 0, 0)
{
    if (count < 2)
        return;
    mood = static_cast<Mood>(std::min(givenBytes[0] % 16, static_cast<int>(Mood::AnyBits)));
    exponent = (givenBytes[1] - 128) * 7;
    bytes = givenBytes + 2;
    left = count - 2;
}

// Given bytes first, then the generator xoshiro256**.
std::uint64_t Source::Next()
{
    if (left > 0) {
        std::uint64_t word = 0;
        std::size_t const taken = std::min(left, sizeof word);
        std::memcpy(&word, bytes, taken);
        bytes += taken;
        left -= taken;
        return word;
    }
    std::uint64_t const result = RotatedLeft(state[1] * 5, 7) * 9;
    std::uint64_t const shifted = state[1] << 17;
    state[2] ^= state[0];
    state[3] ^= state[1];
    state[1] ^= state[2];
    state[0] ^= state[3];
    state[2] ^= shifted;
    state[3] = RotatedLeft(state[3], 45);
    return result;
}

void Source::SetGlobal(float& field, double value)
{
    switch (Below(4)) {
    case 0:
        field = Near(Rounded<float>(value));
        break;
    case 1:
        if (OneIn(4))
            field = OneIn(2) ? 0.0f : static_cast<float>(std::pow(10.0, -20.0 * Unit()));
        break;
    default:
        break;
    }
}

double Source::Angle()
{
    switch (Below(6)) {
    case 0:
        return Number<double>();
    case 1:
        return static_cast<double>(Below(17) - 8) * 0.7853981633974483;
    case 2:
        return 100.0 * Signed();
    default:
        return 3.2 * Signed();
    }
}

} // namespace oracle
