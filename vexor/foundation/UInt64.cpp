#include <vexor/foundation/UInt64.h>

// Out of line: a compiler that sees a divisor of zero at the call may treat the code around it as
// unreachable.
UInt64 UInt64::operator/(UInt64 const& other) const
{
    __int64 const divisor = other.int64();
    VEXOR_CHECK(divisor != 0, "division by zero");
    // Only a division by −1 can overflow, and many processors raise a signal for it. A division by −1 is a
    // negation, which wraps.
    if (divisor == -1)
        return UInt64() - *this;
    return UInt64(int64() / divisor);
}
