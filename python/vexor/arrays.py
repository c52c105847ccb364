"""Functions over NumPy arrays of vectors, points, matrices and quaternions, with the bits of the loop over the members.

Shapes are (n, 3) and (n, 2) for vectors and points, (n, 3, 3) for matrices and (n, 4) for quaternions (u, v, w, s). One
element, of shape (3,) or an object of a class, stands for an array of copies. Contiguous arrays of doubles or singles
are read in place; others are copied. The functions run without the interpreter's lock.

>>> import numpy
>>> from vexor import Quaternion, Vec3Dbl, arrays
>>> arrays.RotatePoint(Quaternion(0, 0, 1, 0.5, 0), numpy.eye(3))[0].tolist()
[0.8775825618903726, 0.479425538604203, 0.0]
>>> arrays.Normalize([[3, 4, 0], [0, 0, 0]])
Traceback (most recent call last):
    ...
vexor.VexorNullVector: Normalize: element 1: an operation that needs a direction got a null vector
"""

from ._vexor import _arrays

__all__ = [name for name in dir(_arrays) if not name.startswith("_")]
globals().update((name, getattr(_arrays, name)) for name in __all__)
