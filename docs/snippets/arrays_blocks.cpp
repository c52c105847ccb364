#include <vexor/arrays/Arrays.h>

#include <algorithm>
#include <cstdio>
#include <vector>

int main()
{
    using vexor::arrays::blockSize;
    std::vector<Vec3Dbl> vectors;
    for (int i = 0; i < 10000; ++i)
        vectors.emplace_back(0.1 * i, 2.0 - i, 0.5);
    std::vector<Vec3Dbl> results(vectors.size());

    // [blocks]
    std::vector<Vec3Dbl> partials(vexor::arrays::BlockCount(vectors.size()));
    for (std::size_t b = 0; b < partials.size(); ++b) { // in any order, on any thread or machine
        std::size_t const begin = b * blockSize;
        std::size_t const count = std::min(blockSize, vectors.size() - begin);
        vexor::arrays::Normalize(vectors.data() + begin, results.data() + begin, count);
        partials[b] = vexor::arrays::SumOfBlock(vectors.data() + begin, count);
    }
    Vec3Dbl const sum = vexor::arrays::CombineAll(partials.data(), partials.size(), Vec3Dbl(0.0));
    // [blocks]
    std::printf("the same sum: %d\n", sum == vexor::arrays::Sum(vectors));
}
