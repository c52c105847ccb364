#include <vexor/arrays/Arrays.h>

#include <mpi.h>

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

int main(int argumentCount, char** arguments)
{
    using vexor::arrays::blockSize;
    constexpr std::size_t total = 100000;
    MPI_Init(&argumentCount, &arguments);
    int rank = 0;
    int size = 1;
    MPI_Comm_rank(MPI_COMM_WORLD, &rank);
    MPI_Comm_size(MPI_COMM_WORLD, &size);

    // [mpi]
    std::vector<Vec3Dbl> partials(vexor::arrays::BlockCount(total)); // of all ranks
    std::vector<int> firstBlocks; // of each rank; the blocks are counted from the first element of all
    for (int r = 0; r <= size; ++r)
        firstBlocks.push_back(static_cast<int>(partials.size()) * r / size);
    for (int b = firstBlocks[std::size_t(rank)]; b < firstBlocks[std::size_t(rank) + 1]; ++b) {
        std::vector<Vec3Dbl> vectors; // only those of the block: no rank has them all
        for (std::size_t i = b * blockSize; i < std::min((b + 1) * blockSize, total); ++i)
            vectors.push_back(VectorAt(i));
        vexor::arrays::Normalize(vectors, vectors);
        partials[b] = vexor::arrays::SumOfBlock(vectors.data(), vectors.size());
    }
    for (int r = 0; r < size; ++r) // 24 bytes a block, from each rank to all others
        MPI_Bcast(partials.data() + firstBlocks[r], 3 * (firstBlocks[r + 1] - firstBlocks[r]), MPI_DOUBLE, r,
                  MPI_COMM_WORLD);
    Vec3Dbl const sum = vexor::arrays::CombineAll(partials.data(), partials.size(), Vec3Dbl(0.0));
    // [mpi]

    std::vector<Vec3Dbl> vectors;
    for (std::size_t i = 0; i < total; ++i)
        vectors.push_back(VectorAt(i));
    vexor::arrays::Normalize(vectors, vectors); // on one process
    if (rank == 0) {
        std::printf("%s\n", sum == vexor::arrays::Sum(vectors) ? "the same bits" : "other bits");
        std::printf("%.17g %.17g %.17g\n", sum.x, sum.y, sum.z);
    }
    MPI_Finalize();
}
