#include <vexor/arrays/Arrays.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

/// Vector i of a long array: any process can make its own.
Vec3Dbl VectorAt(std::size_t i)
{
    double const number = static_cast<double>(i);
    return Vec3Dbl(0.1 * number, 2.0 - number, 0.5);
}

} // namespace

int main()
{
    using vexor::arrays::blockSize;
    std::vector<Vec3Dbl> vectors;
    for (std::size_t i = 0; i < 100000; ++i)
        vectors.push_back(VectorAt(i));
    std::vector<Vec3Dbl> results(vectors.size());

    // [openmp]
    std::vector<Vec3Dbl> partials(vexor::arrays::BlockCount(vectors.size()));
#pragma omp parallel for schedule(dynamic)
    for (std::size_t b = 0; b < partials.size(); ++b) {
        std::size_t const begin = b * blockSize;
        std::size_t const count = std::min(blockSize, vectors.size() - begin);
        vexor::arrays::Normalize(vectors.data() + begin, results.data() + begin, count);
        partials[b] = vexor::arrays::SumOfBlock(results.data() + begin, count);
    }
    Vec3Dbl const sum = vexor::arrays::CombineAll(partials.data(), partials.size(), Vec3Dbl(0.0));
    // [openmp]
    vexor::arrays::Normalize(vectors, vectors); // on one thread
    bool const isSame = results == vectors && sum == vexor::arrays::Sum(vectors);
    std::printf("%s\n", isSame ? "the same bits" : "other bits");
    std::printf("%.17g %.17g %.17g\n", sum.x, sum.y, sum.z);
}
