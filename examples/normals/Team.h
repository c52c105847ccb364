#pragma once
#include <cstddef>

namespace examples {

/// The processes that share the work. This team has one; that of MPI is in normals_mpi.
class Team {
public:
    virtual ~Team() = default;
    virtual int Size() const { return 1; }
    virtual int Rank() const { return 0; }
    bool IsFirst() const { return Rank() == 0; }

    /// The lowest rank that calls it with true, −1 if none does. All must call it.
    virtual int FirstFailing(bool hasFailed) { return hasFailed ? 0 : -1; }
    /// Sends bytes to the first process.
    virtual void Send(void const* bytes, std::size_t count) = 0;
    /// Receives bytes that another process sent, on the first.
    virtual void Receive(int rank, void* bytes, std::size_t count) = 0;
};

/// A process of its own.
class Alone : public Team {
public:
    void Send(void const*, std::size_t) override {}
    void Receive(int, void*, std::size_t) override {}
};

} // namespace examples
