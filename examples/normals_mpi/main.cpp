// The program `normals` on the processes of MPI: each computes the points of one slab.
//
//   mpirun -n 4 normals_mpi CLOUD.ply

#include "common/Program.h"
#include "normals/Run.h"

#include <mpi.h>

#include <algorithm>

namespace {

/// The processes of MPI_COMM_WORLD.
class MpiTeam : public examples::Team {
public:
    MpiTeam()
    {
        MPI_Comm_size(MPI_COMM_WORLD, &size);
        MPI_Comm_rank(MPI_COMM_WORLD, &rank);
    }
    int Size() const override { return size; }
    int Rank() const override { return rank; }

    int FirstFailing(bool hasFailed) override
    {
        int const own = hasFailed ? rank : size;
        int first = size;
        MPI_Allreduce(&own, &first, 1, MPI_INT, MPI_MIN, MPI_COMM_WORLD);
        return first < size ? first : -1;
    }
    void Send(void const* bytes, std::size_t count) override
    {
        MPI_Send(bytes, static_cast<int>(count), MPI_BYTE, 0, 0, MPI_COMM_WORLD);
    }
    void Receive(int from, void* bytes, std::size_t count) override
    {
        MPI_Recv(bytes, static_cast<int>(count), MPI_BYTE, from, 0, MPI_COMM_WORLD, MPI_STATUS_IGNORE);
    }

private:
    int size = 1;
    int rank = 0;
};

} // namespace

int main(int argumentCount, char** arguments)
{
    MPI_Init(&argumentCount, &arguments);
    int const status = examples::RunProgram("normals_mpi", [&] {
        MpiTeam team;
        return examples::RunNormals(std::vector<std::string>(arguments + 1, arguments + argumentCount), team);
    });
    MPI_Finalize();
    return status;
}
