"""Shows vexor's objects in lldb: command script import /usr/share/vexor/vexor_lldb.py"""

import struct

import lldb

# What a long vector and a large matrix show before they say how much more there is.
MOST_ELEMENTS = 12
MOST_ROWS = MOST_COLUMNS = 6

FIELDS = {
    "Vec3Dbl": "xyz", "Vec3Flt": "xyz", "Vec2Dbl": "xy", "Vec2Flt": "xy", "Vec2Int": "xy",
    "Pnt3Dbl": "xyz", "Pnt3Flt": "xyz", "Pnt2Dbl": "xy", "Pnt2Flt": "xy",
}


def target(value):
    """The object itself, if the value is a reference or a pointer to it, or a reference to a pointer."""
    value = value.GetNonSyntheticValue()
    kind = value.GetType().GetCanonicalType()
    return target(value.Dereference()) if kind.IsReferenceType() or kind.IsPointerType() else value


def member(value, name):
    return target(value).GetChildMemberWithName(name)


def integer(value, name):
    return member(value, name).GetValueAsSigned()


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
    kind = value.GetType().GetCanonicalType().GetBasicType()
    if kind == lldb.eBasicTypeFloat:
        return shortest_single(value.GetData().GetFloat(lldb.SBError(), 0))
    if kind == lldb.eBasicTypeDouble:
        text = repr(value.GetData().GetDouble(lldb.SBError(), 0))
        return text[:-2] if text.endswith(".0") else text
    return value.GetValue()


def joined(texts, count, most=MOST_ELEMENTS, things=""):
    """'(1, 2, 3)', or '(1, 2, ... 8 more)'; `texts` is called with each index."""
    shown = [texts(i) for i in range(min(count, most))]
    return "(" + ", ".join(shown + (["... %d more%s" % (count - most, things)] if count > most else [])) + ")"


def element(pointer, index):
    return pointer.GetChildAtIndex(index, 0, True)


def described(view):
    """The view, or nothing for a class without debug information, of which lldb reads every field as 0."""
    return lambda value, internals: view(value, internals) if target(value).GetNumChildren() else ""


@described
def fields(value, _):
    names = FIELDS[target(value).GetType().GetCanonicalType().GetUnqualifiedType().GetName()]
    return joined(lambda i: number(member(value, names[i])), len(names))


@described
def quaternion(value, _):
    return "(%s, %s, %s; %s)" % tuple(number(member(value, name)) for name in "uvws")


@described
def fixed_matrix(value, _):
    matrix = member(value, "rows")
    return joined(lambda i: fields(matrix.GetChildAtIndex(i), None), matrix.GetNumChildren())


@described
def affine_map(value, _):
    plain = target(value)
    return fixed_matrix(plain.GetChildAtIndex(0), None) + " + " + fields(plain.GetChildAtIndex(1), None)


@described
def dynamic_vector(value, _):
    size = integer(value, "size")
    kind = "view of %d " if integer(value, "isExternal") else "%d "
    values = member(value, "values")
    return kind % size + joined(lambda i: number(element(values, i)), size)


@described
def dynamic_matrix(value, _):
    height, width = integer(value, "rowCount"), integer(value, "columnCount")
    columns = member(value, "columns")
    kind = "view of %dx%d" if integer(value, "isExternal") else "%dx%d"
    factorised = " factorised " if member(value, "pivots").GetValueAsUnsigned() else " "

    def text(i):
        return joined(lambda j: number(element(element(columns, j), i)), width, MOST_COLUMNS)

    return kind % (height, width) + factorised + joined(text, height, MOST_ROWS, " rows")


@described
def counter(value, _):
    bits = member(value, "highWord").GetValueAsUnsigned() << 32 | member(value, "lowWord").GetValueAsUnsigned()
    return str(bits - (1 << 64) if bits >> 63 else bits)


@described
def tolerance(value, _):
    return "angle %s, length %s" % (number(member(value, "angle")), number(member(value, "length")))


def __lldb_init_module(debugger, _):
    summaries = {name: "fields" for name in FIELDS}
    summaries.update({
        "Mat3Dbl": "fixed_matrix", "Mat2Dbl": "fixed_matrix",
        "AffMat3Dbl": "affine_map", "AffMat2Dbl": "affine_map",
        "Quaternion": "quaternion", "VecDbl": "dynamic_vector", "VecFlt": "dynamic_vector",
        "MatDbl": "dynamic_matrix", "UInt64": "counter", "VexorTolerance": "tolerance",
    })
    for name, function in summaries.items():
        debugger.HandleCommand(
            'type summary add "%s" -w vexor -F %s.%s' % (name, __name__, function))
    debugger.HandleCommand("type category enable vexor")
