"""Shows vexor's objects in gdb: (1, 2, 3) for vectors and points, matrices by rows.

gdb loads this file by itself when it loads the installed library: docs/guides/debuggers.md says when.
"""

import struct

import gdb
import gdb.printing

# What a long vector and a large matrix show before they say how much more there is.
MOST_ELEMENTS = 12
MOST_ROWS = MOST_COLUMNS = 6

FIELDS = {
    "Vec3Dbl": "x y z", "Vec3Flt": "x y z", "Vec2Dbl": "x y", "Vec2Flt": "x y", "Vec2Int": "x y",
    "Pnt3Dbl": "x y z", "Pnt3Flt": "x y z", "Pnt2Dbl": "x y", "Pnt2Flt": "x y",
}


def shortest_single(value):
    """The shortest decimal that names the number among those of single precision."""
    for digits in range(6, 9):
        text = "%.*g" % (digits, value)
        try:
            if struct.pack("f", float(text)) == struct.pack("f", value):
                return text
        except OverflowError:  # rounded up beyond the largest single
            pass
    return "%.9g" % value


def number(value):
    """A number as a person writes it: 1 and not 1.0, 0.1 and not 0.10000000000000001."""
    if value.type.strip_typedefs().code == gdb.TYPE_CODE_INT:
        return str(int(value))
    wide = float(value)
    if value.type.strip_typedefs().sizeof == 4:
        return shortest_single(wide)
    text = repr(wide)
    return text[:-2] if text.endswith(".0") else text


def joined(texts, count, most, things=""):
    """'(1, 2, 3)', or '(1, 2, ... 8 more)'; `texts` is called with each index."""
    shown = [texts(i) for i in range(min(count, most))]
    return "(" + ", ".join(shown + (["... %d more%s" % (count - most, things)] if count > most else [])) + ")"


def row(values, count, most=MOST_ELEMENTS):
    return joined(lambda i: number(values(i)), count, most)


class Fields:
    """Vectors and points: their named fields."""

    def __init__(self, value):
        self.value = value
        self.names = FIELDS[class_of(value)].split()

    def to_string(self):
        return row(lambda i: self.value[self.names[i]], len(self.names))


class Quaternion:
    """The vector part, then the scalar: (u, v, w; s)."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        u, v, w, s = (number(self.value[name]) for name in "uvws")
        return "(%s, %s, %s; %s)" % (u, v, w, s)


class FixedMatrix:
    """Mat3Dbl and Mat2Dbl by rows."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        matrix = self.value["rows"]
        low, high = matrix.type.range()
        return joined(lambda i: Fields(matrix[i]).to_string(), high - low + 1, MOST_ROWS)


class AffineMap:
    """The linear part by rows, then the translation."""

    def __init__(self, value):
        self.linear, self.translation = (value[field] for field in value.type.strip_typedefs().fields()[:2])

    def to_string(self):
        return "%s + %s" % (FixedMatrix(self.linear).to_string(), Fields(self.translation).to_string())


class DynamicVector:
    """VecDbl and VecFlt: the size, whether a view, the elements."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        size = int(self.value["size"])
        kind = "view of %d" if int(self.value["isExternal"]) else "%d"
        return kind % size + " " + row(lambda i: self.value["values"][i], size)


class DynamicMatrix:
    """MatDbl: its shape, whether a view, whether factorised, the elements by rows."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        height, width = int(self.value["rowCount"]), int(self.value["columnCount"])
        columns = self.value["columns"]
        kind = "view of %dx%d" if int(self.value["isExternal"]) else "%dx%d"
        factorised = " factorised" if int(self.value["pivots"]) != 0 else ""
        elements = joined(lambda i: row(lambda j: columns[j][i], width, MOST_COLUMNS), height, MOST_ROWS, " rows")
        return kind % (height, width) + factorised + " " + elements


class Counter:
    """UInt64: the value, which the class reads as a signed one."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        bits = int(self.value["highWord"]) << 32 | int(self.value["lowWord"])
        return str(bits - (1 << 64) if bits >> 63 else bits)


class Tolerance:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "angle %s, length %s" % (number(self.value["angle"]), number(self.value["length"]))


VIEWS = dict.fromkeys(FIELDS, Fields)
VIEWS.update({
    "Mat3Dbl": FixedMatrix, "Mat2Dbl": FixedMatrix, "AffMat3Dbl": AffineMap, "AffMat2Dbl": AffineMap,
    "Quaternion": Quaternion, "VecDbl": DynamicVector, "VecFlt": DynamicVector, "MatDbl": DynamicMatrix,
    "UInt64": Counter, "VexorTolerance": Tolerance,
})


def class_of(value):
    return value.type.strip_typedefs().unqualified().name


class Pointer:
    """The address, and the object if it can be read."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        address = "%#x" % int(self.value)
        try:
            target = self.value.dereference()
            return "%s %s" % (address, VIEWS[class_of(target)](target).to_string())
        except gdb.MemoryError:
            return address


class Views(gdb.printing.PrettyPrinter):
    """Chooses the view by the class, whatever leads to the object: a typedef, const, a reference, a pointer."""

    def __init__(self):
        super().__init__("vexor", [gdb.printing.SubPrettyPrinter(name) for name in VIEWS])
        self.by_name = {view.name: view for view in self.subprinters}

    def __call__(self, value):
        if value.type.strip_typedefs().code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
            value = value.referenced_value()
        kind, view = value.type.strip_typedefs(), None
        if kind.code == gdb.TYPE_CODE_PTR:
            name, view = kind.target().strip_typedefs().unqualified().name, Pointer
        else:
            name = class_of(value)
        if name not in self.by_name or not self.by_name[name].enabled:
            return None
        if not (kind.target().strip_typedefs() if view else kind).fields():
            return None  # a class without debug information
        return (view or VIEWS[name])(value)


gdb.printing.register_pretty_printer(gdb.current_objfile(), Views(), replace=True)
