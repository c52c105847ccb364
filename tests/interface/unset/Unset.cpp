// A default constructor of a vector, a point or a matrix leaves the memory as it was, whatever the compiler
// and its flags. An object is made over memory that holds numbers, in each of the forms in which a client
// would write it, and must read as these numbers. Nothing here hides the memory from the optimiser.

#include <vexor/vexor.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>
#include <vector>

namespace {

// The type and the number of a class's elements.
template <class Element_, int count_>
struct Elements {
    using Element = Element_;
    static constexpr int count = count_;
};

template <class Value>
struct ElementsOf;
template <>
struct ElementsOf<Vec3Dbl> : Elements<double, 3> {};
template <>
struct ElementsOf<Vec3Flt> : Elements<float, 3> {};
template <>
struct ElementsOf<Vec2Dbl> : Elements<double, 2> {};
template <>
struct ElementsOf<Vec2Flt> : Elements<float, 2> {};
template <>
struct ElementsOf<Vec2Int> : Elements<int, 2> {};
template <>
struct ElementsOf<Pnt3Dbl> : Elements<double, 3> {};
template <>
struct ElementsOf<Pnt3Flt> : Elements<float, 3> {};
template <>
struct ElementsOf<Pnt2Dbl> : Elements<double, 2> {};
template <>
struct ElementsOf<Pnt2Flt> : Elements<float, 2> {};
template <>
struct ElementsOf<Mat3Dbl> : Elements<double, 9> {};
template <>
struct ElementsOf<Mat2Dbl> : Elements<double, 4> {};

template <class Value>
using Element = typename ElementsOf<Value>::Element;

template <class Value>
Element<Value> Read(Value const& value, int i)
{
    return value[i];
}

double Read(Mat3Dbl const& value, int i)
{
    return value(i / 3, i % 3);
}

double Read(Mat2Dbl const& value, int i)
{
    return value(i / 2, i % 2);
}

// 2, 3.5, 5, … and for integers 2, 3, 5, …: none is what fresh memory would hold.
template <class Number>
Number NumberOf(int i)
{
    return static_cast<Number>(2.0 + 1.5 * i);
}

int failures = 0;

template <class Value>
void Expect(Value const& value, int i, Element<Value> expected, char const* form)
{
    if (Read(value, i) != expected) {
        std::printf("%s, %s: element %d is %g and not %g\n", __PRETTY_FUNCTION__, form, i,
                    static_cast<double>(Read(value, i)), static_cast<double>(expected));
        ++failures;
    }
}

template <class Value>
void ExpectNumbers(Value const& value, char const* form)
{
    for (int i = 0; i < ElementsOf<Value>::count; ++i)
        Expect(value, i, NumberOf<Element<Value>>(i), form);
}

// Room for a Value. A Mat3Dbl has three bytes behind its elements.
template <class Value>
struct Room {
    static constexpr int count = (sizeof(Value) + sizeof(Element<Value>) - 1) / sizeof(Element<Value>);
    Element<Value> values[count];
};

template <class Value>
void Fill(Element<Value>* values)
{
    for (int i = 0; i < Room<Value>::count; ++i)
        values[i] = NumberOf<Element<Value>>(i);
}

// ---- The forms -------------------------------------------------------------------------------------

template <class Value>
void OverAnArray()
{
    Room<Value> memory;
    Fill<Value>(memory.values);
    ExpectNumbers(*new (memory.values) Value(), "an array, Value()");
    Fill<Value>(memory.values);
    ExpectNumbers(*new (memory.values) Value, "an array, Value");
    Fill<Value>(memory.values);
    ExpectNumbers(*new (memory.values) Value{}, "an array, Value{}");
}

template <class Value>
void OverAnArrayOfTheHeap()
{
    auto* const memory = new Element<Value>[Room<Value>::count];
    Fill<Value>(memory);
    ExpectNumbers(*new (memory) Value(), "new Element[], Value()");
    Fill<Value>(memory);
    ExpectNumbers(*new (memory) Value, "new Element[], Value");
    delete[] memory;
}

template <class Value>
void OverBytesThatMemsetWrote()
{
    Element<Value> expected;
    std::memset(&expected, 0x41, sizeof expected);
    alignas(Value) unsigned char memory[sizeof(Value)];
    std::memset(memory, 0x41, sizeof memory);
    Value* const first = new (memory) Value();
    for (int i = 0; i < ElementsOf<Value>::count; ++i)
        Expect(*first, i, expected, "memset, Value()");
    std::memset(memory, 0x41, sizeof memory);
    Value* const second = new (memory) Value;
    for (int i = 0; i < ElementsOf<Value>::count; ++i)
        Expect(*second, i, expected, "memset, Value");
}

template <class Value>
void OverBytesOfMalloc()
{
    Room<Value> numbers;
    Fill<Value>(numbers.values);
    void* const memory = std::malloc(sizeof numbers);
    if (memory == nullptr)
        return;
    std::memcpy(memory, &numbers, sizeof numbers);
    ExpectNumbers(*new (memory) Value(), "malloc, Value()");
    std::memcpy(memory, &numbers, sizeof numbers);
    ExpectNumbers(*new (memory) Value, "malloc, Value");
    std::free(memory);
}

template <class Value>
Value Filled()
{
    Room<Value> numbers;
    Fill<Value>(numbers.values);
    Value value(Element<Value>(0));
    std::memcpy(static_cast<void*>(&value), &numbers, sizeof value);
    return value;
}

template <class Value>
void OverAnObjectOfTheClass()
{
    Value value = Filled<Value>();
    ExpectNumbers(*new (&value) Value(), "an object, Value()");
    Value other = Filled<Value>();
    ExpectNumbers(*new (&other) Value, "an object, Value");
}

template <class Value>
void OverTheDataOfAVector()
{
    std::vector<Element<Value>> memory(static_cast<std::size_t>(2 * Room<Value>::count));
    Fill<Value>(memory.data());
    ExpectNumbers(*new (memory.data()) Value(), "std::vector of elements, Value()");
    Fill<Value>(memory.data());
    ExpectNumbers(*new (memory.data()) Value, "std::vector of elements, Value");
    std::vector<Value> values(3, Filled<Value>());
    ExpectNumbers(*new (values.data() + 1) Value(), "std::vector of the class, Value()");
    ExpectNumbers(*new (&values[2]) Value, "std::vector of the class, Value");
}

template <class Value>
void OverAlignedStorage()
{
    Room<Value> numbers;
    Fill<Value>(numbers.values);
    std::aligned_storage_t<sizeof(Value), alignof(Value)> memory;
    std::memcpy(&memory, &numbers, sizeof memory);
    ExpectNumbers(*new (&memory) Value(), "std::aligned_storage, Value()");
    std::memcpy(&memory, &numbers, sizeof memory);
    ExpectNumbers(*new (&memory) Value, "std::aligned_storage, Value");
}

template <class Value>
void EveryForm()
{
    OverAnArray<Value>();
    OverAnArrayOfTheHeap<Value>();
    OverBytesThatMemsetWrote<Value>();
    OverBytesOfMalloc<Value>();
    OverAnObjectOfTheClass<Value>();
    OverTheDataOfAVector<Value>();
    OverAlignedStorage<Value>();
}

// The shortest form, with nothing around it.
void WrittenOut()
{
    double d[3] = {1.5, 2.5, 3.5};
    auto* const v = new (d) Vec3Dbl();
    if (v->x != 1.5 || v->y != 2.5 || v->z != 3.5) {
        std::printf("double d[3], Vec3Dbl(): %g %g %g\n", v->x, v->y, v->z);
        ++failures;
    }
}

} // namespace

int main()
{
    WrittenOut();
    EveryForm<Vec3Dbl>();
    EveryForm<Vec3Flt>();
    EveryForm<Vec2Dbl>();
    EveryForm<Vec2Flt>();
    EveryForm<Vec2Int>();
    EveryForm<Pnt3Dbl>();
    EveryForm<Pnt3Flt>();
    EveryForm<Pnt2Dbl>();
    EveryForm<Pnt2Flt>();
    EveryForm<Mat3Dbl>();
    EveryForm<Mat2Dbl>();
    if (failures == 0)
        std::printf("every element as the memory held it\n");
    return failures == 0 ? 0 : 1;
}
