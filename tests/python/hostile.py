"""Calls members and array functions at random with arguments that do not fit. It ends with the line that the test looks
for unless a call ends the process.

Usage: hostile.py CALLS SEED
"""

import copy
import faulthandler
import math
import operator
import pickle
import random
import resource
import sys
import warnings

import numpy

import vexor
from vexor import *
from vexor import arrays

faulthandler.enable()
warnings.simplefilter("ignore")
CLASSES = [cls for cls in vars(vexor).values() if isinstance(cls, type) and not issubclass(cls, Exception)]
# As a size each is at most some hundreds, or refused.
NUMBERS = [0, 1, 2, 3, 4, 7, 100, 255, 256, -1, -2, 2**31 - 1, 2**31, -2**31, 2**63, 2**64, 10**30, True, 0.5, -0.0, 1e-320, 1e200,
           math.nan, math.inf, -math.inf, 1e308, numpy.float32(0.1), numpy.int8(-3), 1j]


def random_array(rng):
    shape = rng.choice([(), (0,), (3,), (2,), (4,), (0, 3), (1, 3), (5, 3), (5, 2), (5, 4), (3, 3), (2, 2), (3, 4), (4, 4),
                        (5, 3, 3), (1, 3, 3), (2, 3, 3, 3), (70, 3, 3)])
    values = numpy.array([rng.choice([0, 1, -1, 0.5, rng.gauss(0, 1), math.nan, math.inf, 1e300, 1e-300])
                          for _ in range(math.prod(shape))]).reshape(shape)
    values = values.astype(rng.choice(["f8", "f8", "f8", "f4", "f4", ">f8", "f2", "c16", "i4", "u1", "?", "O", "S5"]),
                           order=rng.choice("CF"))
    form = rng.randrange(6)
    if form == 0:
        values = values[::-1] if values.ndim else values
    elif form == 1:
        values.flags.writeable = False
    elif form == 2:
        values = values.tolist()
    elif form == 3 and values.ndim:
        values = numpy.repeat(values, 2, axis=0)[::2]
    return values


def random_object(rng, pool):
    form = rng.randrange(10)
    if form < 5:
        return rng.choice(pool)
    if form < 8:
        return rng.choice(NUMBERS)
    if form == 8:
        return random_array(rng)
    return rng.choice([None, "text", b"\x00\x01\x02", b"\xff\xff", (0, 1), (2, 5), (-1, 0), [], {}, object(), Vec3Dbl, iter([1]),
                       range(3), memoryview(b"abcd"), [Vec3Dbl(1, 2, 3)], [Vec2Dbl(1, 2)] * 3, [1.0, None], slice(0, 2)])


def main():
    calls, seed = int(sys.argv[1]), int(sys.argv[2])
    rng = random.Random(seed)
    if "--unlimited" not in sys.argv:
        resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
    members = [(cls, name) for cls in CLASSES for name in dir(cls)
               if name not in ("__class__", "__new__", "__init__", "__init_subclass__", "__subclasshook__", "__getattribute__",
                               "__setattr__", "__delattr__", "__array_ufunc__", "__dir__")]
    functions = [getattr(module, name) for module in (arrays, vexor) for name in dir(module)
                 if callable(getattr(module, name)) and not isinstance(getattr(module, name), type) and name[0] != "_"]
    general = [operator.add, operator.sub, operator.mul, operator.truediv, operator.iadd, operator.isub, operator.imul,
               operator.itruediv, operator.neg, operator.eq, operator.lt, operator.getitem, operator.setitem, repr, hash, len,
               list, int, float, copy.copy, copy.deepcopy, numpy.asarray, numpy.array, memoryview, bytes, bool,
               lambda x: pickle.loads(pickle.dumps(x))]
    pool = []
    worked = 0
    for call in range(calls):
        if call % 2000 == 0:  # arrays that share elements go, and with them what they forbid
            pool = [cls() for cls in CLASSES] + [Vec3Dbl(1, 2, 3), VecDbl([1, 2, 3]), VecFlt([0.5, 2]), MatDbl([[4, 1], [1, 3]]),
                                                 MatDbl([[1, 2], [3, 4], [5, 7]]), Mat3Dbl([[2, 1, 0], [1, 3, 1], [0, 1, 4]]),
                                                 numpy.asfortranarray(numpy.eye(3)), numpy.arange(4.0)]
        kind = rng.randrange(10)
        arguments = [random_object(rng, pool) for _ in range(rng.randrange(5))]
        if kind < 5:
            cls, name = rng.choice(members)
            owner = rng.choice([item for item in pool if isinstance(item, cls)] or [cls()])
            function = lambda *items: getattr(owner, name)(*items) if callable(getattr(cls, name)) else setattr(owner, name, *items[:1])
        elif kind < 7:
            function = rng.choice(functions)
        elif kind < 8:
            function = rng.choice(CLASSES)
        else:
            function = rng.choice(general)
            if any(isinstance(item, int) and item > 1000 for item in arguments):
                continue  # bytes(2**31) and [1] * 2**31 are Python's own
        try:
            result = function(*arguments)
            worked += 1
        except SystemError:
            raise  # a broken interface
        except Exception:
            continue
        if isinstance(result, (*CLASSES, numpy.ndarray, memoryview)) and getattr(result, "size", 0) in range(1000):
            pool[rng.randrange(len(pool))] = result
        elif isinstance(result, (VecDbl, VecFlt)) and result.Size() < 1000:
            pool[rng.randrange(len(pool))] = result
    print("%d of %d calls returned; seed %d; no crash" % (worked, calls, seed))


main()
