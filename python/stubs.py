#!/usr/bin/env python3
"""Writes the type stubs of the built module from the signatures in its docstrings.

Usage: stubs.py FOLDER, in which the package vexor is
"""

import inspect
import pathlib
import re
import sys

folder = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(folder))
sys.dont_write_bytecode = True

import vexor  # noqa: E402
from vexor import arrays  # noqa: E402

HEAD = '''"""Written by python/stubs.py from the module's docstrings."""

from typing import Any, Iterator, List, Sequence, Tuple

import numpy
'''
TYPES = [(r"\bvexor\.(\w+)", r"\1"), (r"numpy\.ndarray\[numpy\.float\w+\]|numpy\.ndarray\[\w+\]", "numpy.ndarray"),
         (r"\b(?:object|handle)\b", "Any"), (r"\bsequence\b", "Sequence[Any]"), (r"\biterator\b", "Iterator[float]"),
         (r"\b(tuple|list|dict)\b(?!\[)", r"\1")]
SIGNATURE = re.compile(r"^(?:\d+\. )?(\w+)\((.*)\) -> (.+)$", re.M)


def typed(text):
    for pattern, replacement in TYPES:
        text = re.sub(pattern, replacement, text)
    return text


def forms(function):
    """The parameters and the result of each form."""
    return [(typed(parameters), typed(result)) for name, parameters, result in SIGNATURE.findall(function.__doc__ or "")]


def definition(name, function, indent=""):
    found = forms(function)
    lines = []
    for parameters, result in found:
        if indent:
            parameters = re.sub(r"^(?:self|arg0): \w+", "self", parameters)
        if name in ("__eq__", "__ne__"):
            parameters = "self, other: object"
        line = "%sdef %s(%s) -> %s: ..." % (indent, name, parameters, result)
        if line not in lines:
            lines.append(line)
    if len(lines) == 1:
        # C++ has some of the operators in one form only.
        return [lines[0] + "  # type: ignore[misc]" if name in ("__iadd__", "__isub__", "__imul__") else lines[0]]
    # mypy takes the first form that fits, and an int fits a float.
    return [text for line in lines for text in (indent + "@overload", line)]


def class_stub(cls):
    base = cls.__mro__[1].__name__
    lines = ["class %s%s:" % (cls.__name__, "" if base in ("pybind11_object", "object") else "(%s)" % base)]
    for name, member in sorted(vars(cls).items()):
        if isinstance(member, property):
            result = typed(SIGNATURE.search("f" + member.fget.__doc__.lstrip()).group(3))
            lines.append("    %s: %s" % (name, result))
        elif name == "__hash__" and member is None:
            lines.append("    __hash__ = None  # type: ignore")
        elif callable(member) and SIGNATURE.search(member.__doc__ or ""):
            lines += definition(name, member, "    ")
    return lines if len(lines) > 1 else [lines[0] + " ..."]


def write(name, module, body):
    text = HEAD + "\n".join(body) + "\n"
    if "@overload" in text:
        text = text.replace("Tuple\n", "Tuple, overload\n", 1)
    (folder / "vexor" / name).write_text(text, encoding="utf-8")


classes = [item for item in vars(vexor).values() if inspect.isclass(item)]
classes.sort(key=lambda cls: (not issubclass(cls, Exception), cls.__name__ != "VexorException"))
body = ["from . import arrays as arrays", ""]
for item in classes:
    body += class_stub(item) + [""]
for name, function in sorted(vars(vexor).items()):
    if inspect.isbuiltin(function):
        body += definition(name, function)
write("__init__.pyi", vexor, body + ["gVexorTolerance: VexorTolerance"])
names = ", ".join(cls.__name__ for cls in classes)
body = ["from . import %s" % names, ""]
for name in arrays.__all__:
    function = getattr(arrays, name)
    body += definition(name, function) if callable(function) else ["%s: int" % name]
write("arrays.pyi", arrays, body)
(folder / "vexor" / "py.typed").write_text("")
