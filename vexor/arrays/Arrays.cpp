#include <vexor/arrays/detail/Functions.h>
#include <vexor/arrays/private/KernelSet.h>
#include <vexor/foundation/detail/Tolerance.h>
#include <vexor/points/detail/Distance.h>

// The exported functions of the component: they copy single values and run the loop of the chosen set.

namespace vexor::arrays::detail {

// ---- The choice ------------------------------------------------------------------------------------

namespace {

KernelSet const& Fastest()
{
#if defined(VEXOR_WIDE_SETS)
    switch (vexor::detail::FastestInstructionSet()) {
    case vexor::detail::InstructionSet::Avx512:
        return avx512::kernels;
    case vexor::detail::InstructionSet::Avx2:
        return avx2::kernels;
    case vexor::detail::InstructionSet::Baseline:
        break;
    }
#endif
#if defined(VEXOR_ARRAYS_REGISTERS)
    return baseline::kernels;
#else
    return plain::kernels;
#endif
}

/// Chooses the set when the library is loaded. Until then it is a constant, so no choice is ever made
/// under a lock.
struct AtLoad {
    AtLoad() { chosen = &Fastest(); }
} const atLoad;

} // namespace

#if defined(VEXOR_ARRAYS_REGISTERS)
KernelSet const* chosen = &baseline::kernels;
#else
KernelSet const* chosen = &plain::kernels;
#endif

KernelSet const* RunnableSet(int index)
{
    KernelSet const* sets[5] = {&plain::kernels};
    int count = 1;
#if defined(VEXOR_ARRAYS_REGISTERS)
    sets[count++] = &baseline::kernels;
#endif
#if defined(VEXOR_WIDE_SETS)
    if (vexor::detail::HasAvx2())
        sets[count++] = &avx2::kernels;
    if (vexor::detail::HasAvx512())
        sets[count++] = &avx512::kernels;
#endif
    return index < count ? sets[index] : nullptr;
}

namespace {

/// A kernel of the chosen set, or the plain set's if it has none.
template <class Kernel>
Kernel OrPlain(Kernel kernel, Kernel plainKernel)
{
    return kernel != nullptr ? kernel : plainKernel;
}

/// The kernels of a shape.
template <class Element, int dimension>
VectorKernels<Element> const& KernelsFor(KernelSet const& set)
{
    if constexpr (sizeof(Element) == sizeof(float))
        return dimension == 3 ? set.inSpaceSingle : set.inPlaneSingle;
    else
        return dimension == 3 ? set.inSpace : set.inPlane;
}

/// A copy of an operand's single value, so that results written over it do not change it for later elements.
template <class Element, int size>
class Copy {
public:
    explicit Copy(Operand<Element> const& from)
    {
        for (int k = 0; k < size && from.isOne; ++k)
            elements[k] = from.data[k];
    }
    Operand<Element> Of(Operand<Element> const& from) const
    {
        return from.isOne ? Operand<Element>{elements, true} : from;
    }

private:
    Element elements[size] = {};
};

} // namespace

// ---- Vectors and points ------------------------------------------------------------------------------

template <class Element, int dimension>
void Compute(PairOperation operation, Operand<Element> left, Operand<Element> right, Element* results,
             std::size_t count)
{
    if (count == 0)
        return;
    auto const index = static_cast<int>(operation);
    PairKernel<Element> const kernel = OrPlain(KernelsFor<Element, dimension>(*chosen).pairs[index],
                                               KernelsFor<Element, dimension>(plain::kernels).pairs[index]);
    if (!left.isOne && !right.isOne) {
        kernel(left, right, results, count);
        return;
    }
    // Factors of `Scale` are single elements.
    if (operation == PairOperation::Scale) {
        Copy<Element, 1> const one(right);
        Copy<Element, dimension> const oneLeft(left);
        kernel(oneLeft.Of(left), one.Of(right), results, count);
        return;
    }
    Copy<Element, dimension> const oneLeft(left);
    Copy<Element, dimension> const oneRight(right);
    kernel(oneLeft.Of(left), oneRight.Of(right), results, count);
}

template <class Element, int dimension>
void Compute(SingleOperation operation, Element const* operands, Element* results, std::size_t count)
{
    auto const index = static_cast<int>(operation);
    if (count != 0)
        OrPlain(KernelsFor<Element, dimension>(*chosen).singles[index],
                KernelsFor<Element, dimension>(plain::kernels).singles[index])(operands, results, count);
}

template <class Element, int dimension>
void Test(TestOperation operation, Operand<Element> left, Operand<Element> right, Element angular,
          Element length, unsigned char* results, std::size_t count)
{
    if (count == 0)
        return;
    Limits<Element> const limits = {
        vexor::detail::AngularTolerance(angular),     vexor::detail::LengthTolerance(length),
        vexor::detail::LengthTolerance(Element(-1)),  angular,
        vexor::detail::SquaredDistanceLimit(angular), angular < Element(0) && length < Element(0)};
    Copy<Element, dimension> const oneLeft(left);
    Copy<Element, dimension> const oneRight(right);
    auto const index = static_cast<int>(operation);
    TestKernel<Element> const kernel = OrPlain(KernelsFor<Element, dimension>(*chosen).tests[index],
                                               KernelsFor<Element, dimension>(plain::kernels).tests[index]);
    kernel(oneLeft.Of(left), oneRight.Of(right), limits, results, count);
}

template <class Element, int dimension>
void Map(MapOperation operation, double const* map, Element const* operands, Element* results,
         std::size_t count)
{
    if (count != 0)
        KernelsFor<Element, dimension>(*chosen).maps[static_cast<int>(operation)](map, operands, results,
                                                                                  count);
}

#define VEXOR_INSTANTIATE(Element, dimension)                                                                \
    template VEXOR_ARRAYS_API void Compute<Element, dimension>(PairOperation, Operand<Element>,              \
                                                               Operand<Element>, Element*, std::size_t);     \
    template VEXOR_ARRAYS_API void Compute<Element, dimension>(SingleOperation, Element const*, Element*,    \
                                                               std::size_t);                                 \
    template VEXOR_ARRAYS_API void Test<Element, dimension>(                                                 \
        TestOperation, Operand<Element>, Operand<Element>, Element, Element, unsigned char*, std::size_t);   \
    template VEXOR_ARRAYS_API void Map<Element, dimension>(MapOperation, double const*, Element const*,      \
                                                           Element*, std::size_t);
VEXOR_INSTANTIATE(double, 3)
VEXOR_INSTANTIATE(float, 3)
VEXOR_INSTANTIATE(double, 2)
VEXOR_INSTANTIATE(float, 2)
#undef VEXOR_INSTANTIATE

void Convert(double const* from, float* to, std::size_t count)
{
    if (count != 0)
        chosen->toSingle(from, to, count);
}

void Convert(float const* from, double* to, std::size_t count)
{
    if (count != 0)
        chosen->toDouble(from, to, count);
}

// ---- Quaternions and matrices --------------------------------------------------------------------------

void RotatePoint(Operand<double> quaternions, Operand<double> points, double* results, std::size_t count)
{
    if (count == 0)
        return;
    Copy<double, 4> const quaternion(quaternions);
    Copy<double, 3> const point(points);
    chosen->rotatePoint(quaternion.Of(quaternions), point.Of(points), results, count);
}

void MultiplyQuaternions(Operand<double> left, Operand<double> right, double* results, std::size_t count)
{
    if (count == 0)
        return;
    Copy<double, 4> const oneLeft(left);
    Copy<double, 4> const oneRight(right);
    chosen->multiplyQuaternions(oneLeft.Of(left), oneRight.Of(right), results, count);
}

namespace {

double const* ElementsIn(Mat3Dbl const* matrices)
{
    return reinterpret_cast<double const*>(matrices);
}

double* ElementsIn(Mat3Dbl* matrices)
{
    return reinterpret_cast<double*>(matrices);
}

/// An operand's matrices, one of them as a copy.
class MatrixOperand {
public:
    explicit MatrixOperand(Matrices const& from)
        : copy(*from.data), operand{from.isOne ? ElementsIn(&copy) : ElementsIn(from.data), from.isOne}
    {}

    Mat3Dbl const copy;
    Operand<double> const operand;
};

} // namespace

void GetRotationMatrix(Quaternion const* quaternions, Mat3Dbl* results, std::size_t count)
{
    if (count != 0)
        chosen->getRotationMatrix(reinterpret_cast<double const*>(quaternions), ElementsIn(results), count);
}

void MultiplyMatrices(Matrices left, Matrices right, Mat3Dbl* results, std::size_t count)
{
    if (count == 0)
        return;
    MatrixOperand const a(left);
    MatrixOperand const b(right);
    chosen->multiplyMatrices(a.operand, b.operand, ElementsIn(results), count);
}

void MultiplyVectors(Matrices matrices, Operand<double> vectors, double* results, std::size_t count)
{
    if (count == 0)
        return;
    MatrixOperand const matrix(matrices);
    Copy<double, 3> const vector(vectors);
    OrPlain(chosen->multiplyVectors, plain::kernels.multiplyVectors)(matrix.operand, vector.Of(vectors),
                                                                     results, count);
}

void Invert(Mat3Dbl const* matrices, Mat3Dbl* results, std::size_t count)
{
    if (count == 0)
        return;
    OrPlain(chosen->invert, plain::kernels.invert)(ElementsIn(matrices), ElementsIn(results), count);
}

void Solve(Matrices matrices, Operand<double> rightSides, double* results, std::size_t count)
{
    if (count == 0)
        return;
    MatrixOperand const matrix(matrices);
    Copy<double, 3> const rightSide(rightSides);
    OrPlain(chosen->solve, plain::kernels.solve)(matrix.operand, rightSide.Of(rightSides), results, count);
}

void EigenSym(Mat3Dbl const* matrices, Vec3Dbl* eigenValues, Mat3Dbl* vectors, std::size_t count)
{
    if (count == 0)
        return;
    auto* const values = reinterpret_cast<double*>(eigenValues);
    double* const elements = vectors == nullptr ? nullptr : ElementsIn(vectors);
    OrPlain(chosen->eigenSym, plain::kernels.eigenSym)(ElementsIn(matrices), values, elements, count);
}

// ---- Sums ----------------------------------------------------------------------------------------------

namespace {

template <class Element, int dimension>
SumKernels<Element> const& SumKernelsFor(KernelSet const& set)
{
    if constexpr (dimension > 1)
        return KernelsFor<Element, dimension>(set).sums;
    else if constexpr (sizeof(Element) == sizeof(float))
        return set.numbersSingle;
    else
        return set.numbers;
}

} // namespace

template <class Element, int dimension>
void SumBlock(Element const* elements, std::size_t count, double* sum)
{
    SumKernelsFor<Element, dimension>(*chosen).sum(elements, count, sum);
}

template <class Element, int dimension>
void CovarianceBlock(Element const* elements, std::size_t count, double const* centroid, double* products)
{
    KernelsFor<Element, dimension>(*chosen).sumProducts(elements, count, centroid, products);
}

template <class Element, int dimension>
void ExtremesBlock(Element const* elements, std::size_t count, Element* least, Element* greatest)
{
    SumKernelsFor<Element, dimension>(*chosen).findExtremes(elements, count, least, greatest);
}

#define VEXOR_INSTANTIATE(Element, dimension)                                                                \
    template VEXOR_ARRAYS_API void SumBlock<Element, dimension>(Element const*, std::size_t, double*);       \
    template VEXOR_ARRAYS_API void ExtremesBlock<Element, dimension>(Element const*, std::size_t, Element*,  \
                                                                     Element*);
VEXOR_INSTANTIATE(double, 3)
VEXOR_INSTANTIATE(float, 3)
VEXOR_INSTANTIATE(double, 2)
VEXOR_INSTANTIATE(float, 2)
VEXOR_INSTANTIATE(double, 1)
VEXOR_INSTANTIATE(float, 1)
#undef VEXOR_INSTANTIATE
#define VEXOR_INSTANTIATE(Element, dimension)                                                                \
    template VEXOR_ARRAYS_API void CovarianceBlock<Element, dimension>(Element const*, std::size_t,          \
                                                                       double const*, double*);
VEXOR_INSTANTIATE(double, 3)
VEXOR_INSTANTIATE(float, 3)
VEXOR_INSTANTIATE(double, 2)
VEXOR_INSTANTIATE(float, 2)
#undef VEXOR_INSTANTIATE

} // namespace vexor::arrays::detail
