#!/usr/bin/env python3
"""Times the Python module beside NumPy, SciPy's Rotation and a plain loop, and writes the times in nanoseconds as JSON.

Usage: compare.py OUTPUT [COUNT]

All candidates of an operation take turns, so that other load on the machine affects each equally, and the least time
counts. Everything runs on the one core that the caller chose.
"""

import json
import os
import pathlib
import sys
import time
import timeit

os.environ["OPENBLAS_NUM_THREADS"] = "1"

import bare  # noqa: E402
import numpy  # noqa: E402
from scipy.spatial.transform import Rotation  # noqa: E402

from vexor import AffMat3Dbl, Mat3Dbl, Quaternion, Vec3Dbl, arrays  # noqa: E402

ROUNDS = 7
LOOP = 2000  # elements of the plain loop, whose time is per element

count = int(sys.argv[2]) if len(sys.argv) > 2 else 1_000_000
draw = numpy.random.default_rng(1)
points = draw.normal(size=(count, 3))
quaternions = draw.normal(size=(count, 4))
quaternions /= numpy.linalg.norm(quaternions, axis=1)[:, None]
matrices = draw.normal(size=(count, 3, 3))
symmetric = matrices + matrices.transpose(0, 2, 1)
one = Quaternion().SetValue(*quaternions[0], 0)
rotation = Rotation.from_quat(quaternions[0])
rotations = Rotation.from_quat(quaternions)
linear, shift = numpy.asarray(one.GetRotationMatrix()).copy(), numpy.array([1.0, 2, 3])
affine = AffMat3Dbl(one.GetRotationMatrix(), Vec3Dbl(1, 2, 3))
out, out_matrices, out_vectors = numpy.empty_like(points), numpy.empty_like(matrices), numpy.empty_like(points)


def cross_rotated():
    """The usual NumPy formula: p + 2 s (n x p) + 2 n x (n x p)."""
    n, s = quaternions[:, :3], quaternions[:, 3:]
    t = 2 * numpy.cross(n, points)
    return points + s * t + numpy.cross(n, t)


def looped(function):
    return lambda: [function(k) for k in range(LOOP)]


vectors = [Vec3Dbl(p) for p in points[:LOOP]]
turns = [Quaternion().SetValue(*q, 0) for q in quaternions[:LOOP]]
in_loop = [Mat3Dbl(m) for m in matrices[:LOOP]]
symmetric_in_loop = [Mat3Dbl(m) for m in symmetric[:LOOP]]
# `copy` reads the operands and writes the results, and computes nothing: what memory allows.
ROWS = {
    "turned by one quaternion": {
        "vexor": lambda: arrays.RotatePoint(one, points, out=out), "NumPy": lambda: numpy.matmul(points, linear.T),
        "SciPy": lambda: rotation.apply(points), "loop": looped(lambda k: one.RotatePoint(vectors[k])),
        "copy": lambda: numpy.copyto(out, points)},
    "turned by as many quaternions": {
        "vexor": lambda: arrays.RotatePoint(quaternions, points, out=out), "NumPy": cross_rotated,
        "SciPy": lambda: rotations.apply(points), "loop": looped(lambda k: turns[k].RotatePoint(vectors[k])),
        "copy": lambda: (numpy.copyto(out, points), quaternions.max())},
    "normalised": {
        "vexor": lambda: arrays.Normalize(points, out=out),
        "NumPy": lambda: points / numpy.linalg.norm(points, axis=1)[:, None],
        "loop": looped(lambda k: vectors[k].GetNormalizedCopy()), "copy": lambda: numpy.copyto(out, points)},
    "mapped by an affine map": {
        "vexor": lambda: arrays.Multiply(affine, points, out=out, points=True),
        "NumPy": lambda: points @ linear.T + shift, "loop": looped(lambda k: affine * vectors[k]),
        "copy": lambda: numpy.copyto(out, points)},
    "eigenvalues of symmetric 3×3": {
        "vexor": lambda: arrays.EigenSymValues(symmetric, out=out), "NumPy": lambda: numpy.linalg.eigvalsh(symmetric),
        "loop": looped(lambda k: Mat3Dbl(symmetric_in_loop[k]).EigenSym(0)), "copy": lambda: numpy.copyto(out_matrices, symmetric)},
    "eigenvalues and vectors": {
        "vexor": lambda: arrays.EigenSym(symmetric, out=(out_vectors, out_matrices)),
        "NumPy": lambda: numpy.linalg.eigh(symmetric), "loop": looped(lambda k: Mat3Dbl(symmetric_in_loop[k]).EigenSym(1)),
        "copy": lambda: numpy.copyto(out_matrices, symmetric)},
    "3×3 systems solved": {
        "vexor": lambda: arrays.Solve(matrices, points, out=out), "NumPy": lambda: numpy.linalg.solve(matrices, points[:, :, None]),
        "loop": looped(lambda k: Mat3Dbl(in_loop[k]).Solve(vectors[k])), "copy": lambda: (numpy.copyto(out_matrices, matrices))},
    "3×3 matrices inverted": {
        "vexor": lambda: arrays.Invert(matrices, out=out_matrices), "NumPy": lambda: numpy.linalg.inv(matrices),
        "loop": looped(lambda k: in_loop[k].GetInvertedCopy()), "copy": lambda: numpy.copyto(out_matrices, matrices)},
    "matrices through blocks of Mat3Dbl": {
        "vexor": lambda: arrays.GetRotationMatrix(quaternions, out=out_matrices), "SciPy": lambda: rotations.as_matrix(),
        "loop": looped(lambda k: turns[k].GetRotationMatrix()), "copy": lambda: numpy.copyto(out_matrices, matrices)},
}


def least(candidates):
    times = {name: float("inf") for name in candidates}
    for repeat in range(ROUNDS):
        for name, function in candidates.items():
            if repeat >= 3 and name not in ("vexor", "copy") and times[name] > 1.0:
                continue  # a slow peer needs no more rounds
            started = time.perf_counter()
            function()
            times[name] = min(times[name], time.perf_counter() - started)
    return {name: 1e9 * taken / (LOOP if name == "loop" else count) for name, taken in times.items()}


v, w, b, c = Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), bare.Bare(1.0), bare.Bare(2.0)
CALLS = {
    "a number from two objects": {"vexor": lambda: v.Dot(w), "bare": lambda: b.Dot(c)},
    "an object from two objects": {"vexor": lambda: v.Cross(w), "bare": lambda: b.Sum(c)},
    "a number from one object": {"vexor": lambda: v.Length(), "bare": lambda: b.__len__()},
}


def main():
    rows = {name: least(candidates) for name, candidates in ROWS.items()}
    calls = {}
    for name, candidates in CALLS.items():
        times = {who: float("inf") for who in candidates}
        for _ in range(20):
            for who, function in candidates.items():
                times[who] = min(times[who], timeit.timeit(function, number=10000) * 1e5)
        calls[name] = times
    pathlib.Path(sys.argv[1]).write_text(json.dumps({
        "count": count, "rows": rows, "calls": calls, "numpy": numpy.__version__,
        "scipy": sys.modules["scipy"].__version__, "python": sys.version.split()[0]}, indent=1))


main()
