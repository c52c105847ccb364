// Runs a fuzzer's entry over files and over seeded random bytes, without libFuzzer.
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
    for (int i = 2; i < argumentCount; ++i) {
        std::ifstream file(arguments[i], std::ios::binary);
        std::vector<char> const bytes((std::istreambuf_iterator<char>(file)),
                                      std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
    }
    std::mt19937_64 random(20240229);
    int const rounds = argumentCount > 1 ? std::atoi(arguments[1]) : 0;
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
