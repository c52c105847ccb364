"""Builds the Python package by CMake: pip install --no-build-isolation . (docs/guides/from-python.md)."""

import pathlib
import re
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

root = pathlib.Path(__file__).resolve().parent
version = re.search(r"VERSION (\d+\.\d+\.\d+)", (root / "CMakeLists.txt").read_text()).group(1)


class BuildByCMake(build_ext):
    """Installs the module, its stubs and the libraries beside it into setuptools' folder."""

    def run(self):
        build = pathlib.Path(self.build_temp).resolve()
        target = pathlib.Path(self.build_lib).resolve()
        subprocess.run(["cmake", "-S", str(root), "-B", str(build), "-DCMAKE_BUILD_TYPE=Release", "-DVEXOR_PYTHON=ON",
                        "-DVEXOR_PYTHON_BUNDLE=ON", "-DVEXOR_BUILD_TESTS=OFF", "-DPython_EXECUTABLE=" + sys.executable], check=True)
        subprocess.run(["cmake", "--build", str(build), "--parallel", "--target", "vexor_python_stubs"], check=True)
        subprocess.run(["cmake", "--install", str(build), "--component", "python", "--prefix", str(target)], check=True)


setup(
    name="vexor",
    version=version,
    description="Geometric and linear-algebra value classes with documented rounding",
    license="MIT",
    packages=["vexor"],
    package_dir={"": "python"},
    ext_modules=[Extension("vexor._vexor", [])],
    cmdclass={"build_ext": BuildByCMake},
    install_requires=["numpy"],
    python_requires=">=3.9",
)
