"""Geometric and linear-algebra value classes with documented rounding: the C++ library vexor in Python.

>>> from vexor import Pnt3Dbl, Quaternion, Vec3Dbl
>>> turn = Quaternion(Vec3Dbl(0, 0, 1), 0.5, 0)
>>> turn.RotatePoint(Pnt3Dbl(1, 0, 0))
Pnt3Dbl(0.8775825618903726, 0.479425538604203, 0.0)
"""

from . import arrays
from ._vexor import *


# Pickles name these two: the classes' constructors do not take the fields.
def _Quaternion(*components):
    return Quaternion().SetValue(*components, 0)


def _VexorTolerance(angle, sin2Angle, length, lengthSquared):
    tolerance = VexorTolerance()
    tolerance.angle, tolerance.sin2Angle, tolerance.length, tolerance.lengthSquared = angle, sin2Angle, length, lengthSquared
    return tolerance
