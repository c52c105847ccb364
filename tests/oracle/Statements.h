#pragma once

namespace oracle {

// Each enters the operations of its classes.
void EnterTolerance();
void EnterVectors();
void EnterPoints();
void EnterMatrices();
void EnterSmallSolver();
void EnterPlaneSolver();
void EnterAffineMaps();
void EnterQuaternions();
void EnterIntegers();
void EnterDynamicVectors();
void EnterDynamicMatrices();
void EnterDrivers();

inline void EnterFixedSizeStatements()
{
    EnterTolerance();
    EnterVectors();
    EnterPoints();
    EnterMatrices();
    EnterSmallSolver();
    EnterPlaneSolver();
    EnterAffineMaps();
    EnterQuaternions();
    EnterIntegers();
}

inline void EnterAllStatements()
{
    EnterFixedSizeStatements();
    EnterDynamicVectors();
    EnterDynamicMatrices();
    EnterDrivers();
}

} // namespace oracle
