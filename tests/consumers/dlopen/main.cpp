#include <cstdio>
#include <dlfcn.h>

/// Usage: consumer LIBRARY. Calls an exported function and an inline member by their symbols.
int main(int, char** arguments)
{
    void* const library = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (!library)
        return std::printf("%s\n", dlerror()), 1;

    using Decompose = int (*)(double*, unsigned char*, int);
    auto const decompose = reinterpret_cast<Decompose>(dlsym(library, "_Z15small_decomposePdPhi"));
    double matrix[4] = {0, 0, 1, 2};
    unsigned char order[2];
    if (!decompose || decompose(matrix, order, 2) != -2)
        return std::puts("small_decompose is not there or wrong"), 1;

    using Dot = double (*)(double const*, double const*);
    auto const dot = reinterpret_cast<Dot>(dlsym(library, "_ZNK7Vec3Dbl3DotERKS_"));
    double const left[3] = {1, 2, 3};
    double const right[3] = {4, 5, 6};
    if (!dot || dot(left, right) != 32.0)
        return std::puts("Vec3Dbl::Dot is not there or wrong"), 1;

    // The object's default state: the bits of 1e-5 squared after rounding.
    auto const tolerance = static_cast<float*>(dlsym(library, "gVexorTolerance"));
    if (!tolerance || tolerance[3] != 9.9999994e-11f)
        return std::puts("gVexorTolerance is not there or wrong"), 1;

    if (dlclose(library) != 0)
        return std::puts("cannot be unloaded"), 1;
    std::puts("0 wrong");
    return 0;
}
