"""vexor.arrays against the loop over the members: the same bits, the same failures."""

import numpy
import pytest

from conftest import bits
from vexor import *
from vexor import arrays

COUNT = 133  # blocks of 64 matrices and a rest
CLASSES = {(3, "d"): Vec3Dbl, (3, "f"): Vec3Flt, (2, "d"): Vec2Dbl, (2, "f"): Vec2Flt}
POINTS = {(3, "d"): Pnt3Dbl, (3, "f"): Pnt3Flt, (2, "d"): Pnt2Dbl, (2, "f"): Pnt2Flt}
KINDS = list(CLASSES)


def operands(draw, kind, count=COUNT):
    return draw.normal(size=(count, kind[0])).astype(kind[1])


def loop(function, *arrays_):
    """The results of the members, as one array."""
    return numpy.array([numpy.asarray(function(*items)) for items in zip(*arrays_)])


def same(results, expected):
    assert results.shape == expected.shape
    assert bits(results) == bits(expected.astype(results.dtype))


@pytest.mark.parametrize("kind", KINDS)
@pytest.mark.parametrize("name, member", [
    ("Add", lambda a, b: a + b), ("Subtract", lambda a, b: a - b), ("ElemMult", lambda a, b: a.ElemMult(b)),
    ("Cross", lambda a, b: a.Cross(b)), ("Dot", lambda a, b: a.Dot(b)), ("GetAngleWith", lambda a, b: a.GetAngleWith(b)),
    ("IsParallelTo", lambda a, b: a.IsParallelTo(b)), ("IsPerpendicularTo", lambda a, b: a.IsPerpendicularTo(b)),
    ("IsCodirectionalTo", lambda a, b: a.IsCodirectionalTo(b)), ("IsEqualTo", lambda a, b: a.IsEqualTo(b)),
    ("IsUnitParallelTo", lambda a, b: a.IsUnitParallelTo(b)), ("IsUnitCodirectionalTo", lambda a, b: a.IsUnitCodirectionalTo(b)),
    ("IsUnitPerpendicularTo", lambda a, b: a.IsUnitPerpendicularTo(b)),
])
def test_pairs(draw, kind, name, member):
    cls, function = CLASSES[kind], getattr(arrays, name)
    a, b = operands(draw, kind), operands(draw, kind)
    b[::3] = 2 * a[::3]  # some are parallel
    expected = loop(lambda p, q: member(cls(p), cls(q)), a, b)
    same(function(a, b), expected)
    one = loop(lambda p: member(cls(p), cls(b[0])), a)
    same(function(a, b[0]), one)
    same(function(a, cls(b[0])), one)
    same(function(a, b[:1]), one)
    out = numpy.empty_like(function(a, b))
    assert function(a, b, out=out) is out
    same(out, expected)


@pytest.mark.parametrize("kind", KINDS)
def test_tolerances_are_passed_on(draw, kind):
    cls, a, b = CLASSES[kind], operands(draw, kind), operands(draw, kind)
    same(arrays.IsParallelTo(a, b, 0.5, 1.0), loop(lambda p, q: cls(p).IsParallelTo(cls(q), 0.5, 1.0), a, b))
    point = POINTS[kind]
    same(arrays.IsEqualTo(a, b, 1.5, points=True), loop(lambda p, q: point(p).IsEqualTo(point(q), 1.5), a, b))


@pytest.mark.parametrize("kind", KINDS)
def test_points(draw, kind):
    cls, a, b = POINTS[kind], operands(draw, kind), operands(draw, kind)
    same(arrays.DistanceTo(a, b), loop(lambda p, q: cls(p).DistanceTo(cls(q)), a, b))
    same(arrays.DistanceSqTo(a, b), loop(lambda p, q: cls(p).DistanceSqTo(cls(q)), a, b))


@pytest.mark.parametrize("kind", KINDS)
@pytest.mark.parametrize("name, member", [
    ("Negate", lambda a: -a), ("Length", lambda a: a.Length()), ("LengthSquared", lambda a: a.LengthSquared()),
    ("Normalize", lambda a: a.GetNormalizedCopy())])
def test_single_operands(draw, kind, name, member):
    cls, a = CLASSES[kind], operands(draw, kind)
    same(getattr(arrays, name)(a), loop(lambda p: member(cls(p)), a))


@pytest.mark.parametrize("kind", KINDS)
def test_scale(draw, kind):
    cls, a, factors = CLASSES[kind], operands(draw, kind), draw.normal(size=COUNT).astype(kind[1])
    same(arrays.Scale(a, factors), loop(lambda p, f: cls(p) * float(f), a, factors))
    same(arrays.Scale(a, 0.1), loop(lambda p: cls(p) * 0.1, a))


def test_conversion(draw):
    a = draw.normal(size=(COUNT, 3))
    same(arrays.Convert(a), a.astype("f"))
    same(arrays.Convert(a.astype("f")), a.astype("f").astype("d"))


def test_rotations(draw):
    q, p = draw.normal(size=(COUNT, 4)), draw.normal(size=(COUNT, 3))
    turns = [Quaternion().SetValue(*item, 1) for item in q]
    q = numpy.array([numpy.asarray(turn) for turn in turns])
    same(arrays.RotatePoint(q, p), loop(lambda turn, x: turn.RotatePoint(Vec3Dbl(x)), turns, p))
    same(arrays.RotatePoint(turns[0], p), loop(lambda x: turns[0].RotatePoint(Pnt3Dbl(x)), p))
    same(arrays.GetRotationMatrix(q), loop(lambda turn: turn.GetRotationMatrix(), turns))
    same(arrays.Multiply(q, q[::-1]), loop(lambda a, b: a * b, turns, turns[::-1]))


def test_matrices(draw):
    m, v = draw.normal(size=(COUNT, 3, 3)), draw.normal(size=(COUNT, 3))
    same(arrays.Invert(m), loop(lambda a: Mat3Dbl(a).GetInvertedCopy(), m))
    same(arrays.Solve(m, v), loop(lambda a, b: Mat3Dbl(a).Solve(Vec3Dbl(b)), m, v))
    same(arrays.Solve(m[0], v), loop(lambda b: Mat3Dbl(m[0]).Solve(Vec3Dbl(b)), v))
    same(arrays.Solve(m, v[0]), loop(lambda a: Mat3Dbl(a).Solve(Vec3Dbl(v[0])), m))
    same(arrays.Multiply(m, v), loop(lambda a, b: Mat3Dbl(a) * Vec3Dbl(b), m, v))
    same(arrays.Multiply(m, v[0]), loop(lambda a: Mat3Dbl(a) * Vec3Dbl(v[0]), m))
    same(arrays.Multiply(m, m[::-1]), loop(lambda a, b: Mat3Dbl(a) * Mat3Dbl(b), m, m[::-1]))
    same(arrays.Multiply(m, m[1]), loop(lambda a: Mat3Dbl(a) * Mat3Dbl(m[1]), m))
    same(arrays.Multiply(m[1], m), loop(lambda a: Mat3Dbl(m[1]) * Mat3Dbl(a), m))
    in_place = m.copy()
    arrays.Invert(in_place, out=in_place)
    same(in_place, arrays.Invert(m))
    symmetric = m + m.transpose(0, 2, 1)
    values, vectors = arrays.EigenSym(symmetric)
    expected = [Mat3Dbl(a) for a in symmetric]
    same(values, loop(lambda a: a.EigenSym(1), expected))
    same(vectors, loop(lambda a: a, expected))
    same(arrays.EigenSymValues(symmetric), loop(lambda a: Mat3Dbl(a).EigenSym(0), symmetric))


@pytest.mark.parametrize("kind", KINDS)
def test_maps(draw, kind):
    a = operands(draw, kind)
    vector, point = CLASSES[kind], POINTS[kind]
    if kind[0] == 3:
        matrix = Mat3Dbl(draw.normal(size=(3, 3)))
        affine = AffMat3Dbl(matrix, Vec3Dbl(draw.normal(size=3)))
    else:
        matrix = Mat2Dbl(draw.normal(size=(2, 2)))
        affine = AffMat2Dbl(matrix, Vec2Dbl(draw.normal(size=2)))
    same(arrays.Multiply(matrix, a), loop(lambda p: matrix * vector(p), a))
    same(arrays.Multiply(affine, a), loop(lambda p: affine * vector(p), a))
    same(arrays.Multiply(affine, a, points=True), loop(lambda p: affine * point(p), a))
    if kind[0] == 3:
        same(arrays.Multiply(matrix, a, points=True), loop(lambda p: matrix * point(p), a))


def test_layouts_types_and_overlaps(draw):
    a, b = draw.normal(size=(COUNT, 3)), draw.normal(size=(COUNT, 3))
    expected = arrays.Cross(a, b)
    same(arrays.Cross(numpy.asfortranarray(a), b[::-1][::-1]), expected)
    same(arrays.Cross(a.tolist(), b), expected)
    same(arrays.Cross(a.astype(">f8"), b), expected)
    same(arrays.Add(numpy.arange(6).reshape(2, 3), numpy.ones((2, 3))), numpy.arange(1.0, 7).reshape(2, 3))
    long = numpy.concatenate([a, b])
    arrays.Cross(long[:COUNT], b, out=long[1:COUNT + 1])  # the results overlap an operand
    same(long[1:COUNT + 1], expected)
    block = numpy.zeros((COUNT, 3))
    block[:] = a
    same(arrays.Dot(block, b, out=block.reshape(-1)[:COUNT]), arrays.Dot(a, b))
    assert arrays.Dot([1, 2, 3], [4, 5, 6]) == 32
    assert arrays.Normalize(numpy.zeros((0, 3))).shape == (0, 3)


def test_failures_name_the_element_and_keep_the_results_before_it(draw):
    a = draw.normal(size=(COUNT, 3))
    a[100] = 0
    out = numpy.full_like(a, 9)
    with pytest.raises(VexorNullVector, match="Normalize: element 100:"):
        arrays.Normalize(a, out=out)
    same(out[:100], arrays.Normalize(a[:100]))
    assert (out[100:] == 9).all()
    with pytest.raises(VexorNullVector, match="element 100:"):
        arrays.Normalize(a, out=a)
    large = numpy.array([[3e38, 3e38, 0], [0, 0, 0]], "f")  # the first becomes null in place
    with pytest.raises(VexorNullVector, match="element 1:"):
        arrays.Normalize(large, out=large)
    m = draw.normal(size=(COUNT, 3, 3))
    m[70] = 0
    inverses = numpy.full_like(m, 9)
    with pytest.raises(VexorSingular, match="Invert: element 70:"):
        arrays.Invert(m, out=inverses)
    same(inverses[:70], arrays.Invert(m[:70]))
    assert (inverses[70:] == 9).all()
    with pytest.raises(VexorSingular, match="Solve: element 70:"):
        arrays.Solve(m, a)
    m[70] = numpy.eye(3)
    with pytest.raises(VexorComputationFailed, match="EigenSymValues: element 70:"):
        arrays.EigenSymValues(m)


@pytest.mark.parametrize("call, kind, words", [
    (lambda a: arrays.Dot(a, a[:5]), ValueError, "operands have 5 and 133 elements"),
    (lambda a: arrays.Dot(numpy.zeros((4, 4)), a), ValueError, r"left.*\(n, 3\) or \(n, 2\), got shape \(4, 4\)"),
    (lambda a: arrays.Dot(a, "text"), TypeError, "right.*str"),
    (lambda a: arrays.Dot(a, a.astype("f")), TypeError, "right.*float64"),
    (lambda a: arrays.Dot(a, a[:, :2]), ValueError, r"right.*\(n, 3\)"),
    (lambda a: arrays.Add(a, a, out=numpy.zeros((COUNT, 2))), ValueError, r"out.*\(133, 3\)"),
    (lambda a: arrays.Add(a, a, out=[1]), TypeError, "out.*list"),
    (lambda a: arrays.Add(a, a, out=numpy.zeros((COUNT, 3), "f")), ValueError, "out.*float64"),
    (lambda a: arrays.RotatePoint(a, a), ValueError, r"quaternions.*\(n, 4\)"),
    (lambda a: arrays.Invert(a), ValueError, r"matrices.*\(n, 3, 3\)"),
    (lambda a: arrays.Multiply(numpy.eye(3), a, points="no"), TypeError, "points: bool"),
    (lambda a: arrays.Sum(a[0, 0]), ValueError, "values"),
    (lambda a: arrays.SumOfBlock(numpy.zeros((5000, 3))), ValueError, "4096"),
    (lambda a: arrays.Centroid(numpy.zeros((0, 3))), VexorComputationFailed, ""),
    (lambda a: arrays.CombineAll([Vec3Dbl(), 1.0]), TypeError, "partials"),
])
def test_errors(draw, call, kind, words):
    with pytest.raises(kind, match=words):
        call(draw.normal(size=(COUNT, 3)))
