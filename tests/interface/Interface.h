#pragma once
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

// Statements about the exported interface, checked by the compiler. Each file beside this one names its
// class `Class` and states for each operation its parameters, its result and whether
// it is const. If a member loses its const or takes a value instead of a reference, or if a free operator
// becomes a member or a hidden friend, the file does not compile.

namespace vexor_interface {

/// The type of a pointer to a member function: `Member<Vec3Dbl, double(Vec3Dbl const&) const>`.
template <class Class, class Function>
using Member = Function Class::*;

/// Whether the class can be constructed from the arguments, also in braces, which exclude explicit
/// constructors.
template <class Class>
void TakeByValue(Class const&);

template <class Class, class... Arguments>
auto IsImplicitlyMade(int) -> decltype(TakeByValue<Class>({std::declval<Arguments>()...}), std::true_type());
template <class Class, class... Arguments>
std::false_type IsImplicitlyMade(...);

/// Whether the expression in a generic function compiles for arguments of these types.
template <class... Arguments, class Expression>
constexpr bool Compiles(Expression)
{
    return std::is_invocable_v<Expression, Arguments...>;
}

/// A plain value: no virtual functions, no base class, copied byte by byte.
template <class Class>
constexpr bool isPlainValue =
    std::is_standard_layout_v<Class>&& std::is_trivially_copyable_v<Class>&&
        std::is_trivially_destructible_v<Class> && !std::is_polymorphic_v<Class> && !std::is_empty_v<Class>;

} // namespace vexor_interface

/// `MEMBER(Dot, double(Vec3Dbl const&) const)`: exactly this overload exists.
#define MEMBER(name, ...)                                                                                    \
    static_assert(                                                                                           \
        std::is_same_v<decltype(static_cast<vexor_interface::Member<Class, __VA_ARGS__>>(&Class::name)),     \
                       vexor_interface::Member<Class, __VA_ARGS__>>)

/// `ONLY_MEMBER(Length, double() const)`: this, and no other overload.
#define ONLY_MEMBER(name, ...)                                                                               \
    static_assert(std::is_same_v<decltype(&Class::name), vexor_interface::Member<Class, __VA_ARGS__>>)

/// `NO_OVERLOAD(Plus, operator+, Pnt2Flt(Vec2Flt const&) const)`: members of the name exist, but none with
/// this signature. The first word names the statement.
#define NO_OVERLOAD(statement, name, ...)                                                                    \
    template <class Subject>                                                                                 \
    auto Has##statement(int)->decltype(static_cast<vexor_interface::Member<Subject, __VA_ARGS__>>(           \
                                           &Subject::name),                                                  \
                                       std::true_type());                                                    \
    template <class Subject>                                                                                 \
    std::false_type Has##statement(...);                                                                     \
    static_assert(!decltype(Has##statement<Class>(0))::value)

/// `NO_MEMBER(Rotate)`: the class has no member of this name at all. (A second base class with such a member
/// makes the name ambiguous if the class has one too.)
#define NO_MEMBER(name)                                                                                      \
    namespace no_member_##name                                                                               \
    {                                                                                                        \
        struct Other {                                                                                       \
            int name;                                                                                        \
        };                                                                                                   \
        struct Both : Class, Other {};                                                                       \
        template <class Subject>                                                                             \
        auto IsUnique(int)->decltype(&Subject::name, std::true_type());                                      \
        template <class Subject>                                                                             \
        std::false_type IsUnique(...);                                                                       \
        static_assert(decltype(IsUnique<Both>(0))::value);                                                   \
    }                                                                                                        \
    static_assert(true)

/// `FREE(operator*, Vec3Dbl(Vec3Dbl const&, double))`: an ordinary function at global scope.
#define FREE(name, ...)                                                                                      \
    static_assert(std::is_same_v<decltype(static_cast<std::add_pointer_t<__VA_ARGS__>>(&::name)),            \
                                 std::add_pointer_t<__VA_ARGS__>>)

/// `CONSTRUCTOR(double, double)`: exists, public and not explicit.
#define CONSTRUCTOR(...)                                                                                     \
    static_assert(std::is_constructible_v<Class, __VA_ARGS__>);                                              \
    static_assert(decltype(vexor_interface::IsImplicitlyMade<Class, __VA_ARGS__>(0))::value)
/// Exists and is explicit.
#define EXPLICIT_CONSTRUCTOR(...)                                                                            \
    static_assert(std::is_constructible_v<Class, __VA_ARGS__>);                                              \
    static_assert(!decltype(vexor_interface::IsImplicitlyMade<Class, __VA_ARGS__>(0))::value)
#define NO_CONSTRUCTOR(...) static_assert(!std::is_constructible_v<Class, __VA_ARGS__>)
#define DEFAULT_CONSTRUCTOR()                                                                                \
    static_assert(std::is_default_constructible_v<Class>);                                                   \
    static_assert(decltype(vexor_interface::IsImplicitlyMade<Class>(0))::value)

/// `REFUSED_TWO(Vec3Flt const, v, double const, s, v * s)`: the expression does not compile for these
/// operands; `COMPILES_…`: it does.
#define COMPILES_ONE(Type, operand, ...)                                                                     \
    static_assert(vexor_interface::Compiles<Type&>(                                                          \
        [](auto& operand) -> decltype(__VA_ARGS__) { return __VA_ARGS__; }))
#define COMPILES_TWO(First, first, Second, second, ...)                                                      \
    static_assert(vexor_interface::Compiles<First&, Second&>(                                                \
        [](auto& first, auto& second) -> decltype(__VA_ARGS__) { return __VA_ARGS__; }))
#define REFUSED_ONE(Type, operand, ...)                                                                      \
    static_assert(!vexor_interface::Compiles<Type&>(                                                         \
        [](auto& operand) -> decltype(__VA_ARGS__) { return __VA_ARGS__; }))
#define REFUSED_TWO(First, first, Second, second, ...)                                                       \
    static_assert(!vexor_interface::Compiles<First&, Second&>(                                               \
        [](auto& first, auto& second) -> decltype(__VA_ARGS__) { return __VA_ARGS__; }))
