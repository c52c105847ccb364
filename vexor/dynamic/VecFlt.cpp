#include <vexor/dynamic/VecFlt.h>

#include <vexor/dynamic/private/Kernels.h>
#include <vexor/dynamic/private/Runs.h>
#include <vexor/dynamic/private/Storage.h>

#include <algorithm>

using namespace vexor::detail;

namespace {
using Elements = ElementBlock<Owned<float>>;
}

// ---- Construction and size -------------------------------------------------------------------------

VecFlt::VecFlt() : VecFlt(1, nullptr) {}

VecFlt::VecFlt(int newSize, float* externalStorage) : values(nullptr), size(0), isExternal(0)
{
    Init(newSize, externalStorage);
}

VecFlt::VecFlt(int newSize, float value, float* externalStorage) : VecFlt(newSize, externalStorage)
{
    SetValue(value);
}

VecFlt::VecFlt(VecFlt const& other) : VecFlt(other.size, nullptr)
{
    CopyRun(values, other.values, size);
}

VecFlt::~VecFlt()
{
    Elements(values, isExternal).Release();
}

VecFlt& VecFlt::operator=(VecFlt const& other)
{
    // The other may be a view on our own array, so that array is freed only after the copy.
    auto const former = Resize(Elements(values, isExternal), size, other.size, nullptr);
    CopyRun(values, other.values, size);
    return *this;
}

VecFlt& VecFlt::operator=(VecDbl const& other)
{
    Init(other.Size(), nullptr);
    for (int i = 0; i < size; ++i)
        values[i] = RoundToSingle(other[i]);
    return *this;
}

void VecFlt::ReSize(int newSize, float* externalStorage)
{
    Init(newSize, externalStorage);
}

void VecFlt::ReSize(int newSize, float value, float* externalStorage)
{
    Init(newSize, externalStorage);
    SetValue(value);
}

void VecFlt::Init(int newSize, float* externalStorage)
{
    Resize(Elements(values, isExternal), size, newSize, externalStorage);
}

// ---- Access ----------------------------------------------------------------------------------------

VecFlt& VecFlt::SetValue(float value)
{
    FillRun(values, size, value);
    return *this;
}

VecFlt& VecFlt::SetValue(float const* const array)
{
    CopyRun(values, array, size);
    return *this;
}

void VecFlt::GetValue(float* const array) const
{
    CopyRun(array, values, size);
}

// ---- Comparison and arithmetic ---------------------------------------------------------------------

int VecFlt::operator==(VecFlt const& other) const
{
    return size == other.size && AreRunsEqual(values, other.values, size);
}

VecFlt& VecFlt::operator*=(float scalar)
{
    MapRun(values, values, size, [scalar](float v) { return v * scalar; });
    return *this;
}

VecFlt& VecFlt::operator/=(float scalar)
{
    MapRun(values, values, size, [scalar](float v) { return v / scalar; });
    return *this;
}

VecFlt& VecFlt::operator+=(VecFlt const& other)
{
    RequireSameSize(size, other.size);
    CombineRuns(values, values, other.values, size, [](float a, float b) { return a + b; });
    return *this;
}

VecFlt& VecFlt::operator-=(VecFlt const& other)
{
    RequireSameSize(size, other.size);
    CombineRuns(values, values, other.values, size, [](float a, float b) { return a - b; });
    return *this;
}

VecFlt& VecFlt::Negate()
{
    MapRun(values, values, size, [](float v) { return -v; });
    return *this;
}

VecFlt VecFlt::GetNegatedCopy() const
{
    VecFlt result(size);
    MapRun(result.values, values, size, [](float v) { return -v; });
    return result;
}

// ---- Products, length ------------------------------------------------------------------------------

float VecFlt::LengthSquared() const
{
    return RunningDot(values, values, size);
}

float VecFlt::Length() const
{
    return RoundToSingle(SquareRoot(double(LengthSquared())));
}

float VecFlt::Dot(VecFlt const& other) const
{
    VEXOR_CHECK(other.size >= size, "Dot with a shorter vector");
    return RunningDot(values, other.values, size);
}

VecFlt& VecFlt::Normalize()
{
    if (IsNull())
        RaiseNullVector();
    return *this /= Length();
}

VecFlt VecFlt::GetNormalizedCopy() const
{
    if (IsNull())
        RaiseNullVector();
    return *this / Length();
}

VecFlt VecFlt::ElemMult(VecFlt const& other) const
{
    RequireSameSize(size, other.size);
    VecFlt result(size);
    CombineRuns(result.values, values, other.values, size, [](float a, float b) { return a * b; });
    return result;
}

VecFlt VecFlt::ElemDiv(VecFlt const& other) const
{
    RequireSameSize(size, other.size);
    VecFlt result(size);
    CombineRuns(result.values, values, other.values, size, [](float a, float b) { return a / b; });
    return result;
}

// ---- Projection, angle, area -----------------------------------------------------------------------

VecFlt VecFlt::GetProjectionOnTo(VecFlt const& target) const
{
    RequireSameSize(size, target.size);
    VecFlt unit = target.GetNormalizedCopy();
    unit *= Dot(unit);
    return unit;
}

float VecFlt::GetAngleWith(VecFlt const& other) const
{
    RequireSameSize(size, other.size);
    return UnsignedAngle(Dot(other), Length(), other.Length());
}

float VecFlt::GetAreaFormedByTriangleWith(VecFlt const& other) const
{
    RequireSameSize(size, other.size);
    return TriangleArea(Dot(other), LengthSquared(), other.LengthSquared());
}

// ---- Extremes --------------------------------------------------------------------------------------

float VecFlt::MaxValue() const
{
    return FindGreatest(values, size, ItsValue<float>).value;
}

int VecFlt::MaxValueIdx() const
{
    return FindGreatest(values, size, ItsValue<float>).index;
}

float VecFlt::MinValue() const
{
    return FindSmallest(values, size, ItsValue<float>).value;
}

int VecFlt::MinValueIdx() const
{
    return FindSmallest(values, size, ItsValue<float>).index;
}

float VecFlt::MaxAbsValue() const
{
    return FindGreatest(values, size, Magnitude<float>).value;
}

int VecFlt::MaxAbsValueIdx() const
{
    return FindGreatest(values, size, Magnitude<float>).index;
}

float VecFlt::MinAbsValue() const
{
    return FindSmallest(values, size, Magnitude<float>).value;
}

int VecFlt::MinAbsValueIdx() const
{
    return FindSmallest(values, size, Magnitude<float>).index;
}

// ---- Predicates ------------------------------------------------------------------------------------

int VecFlt::IsNull() const
{
    return IsRunNull(values, size);
}

int VecFlt::IsZeroLength(float length) const
{
    return LengthSquared() <= LengthTolerance(length);
}

int VecFlt::IsParallelTo(VecFlt const& other, float angular, float length) const
{
    RequireSameSize(size, other.size);
    float const a = LengthSquared();
    float const b = other.LengthSquared();
    return AreBothLonger(a, b, length) && AreParallel(Dot(other), a, b, angular);
}

int VecFlt::IsCodirectionalTo(VecFlt const& other, float angular, float length) const
{
    RequireSameSize(size, other.size);
    return Dot(other) > 0.0f && IsParallelTo(other, angular, length);
}

int VecFlt::IsPerpendicularTo(VecFlt const& other, float angular, float length) const
{
    RequireSameSize(size, other.size);
    float const a = LengthSquared();
    float const b = other.LengthSquared();
    return AreBothLonger(a, b, length) && ArePerpendicular(Dot(other), a, b, angular);
}

int VecFlt::IsUnitParallelTo(VecFlt const& other, float angular) const
{
    RequireSameSize(size, other.size);
    return AreUnitParallel(Dot(other), angular);
}

int VecFlt::IsUnitCodirectionalTo(VecFlt const& other, float angular) const
{
    RequireSameSize(size, other.size);
    float const d = Dot(other);
    return d > 0.0f && AreUnitParallel(d, angular);
}

int VecFlt::IsUnitPerpendicularTo(VecFlt const& other, float angular) const
{
    RequireSameSize(size, other.size);
    return AreUnitPerpendicular(Dot(other), angular);
}

int VecFlt::IsEqualTo(VecFlt const& other, float angular, float length) const
{
    RequireSameSize(size, other.size);
    // Sums the distance without a vector for the difference, since a predicate allocates nothing.
    return AreEqual(*this, other, angular, length, [](VecFlt const& a, VecFlt const& b) {
        return RunningSquaredDistance(a.values, b.values, a.size);
    });
}

// ---- Free operators --------------------------------------------------------------------------------
// These use the index operators, which are plain accesses, since the fields are private.

VecFlt operator*(VecFlt const& vector, float scalar)
{
    VecFlt result(vector.Size());
    MapRun(&result[0], &vector[0], vector.Size(), [scalar](float v) { return v * scalar; });
    return result;
}

VecFlt operator*(float scalar, VecFlt const& vector)
{
    return vector * scalar;
}

VecFlt operator/(VecFlt const& vector, float scalar)
{
    VecFlt result(vector.Size());
    MapRun(&result[0], &vector[0], vector.Size(), [scalar](float v) { return v / scalar; });
    return result;
}

VecFlt operator-(VecFlt const& vector)
{
    return vector.GetNegatedCopy();
}

VecFlt operator+(VecFlt const& left, VecFlt const& right)
{
    RequireSameSize(left.Size(), right.Size());
    VecFlt result(left.Size());
    CombineRuns(&result[0], &left[0], &right[0], left.Size(), [](float a, float b) { return a + b; });
    return result;
}

VecFlt operator-(VecFlt const& left, VecFlt const& right)
{
    RequireSameSize(left.Size(), right.Size());
    VecFlt result(left.Size());
    CombineRuns(&result[0], &left[0], &right[0], left.Size(), [](float a, float b) { return a - b; });
    return result;
}

VecFlt operator*(MatDbl const& matrix, VecFlt const& vector)
{
    RequireSameSize(matrix.ColumnCount(), vector.Size());
    VecFlt result(matrix.RowCount());
    MultiplyVector(matrix.RowCount(), matrix.ColumnCount(), &matrix(0, 0), &vector[0], &result[0]);
    return result;
}

// ---- Members of VecDbl that name VecFlt --------------------------------------------------------------

VecDbl::VecDbl(VecFlt const& other) : VecDbl(other.Size(), nullptr)
{
    std::copy_n(&other[0], size, values);
}

VecDbl& VecDbl::operator=(VecFlt const& other)
{
    Init(other.Size(), nullptr);
    std::copy_n(&other[0], size, values);
    return *this;
}
