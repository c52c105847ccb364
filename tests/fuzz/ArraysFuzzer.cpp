// Functions over arrays of any bytes, in every instruction set of this machine, compared with the plain set,
// the loop over the members: the same results up to the failure, the same exception, the rest unchanged.
//
// Built with clang's libFuzzer, or with Replay.cpp, which runs without it.

#include <vexor/arrays/Arrays.h>
#include <vexor/arrays/private/KernelSet.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <typeinfo>
#include <vector>

namespace {

namespace arrays = vexor::arrays;

/// An array of that many values, filled with the input's bytes repeatedly.
template <class Value>
class Block {
public:
    Block(std::size_t count, std::uint8_t const* bytes, std::size_t size)
        : room(new unsigned char[count * sizeof(Value)]), length(count * sizeof(Value))
    {
        for (std::size_t i = 0; i < length; ++i)
            room[i] = size == 0 ? std::uint8_t(i) : bytes[i % size];
    }

    Value* Data() { return reinterpret_cast<Value*>(room.get()); }
    std::size_t Length() const { return length; }
    unsigned char const* Bytes() const { return room.get(); }

private:
    std::unique_ptr<unsigned char[]> room;
    std::size_t length;
};

/// Equal bytes, or both NaN if a number begins there.
template <class Number>
bool Same(unsigned char const* left, unsigned char const* right, std::size_t length)
{
    for (std::size_t i = 0; i < length; i += sizeof(Number)) {
        Number a, b;
        std::memcpy(&a, left + i, sizeof a);
        std::memcpy(&b, right + i, sizeof b);
        if (std::memcmp(&a, &b, sizeof a) != 0 && !(a != a && b != b))
            return false;
    }
    return true;
}

/// Runs the function in the plain set and in all others.
template <class Number, class Result, class Function>
void Hold(std::size_t count, std::uint8_t const* bytes, std::size_t size, char const* name, Function function)
{
    Block<Result> expected(count, bytes, size);
    std::type_info const* failure = nullptr;
    for (int i = 0; arrays::detail::KernelSet const* set = arrays::detail::RunnableSet(i); ++i) {
        arrays::detail::chosen = set;
        Block<Result> results(count, bytes, size);
        Result* const to = i == 0 ? expected.Data() : results.Data();
        std::type_info const* raised = nullptr;
        try {
            function(to);
        } catch (VexorException const& exception) {
            raised = &typeid(exception);
        }
        if (i == 0) {
            failure = raised;
        } else if (raised != failure || !Same<Number>(results.Bytes(), expected.Bytes(), results.Length())) {
            std::fprintf(stderr, "%s of %zu elements: %s differs from the loop\n", name, count, set->name);
            std::abort();
        }
    }
}

template <class Vector, class Number>
void HoldVectors(int operation, std::size_t count, std::uint8_t const* bytes, std::size_t size)
{
    Block<Vector> left(count, bytes, size);
    Block<Vector> right(count, bytes + size / 2, size - size / 2);
    Vector const* const a = left.Data();
    Vector const* const b = right.Data();
    switch (operation) {
    case 0:
        return Hold<Number, Vector>(count, bytes, size, "Normalize",
                                    [&](Vector* r) { arrays::Normalize(a, r, count); });
    case 1:
        return Hold<Number, Number>(count, bytes, size, "Length",
                                    [&](Number* r) { arrays::Length(a, r, count); });
    case 2:
        return Hold<Number, Number>(count, bytes, size, "Dot",
                                    [&](Number* r) { arrays::Dot(a, b, r, count); });
    case 3:
        return Hold<Number, Vector>(count, bytes, size, "Add",
                                    [&](Vector* r) { arrays::Add(a, b, r, count); });
    case 4:
        return Hold<unsigned char, unsigned char>(count, bytes, size, "IsParallelTo", [&](unsigned char* r) {
            arrays::IsParallelTo(a, b, r, count, 0.3);
        });
    case 5:
        return Hold<unsigned char, unsigned char>(count, bytes, size, "IsEqualTo", [&](unsigned char* r) {
            arrays::IsEqualTo(a, b, r, count, 0.3, 1e10);
        });
    default:
        return Hold<Number, Number>(count, bytes, size, "GetAngleWith",
                                    [&](Number* r) { arrays::GetAngleWith(a, b, r, count); });
    }
}

void HoldMatrices(int operation, std::size_t count, std::uint8_t const* bytes, std::size_t size)
{
    Block<Mat3Dbl> left(count, bytes, size);
    Block<Vec3Dbl> vectors(count, bytes, size);
    Block<Quaternion> quaternions(count, bytes, size);
    Mat3Dbl const* const a = left.Data();
    Vec3Dbl const* const v = vectors.Data();
    Quaternion const* const q = quaternions.Data();
    switch (operation) {
    case 0:
        return Hold<double, Vec3Dbl>(count, bytes, size, "Solve",
                                     [&](Vec3Dbl* r) { arrays::Solve(a, v, r, count); });
    case 1:
        return Hold<double, Mat3Dbl>(count, bytes, size, "Invert",
                                     [&](Mat3Dbl* r) { arrays::Invert(a, r, count); });
    case 2:
        return Hold<double, Vec3Dbl>(count, bytes, size, "Multiply",
                                     [&](Vec3Dbl* r) { arrays::Multiply(a, v, r, count); });
    default:
        return Hold<double, Vec3Dbl>(count, bytes, size, "RotatePoint",
                                     [&](Vec3Dbl* r) { arrays::RotatePoint(q, v, r, count); });
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size < 2)
        return 0;
    int const choice = data[0];
    std::size_t const count = data[1] % 40;
    data += 2;
    size -= 2;
    switch (choice % 5) {
    case 0:
        HoldVectors<Vec3Dbl, double>(choice / 5 % 7, count, data, size);
        break;
    case 1:
        HoldVectors<Vec3Flt, float>(choice / 5 % 7, count, data, size);
        break;
    case 2:
        HoldVectors<Vec2Dbl, double>(choice / 5 % 7, count, data, size);
        break;
    case 3:
        HoldVectors<Vec2Flt, float>(choice / 5 % 7, count, data, size);
        break;
    default:
        HoldMatrices(choice / 5 % 4, count, data, size);
        break;
    }
    return 0;
}
