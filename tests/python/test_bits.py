"""A sample of every class has the bits that C++ prints (Sample.cpp)."""

import difflib
import os
import struct
import subprocess

import numpy
import pytest

import vexor
from vexor import *

MASK = (1 << 64) - 1


class Draws:
    """SplitMix64, as in Sample.cpp."""

    state = 20261122

    def __call__(self):
        self.state = (self.state + 0x9e3779b97f4a7c15) & MASK
        bits = self.state
        bits = ((bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9) & MASK
        bits = ((bits ^ (bits >> 27)) * 0x94d049bb133111eb) & MASK
        bits ^= bits >> 31
        return (bits >> 44) / 262144.0 - 2.0

    def of(self, cls):
        return cls([self() for _ in range(len(cls()))])


def line(name, *values):
    numbers = numpy.concatenate([numpy.asarray(value, dtype=float).ravel() for value in values])
    return " ".join([name, *(struct.pack(">d", number).hex() for number in numbers)])


def vectors(draw, cls):
    a, b, s = draw.of(cls), draw.of(cls), draw()
    return line(cls.__name__, a + b, a - b, a * s, a / s, -a, a.Dot(b), a.Cross(b), a.Length(), a.GetNormalizedCopy(),
                a.GetAngleWith(b), a.GetAreaFormedByTriangleWith(b), a.GetProjectionOnTo(b), a.GetPerpendicular(), a.OuterProduct(b),
                a.IsParallelTo(b), a.IsPerpendicularTo(b, 0.5, 0), a.MaxAbsValue(), a.MinValueIdx())


def points(draw, cls, vector):
    a, b, v = draw.of(cls), draw.of(cls), draw.of(vector)
    return line(cls.__name__, a - b, a + v, a - v, a.DistanceTo(b), a.DistanceSqTo(b), a.IsEqualTo(b, 2), a * 0.3)


def run_time_vectors(draw, cls, size):
    pairs = [(draw(), draw()) for _ in range(size)]
    a, b = (cls(list(elements)) for elements in zip(*pairs))
    return line(cls.__name__, a + b, a.Dot(b), a.Length(), a.GetNormalizedCopy(), a.GetProjectionOnTo(b), a.GetAngleWith(b), a / b[0],
                a.MaxAbsValueIdx())


def matrices(draw):
    m, v = Mat3Dbl([[draw() for _ in range(3)] for _ in range(3)]), draw.of(Vec3Dbl)
    eigen = m + m.GetTransposedCopy()
    values = eigen.EigenSym(1)
    yield line("Mat3Dbl", m * m, m * v, m * Pnt3Dbl(v), m.GetInvertedCopy(), Mat3Dbl(m).Solve(v), values, eigen, m.RowAverage())
    plane, w = Mat2Dbl([[draw() for _ in range(2)] for _ in range(2)]), draw.of(Vec2Dbl)
    yield line("Mat2Dbl", plane * plane, plane * w, plane.GetInvertedCopy(), Mat2Dbl(plane).Solve(w))
    affine, turn = AffMat3Dbl(m, v), AffMat3Dbl().SetRotation(Pnt3Dbl(v), Vec3Dbl(0, 0, 1), draw())
    both = affine * turn
    yield line("AffMat3Dbl", affine * Pnt3Dbl(v), affine * v, both.LinearPart(), both.Translation(),
               affine.GetInvertedCopy().Translation(), affine * v.ToVec3Flt())
    in_plane = AffMat2Dbl(plane, w)
    yield line("AffMat2Dbl", in_plane * Pnt2Dbl(w), in_plane * w, in_plane * w.ToVec2Flt(), in_plane.GetInvertedCopy().Translation())
    q, r = Quaternion(turn.LinearPart()), Quaternion(v, draw(), 1)
    yield line("Quaternion", q, r, q * r, r.RotatePoint(v), r.GetRotationMatrix(), r.GetEulerAngles(), r.GetAngle(), r.Distance(q),
               r.GetAxis(1))
    a, b = (MatDbl([[draw() for _ in range(columns)] for _ in range(rows)]) for rows, columns in ((5, 4), (4, 5)))
    yield line("MatDbl", a * b, a.GetTransposedCopy() + b, a.RowAverage(), a.GetRow(2), b / 3.0)


def sample():
    draw = Draws()
    for i in range(50):
        for cls in (Vec3Dbl, Vec3Flt, Vec2Dbl, Vec2Flt):
            yield vectors(draw, cls)
        for cls, vector in ((Pnt3Dbl, Vec3Dbl), (Pnt3Flt, Vec3Flt), (Pnt2Dbl, Vec2Dbl), (Pnt2Flt, Vec2Dbl)):
            yield points(draw, cls, vector)
        n = Vec2Int(int(1e9 * draw()), int(1e9 * draw()))
        yield line("Vec2Int", n + n, n * 5, n.Dot(n), n.Length())
        c = UInt64(int(1e15 * draw()))
        yield line("UInt64", (c * c).lowWord, (c * c).highWord, int(c / UInt64(7)))
        yield run_time_vectors(draw, VecDbl, 1 + i)
        yield run_time_vectors(draw, VecFlt, 1 + i)
        yield from matrices(draw)
    tolerance = VexorTolerance()
    tolerance.SetAngle(0.1)
    yield line("VexorTolerance", tolerance.angle, tolerance.sin2Angle)


@pytest.mark.skipif("VEXOR_PYTHON_SAMPLE" not in os.environ, reason="VEXOR_PYTHON_SAMPLE names the C++ program")
def test_every_class_has_the_bits_of_cxx():
    expected = subprocess.run([os.environ["VEXOR_PYTHON_SAMPLE"]], capture_output=True, text=True, check=True).stdout.splitlines()
    found = list(sample())
    assert len(expected) == 50 * 18 + 1
    assert found == expected, "\n".join(difflib.unified_diff(expected, found, "C++", "Python", n=0))[:2000]
