// Runs millions of seeded operations over the whole interface, except those that depend on LAPACK, and prints
// one hash for each class, and one for each group of members that turn or measure angles. The hashes are the
// same on every platform and in every build; the expected ones are in hashes.txt.
//
// Usage: transcript [ROUNDS]

#include "Operations.h"

int main(int argumentCount, char** arguments)
{
    int const rounds = argumentCount > 1 ? std::atoi(arguments[1]) : 20000;
    std::uint64_t seed = 1;
    for (transcript::Class const& each : transcript::classes) {
        transcript::Transcript out;
        transcript::Source source(seed++);
        for (int i = 0; i < rounds; i += each.share)
            each.run(out, source);
        out.Print(each.name);
    }
    return 0;
}
