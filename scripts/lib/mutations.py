"""What scripts/mutate changes in a source, and the tests that judge the change."""

import re

# ---- The changes ---------------------------------------------------------------------------------------

OPERAND = r"[A-Za-z_][\w.]*(?:\([\w.,* ]*\)|\[[\w.]*\])*"
COMPARISONS = {"<": ["<=", ">"], ">": [">=", "<"], "<=": ["<", ">="], ">=": [">", "<="], "==": ["!="], "!=": ["=="]}
OPERATORS = {"+": "-", "-": "+", "*": "/", "/": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="}
LOGIC = {"&": "|", "&&": "||", "||": "&&"}


def other_constants(literal):
    """An integer plus one; another number doubled, and its neighbour if it is written with many digits."""
    number, suffix = re.fullmatch(r"(.*?)([fF]?)", literal).groups() if "0x" not in literal else (literal, "")
    if re.fullmatch(r"\d+", literal):
        return [str(int(literal) + 1)]
    value = float.fromhex(number) if "0x" in number else float(number)
    if value == 0.0:
        return ["1.0" + suffix]
    neighbour = [repr(value * (1.0 + 2.0**-52))] if len(re.sub(r"\D", "", number)) > 6 else []
    return [repr(2.0 * value) + suffix, *neighbour]


# Kind of change, the text that it finds, and what it puts there instead.
RULES = [
    ("constant", r"(?<![\w.])(?:0x[\da-fA-F.]+p[+-]?\d+|\d+\.?\d*(?:e[+-]?\d+)?f?)(?![\w.])", lambda m: other_constants(m[0])),
    ("comparison", r"(?<= )(<=|>=|==|!=|<|>)(?= )", lambda m: COMPARISONS[m[0]]),
    ("operator", r"(?<= )[-+*/]=?(?= )", lambda m: [OPERATORS[m[0]]]),
    ("negation", r"(?<=[(,=?:\s{])-(?=[A-Za-z_(])", lambda m: [""]),
    ("logic", r"(?<= )(&&?|\|\|)(?= )", lambda m: [LOGIC[m[0]]]),
    ("operand order", rf"(?<![\w.*/] )(?<![\w.])({OPERAND})( [-/] )({OPERAND})(?! [*/])(?![\w.(\[])", lambda m: [m[3] + m[2] + m[1]]),
    ("order of a sum", r"\(([^()]+) ([+*]) ([^()]+)\) \2 ([^();,&|?<>=]+?)(?=[;,)])",
     lambda m: [f"{m[1]} {m[2]} ({m[3]} {m[2]} {m[4]})"]),
    ("tie", rf"({OPERAND}) ([<>]) ({OPERAND}) \? ({OPERAND}) : ({OPERAND})(?![\w.(\[])",
     lambda m: [f"{m[3]} {m[2]} {m[1]} ? {m[5]} : {m[4]}"]),
    ("last of many", r"(?<=; )(\w+ < )([A-Za-z_]\w*)(?=; \+\+\w+\))", lambda m: [f"{m[1]}{m[2]} - ({m[2]} > 40)"]),
    ("const", r"(?<=\)) const\b(?=[\s;{])|(?<=\w) const(?=& \w+[,)])", lambda m: [""]),
]
# Calls that are replaced by their argument, except where the function is declared.
LEFT_OUT = {"RoundToSingle": "rounding", r"Round<\w+>": "rounding", "Magnitude": "magnitude"}
DECLARED = r"\b(float|double|inline|Number|Element)$"

# Changes chosen by hand, which are tried besides the sample: source, text that stands once in it, replacement.
CHOSEN = []


def code_of(text):
    """The text with comments, strings and preprocessor lines blanked; all positions stay the same."""
    pattern = r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|^[ \t]*#(?:\\\n|[^\n])*|\bstatic_assert\(.*?\);"
    return re.sub(pattern, lambda m: re.sub(r"[^\n]", " ", m.group()), text, flags=re.S | re.M)


def closing(code, opening):
    """The position of the parenthesis that closes the one opened here."""
    depth = 0
    for place in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[place], 0)
        if depth == 0:
            return place
    return -1


def changes_in(text):
    """All changes of a file by the rules: (start, end, replacement, kind)."""
    code = code_of(text)
    found = set()
    for kind, pattern, others in RULES:
        for m in re.finditer(pattern, code):
            found |= {(m.start(), m.end(), other, kind) for other in others(m)}
    for function, kind in LEFT_OUT.items():
        for m in re.finditer(rf"(?:vexor::detail::)?\b{function}\(", code):
            last = closing(code, m.end() - 1)
            if last >= 0 and not re.search(DECLARED, code[:m.start()].rstrip()):
                found.add((m.start(), last + 1, text[m.end() - 1:last + 1], kind))
    return sorted(found)


def chosen_changes(source, text):
    for name, old, new in CHOSEN:
        if name == source:
            if text.count(old) != 1:
                raise ValueError(f"mutations: '{old}' stands {text.count(old)} times in {source}, and not once")
            yield text.index(old), text.index(old) + len(old), new, "chosen"


# ---- The judges ----------------------------------------------------------------------------------------
# The names of the tests and of the oracle's operations that judge a source. A source that is not listed is judged by
# those of its own name.

SPACE = ["Vec3Dbl", "Vec3Flt"]
PLANE = ["Vec2Dbl", "Vec2Flt"]
POINTS = ["Pnt2Dbl", "Pnt2Flt", "Pnt3Dbl", "Pnt3Flt"]
DYNAMIC = ["VecDbl", "VecFlt", "MatDbl"]
JUDGES = {
    "foundation/detail/Element": SPACE + PLANE,
    "foundation/detail/Integer": ["Vec2Int", "UInt64"],
    "foundation/detail/Raise": ["VexorException"],
    "foundation/detail/Rounding": SPACE + PLANE + POINTS,
    "foundation/detail/Scalar": SPACE + PLANE + ["Quaternion"],
    "foundation/detail/Tolerance": SPACE + PLANE + POINTS,
    "foundation/detail/Wrapping": ["Vec2Int", "UInt64"],
    "foundation/private/": DYNAMIC,
    # Code of checked builds alone, like the two marks below.
    "foundation/private/Checksum": ["Mat3Dbl", "MatDbl"], "foundation/Checks": ["Mat3Dbl", "MatDbl"],
    "foundation/VexorTolerance": ["VexorTolerance", "Mat3Dbl"],  # with the constant of EigenSym
    "foundation/detail/Elementary": ["Elementary"],
    "elementary/": ["Elementary"],
    "vectors/detail/DirectionTests": SPACE + PLANE,
    "vectors/detail/Extremes": SPACE + PLANE + ["Vec2Int"],
    "vectors/detail/FullRange": SPACE + PLANE + ["Quaternion"],
    "vectors/private/UnitAxis": ["Vec3Dbl", "Quaternion"],
    "vectors/private/Wide": SPACE + PLANE + ["Quaternion"],
    "points/detail/Distance": POINTS,
    "matrices/private/Crout": ["SmallSolver", "Mat3Dbl"],
    "matrices/private/LargestMagnitude": ["Mat3Dbl"],
    "matrices/private/FactorMark": ["Mat3Dbl", "SmallSolver"],
    "matrices/detail/Pair": ["Mat3Dbl"],
    "dynamic/private/": DYNAMIC,
    "dynamic/private/Lapack": ["MatDbl", "Mat3Dbl"],
    "dynamic/private/PivotMark": ["MatDbl"],
    "dynamic/MatDblDrivers": ["MatDbl"],
    "arrays/": ["Forms", "Maps", "Matrices", "Sums", "Vectors"],
    "extras/": ["Format", "Hash", "Interop", "Interpolate", "Make", "Range", "Stream"],
}
# Tests of a class that are not named after it.
MORE_TESTS = {
    "VecDbl": ["Allocation", "Sizes"], "VecFlt": ["Allocation", "Sizes"], "MatDbl": ["Allocation", "Kernels", "Sizes"],
    **{name: ["VectorComponents"] for name in SPACE + PLANE}, **{name: ["PointComponents"] for name in POINTS},
}
# The oracle's operations have other names there, or none.
ORACLE_NAMES = {"SmallSolver": "small_", "Elementary": None, "VexorException": None,
                **dict.fromkeys(JUDGES["arrays/"] + JUDGES["extras/"])}
# Only the callers compile these headers: they are compiled again for each change.
IN_CALLERS = re.compile(r"vexor/(extras/|arrays/(detail/)?\w+\.h$)")


def judges_of(source):
    """The longest entry that the source's path begins with, or the source's own name."""
    path = re.fullmatch(r"vexor/(.*?)(?:\.\w+)", source)[1]
    entry = max((e for e in JUDGES if path == e or e.endswith("/") and path.startswith(e)), key=len, default=None)
    return JUDGES[entry] if entry else [path.rpartition("/")[2]]
