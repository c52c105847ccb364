#pragma once
#include <vexor/extras/detail/Text.h>

// Formatters for {fmt} 9 or later, if it is installed, and for std::format, if the compiler has it. The text
// is that of stream.h. Write the format of one number, such as `{:.3f}`, `{:a}` or `{:8.2e}`. It applies to each
// number.

#if defined(__has_include)
#    if __has_include(<fmt/format.h>)
#        include <fmt/format.h>
#    endif
#    if __has_include(<version>)
#        include <version>
#    endif
#endif
#if defined(__cpp_lib_format)
#    include <format>
#endif

namespace vexor::detail {

/// A formatter of a class, derived from `Base`, the formatter of its numbers.
template <class Value, class Base>
struct Formatter : Base {
    template <class Context>
    auto format(Value const& value, Context& context) const
    {
        // Both libraries advance the context's output position with each piece.
        WalkText(
            value,
            [&context](char const* text) {
                auto out = context.out();
                for (; *text != '\0'; ++text)
                    *out++ = *text;
                context.advance_to(out);
            },
            [this, &context](TextElement<Value> number) {
                context.advance_to(Base::format(number, context));
            });
        return context.out();
    }
};

} // namespace vexor::detail

#if defined(FMT_VERSION)
template <class Value>
struct fmt::formatter<Value, char, std::enable_if_t<vexor::detail::hasText<Value>>>
    : vexor::detail::Formatter<Value, fmt::formatter<vexor::detail::TextElement<Value>>> {};
#endif

#if defined(__cpp_lib_format)
template <class Value>
requires vexor::detail::hasText<Value>
struct std::formatter<Value, char>
    : vexor::detail::Formatter<Value, std::formatter<vexor::detail::TextElement<Value>>> {
};
#endif
