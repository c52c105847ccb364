#pragma once
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "oracle/Library.h"
#include "oracle/Source.h"

namespace oracle {

/// True while the named mistake is made on purpose. A statement calls it where the mistake
/// would be; outside the self-test the result is always false.
inline bool Slip(char const* name);

/// The mistakes of the self-test: none, all those requested are listed, or one is made.
struct Slips {
    bool on = false;
    char const* made = nullptr;
    std::vector<std::string> listed;

    bool Asked(char const* name);
};
extern Slips slips;

/// While an object of it exists, no mistake is made: for a rule that the rule under test uses.
class Sound {
public:
    Sound() : on(slips.on) { slips.on = false; }
    ~Sound() { slips.on = on; }
    Sound(Sound const&) = delete;
    Sound& operator=(Sound const&) = delete;

private:
    bool on;
};

inline bool Slip(char const* name)
{
    return slips.on && slips.Asked(name);
}

/// The floating-point exceptions FE_INVALID and FE_DIVBYZERO of the last call of the library, if they are
/// watched. With trapping on, each of them ends the program, if the platform supports that.
struct Exceptions {
    bool watched = false;
    bool trapping = false;
    int raised = 0;

    void Begin(void const* operands);
    void End(void const* result);
};
extern Exceptions exceptions;

/// One operation: how its operands are drawn, how the library is called, and the rule.
class Operation {
public:
    explicit Operation(std::string operationName);
    virtual ~Operation() = default;

    /// Draws the operands and fills the outcomes and the operands' numbers, each if requested.
    virtual void Run(Source& source, Outcome* library, Outcome* rule, Outcome* operands) const = 0;

    std::string const name;
    std::uint64_t const key; // of the name, for the operands' stream
};

std::vector<std::unique_ptr<Operation>>& Operations();

template <class Draw, class Call, class Rule>
class OperationOf final : public Operation {
public:
    OperationOf(std::string operationName, Draw drawOperands, Call callLibrary, Rule stateRule)
        : Operation(std::move(operationName)), draw(drawOperands), call(callLibrary), state(stateRule)
    {}

    void Run(Source& source, Outcome* library, Outcome* rule, Outcome* operands) const override
    {
        auto const drawn = draw(source);
        if (operands) {
            operands->Clear();
            std::apply([&](auto const&... operand) { (Put(*operands, Converted(operand)), ...); }, drawn);
        }
        if (library)
            CallLibrary(*library, [&] {
                std::apply(
                    [&](auto const&... operand) {
                        exceptions.Begin(&drawn);
                        auto const result = call(operand...);
                        exceptions.End(&result);
                        PutAll(*library, result);
                    },
                    drawn);
            });
        if (rule) {
            rule->Clear();
            try {
                std::apply([&](auto const&... operand) { PutAll(*rule, state(Converted(operand)...)); },
                           drawn);
            } catch (Raised const& raised) {
                rule->SetRaise(raised.what);
            } catch (Open const&) {
                rule->Clear();
                if (library)
                    *rule = *library;
            }
        }
    }

private:
    template <class T>
    static void PutAll(Outcome& out, T const& value)
    {
        Put(out, Converted(value));
    }
    template <class... T>
    static void PutAll(Outcome& out, std::tuple<T...> const& values)
    {
        std::apply([&](auto const&... value) { (PutAll(out, value), ...); }, values);
    }

    Draw draw;
    Call call;
    Rule state;
};

/// Registers an operation. The draw returns a tuple of operands, in the library's types; the call takes them,
/// the rule takes their conversions, and both return a result or a tuple of results.
template <class Draw, class Call, class Rule>
void Add(std::string name, Draw draw, Call call, Rule rule)
{
    Operations().push_back(
        std::make_unique<OperationOf<Draw, Call, Rule>>(std::move(name), draw, call, rule));
}

/// Runs an operation that changes its object, and returns its exception and the object's state.
template <class Object, class Change>
std::tuple<Raise, Object> Kept(Object object, Change change)
{
    Raise const raised = RaisedBy([&] { change(object); });
    return {raised, object};
}

} // namespace oracle
