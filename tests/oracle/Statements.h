#pragma once

namespace oracle {

// Each enters the operations of its classes.
void EnterVectors();

inline void EnterAllStatements()
{
    EnterVectors();
}

} // namespace oracle
