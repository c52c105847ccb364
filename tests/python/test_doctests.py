"""The examples in the package's docstrings."""

import doctest

import pytest

import vexor


@pytest.mark.parametrize("module", [vexor, vexor.arrays], ids=lambda module: module.__name__)
def test_examples(module):
    results = doctest.testmod(module)
    assert results.failed == 0 and results.attempted >= 3
