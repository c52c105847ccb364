"""Calls at random with arguments that do not fit raise exceptions and never end the process."""

import pathlib
import subprocess
import sys


def test_calls_at_random_do_not_crash():
    program = pathlib.Path(__file__).with_name("hostile.py")
    run = subprocess.run([sys.executable, str(program), "20000", "20261122"], capture_output=True, text=True, timeout=300)
    assert run.returncode == 0, run.stdout + run.stderr
    assert run.stdout.endswith("no crash\n")
