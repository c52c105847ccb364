// One operation of a fixed-size class on operands made from the bytes, compared bit for bit with the oracle's
// statement of its rule.
//
// Built with clang's libFuzzer, or with Replay.cpp, which runs the committed corpus without it.

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "oracle/Registry.h"
#include "oracle/Statements.h"

using namespace oracle;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static bool const entered = [] {
        EnterFixedSizeStatements();
        return true;
    }();
    if (!entered || size < 4)
        return 0;

    // Two bytes choose the operation, two the kind of operands; the rest are the operands.
    std::size_t const choice = data[0] + 256u * data[1];
    Operation const& operation = *Operations()[choice % Operations().size()];
    Source const source(data + 2, size - 2);

    Outcome library, rule;
    Source drawn = source;
    operation.Run(drawn, &library, &rule, nullptr);
    if (library != rule) {
        Outcome operands;
        drawn = source;
        operation.Run(drawn, nullptr, nullptr, &operands);
        std::fprintf(
            stderr,
            "%s\n  operands %s\n  global   sin2Angle %a, lengthSquared %a\n  library  %s\n"
            "  rule     %s\n",
            operation.name.c_str(), operands.Text().c_str(), static_cast<double>(globalTolerance.sin2Angle),
            static_cast<double>(globalTolerance.lengthSquared), library.Text().c_str(), rule.Text().c_str());
        std::abort();
    }
    return 0;
}
