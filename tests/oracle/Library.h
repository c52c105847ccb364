#pragma once
#include <vexor/vexor.h>

#include "oracle/Shapes.h"
#include "oracle/Source.h"

// Converts the library's values to the oracle's, by their fields and elements, without a computation.

namespace oracle {

inline Dbl Converted(double value)
{
    return Dbl(value);
}
inline Flt Converted(float value)
{
    return Flt(value);
}
inline int Converted(int value)
{
    return value;
}
inline bool Converted(bool value)
{
    return value;
}
inline Raise Converted(Raise value)
{
    return value;
}
inline std::int64_t Converted(std::int64_t value)
{
    return value;
}

// The statements' own values are returned unchanged.
inline Dbl const& Converted(Dbl const& value)
{
    return value;
}
inline Flt const& Converted(Flt const& value)
{
    return value;
}
template <class Element, int N>
Vec<Element, N> const& Converted(Vec<Element, N> const& value)
{
    return value;
}
template <int N>
Mat<N> const& Converted(Mat<N> const& value)
{
    return value;
}
template <int N>
Aff<N> const& Converted(Aff<N> const& value)
{
    return value;
}
template <class Element>
Dyn<Element> const& Converted(Dyn<Element> const& value)
{
    return value;
}
inline DynMat const& Converted(DynMat const& value)
{
    return value;
}

template <class Element, class Class>
Vec<Element, 2> Two(Class const& v)
{
    return {{Element(v.x), Element(v.y)}};
}

template <class Element, class Class>
Vec<Element, 3> Three(Class const& v)
{
    return {{Element(v.x), Element(v.y), Element(v.z)}};
}

inline V3 Converted(Vec3Dbl const& v)
{
    return Three<Dbl>(v);
}
inline F3 Converted(Vec3Flt const& v)
{
    return Three<Flt>(v);
}

inline V3 Converted(Pnt3Dbl const& v)
{
    return Three<Dbl>(v);
}
inline F3 Converted(Pnt3Flt const& v)
{
    return Three<Flt>(v);
}

/// Integers at any width; as a result, at 32 bits.
struct IntPair {
    std::int64_t x, y;
};
inline IntPair Converted(Vec2Int const& v)
{
    return {v.x, v.y};
}
inline IntPair const& Converted(IntPair const& v)
{
    return v;
}
inline void Put(Outcome& out, IntPair const& v)
{
    out.Put(static_cast<int>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(v.x))));
    out.Put(static_cast<int>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(v.y))));
}

inline V2 Converted(Vec2Dbl const& v)
{
    return Two<Dbl>(v);
}
inline F2 Converted(Vec2Flt const& v)
{
    return Two<Flt>(v);
}
inline V2 Converted(Pnt2Dbl const& v)
{
    return Two<Dbl>(v);
}
inline F2 Converted(Pnt2Flt const& v)
{
    return Two<Flt>(v);
}

inline Mat<2> Converted(Mat2Dbl const& m)
{
    Mat<2> result;
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 2; ++c)
            result(r, c) = m(r, c);
    return result;
}
inline Aff<2> Converted(AffMat2Dbl const& m)
{
    return {Converted(m.LinearPart()), Converted(m.Translation())};
}

inline Mat<3> Converted(Mat3Dbl const& m)
{
    Mat<3> result;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            result(r, c) = m(r, c);
    return result;
}

inline Aff<3> Converted(AffMat3Dbl const& m)
{
    return {Converted(m.LinearPart()), Converted(m.Translation())};
}
inline Quat Converted(Quaternion const& q)
{
    return {{q.u, q.v, q.w, q.s}};
}

/// Operands of run-time size, without storage of their own.
template <class T>
struct Array {
    int size = 0;
    std::vector<T> e;

    Array() = default;
    explicit Array(int newSize) : size(newSize), e(static_cast<std::size_t>(newSize)) {}
    T& operator[](int i) { return e[static_cast<std::size_t>(i)]; }
    T const& operator[](int i) const { return e[static_cast<std::size_t>(i)]; }
    void ReSize(int newSize)
    {
        size = newSize;
        e.resize(static_cast<std::size_t>(newSize));
    }
};
struct Grid {
    int rows = 0;
    int columns = 0;
    std::vector<double> e;

    Grid() = default;
    Grid(int newRows, int newColumns)
        : rows(newRows), columns(newColumns), e(static_cast<std::size_t>(newRows * newColumns))
    {}
    double& operator()(int r, int c) { return e[static_cast<std::size_t>(r * columns + c)]; }
    double const& operator()(int r, int c) const { return e[static_cast<std::size_t>(r * columns + c)]; }
};

inline Dyn<Dbl> Converted(Array<double> const& a)
{
    Dyn<Dbl> result(a.size);
    for (int i = 0; i < a.size; ++i)
        result[i] = a[i];
    return result;
}
inline Dyn<Flt> Converted(Array<float> const& a)
{
    Dyn<Flt> result(a.size);
    for (int i = 0; i < a.size; ++i)
        result[i] = a[i];
    return result;
}
inline DynMat Converted(Grid const& g)
{
    DynMat result(g.rows, g.columns);
    for (int r = 0; r < g.rows; ++r)
        for (int c = 0; c < g.columns; ++c)
            result(r, c) = g(r, c);
    return result;
}
inline Dyn<Dbl> Converted(VecDbl const& v)
{
    Dyn<Dbl> result(v.Size());
    for (int i = 0; i < v.Size(); ++i)
        result[i] = v[i];
    return result;
}
inline Dyn<Flt> Converted(VecFlt const& v)
{
    Dyn<Flt> result(v.Size());
    for (int i = 0; i < v.Size(); ++i)
        result[i] = v[i];
    return result;
}
inline DynMat Converted(MatDbl const& m)
{
    DynMat result(m.RowCount(), m.ColumnCount());
    for (int r = 0; r < m.RowCount(); ++r)
        for (int c = 0; c < m.ColumnCount(); ++c)
            result(r, c) = m(r, c);
    return result;
}

/// The exception that a change raises.
template <class Change>
Raise RaisedBy(Change change)
{
    try {
        change();
    } catch (VexorSingular const&) {
        return Raise::Singular;
    } catch (VexorDimensionMismatch const&) {
        return Raise::DimensionMismatch;
    } catch (VexorAllocationFailed const&) {
        return Raise::AllocationFailed;
    } catch (VexorComputationFailed const&) {
        return Raise::ComputationFailed;
    } catch (VexorNullVector const&) {
        return Raise::NullVector;
    } catch (Raised const& raised) {
        return raised.what;
    }
    return Raise::None;
}

/// Sets the fields of the library's global that the case chose.
inline void PassGlobal()
{
    gVexorTolerance.sin2Angle = globalTolerance.sin2Angle;
    gVexorTolerance.lengthSquared = globalTolerance.lengthSquared;
}

template <class Call>
void CallLibrary(Outcome& outcome, Call call)
{
    outcome.Clear();
    PassGlobal();
    Raise const raised = RaisedBy(call);
    if (raised != Raise::None)
        outcome.SetRaise(raised);
}

} // namespace oracle
