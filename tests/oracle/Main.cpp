#include <cfenv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "oracle/Registry.h"
#include "oracle/Statements.h"

// vexor_oracle: compares the library with the oracle's statements.
//
//   --cases N          cases an operation (10000)
//   --seed S           seed of the operands (1)
//   --fresh            draws the seed, and prints it
//   --operation TEXT   only operations whose name contains TEXT; "=TEXT" asks for the name itself
//   --case K           only this case, with its operands and both results
//   --part I/N         only every Nth operation, from the Ith on
//   --table            a line for each operation
//   --teeth            the self-test: makes each mistake on purpose and demands that the operands show it
//   --steps            the same, and each single step put wrong as well: a measure, which takes long
//   --traps            no ordinary operand raises FE_INVALID or FE_DIVBYZERO where the result is finite
//   --list             names of the operations

using namespace oracle;

namespace {

struct Options {
    long long cases = 10000;
    std::uint64_t seed = 1;
    long long onlyCase = -1;
    int part = 0;
    int parts = 1;
    bool table = false;
    bool teeth = false;
    bool traps = false;
    bool list = false;
    bool steps = false;
    std::string operation;
};

[[noreturn]] void Refuse(char const* text)
{
    std::fprintf(stderr, "vexor_oracle: %s\n", text);
    std::exit(2);
}

Options Read(int count, char** arguments)
{
    Options options;
    for (int i = 1; i < count; ++i) {
        std::string const flag = arguments[i];
        auto value = [&] {
            if (++i >= count)
                Refuse((flag + " needs a value").c_str());
            return arguments[i];
        };
        if (flag == "--cases")
            options.cases = std::atoll(value());
        else if (flag == "--seed")
            options.seed = std::strtoull(value(), nullptr, 0);
        else if (flag == "--fresh") {
            std::random_device device;
            options.seed = (static_cast<std::uint64_t>(device()) << 32) | device();
        } else if (flag == "--operation")
            options.operation = value();
        else if (flag == "--case")
            options.onlyCase = std::atoll(value());
        else if (flag == "--part") {
            if (std::sscanf(value(), "%d/%d", &options.part, &options.parts) != 2 || options.part < 1
                || options.parts < options.part)
                Refuse("--part takes I/N");
            --options.part;
        } else if (flag == "--table")
            options.table = true;
        else if (flag == "--teeth")
            options.teeth = true;
        else if (flag == "--traps")
            options.traps = true;
        else if (flag == "--steps")
            options.teeth = options.table = options.steps = true;
        else if (flag == "--list")
            options.list = true;
        else
            Refuse(("unknown flag " + flag).c_str());
    }
    if (options.cases < 1)
        Refuse("--cases must be at least 1");
    return options;
}

bool Chosen(Options const& options, Operation const& operation)
{
    if (options.operation.empty())
        return true;
    if (options.operation[0] == '=')
        return operation.name == options.operation.substr(1);
    return operation.name.find(options.operation) != std::string::npos;
}

// One case of one operation; true if the library and the statement agree.
bool Agree(Operation const& operation, std::uint64_t seed, long long number, Outcome& library, Outcome& rule)
{
    Source source(seed, operation.key, static_cast<std::uint64_t>(number));
    operation.Run(source, &library, &rule, nullptr);
    return library == rule;
}

void Show(Operation const& operation, std::uint64_t seed, long long number)
{
    Outcome library, rule, operands;
    Source source(seed, operation.key, static_cast<std::uint64_t>(number));
    operation.Run(source, &library, &rule, &operands);
    std::printf("%s\n  operands %s\n  global   sin2Angle %a, lengthSquared %a\n  library  %s\n  rule     %s\n"
                "  replay   vexor_oracle --operation '=%s' --seed %llu --case %lld\n",
                operation.name.c_str(), operands.Text().c_str(),
                static_cast<double>(globalTolerance.sin2Angle),
                static_cast<double>(globalTolerance.lengthSquared), library.Text().c_str(),
                rule.Text().c_str(), operation.name.c_str(), static_cast<unsigned long long>(seed), number);
}

bool Compare(Options const& options)
{
    std::printf("seed %llu, %lld cases an operation\n", static_cast<unsigned long long>(options.seed),
                options.cases);
    if (options.table)
        std::printf("%-62s %12s %10s\n", "operation", "cases", "differing");
    long long operations = 0, total = 0, differing = 0;
    int index = 0;
    Outcome library, rule;
    for (auto const& operation : Operations()) {
        if (!Chosen(options, *operation) || index++ % options.parts != options.part)
            continue;
        if (options.onlyCase >= 0) {
            Show(*operation, options.seed, options.onlyCase);
            ++operations;
            continue;
        }
        long long here = 0;
        for (long long number = 0; number < options.cases; ++number)
            if (!Agree(*operation, options.seed, number, library, rule) && here++ < 3)
                Show(*operation, options.seed, number);
        if (options.table || here > 0)
            std::printf("%-62s %12lld %10lld\n", operation->name.c_str(), options.cases, here);
        ++operations;
        total += options.cases;
        differing += here;
    }
    std::printf("%lld operations, %lld cases, %lld differing\n", operations, total, differing);
    return operations > 0 && differing == 0;
}

// Calls every operation with ordinary operands and zeros. A call that returns a finite result must have
// raised neither FE_INVALID nor FE_DIVBYZERO; then the call is repeated with both trapping. LAPACK's own
// arithmetic is not checked.
bool Traps(Options const& options)
{
    exceptions.watched = true;
    long long operations = 0, calls = 0, faults = 0;
    for (auto const& operation : Operations()) {
        if (!Chosen(options, *operation))
            continue;
        long long here = 0;
        for (long long number = 0; number < options.cases; ++number) {
            auto const run = [&](Outcome& library, Outcome& operands) {
                Source source(options.seed, operation->key, static_cast<std::uint64_t>(number));
                operation->Run(source, nullptr, nullptr, &operands);
                if (!operands.IsOrdinary() || !std::isfinite(globalTolerance.sin2Angle)
                    || !std::isfinite(globalTolerance.lengthSquared))
                    return false;
                source = Source(options.seed, operation->key, static_cast<std::uint64_t>(number));
                operation->Run(source, &library, nullptr, nullptr);
                return !library.HasRaised() && library.IsFinite();
            };
            Outcome library, operands;
            if (!run(library, operands))
                continue;
            ++here;
            if (exceptions.raised != 0) {
                if (faults++ < 20)
                    std::printf("%s raises%s%s\n  operands %s\n  library  %s\n", operation->name.c_str(),
                                exceptions.raised & FE_INVALID ? " FE_INVALID" : "",
                                exceptions.raised & FE_DIVBYZERO ? " FE_DIVBYZERO" : "",
                                operands.Text().c_str(), library.Text().c_str());
                continue;
            }
            exceptions.trapping = true;
            run(library, operands);
            exceptions.trapping = false;
        }
        if (here == 0)
            std::printf("%s was not called with ordinary operands\n", operation->name.c_str()), ++faults;
        calls += here;
        ++operations;
    }
    std::printf("%lld operations, %lld calls with ordinary operands and a finite result, %lld faults\n",
                operations, calls, faults);
    return operations > 0 && faults == 0;
}

// The number of the first case that distinguishes the mistake from the right statement, or −1.
template <class Mistake>
long long FirstTold(Operation const& operation, Options const& options, Mistake mistake, long long cases)
{
    Outcome right, wrong;
    for (long long number = 0; number < cases; ++number) {
        Source one(options.seed, operation.key, static_cast<std::uint64_t>(number));
        Source two = one;
        GlobalTolerance const global = globalTolerance;
        operation.Run(one, nullptr, &right, nullptr);
        globalTolerance = global;
        mistake(true);
        operation.Run(two, nullptr, &wrong, nullptr);
        mistake(false);
        if (right != wrong)
            return number;
    }
    return -1;
}

struct StepShare {
    long told = 0;
    long all = 0;
};

// Makes each single step of the statement wrong: a rounding left out or made towards zero, equality added to
// or removed from a comparison, a rounding to float left out. Many of these are not mistakes (an exact step
// needs no rounding), so this is a measure and not a requirement.
void TryEachStep(Operation const& operation, Options const& options, StepShare& share, bool print)
{
    long arithmetic = 0, comparisons = 0, singles = 0;
    for (long long number = 0; number < 200; ++number) {
        Outcome rule;
        Source source(options.seed, operation.key, static_cast<std::uint64_t>(number));
        steps.Begin(Deviation::Count, -1);
        operation.Run(source, nullptr, &rule, nullptr);
        arithmetic = std::max(arithmetic, steps.arithmetic);
        comparisons = std::max(comparisons, steps.comparisons);
        singles = std::max(singles, steps.singles);
        steps.Begin(Deviation::None, -1);
    }
    struct Kind {
        Deviation deviation;
        long count;
        char const* text;
    };
    Kind const kinds[] = {{Deviation::Unrounded, arithmetic, "rounding left out at step"},
                          {Deviation::TowardZero, arithmetic, "rounding towards zero at step"},
                          {Deviation::ToSingle, arithmetic, "rounding to single at step"},
                          {Deviation::Strictness, comparisons, "other strictness at comparison"},
                          {Deviation::SingleKept, singles, "rounding to float left out at"}};
    for (Kind const& kind : kinds)
        for (long step = 0; step < kind.count; ++step) {
            ++share.all;
            long long const first = FirstTold(
                operation, options,
                [&](bool on) { steps.Begin(on ? kind.deviation : Deviation::None, on ? step : -1); },
                options.cases);
            if (first >= 0)
                ++share.told;
            else if (print)
                std::printf("  %s: not told: %s %ld\n", operation.name.c_str(), kind.text, step);
        }
}

bool Teeth(Options const& options)
{
    long long operations = 0, mistakes = 0, untold = 0;
    StepShare every;
    int index = 0;
    if (options.table)
        std::printf("%-62s %9s %12s\n", "operation", "mistakes", "steps");
    for (auto const& operation : Operations()) {
        if (!Chosen(options, *operation) || index++ % options.parts != options.part)
            continue;
        ++operations;
        slips = Slips{};
        slips.on = true;
        for (long long number = 0; number < 2000; ++number) {
            Outcome rule;
            Source source(options.seed, operation->key, static_cast<std::uint64_t>(number));
            operation->Run(source, nullptr, &rule, nullptr);
        }
        std::vector<std::string> const listed = slips.listed;
        slips = Slips{};
        long here = 0;
        for (std::string const& mistake : listed) {
            long long const first = FirstTold(
                *operation, options,
                [&](bool on) {
                    slips.on = on;
                    slips.made = on ? mistake.c_str() : nullptr;
                },
                options.cases);
            ++mistakes;
            if (first < 0) {
                ++untold;
                std::printf("%s: no case of %lld tells this mistake: %s\n", operation->name.c_str(),
                            options.cases, mistake.c_str());
            } else
                ++here;
        }
        StepShare share;
        if (options.steps)
            TryEachStep(*operation, options, share, true);
        every.told += share.told;
        every.all += share.all;
        if (options.table)
            std::printf("%-62s %4ld/%-4zu %6ld/%-6ld\n", operation->name.c_str(), here, listed.size(),
                        share.told, share.all);
    }
    std::printf("%lld operations, %lld mistakes made on purpose, %lld not told\n", operations, mistakes,
                untold);
    if (options.steps)
        std::printf("%ld of %ld single steps put wrong are told\n", every.told, every.all);
    return operations > 0 && mistakes > 0 && untold == 0;
}

} // namespace

int main(int count, char** arguments)
{
    Options const options = Read(count, arguments);
    EnterStatements(!options.traps);
    if (options.list) {
        for (auto const& operation : Operations())
            std::printf("%s\n", operation->name.c_str());
        return 0;
    }
    bool const good = options.traps ? Traps(options) : options.teeth ? Teeth(options) : Compare(options);
    if (!good)
        return 1;
    std::printf("vexor tests completed\n");
    return 0;
}
