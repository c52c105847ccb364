"""Views: a MatDbl, VecDbl or VecFlt on an array, an array on a MatDbl, and their lifetimes."""

import gc
import struct
import sys

import numpy
import pytest

from vexor import *


def test_a_matrix_views_an_array():
    array = numpy.asfortranarray([[1.0, 2, 3], [4, 5, 6]])
    view = MatDbl(2, 3, array)
    assert view[1, 2] == 6
    view[0, 2] = 50
    assert array[0, 2] == 50
    array[1, 0] = -4
    assert view[1, 0] == -4
    copy = MatDbl(view)
    copy[0, 0] = 9
    assert array[0, 0] == 1


def test_vectors_view_arrays():
    array = numpy.arange(3.0)
    VecDbl(3, array).Negate()
    assert array.tolist() == [-0.0, -1, -2]
    single = numpy.zeros(2, numpy.float32)
    VecFlt(2, 0.5, single)
    assert single.tolist() == [0.5, 0.5]


def test_the_view_keeps_the_array_alive():
    array = numpy.asfortranarray(numpy.ones((100, 100)))
    count = sys.getrefcount(array)
    view = MatDbl(100, 100, array)
    assert sys.getrefcount(array) == count + 1
    del array
    gc.collect()
    assert view.RowSum() == VecDbl(100, 100.0)


def test_an_array_shares_the_elements_of_a_matrix():
    matrix = MatDbl(2, 3, 1.0)
    array = numpy.asarray(matrix)
    assert array.shape == (2, 3) and array.flags.f_contiguous
    array[0, 1] = 7
    assert matrix[0, 1] == 7
    matrix *= 2
    assert array.tolist() == [[2, 14, 2], [2, 2, 2]]
    del matrix
    gc.collect()
    assert array.sum() == 24  # the array keeps the matrix alive


@pytest.mark.parametrize("release", [
    lambda m: m.ReSize(4, 4), lambda m: m.Transpose(), lambda m: m.Invert(), lambda m: m.Assign(MatDbl(5, 5)),
], ids=["ReSize", "Transpose", "Invert", "Assign"])
def test_shared_elements_are_not_released(release):
    matrix = MatDbl(2, 2).Identity()
    array = numpy.asarray(matrix)
    with pytest.raises(BufferError, match="work on a copy"):
        release(matrix)
    assert array.tolist() == [[1, 0], [0, 1]]
    del array
    gc.collect()
    release(matrix)


def test_shared_vectors_are_not_released():
    for vector in (VecDbl([1, 2]), VecFlt([1, 2])):
        shared = memoryview(vector)
        with pytest.raises(BufferError):
            vector.ReSize(5)
        assert shared.tolist() == [1, 2]
        shared.release()
        vector.ReSize(5)
        assert vector.Size() == 5


def test_a_solve_works_in_the_array_s_memory():
    array = numpy.asfortranarray([[4.0, 0], [0, 2]])
    matrix = MatDbl(2, 2, array)
    assert matrix.Solve(VecDbl([8, 2])) == VecDbl([2, 1])
    assert matrix.ReSolve(VecDbl([4, 4])) == VecDbl([1, 2])
    assert array[0, 0] == 4  # the factors


def test_assigning_detaches_a_view():
    array = numpy.zeros(2)
    view = VecDbl(2, array)
    view.Assign(VecDbl([5, 6]))
    assert array.tolist() == [0, 0] and view == VecDbl([5, 6])


def read_only():
    array = numpy.zeros((2, 2), order="F")
    array.flags.writeable = False
    return array


@pytest.mark.parametrize("array, kind, words", [
    ([[1.0, 2], [3, 4]], TypeError, "numpy.ndarray.*not a list"),
    (numpy.zeros((2, 2)), ValueError, "asfortranarray"),
    (numpy.zeros((4, 4), order="F")[::2, ::2], ValueError, "without gaps"),
    (numpy.zeros((3, 2), order="F"), ValueError, r"shape \(2, 2\), got \(3, 2\)"),
    (numpy.zeros((2, 2), numpy.float32, order="F"), TypeError, "float64, not float32"),
    (numpy.zeros((2, 2), ">f8", order="F"), TypeError, "float64"),
    (read_only(), ValueError, "read-only"),
    (None, TypeError, "numpy.ndarray"),
], ids=["list", "rows", "gaps", "shape", "single", "big endian", "read-only", "None"])
def test_what_no_view_can_use_is_refused(array, kind, words):
    with pytest.raises(kind, match=words):
        MatDbl(2, 2, array)


def test_a_buffer_by_rows_is_refused():
    with pytest.raises(BufferError, match="stored by columns"):
        struct.unpack_from("d", MatDbl(2, 2))
    assert bytes(memoryview(MatDbl([[1, 2], [3, 4]]))) == numpy.array([[1.0, 2], [3, 4]]).tobytes()
