#include <vexor/dynamic/VecDbl.h>

#include <vexor/dynamic/private/Runs.h>
#include <vexor/dynamic/private/Storage.h>

#include <algorithm>
#include <cmath>

using namespace vexor::detail;

namespace {
using Elements = ElementBlock<Owned<double>>;

/// Whether a sum of the squares of a run, added one by one, is the same as with an unlimited exponent range.
/// From the first nonzero element on, every partial sum is then at least 2^-968, which no underflowed square
/// changes.
bool IsPlainRun(double const* values, int count, double sumOfSquares)
{
    if (!std::isfinite(sumOfSquares))
        return false;
    for (int i = 0; i < count; ++i) {
        if (values[i] != 0.0)
            return std::fabs(values[i]) >= 0x1p-484;
    }
    return true;
}

} // namespace

// ---- Construction and size -------------------------------------------------------------------------

VecDbl::VecDbl() : VecDbl(1, nullptr) {}

VecDbl::VecDbl(int newSize, double* externalStorage) : values(nullptr), size(0), isExternal(0)
{
    Init(newSize, externalStorage);
}

VecDbl::VecDbl(int newSize, double value, double* externalStorage) : VecDbl(newSize, externalStorage)
{
    SetValue(value);
}

VecDbl::VecDbl(VecDbl const& other) : VecDbl(other.size, nullptr)
{
    CopyRun(values, other.values, size);
}

VecDbl::VecDbl(Vec3Dbl const& vector) : VecDbl(3, nullptr)
{
    vector.GetValue(values);
}

VecDbl::~VecDbl()
{
    Elements(values, isExternal).Release();
}

VecDbl& VecDbl::operator=(VecDbl const& other)
{
    // The other may be a view on our own array, so that array is freed only after the copy.
    auto const former = Resize(Elements(values, isExternal), size, other.size, nullptr);
    CopyRun(values, other.values, size);
    return *this;
}

void VecDbl::ReSize(int newSize, double* externalStorage)
{
    Init(newSize, externalStorage);
}

void VecDbl::ReSize(int newSize, double value, double* externalStorage)
{
    Init(newSize, externalStorage);
    SetValue(value);
}

void VecDbl::Init(int newSize, double* externalStorage)
{
    Resize(Elements(values, isExternal), size, newSize, externalStorage);
}

void VecDbl::MoveTo(double* block, int newSize)
{
    CopyRun(block, values, std::min(size, newSize));
    Elements(values, isExternal).Own(Owned<double>(block));
    size = newSize;
}

// ---- Access ----------------------------------------------------------------------------------------

VecDbl& VecDbl::SetValue(double value)
{
    FillRun(values, size, value);
    return *this;
}

VecDbl& VecDbl::SetValue(double const* const array)
{
    CopyRun(values, array, size);
    return *this;
}

void VecDbl::GetValue(double* const array) const
{
    CopyRun(array, values, size);
}

// ---- Comparison and arithmetic ---------------------------------------------------------------------

int VecDbl::operator==(VecDbl const& other) const
{
    return size == other.size && AreRunsEqual(values, other.values, size);
}

VecDbl& VecDbl::operator*=(double scalar)
{
    MapRun(values, values, size, [scalar](double v) { return v * scalar; });
    return *this;
}

VecDbl& VecDbl::operator/=(double scalar)
{
    MapRun(values, values, size, [scalar](double v) { return v / scalar; });
    return *this;
}

VecDbl& VecDbl::operator+=(VecDbl const& other)
{
    RequireSameSize(size, other.size);
    CombineRuns(values, values, other.values, size, [](double a, double b) { return a + b; });
    return *this;
}

VecDbl& VecDbl::operator-=(VecDbl const& other)
{
    RequireSameSize(size, other.size);
    CombineRuns(values, values, other.values, size, [](double a, double b) { return a - b; });
    return *this;
}

VecDbl& VecDbl::Negate()
{
    MapRun(values, values, size, [](double v) { return -v; });
    return *this;
}

VecDbl VecDbl::GetNegatedCopy() const
{
    VecDbl result(size);
    MapRun(result.values, values, size, [](double v) { return -v; });
    return result;
}

// ---- Sums, products, length ------------------------------------------------------------------------

double VecDbl::Sum() const
{
    double sum = 0.0;
    for (int i = 0; i < size; ++i)
        sum += values[i];
    return sum;
}

double VecDbl::LengthSquared() const
{
    return RunningDot(values, values, size);
}

double VecDbl::Length() const
{
    double const sum = LengthSquared();
    return IsPlainRun(values, size, sum) ? SquareRoot(sum) : FullRangeLength(values, size);
}

double VecDbl::Dot(VecDbl const& other) const
{
    VEXOR_CHECK(other.size >= size, "Dot with a shorter vector");
    return RunningDot(values, other.values, size);
}

VecDbl& VecDbl::Normalize()
{
    if (IsNull())
        RaiseNullVector();
    double const length = Length();
    if (IsInNormalRange(length))
        return *this /= length;
    FullRangeNormalize(values, size);
    return *this;
}

VecDbl VecDbl::GetNormalizedCopy() const
{
    if (IsNull())
        RaiseNullVector();
    double const length = Length();
    if (IsInNormalRange(length))
        return *this / length;
    VecDbl copy(*this);
    FullRangeNormalize(copy.values, size);
    return copy;
}

VecDbl VecDbl::ElemMult(VecDbl const& other) const
{
    RequireSameSize(size, other.size);
    VecDbl result(size);
    CombineRuns(result.values, values, other.values, size, [](double a, double b) { return a * b; });
    return result;
}

VecDbl VecDbl::ElemDiv(VecDbl const& other) const
{
    RequireSameSize(size, other.size);
    VecDbl result(size);
    CombineRuns(result.values, values, other.values, size, [](double a, double b) { return a / b; });
    return result;
}

// ---- Projection, angle, area -----------------------------------------------------------------------

VecDbl VecDbl::GetProjectionOnTo(VecDbl const& target) const
{
    RequireSameSize(size, target.size);
    VecDbl result = target.GetNormalizedCopy();
    double along = 0.0;
    double smallest = 1.0;
    for (int i = 0; i < size; ++i) {
        double const unit = result.values[i];
        double const product = values[i] * unit;
        along += product;
        smallest = SmallerMagnitude(SmallerMagnitude(smallest, unit), product);
    }
    bool isPlain = IsInNormalRange(smallest);
    if (!isPlain) { // most often zeros
        isPlain = true;
        for (int i = 0; i < size && isPlain; ++i)
            isPlain = IsPlainTerm(values[i], target.values[i], result.values[i]);
    }
    if (isPlain && std::isfinite(along))
        result *= along;
    else
        FullRangeProjection(result.values, values, target.values, size, 0.0);
    return result;
}

double VecDbl::GetAngleWith(VecDbl const& other) const
{
    RequireSameSize(size, other.size);
    double d = 0.0;
    double a = 0.0;
    double b = 0.0;
    bool isPlain = true;
    for (int i = 0; i < size; ++i) {
        double const left = values[i];
        double const right = other.values[i];
        double const product = left * right;
        d += product;
        a += left * left;
        b += right * right;
        isPlain &= IsInNormalRange(product) || left == 0.0 || right == 0.0;
    }
    if (isPlain && std::isfinite(d) && IsPlainRun(values, size, a) && IsPlainRun(other.values, size, b))
        return UnsignedAngle(d, SquareRoot(a), SquareRoot(b));
    return FullRangeAngle(values, other.values, size);
}

double VecDbl::GetAreaFormedByTriangleWith(VecDbl const& other) const
{
    RequireSameSize(size, other.size);
    return TriangleArea(Dot(other), LengthSquared(), other.LengthSquared());
}

// ---- Extremes --------------------------------------------------------------------------------------

double VecDbl::MaxValue() const
{
    return FindGreatest(values, size, ItsValue<double>).value;
}

int VecDbl::MaxValueIdx() const
{
    return FindGreatest(values, size, ItsValue<double>).index;
}

double VecDbl::MinValue() const
{
    return FindSmallest(values, size, ItsValue<double>).value;
}

int VecDbl::MinValueIdx() const
{
    return FindSmallest(values, size, ItsValue<double>).index;
}

double VecDbl::MaxAbsValue() const
{
    return FindGreatest(values, size, Magnitude<double>).value;
}

int VecDbl::MaxAbsValueIdx() const
{
    return FindGreatest(values, size, Magnitude<double>).index;
}

double VecDbl::MinAbsValue() const
{
    return FindSmallest(values, size, Magnitude<double>).value;
}

int VecDbl::MinAbsValueIdx() const
{
    return FindSmallest(values, size, Magnitude<double>).index;
}

// ---- Predicates ------------------------------------------------------------------------------------

int VecDbl::IsNull() const
{
    return IsRunNull(values, size);
}

int VecDbl::IsZeroLength(double length) const
{
    return LengthSquared() <= LengthTolerance(length);
}

int VecDbl::IsParallelTo(VecDbl const& other, double angular, double length) const
{
    RequireSameSize(size, other.size);
    double const a = LengthSquared();
    double const b = other.LengthSquared();
    return AreBothLonger(a, b, length) && AreParallel(Dot(other), a, b, angular);
}

int VecDbl::IsCodirectionalTo(VecDbl const& other, double angular, double length) const
{
    RequireSameSize(size, other.size);
    return Dot(other) > 0.0 && IsParallelTo(other, angular, length);
}

int VecDbl::IsPerpendicularTo(VecDbl const& other, double angular, double length) const
{
    RequireSameSize(size, other.size);
    double const a = LengthSquared();
    double const b = other.LengthSquared();
    return AreBothLonger(a, b, length) && ArePerpendicular(Dot(other), a, b, angular);
}

int VecDbl::IsUnitParallelTo(VecDbl const& other, double angular) const
{
    RequireSameSize(size, other.size);
    return AreUnitParallel(Dot(other), angular);
}

int VecDbl::IsUnitCodirectionalTo(VecDbl const& other, double angular) const
{
    RequireSameSize(size, other.size);
    double const d = Dot(other);
    return d > 0.0 && AreUnitParallel(d, angular);
}

int VecDbl::IsUnitPerpendicularTo(VecDbl const& other, double angular) const
{
    RequireSameSize(size, other.size);
    return AreUnitPerpendicular(Dot(other), angular);
}

int VecDbl::IsEqualTo(VecDbl const& other, double angular, double length) const
{
    RequireSameSize(size, other.size);
    // Sums the distance without a vector for the difference, since a predicate allocates nothing.
    return AreEqual(*this, other, angular, length, [](VecDbl const& a, VecDbl const& b) {
        return RunningSquaredDistance(a.values, b.values, a.size);
    });
}

// ---- Free operators --------------------------------------------------------------------------------
// These use the index operators, which are plain accesses, since the fields are private.

VecDbl operator*(VecDbl const& vector, double scalar)
{
    VecDbl result(vector.Size());
    MapRun(&result[0], &vector[0], vector.Size(), [scalar](double v) { return v * scalar; });
    return result;
}

VecDbl operator*(double scalar, VecDbl const& vector)
{
    return vector * scalar;
}

VecDbl operator/(VecDbl const& vector, double scalar)
{
    VecDbl result(vector.Size());
    MapRun(&result[0], &vector[0], vector.Size(), [scalar](double v) { return v / scalar; });
    return result;
}

VecDbl operator-(VecDbl const& vector)
{
    return vector.GetNegatedCopy();
}

VecDbl operator+(VecDbl const& left, VecDbl const& right)
{
    RequireSameSize(left.Size(), right.Size());
    VecDbl result(left.Size());
    CombineRuns(&result[0], &left[0], &right[0], left.Size(), [](double a, double b) { return a + b; });
    return result;
}

VecDbl operator-(VecDbl const& left, VecDbl const& right)
{
    RequireSameSize(left.Size(), right.Size());
    VecDbl result(left.Size());
    CombineRuns(&result[0], &left[0], &right[0], left.Size(), [](double a, double b) { return a - b; });
    return result;
}
