"""The sum of an array whose blocks the ranks share; rank 0 prints it and compares it with the sum in one piece."""

import numpy
from mpi4py import MPI

from vexor import arrays

world = MPI.COMM_WORLD
values = numpy.random.default_rng(7).normal(size=(50000, 3))
mine = [arrays.SumOfBlock(values[k * arrays.blockSize:(k + 1) * arrays.blockSize])
        for k in range(world.rank, arrays.BlockCount(len(values)), world.size)]
parts = world.gather(mine)
if world.rank == 0:
    partials = [parts[k % world.size][k // world.size] for k in range(arrays.BlockCount(len(values)))]
    total = arrays.CombineAll(partials)
    assert total == arrays.Sum(values)
    print(total)
