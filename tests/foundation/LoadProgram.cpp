// The library's constants do not depend on the rounding mode in which the program loads the library: those
// of VexorTolerance(), and the square root of 3 in the eigenvalues of a 3×3 matrix.
//
// Usage: LoadProgram LIBRARY

#include <array>
#include <cfenv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>

namespace {

struct Seen {
    std::array<std::uint32_t, 4> global;      // the fields of gVexorTolerance
    std::array<std::uint32_t, 4> constructed; // those of an object constructed in that mode
    std::array<std::uint64_t, 300> eigenValues;
};

// The singles nearest 1e-7 and 1e-5, the square of the rounded sine of the double 1e-7, and the square of the
// rounded 1e-5.
constexpr std::array<std::uint32_t, 4> defaults = {0x33D6BF95, 0x283424DC, 0x3727C5AC, 0x2EDBE6FE};

template <class Function>
Function* Symbol(void* library, char const* name)
{
    Function* result = nullptr;
    void* const address = dlsym(library, name);
    std::memcpy(&result, &address, sizeof result);
    return result;
}

/// Loads the library in a rounding mode, computes in the default one, and unloads it.
bool Load(char const* path, int mode, Seen& seen)
{
    std::fesetround(mode);
    void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    std::fesetround(FE_TONEAREST);
    if (!library)
        return std::printf("%s\n", dlerror()), false;

    auto* const global = static_cast<float*>(dlsym(library, "gVexorTolerance"));
    auto* const construct = Symbol<void(float*)>(library, "_ZN14VexorToleranceC1Ev");
    auto* const eigenSym = Symbol<void(double*, double*, int)>(library, "_ZN7Mat3Dbl8EigenSymER7Vec3Dbli");
    if (!global || !construct || !eigenSym)
        return std::puts("a symbol is missing"), false;

    std::memcpy(seen.global.data(), global, sizeof seen.global);
    float tolerance[4];
    std::fesetround(mode);
    construct(tolerance);
    std::fesetround(FE_TONEAREST);
    std::memcpy(seen.constructed.data(), tolerance, sizeof seen.constructed);

    for (std::size_t i = 0; i < seen.eigenValues.size(); i += 3) {
        double const off = 0.001 * static_cast<double>(i);
        double matrix[10] = {2.0, off,  0.25, off, 3.0,
                             0.5, 0.25, 0.5,  5.0, 0.0}; // rows, then the pivot order
        double values[3];
        eigenSym(matrix, values, 0);
        std::memcpy(&seen.eigenValues[i], values, sizeof values);
    }

    dlclose(library);
    if (dlopen(path, RTLD_NOW | RTLD_NOLOAD))
        return std::puts("the library stays loaded: another mode cannot be tried"), false;
    return true;
}

} // namespace

int main(int, char** arguments)
{
    Seen nearest = {};
    if (!Load(arguments[1], FE_TONEAREST, nearest))
        return 1;
    int wrong = 0;
    for (int const mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        Seen seen = {};
        if (!Load(arguments[1], mode, seen))
            return 1;
        if (seen.global != defaults)
            std::printf("mode %d: gVexorTolerance differs\n", mode), ++wrong;
        if (seen.constructed != defaults)
            std::printf("mode %d: VexorTolerance() differs\n", mode), ++wrong;
        if (seen.eigenValues != nearest.eigenValues)
            std::printf("mode %d: EigenSym differs\n", mode), ++wrong;
    }
    if (wrong)
        return 1;
    std::puts("vexor tests completed");
    return 0;
}
