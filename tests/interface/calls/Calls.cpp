// Finds out which calls with one free argument compile: for each class and each form of call, the arguments
// that are accepted. A literal zero and a null pointer are separate arguments, since the compiler treats them
// differently from variables of the same type.
//
// Calls            prints a line for each class and form
// Calls FILE       compares them with the file

#include <vexor/vexor.h>

#include <cstddef>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace {

enum Unscoped { one = 1 };
enum NarrowEnum : char { narrowOne = 1 };
enum class Scoped { one = 1 };
struct ConvertsToInt {
    operator int() const;
};
struct ConvertsToDouble {
    operator double() const;
};

template <class Class>
void Take(Class const&);

// One form of call: whether the expression compiles for a class.
#define FORM(form, ...)                                                                                      \
    template <class Class>                                                                                   \
    static auto form(int)->decltype(static_cast<void>(__VA_ARGS__), std::true_type());                       \
    template <class Class>                                                                                   \
    static std::false_type form(...);

// One argument in each form of call.
#define ARGUMENT(id, text, ...)                                                                              \
    struct id {                                                                                              \
        static constexpr char const* name = text;                                                            \
        FORM(Construct, Class(__VA_ARGS__))                                                                  \
        FORM(Convert, Take<Class>(__VA_ARGS__))                                                              \
        FORM(Braces, Class{__VA_ARGS__})                                                                     \
        FORM(TakeBraces, Take<Class>({__VA_ARGS__}))                                                         \
        FORM(Assign, std::declval<Class&>() = __VA_ARGS__)                                                   \
        FORM(SetValue, std::declval<Class&>().SetValue(__VA_ARGS__))                                         \
        FORM(Equal, std::declval<Class&>() == __VA_ARGS__)                                                   \
        FORM(Less, std::declval<Class&>() < __VA_ARGS__)                                                     \
        FORM(Plus, std::declval<Class&>() + __VA_ARGS__)                                                     \
        FORM(Minus, std::declval<Class&>() - __VA_ARGS__)                                                    \
        FORM(Times, std::declval<Class&>() * __VA_ARGS__)                                                    \
        FORM(Add, std::declval<Class&>() += __VA_ARGS__)                                                     \
        FORM(Dot, std::declval<Class&>().Dot(__VA_ARGS__))                                                   \
        FORM(SetRow, std::declval<Class&>().SetRow(0, __VA_ARGS__))                                          \
        FORM(SetDiagonal, std::declval<Class&>().SetDiagonal(__VA_ARGS__))                                   \
        FORM(Sized, Class(3, __VA_ARGS__))                                                                   \
        FORM(SizedBraces, Class{3, __VA_ARGS__})                                                             \
        FORM(Shaped, Class(3, 3, __VA_ARGS__))                                                               \
        FORM(ShapedView, Class(3, 3, __VA_ARGS__, nullptr))                                                  \
        FORM(ReSize, std::declval<Class&>().ReSize(3, __VA_ARGS__))                                          \
        FORM(ReShape, std::declval<Class&>().ReSize(3, 3, __VA_ARGS__))                                      \
        FORM(Index, (__VA_ARGS__)[std::declval<Class&>()])                                                   \
        FORM(LeftPlus, __VA_ARGS__ + std::declval<Class&>())                                                 \
        FORM(To, Take<std::decay_t<decltype(__VA_ARGS__)>>(std::declval<Class&>()))                          \
        FORM(Cast, static_cast<std::decay_t<decltype(__VA_ARGS__)>>(std::declval<Class&>()))                 \
    };

ARGUMENT(LiteralZero, "0", 0)
ARGUMENT(LiteralOne, "1", 1)
ARGUMENT(LongZero, "0L", 0L)
ARGUMENT(UnsignedZero, "0u", 0u)
ARGUMENT(CharZero, "'\\0'", '\0')
ARGUMENT(False, "false", false)
ARGUMENT(DoubleZero, "0.0", 0.0)
ARGUMENT(FloatZero, "0.0f", 0.0f)
ARGUMENT(Null, "NULL", NULL)
ARGUMENT(NullPointer, "nullptr", nullptr)
ARGUMENT(Bool, "bool", std::declval<bool>())
ARGUMENT(Char, "char", std::declval<char>())
ARGUMENT(UnsignedChar, "unsigned-char", std::declval<unsigned char>())
ARGUMENT(Short, "short", std::declval<short>())
ARGUMENT(Int, "int", std::declval<int>())
ARGUMENT(IntReference, "int&", std::declval<int&>())
ARGUMENT(Unsigned, "unsigned", std::declval<unsigned>())
ARGUMENT(Long, "long", std::declval<long>())
ARGUMENT(UnsignedLong, "unsigned-long", std::declval<unsigned long>())
ARGUMENT(LongLong, "long-long", std::declval<long long>())
ARGUMENT(UnsignedLongLong, "unsigned-long-long", std::declval<unsigned long long>())
ARGUMENT(Float, "float", std::declval<float>())
ARGUMENT(Double, "double", std::declval<double>())
ARGUMENT(LongDouble, "long-double", std::declval<long double>())
ARGUMENT(UnscopedEnum, "enum", std::declval<Unscoped>())
ARGUMENT(NarrowEnumeration, "enum:char", std::declval<NarrowEnum>())
ARGUMENT(ScopedEnum, "enum-class", std::declval<Scoped>())
ARGUMENT(ToInt, "operator-int", std::declval<ConvertsToInt>())
ARGUMENT(ToDouble, "operator-double", std::declval<ConvertsToDouble>())
ARGUMENT(DoublePointer, "double*", std::declval<double*>())
ARGUMENT(ConstDoublePointer, "double-const*", std::declval<double const*>())
ARGUMENT(DoubleArray, "double[3]", std::declval<double (&)[3]>())
ARGUMENT(FloatPointer, "float*", std::declval<float*>())
ARGUMENT(ConstFloatPointer, "float-const*", std::declval<float const*>())
ARGUMENT(IntPointer, "int*", std::declval<int*>())
ARGUMENT(ConstIntPointer, "int-const*", std::declval<int const*>())
ARGUMENT(VoidPointer, "void*", std::declval<void*>())
ARGUMENT(OfVec3Dbl, "Vec3Dbl", std::declval<Vec3Dbl>())
ARGUMENT(OfVec3Flt, "Vec3Flt", std::declval<Vec3Flt>())
ARGUMENT(OfVec2Dbl, "Vec2Dbl", std::declval<Vec2Dbl>())
ARGUMENT(OfVec2Flt, "Vec2Flt", std::declval<Vec2Flt>())
ARGUMENT(OfVec2Int, "Vec2Int", std::declval<Vec2Int>())
ARGUMENT(OfPnt3Dbl, "Pnt3Dbl", std::declval<Pnt3Dbl>())
ARGUMENT(OfPnt3Flt, "Pnt3Flt", std::declval<Pnt3Flt>())
ARGUMENT(OfPnt2Dbl, "Pnt2Dbl", std::declval<Pnt2Dbl>())
ARGUMENT(OfPnt2Flt, "Pnt2Flt", std::declval<Pnt2Flt>())
ARGUMENT(OfMat3Dbl, "Mat3Dbl", std::declval<Mat3Dbl>())
ARGUMENT(OfMat2Dbl, "Mat2Dbl", std::declval<Mat2Dbl>())
ARGUMENT(OfAffMat3Dbl, "AffMat3Dbl", std::declval<AffMat3Dbl>())
ARGUMENT(OfAffMat2Dbl, "AffMat2Dbl", std::declval<AffMat2Dbl>())
ARGUMENT(OfQuaternion, "Quaternion", std::declval<Quaternion>())
ARGUMENT(OfVecDbl, "VecDbl", std::declval<VecDbl>())
ARGUMENT(OfVecFlt, "VecFlt", std::declval<VecFlt>())
ARGUMENT(OfMatDbl, "MatDbl", std::declval<MatDbl>())
ARGUMENT(OfUInt64, "UInt64", std::declval<UInt64>())

using Arguments =
    std::tuple<LiteralZero, LiteralOne, LongZero, UnsignedZero, CharZero, False, DoubleZero, FloatZero, Null,
               NullPointer, Bool, Char, UnsignedChar, Short, Int, IntReference, Unsigned, Long, UnsignedLong,
               LongLong, UnsignedLongLong, Float, Double, LongDouble, UnscopedEnum, NarrowEnumeration,
               ScopedEnum, ToInt, ToDouble, DoublePointer, ConstDoublePointer, DoubleArray, FloatPointer,
               ConstFloatPointer, IntPointer, ConstIntPointer, VoidPointer, OfVec3Dbl, OfVec3Flt, OfVec2Dbl,
               OfVec2Flt, OfVec2Int, OfPnt3Dbl, OfPnt3Flt, OfPnt2Dbl, OfPnt2Flt, OfMat3Dbl, OfMat2Dbl,
               OfAffMat3Dbl, OfAffMat2Dbl, OfQuaternion, OfVecDbl, OfVecFlt, OfMatDbl, OfUInt64>;

using Names = std::set<std::string>;

std::map<std::string, Names> calls; // by class and form

// Records the names of the arguments that a form accepts.
#define NOTE(form, text)                                                                                     \
    Note<Class>(className, text, static_cast<Arguments*>(nullptr),                                           \
                [](auto argument) { return decltype(decltype(argument)::template form<Class>(0))::value; })

template <class Class, class... All, class Takes>
void Note(char const* className, char const* form, std::tuple<All...>*, Takes takes)
{
    Names names;
    ((takes(All()) ? static_cast<void>(names.insert(All::name)) : static_cast<void>(0)), ...);
    calls[std::string(className) + " " + form] = names;
}

template <class Class>
void NoteForms(char const* className)
{
    NOTE(Construct, "C(·)");
    NOTE(Convert, "C c = ·");
    NOTE(Braces, "C{·}");
    NOTE(TakeBraces, "f({·})");
    NOTE(Assign, "c = ·");
    NOTE(SetValue, "c.SetValue(·)");
    NOTE(Equal, "c == ·");
    NOTE(Less, "c < ·");
    NOTE(Plus, "c + ·");
    NOTE(Minus, "c - ·");
    NOTE(Times, "c * ·");
    NOTE(Add, "c += ·");
    NOTE(Dot, "c.Dot(·)");
    NOTE(SetRow, "c.SetRow(0, ·)");
    NOTE(SetDiagonal, "c.SetDiagonal(·)");
    NOTE(Sized, "C(3, ·)");
    NOTE(SizedBraces, "C{3, ·}");
    NOTE(Shaped, "C(3, 3, ·)");
    NOTE(ShapedView, "C(3, 3, ·, nullptr)");
    NOTE(ReSize, "c.ReSize(3, ·)");
    NOTE(ReShape, "c.ReSize(3, 3, ·)");
}

template <class Class>
void NoteConversions(char const* className)
{
    NOTE(Index, "(·)[c]");
    NOTE(LeftPlus, "· + c");
    NOTE(To, "· t = c");
    NOTE(Cast, "static_cast<·>(c)");
}

// A line is a class, a form, a colon and the arguments. An argument without a mark is accepted. Marks compare
// with the overloads of the interface alone: `+` accepted, but not by them; `-` refused, but accepted by
// them; `?` depends on the compiler.
int Compare(std::istream& file)
{
    int differences = 0;
    auto const report = [&](std::string const& call, std::string const& argument, char const* what) {
        std::cout << call << ": " << argument << ' ' << what << '\n';
        ++differences;
    };
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        std::size_t const colon = line.rfind(": ");
        std::string const call = line.substr(0, colon);
        Names taken = calls[call];
        std::istringstream words(line.substr(colon + 1));
        for (std::string word; words >> word;) {
            bool const refused = word[0] == '-';
            std::string const name = refused || word[0] == '+' ? word.substr(1) : word;
            bool const either = name.back() == '?';
            bool const takes = taken.erase(either ? name.substr(0, name.size() - 1) : name) != 0;
            if (!either && takes == refused)
                report(call, name, takes ? "compiles, and must not" : "does not compile any more");
        }
        for (std::string const& name : taken)
            report(call, name, "compiles, and did not");
        calls.erase(call);
    }
    for (auto const& [call, names] : calls) {
        for (std::string const& name : names)
            report(call, name, "compiles, and did not");
    }
    return differences;
}

} // namespace

#define NOTE_CLASS(Class) NoteForms<Class>(#Class)

int main(int argumentCount, char** arguments)
{
    NOTE_CLASS(UInt64);
    NOTE_CLASS(Vec3Dbl);
    NOTE_CLASS(Vec3Flt);
    NOTE_CLASS(Vec2Dbl);
    NOTE_CLASS(Vec2Flt);
    NOTE_CLASS(Vec2Int);
    NOTE_CLASS(Pnt3Dbl);
    NOTE_CLASS(Pnt3Flt);
    NOTE_CLASS(Pnt2Dbl);
    NOTE_CLASS(Pnt2Flt);
    NOTE_CLASS(Mat3Dbl);
    NOTE_CLASS(Mat2Dbl);
    NOTE_CLASS(AffMat3Dbl);
    NOTE_CLASS(AffMat2Dbl);
    NOTE_CLASS(Quaternion);
    NOTE_CLASS(VecDbl);
    NOTE_CLASS(VecFlt);
    NOTE_CLASS(MatDbl);
    NoteConversions<UInt64>("UInt64");
    if (argumentCount < 2) {
        for (auto const& [call, names] : calls) {
            std::cout << call << ':';
            for (std::string const& name : names)
                std::cout << ' ' << name;
            std::cout << '\n';
        }
        return 0;
    }
    std::ifstream file(arguments[1]);
    if (!file || Compare(file) != 0)
        return 1;
    std::cout << "vexor tests completed\n";
    return 0;
}
