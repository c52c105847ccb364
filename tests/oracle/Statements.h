#pragma once

namespace oracle {

// Each enters the operations of its classes.
void EnterTolerance();
void EnterVectors();
void EnterPoints();
void EnterMatrices();
void EnterSmallSolver();

inline void EnterAllStatements()
{
    EnterTolerance();
    EnterVectors();
    EnterPoints();
    EnterMatrices();
    EnterSmallSolver();
}

} // namespace oracle
