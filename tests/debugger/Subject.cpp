// A program in which the debugger stops, with one object of every class, each held in every way in which a
// program can hold one.

#include <vexor/vexor.h>

void Here() {}

template <class T>
struct Holder {
    T member;
    T const& memberReference;
    T* memberPointer;
};

template <class T>
struct Derived : T {
    explicit Derived(T const& value) : T(value) {}
    int more = 5;
};

template <class T>
void InEveryWay(T& reference, T const& constReference, T&& rvalueReference, T* pointer,
                T const* pointerToConst)
{
    using Alias = T;
    T const constant(reference);
    Alias const alias(reference);
    Alias const& aliasReference = constant;
    Alias* const aliasPointer = pointer;
    T*& pointerReference = pointer;
    T array[2] = {reference, reference};
    Holder<T> holder = {reference, reference, pointer};
    Derived<T> derived(reference);
    Derived<T> const& derivedReference = derived;
    T* nullPointer = nullptr;
    Here();
}

template <class T>
void InEveryWay(T object)
{
    InEveryWay<T>(object, object, static_cast<T&&>(object), &object, &object);
}

int main()
{
    Vec3Dbl const vec3Dbl(1, 2.5, -3);
    Vec3Flt const vec3Flt(0.1f, 2, 3);
    Vec2Dbl const vec2Dbl(0.1, 2);
    Vec2Flt const vec2Flt(1, 2);
    Vec2Int const vec2Int(-1, 2);
    Pnt3Dbl const pnt3Dbl(1, 2, 3);
    Pnt3Flt const pnt3Flt(1, 2, 3);
    Pnt2Dbl const pnt2Dbl(1, 2);
    Pnt2Flt const pnt2Flt(1, 2);
    Mat3Dbl const mat3Dbl(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 9));
    Mat2Dbl const mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4));
    AffMat3Dbl const affMat3Dbl(mat3Dbl, Vec3Dbl(10, 11, 12));
    AffMat2Dbl const affMat2Dbl(mat2Dbl, Vec2Dbl(5, 6));
    Quaternion quaternion;
    quaternion.SetValue(-1, 2, -3, 4, 0);
    UInt64 const counter(-5);
    double block[6] = {1, 2, 3, 4, 5, 6};
    VecDbl const view(3, block);
    VecDbl const vecDbl(2, 7.0);
    VecFlt const vecFlt(2, 0.5f);
    float floats[2] = {0.25f, 8};
    VecFlt const floatView(2, floats);
    VecDbl const longVector(20, 1.0);
    MatDbl const matrixView(2, 3, block);
    MatDbl matDbl(2, 3, 0.0);
    matDbl(0, 0) = matDbl(1, 1) = 2.0;
    MatDbl matrix(2, 2, 0.0);
    matrix.SetDiagonal(2.0);
    VecDbl right(2, 4.0);
    matrix.Solve(right);
    double single = 3;
    MatDbl factorisedView(1, 1, &single);
    VecDbl alone(1, 6.0);
    factorisedView.Solve(alone);
    MatDbl const largeMatrix(100, 80, 1.5);
    MatDbl const tallMatrix(8, 2, 0.5);
    VexorTolerance const tolerance;
    Here();

    InEveryWay<Vec3Dbl>(vec3Dbl);
    InEveryWay<Vec3Flt>(vec3Flt);
    InEveryWay<Vec2Dbl>(vec2Dbl);
    InEveryWay<Vec2Flt>(vec2Flt);
    InEveryWay<Vec2Int>(vec2Int);
    InEveryWay<Pnt3Dbl>(pnt3Dbl);
    InEveryWay<Pnt3Flt>(pnt3Flt);
    InEveryWay<Pnt2Dbl>(pnt2Dbl);
    InEveryWay<Pnt2Flt>(pnt2Flt);
    InEveryWay<Mat3Dbl>(mat3Dbl);
    InEveryWay<Mat2Dbl>(mat2Dbl);
    InEveryWay<AffMat3Dbl>(affMat3Dbl);
    InEveryWay<AffMat2Dbl>(affMat2Dbl);
    InEveryWay<Quaternion>(quaternion);
    InEveryWay<UInt64>(counter);
    InEveryWay<VecDbl>(vecDbl);
    InEveryWay<VecFlt>(vecFlt);
    InEveryWay<MatDbl>(matDbl);
    InEveryWay<VexorTolerance>(tolerance);
    return 0;
}
