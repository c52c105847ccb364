"""Sums have the same bits for every way in which threads or processes share the work."""

import concurrent.futures
import pathlib
import shutil
import subprocess
import sys

import numpy
import pytest

from conftest import bits
from vexor import *
from vexor import arrays

COUNT = 5 * 4096 + 777


def blocks(values):
    return [values[k:k + arrays.blockSize] for k in range(0, len(values), arrays.blockSize)]


def stated_sum(block):
    """The documented order: eight running sums in space, then pairs of neighbours."""
    level = [numpy.zeros(3) for _ in range(8)]
    for i, element in enumerate(block):
        level[i % 8] = level[i % 8] + element
    while len(level) > 1:
        level = [level[k] + level[k + 1] if k + 1 < len(level) else level[k] for k in range(0, len(level), 2)]
    return level[0]


def test_the_sum_of_a_block_has_the_stated_order(draw):
    values = draw.normal(size=(1000, 3))
    assert bits(arrays.SumOfBlock(values)) == bits(stated_sum(values))


@pytest.mark.parametrize("workers", [1, 2, 5])
def test_threads(draw, workers):
    values = draw.normal(size=(COUNT, 3))
    centroid = arrays.Centroid(values)
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        total = arrays.CombineAll(list(pool.map(arrays.SumOfBlock, blocks(values))))
        products = arrays.CombineAll(list(pool.map(lambda b: arrays.CovarianceOfBlock(b, centroid), blocks(values))))
        box = arrays.CombineAll(list(pool.map(arrays.BoxOfBlock, blocks(values))))
        pieces = numpy.concatenate(list(pool.map(arrays.Normalize, blocks(values))))
    assert arrays.BlockCount(COUNT) == len(blocks(values)) == 6
    assert bits(total) == bits(arrays.Sum(values))
    products /= float(COUNT)
    assert bits(products) == bits(arrays.Covariance(values))
    assert box == arrays.BoundingBox(values)
    assert bits(pieces) == bits(arrays.Normalize(values))


def test_mpi():
    pytest.importorskip("mpi4py", reason="mpi4py is missing (Debian: python3-mpi4py)")
    mpiexec = shutil.which("mpiexec")
    if mpiexec is None:
        pytest.skip("mpiexec is missing (Debian: openmpi-bin)")
    program = pathlib.Path(__file__).with_name("mpi_sum.py")
    printed = set()
    for ranks in (1, 3):
        run = subprocess.run([mpiexec, "--allow-run-as-root", "--oversubscribe", "-n", str(ranks), sys.executable, str(program)],
                             capture_output=True, text=True, timeout=120)
        assert run.returncode == 0, run.stderr
        printed.add(run.stdout)
    assert len(printed) == 1 and "Vec3Dbl(" in printed.pop()
