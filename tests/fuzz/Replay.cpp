// Runs a fuzzer's entry over files and over seeded random bytes, without libFuzzer. Fails if there is neither a file
// nor a round, and on a file that cannot be read or is empty.
// Usage: replay ROUNDS FILE...

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

int main(int argumentCount, char** arguments)
{
    int const rounds = argumentCount > 1 ? std::atoi(arguments[1]) : 0;
    if (rounds < 1 || argumentCount < 3) {
        std::fprintf(stderr, "usage: replay ROUNDS FILE..., at least one of each\n");
        return 2;
    }
    for (int i = 2; i < argumentCount; ++i) {
        std::ifstream file(arguments[i], std::ios::binary);
        std::vector<char> const bytes((std::istreambuf_iterator<char>(file)),
                                      std::istreambuf_iterator<char>());
        if (bytes.empty()) {
            std::fprintf(stderr, "%s: cannot be read, or is empty\n", arguments[i]);
            return 1;
        }
        LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
    }
    std::mt19937_64 random(20240229);
    std::vector<std::uint8_t> bytes;
    for (int round = 0; round < rounds; ++round) {
        bytes.resize(random() % 512);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::puts("vexor tests completed");
    return 0;
}
