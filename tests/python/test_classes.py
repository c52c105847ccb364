"""The classes of fixed size: construction, text, copies, comparisons, errors. Expected values are worked by hand."""

import copy
import math
import pickle
import re

import numpy
import pytest

import vexor
from conftest import bits
from vexor import *

VECTORS = [Vec3Dbl, Vec3Flt, Vec2Dbl, Vec2Flt, Vec2Int, Pnt3Dbl, Pnt3Flt, Pnt2Dbl, Pnt2Flt]
EXAMPLES = [cls(*range(1, len(cls()) + 1)) for cls in VECTORS] + [
    Vec3Dbl(0.1, -0.0, 1e-320), Vec3Flt(0.1, 16777216, 3.4e38), Pnt2Flt(1e-45, -0.0), Vec2Dbl(math.inf, -math.inf),
    Quaternion(1, 2, 3, 0.4, 1), Mat3Dbl([[1, 2, 3], [4, 5, 6], [7, 8, 10.5]]), Mat2Dbl([[1, 2], [-0.0, 4]]),
    AffMat3Dbl().SetRotation(Pnt3Dbl(1, 2, 3), Vec3Dbl(0, 0, 1), 0.3), AffMat2Dbl(Mat2Dbl(3), Vec2Dbl(1, 2)),
    VecDbl([1, 0.1, -0.0]), VecFlt([0.1, 2]), MatDbl([[1, 2, 3], [4, 5, 0.1]]), UInt64(-5), UInt64(2**63 - 1),
]


def contents(value):
    return (value.lowWord, value.highWord) if isinstance(value, UInt64) else bits(value)


@pytest.mark.parametrize("value", EXAMPLES, ids=repr)
def test_text_copies_and_pickles_have_all_bits(value):
    for again in (eval(repr(value)), copy.copy(value), copy.deepcopy(value), pickle.loads(pickle.dumps(value))):
        assert type(again) is type(value)
        assert again is not value
        assert contents(again) == contents(value)


def test_text_keeps_every_single():
    for word in [1, 0x00800000, 0x3f8ccccd, 0x7f7fffff, 0x00000b5f, *range(0x4b000001, 0x7f000000, 0x0123457)]:
        single = numpy.uint32(word).view(numpy.float32)
        value = Vec2Flt(float(single), 0)
        assert bits(eval(repr(value))) == bits(value)


def test_a_pickled_tolerance_has_its_fields():
    tolerance = VexorTolerance()
    tolerance.SetAngle(0.25)
    again = pickle.loads(pickle.dumps(tolerance))
    assert (again.angle, again.sin2Angle) == (tolerance.angle, tolerance.sin2Angle) and again.angle == 0.25


@pytest.mark.parametrize("cls", [*VECTORS, VecDbl, VecFlt, UInt64], ids=lambda cls: cls.__name__)
def test_hash_agrees_with_equality(cls):
    zero, negative = (cls(), cls()) if cls in (Vec2Int, UInt64) else (cls([0.0] * len(cls())), cls([-0.0] * len(cls())))
    assert zero == negative and not zero != negative
    assert hash(zero) == hash(negative)


@pytest.mark.parametrize("value", [Mat3Dbl(), Mat2Dbl(), AffMat3Dbl(), Quaternion(), MatDbl()], ids=repr)
def test_no_hash_where_cxx_has_none(value):
    with pytest.raises(TypeError, match="unhashable"):
        hash(value)


def test_members_return_the_object_itself():
    vector = Vec3Dbl(3, 0, 4)
    assert vector.Normalize() is vector
    assert bits(vector) == numpy.array([0.6, 0.0, 0.8]).tobytes()
    same = vector
    vector *= 2
    assert same is vector and vector.x == 1.2


def test_parts_belong_to_their_whole():
    matrix = Mat3Dbl(0.0)
    matrix.GetRow(1).y = 7
    assert matrix[1, 1] == 7
    map3 = AffMat3Dbl()
    part = map3.LinearPart()
    map3.Translation().x = 5
    del map3  # the part keeps it alive
    part[0, 0] = 2
    assert part[0, 0] == 2


def test_results_by_reference_are_returned():
    assert Vec3Dbl(3, 1, 2).GetValue() == (3, 1, 2)
    assert Vec3Dbl(3, 1, 2).ValueOrder() == (1, 2, 0)
    side = Vec3Dbl(2, 6, 12)
    matrix = Mat3Dbl([[2, 0, 0], [0, 3, 0], [0, 0, 4]])
    assert matrix.Solve(side) == Vec3Dbl(1, 2, 3)
    assert side == Vec3Dbl(2, 6, 12)
    assert matrix.ReSolve([side] * 3) == [Vec3Dbl(1, 2, 3)] * 3
    numpy.testing.assert_allclose(Mat3Dbl([[3, 0, 0], [0, 1, 0], [0, 0, 2]]).EigenSym(0), [1, 2, 3], rtol=1e-14)
    assert Quaternion().GetRotationMatrix() == Mat3Dbl().Identity()
    assert SinCos(0.0) == (0.0, 1.0)


def test_operators():
    assert Pnt3Dbl(1, 2, 3) - Pnt3Dbl(1, 1, 1) == Vec3Dbl(0, 1, 2)
    assert Pnt3Dbl(1, 2, 3) + Vec3Dbl(1, 1, 1) == Pnt3Dbl(2, 3, 4)
    assert 2 * Vec3Dbl(1, 2, 3) == Vec3Dbl(1, 2, 3) * 2 == numpy.float64(2) * Vec3Dbl(1, 2, 3) == Vec3Dbl(2, 4, 6)
    assert Vec2Dbl(1, 5) < Vec2Dbl(2, 0)
    assert Vec2Int(2**31 - 1, 0) + Vec2Int(1, 0) == Vec2Int(-2**31, 0)
    assert Vec2Int(3, -4).Length() == 7
    for left, right in [(Vec3Dbl(), Vec2Dbl()), (Vec3Dbl(), Vec3Dbl()), (Pnt3Dbl(), Pnt3Dbl())]:
        with pytest.raises(TypeError):
            left * right
    with pytest.raises(TypeError):
        Pnt2Flt(1, 2) + Pnt2Flt(1, 2)  # C++ has no such operator
    with pytest.raises(TypeError):
        Vec3Flt() < Vec3Flt()


def test_the_counter_counts_as_in_cxx():
    counter = UInt64(7)
    counter *= UInt64(3)
    assert int(counter) == 7  # operator*= does nothing
    counter += 1
    assert int(counter / UInt64(-3)) == -2  # truncates towards zero
    assert float(UInt64(-1)) == -1.0 and UInt64(-1).highWord == 0xffffffff
    with pytest.raises(ZeroDivisionError):
        counter / UInt64(0)


def test_assignments_convert():
    single = Vec3Flt()
    assert single.Assign(Vec3Dbl(0.1, 1, 2)) is single
    assert single.x == float(numpy.float32(0.1))
    assert Pnt3Dbl().Assign(Vec3Flt(1, 2, 3)) == Pnt3Dbl(1, 2, 3)
    narrow = VecFlt(2)
    narrow.Assign(VecDbl([0.1, 0.2, 0.3]))
    assert narrow == VecFlt([0.1, 0.2, 0.3])


def test_the_global_tolerances_are_the_library_s():
    along, near = Vec3Dbl(1, 0, 0), Vec3Dbl(1, 0.1, 0)
    before = vexor.gVexorTolerance.sin2Angle
    try:
        assert along.IsParallelTo(near) == 0
        vexor.gVexorTolerance.sin2Angle = 0.5
        assert along.IsParallelTo(near) == 1
    finally:
        vexor.gVexorTolerance.sin2Angle = before


def test_small_systems():
    matrix = [[2, 1], [1, 3]]
    status, factors, order = small_decompose(matrix)
    assert status == 0 and sorted(order) == [0, 1]
    numpy.testing.assert_allclose(small_substitution(factors, [3, 5], order), [0.8, 1.4], rtol=1e-15)
    assert small_decompose([[0, 0], [1, 1]])[0] == -2
    with pytest.raises(IndexError):
        small_substitution(factors, [3, 5], b"\x00\x07")


def test_exceptions_are_one_family():
    for name in ("Singular", "DimensionMismatch", "AllocationFailed", "ComputationFailed", "NullVector"):
        assert issubclass(getattr(vexor, "Vexor" + name), VexorException)
    with pytest.raises(VexorNullVector):
        Vec3Dbl().Normalize()
    with pytest.raises(VexorSingular):
        Mat3Dbl(0.0).Invert()
    with pytest.raises(VexorDimensionMismatch):
        VecDbl([1, 2]) + VecDbl([1])
    with pytest.raises(VexorDimensionMismatch):
        VecDbl([1, 2]).Dot(VecDbl([1]))  # C++ would read beyond the end
    with pytest.raises(VexorAllocationFailed):
        VecDbl(0)
    with pytest.raises(VexorComputationFailed):
        MatDbl(2, 2, 1.0).ReSolve(VecDbl(2))


@pytest.mark.parametrize("call, kind, words", [
    (lambda: Vec3Dbl([1, 2]), ValueError, r"Vec3Dbl.*\(3,\).*\(2,\)"),
    (lambda: Vec3Dbl("abc"), TypeError, r"Vec3Dbl.*\(3,\).*str"),
    (lambda: Vec3Dbl(1j), TypeError, "number.*complex"),
    (lambda: Vec3Dbl(Pnt3Dbl()), TypeError, "Pnt3Dbl"),
    (lambda: Vec3Dbl().SetValue([1]), ValueError, r"values.*\(3,\)"),
    (lambda: Vec3Dbl().Dot(1), TypeError, "other: vexor.Vec3Dbl"),
    (lambda: Mat3Dbl([[1, 2], [3, 4]]), ValueError, r"values.*\(3, 3\).*\(2, 2\)"),
    (lambda: Mat3Dbl().Solve([Vec3Dbl()] * 2), ValueError, "1 or 3"),
    (lambda: Mat2Dbl().RowSum(), TypeError, "AffMat2Dbl"),
    (lambda: AffMat3Dbl().SetMatrixData(numpy.eye(3)), ValueError, r"data.*\(3, 4\)"),
    (lambda: MatDbl([1, 2]), ValueError, r"values.*\(rows, columns\)"),
    (lambda: VecDbl([[1, 2]]), ValueError, "values"),
    (lambda: Vec2Int(1.5, 2), TypeError, "x0: int"),
    (lambda: Vec3Dbl()[3], IndexError, "0 to 2"),
    (lambda: Vec3Dbl()[-1], IndexError, "0 to 2"),
    (lambda: Mat3Dbl().GetRow(3), IndexError, "0 to 2"),
    (lambda: Quaternion().GetCol(-1), IndexError, "0 to 2"),
    (lambda: VecDbl(2)[2], IndexError, "0 to 1"),
    (lambda: MatDbl(2, 3)[2, 0], IndexError, "0 to 1"),
])
def test_errors_name_the_argument_and_what_is_wanted(call, kind, words):
    with pytest.raises(kind, match=words):
        call()


def test_elements_are_shared_with_numpy():
    vector = Vec3Dbl(1, 2, 3)
    numpy.asarray(vector)[1] = 20
    assert vector.y == 20
    matrix = Mat3Dbl([[1, 2, 3], [4, 5, 6], [7, 8, 9]])
    view = numpy.asarray(matrix)
    view[2, 0] = 70
    assert matrix[2, 0] == 70 and view.shape == (3, 3)
    assert numpy.asarray(AffMat2Dbl(Mat2Dbl(1), Vec2Dbl(5, 6))).tolist() == [[1, 1, 5], [1, 1, 6]]
    assert numpy.array(Vec3Flt(1, 2, 3)).dtype == numpy.float32
    assert memoryview(Quaternion()).tolist() == [0, 0, 0, 1]


# ---- Completeness ------------------------------------------------------------------------------------------

PYTHON_NAMES = {
    "operator[]": "__getitem__", "operator()": "__call__", "operator*": "__mul__", "operator/": "__truediv__",
    "operator+": "__add__", "operator-": "__sub__", "operator*=": "__imul__", "operator/=": "__itruediv__",
    "operator+=": "__iadd__", "operator-=": "__isub__", "operator==": "__eq__", "operator!=": "__ne__",
    "operator<": "__lt__", "operator<=": "__le__", "operator>=": "__ge__", "operator=": "Assign",
    "operator++": "__iadd__", "operator--": "__isub__", "operatorint": "__int__", "operatorfloat": "__float__",
    "operatordouble": "__float__", "operator__int64": "__int__", "operatorvexor": "__int__",
}


def test_every_documented_member_is_there():
    """The build extracts the comments of the headers; each stands for a member or function of the module."""
    missing = []
    for key in vexor._vexor._comment_keys:
        owner, _, member = key.rpartition(".")
        if owner.startswith("Vexor") and owner != "VexorTolerance" or member in ("Combine", "Box"):
            continue  # the exceptions have no members; Python combines by CombineAll
        scope = vexor if not owner else getattr(vexor, owner)
        name = "__init__" if member == owner else PYTHON_NAMES.get(member, member)
        if not hasattr(scope, name):
            missing.append(key)
    assert missing == []
    assert len(vexor._vexor._comment_keys) > 600


def test_docstrings_are_the_headers_comments():
    assert "right-handed cross product" in Vec3Dbl.Cross.__doc__
    assert "returns the solution" in MatDbl.Solve.__doc__
    assert Vec3Dbl.__doc__.startswith("A vector in space")
    assert re.search("Raises `VexorNullVector` at the first null vector", vexor.arrays.Normalize.__doc__)
