// Performs seeded operations of vexor::arrays and prints one hash for each kind of array, like Transcript.cpp for the
// classes; at last, how many heap requests the array functions made, after one by the program itself. The expected output is in arrays_hashes.txt.
//
// Usage: arrays_transcript [ROUNDS]

#include "ArrayOperations.h"

#include <new>

namespace {

long requests = 0;

void* Request(std::size_t bytes)
{
    ++requests;
    if (void* const block = std::malloc(bytes))
        return block;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t bytes)
{
    return Request(bytes);
}
void* operator new[](std::size_t bytes)
{
    return Request(bytes);
}
void operator delete(void* block) noexcept
{
    std::free(block);
}
void operator delete[](void* block) noexcept
{
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    std::free(block);
}

int main(int argumentCount, char** arguments)
{
    int const rounds = argumentCount > 1 ? std::atoi(arguments[1]) : 20000;
    std::uint64_t seed = 1;
    ::operator delete(::operator new(1)); // shows that requests are counted
    long const before = requests;
    for (transcript::Class const& each : transcript::arrayClasses) {
        transcript::Transcript out;
        transcript::Source source(seed++);
        for (int i = 0; i < rounds; i += each.share)
            each.run(out, source);
        out.Print(each.name);
    }
    std::printf("heap requests  %ld after %ld\n", requests - before, before);
    return 0;
}
