#pragma once
#include <vexor/arrays/Maps.h>
#include <vexor/arrays/Matrices.h>
#include <vexor/arrays/Sums.h>
#include <vexor/arrays/Vectors.h>

// All array functions.
