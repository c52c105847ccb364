#pragma once

namespace oracle {

// Each function registers the operations of its classes.
void EnterTolerance();
void EnterVectors();
void EnterPoints();
void EnterMatrices();
void EnterSmallSolver();
void EnterPlaneSolver();
void EnterAffineMaps();
void EnterQuaternions();
void EnterIntegers();
void EnterExtras();
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
    EnterExtras();
}

/// All operations, or all except those that depend on LAPACK.
inline void EnterStatements(bool withDrivers = true)
{
    EnterFixedSizeStatements();
    EnterDynamicVectors();
    EnterDynamicMatrices();
    if (withDrivers)
        EnterDrivers();
}

} // namespace oracle
