"""The tests import the package that the build made: its folder is in PYTHONPATH."""

import struct

import numpy
import pytest


def bits(value):
    """The bits of a number, or of all elements of an object: NaNs and the signs of zeros count."""
    if isinstance(value, (bool, int)):
        return value
    if isinstance(value, float):
        return struct.pack("<d", value)
    if isinstance(value, (tuple, list)):
        return [bits(item) for item in value]
    return numpy.asarray(value).tobytes()


@pytest.fixture
def draw():
    return numpy.random.default_rng(20261122)
