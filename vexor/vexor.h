#pragma once
// All classes of the library.
#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>
#include <vexor/dynamic/VecFlt.h>
#include <vexor/foundation/VexorException.h>
#include <vexor/foundation/VexorTolerance.h>
#include <vexor/matrices/Mat3Dbl.h>
#include <vexor/matrices/SmallSolver.h>
#include <vexor/points/Pnt3Dbl.h>
#include <vexor/points/Pnt3Flt.h>
#include <vexor/rotations/Quaternion.h>
#include <vexor/vectors/Vec3Dbl.h>
#include <vexor/vectors/Vec3Flt.h>
