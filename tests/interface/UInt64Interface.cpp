#include <vexor/vexor.h>

#include "Interface.h"

namespace {

using Class = UInt64;

static_assert(sizeof(__int64) == 8 && std::is_signed_v<__int64>);
static_assert(sizeof(Class) == 8 && alignof(Class) == alignof(std::uint32_t));
static_assert(offsetof(Class, lowWord) == 0);
static_assert(offsetof(Class, highWord) == 4);
static_assert(sizeof(Class::lowWord) == 4 && std::is_unsigned_v<decltype(Class::lowWord)>);
static_assert(sizeof(Class::highWord) == 4 && std::is_unsigned_v<decltype(Class::highWord)>);
static_assert(vexor_interface::isPlainValue<Class>);

DEFAULT_CONSTRUCTOR();
CONSTRUCTOR(__int64 const&);
CONSTRUCTOR(UInt64 const&);
NO_CONSTRUCTOR(std::uint32_t, std::uint32_t);

MEMBER(operator=, UInt64&(UInt64 const&));
MEMBER(operator=, UInt64&(__int64 const&));
ONLY_MEMBER(operator==, bool(UInt64 const&)); // none of the comparisons is const
ONLY_MEMBER(operator!=, bool(UInt64 const&));
ONLY_MEMBER(operator>=, bool(UInt64 const&));
ONLY_MEMBER(operator<=, bool(UInt64 const&));
ONLY_MEMBER(operator+, UInt64(UInt64 const&) const);
ONLY_MEMBER(operator-, UInt64(UInt64 const&) const);
ONLY_MEMBER(operator*, UInt64(UInt64 const&) const);
ONLY_MEMBER(operator/, UInt64(UInt64 const&) const);
ONLY_MEMBER(operator*=, UInt64&(UInt64 const&));
ONLY_MEMBER(operator+=, UInt64(int)); // by value
ONLY_MEMBER(operator-=, UInt64(int));
MEMBER(operator++, UInt64());
MEMBER(operator++, UInt64(int));
MEMBER(operator--, UInt64());
MEMBER(operator--, UInt64(int));
ONLY_MEMBER(operator int, int() const);
ONLY_MEMBER(operator float, float() const);
ONLY_MEMBER(operator double, double() const);
ONLY_MEMBER(operator __int64, __int64() const);
ONLY_MEMBER(int64, __int64() const);

// Both signed types of 64 bits, but no unsigned type.
static_assert(std::is_convertible_v<Class, long long> && std::is_convertible_v<Class, std::int64_t>);
static_assert(sizeof(long) != 8 || std::is_convertible_v<Class, long>);
static_assert(
    !std::is_convertible_v<Class, unsigned long> && !std::is_convertible_v<Class, unsigned long long>);
static_assert(!std::is_convertible_v<Class, short> && !std::is_convertible_v<Class, bool>);

REFUSED_ONE(Class, n, n < n); // neither < nor > exists, and the conversions do not replace them
REFUSED_ONE(Class, n, n > n);
REFUSED_ONE(Class, n, n % n);
REFUSED_TWO(Class, n, Class const, d, n /= d);
REFUSED_TWO(Class, n, Class const, d, n %= d);

} // namespace
