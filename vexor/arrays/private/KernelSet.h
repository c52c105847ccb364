#pragma once
#include <vexor/arrays/detail/Operations.h>
#include <vexor/foundation/private/InstructionSets.h>

#include <cstddef>

// The sets for registers need the vector types of GCC and Clang, and a Mat3Dbl that is ten doubles long.
// Linux on 32-bit x86 aligns a double to 4 bytes: there a Mat3Dbl is nine and a half doubles long.
#if defined(__GNUC__) && !(defined(__i386__) && !defined(_WIN32))
#    define VEXOR_ARRAYS_REGISTERS
#endif

// The loops of the component, once for each useful instruction set. All sets give the same bits. A set
// for registers processes whole registers of elements. If a lane needs more than plain arithmetic (a length
// whose squares underflow, a null vector, a singular matrix), it passes that register's elements to the plain
// set, and also the last few elements of an array. The plain set is the loop over the members.

namespace vexor::arrays::detail {

using Size = std::size_t;

/// The tolerances of a test, read once before the loop.
template <class Element>
struct Limits {
    Element angular;
    Element length;
    Element globalLength;
    Element distance; ///< as given by the caller
    Element squaredDistance;
    bool areGlobal; ///< Whether the caller asked for the global tolerances.
};

template <class Element>
using PairKernel = void (*)(Operand<Element> left, Operand<Element> right, Element* results, Size count);
template <class Element>
using SingleKernel = void (*)(Element const* operands, Element* results, Size count);
template <class Element>
using TestKernel = void (*)(Operand<Element> left, Operand<Element> right, Limits<Element> const& limits,
                            unsigned char* results, Size count);
/// `map` is the matrix row by row, then the translation.
template <class Element>
using MapKernel = void (*)(double const* map, Element const* operands, Element* results, Size count);

/// The kernels of a block of numbers, vectors or points.
template <class Element>
struct SumKernels {
    void (*sum)(Element const* elements, Size count, double* sum);
    void (*findExtremes)(Element const* elements, Size count, Element* least, Element* greatest);
};

/// The kernels of a shape, by the operations' numbers. If one is null, the plain set's is used.
template <class Element>
struct VectorKernels {
    PairKernel<Element> pairs[pairOperations];
    SingleKernel<Element> singles[singleOperations];
    TestKernel<Element> tests[testOperations];
    MapKernel<Element> maps[mapOperations];
    SumKernels<Element> sums;
    /// The sums of the products of the differences from the centroid.
    void (*sumProducts)(Element const* elements, Size count, double const* centroid, double* sums);
};

/// How many running sums, least and greatest numbers a block has over its single elements: element j goes to number
/// j mod 24. It is a multiple of 2 and of 3, so that each belongs to one coordinate. And how many each product of a
/// covariance has.
inline constexpr int runningSums = 24;
inline constexpr int runningProducts = 8;

/// How many doubles lie between the beginnings of two neighbours in an array of Mat3Dbl; the first nine are
/// its elements, and the rest is unchanged.
inline constexpr int matrixStride = 10;

/// Loops that compute for a while on each element prefetch long arrays, which the caches near the core do not hold: the
/// processor by itself is too late. Short arrays gain nothing.
inline constexpr Size largeCount = 10000;
/// How many elements ahead.
inline constexpr Size prefetchDistance = 88;
/// The loops over the members prefetch arrays of more bytes than this. Arrays that a second-level cache holds would lose:
/// `Dot` of 100,000 Vec2Flt takes 1.06 times as long.
inline constexpr Size largeBytes = 4000000;
/// The number of matrices beyond which memory limits `Solve` and `Invert`.
inline constexpr Size manyMatrices = 300000;

struct KernelSet {
    char const* name;
    VectorKernels<double> inSpace;
    VectorKernels<float> inSpaceSingle;
    VectorKernels<double> inPlane;
    VectorKernels<float> inPlaneSingle;
    void (*toSingle)(double const* from, float* to, Size count);
    void (*toDouble)(float const* from, double* to, Size count);
    SumKernels<double> numbers;
    SumKernels<float> numbersSingle;
    PairKernel<double> rotatePoint; ///< quaternions on the left
    PairKernel<double> multiplyQuaternions;
    SingleKernel<double> getRotationMatrix; ///< to matrices
    PairKernel<double> multiplyMatrices;
    PairKernel<double> multiplyVectors; ///< matrices on the left
    SingleKernel<double> invert;
    PairKernel<double> solve; ///< matrices on the left
    void (*eigenSym)(double const* matrices, double* values, double* vectors, Size count);
};

namespace plain {
extern KernelSet const kernels;
}

#if defined(VEXOR_ARRAYS_REGISTERS)
namespace baseline {
extern KernelSet const kernels;
}
#endif

#if defined(VEXOR_WIDE_SETS)
namespace avx2 {
extern KernelSet const kernels;
}
namespace avx512 {
extern KernelSet const kernels;
}
#endif

/// The set that the functions run; the baseline before the library's constructors have run. A test may
/// replace it.
extern KernelSet const* chosen;

/// A set that this CPU can run, by its index among them, the plain one first; null after the last.
KernelSet const* RunnableSet(int index);

} // namespace vexor::arrays::detail
