#!/usr/bin/env python3
"""Checks the tables of the page for users of Eigen, GLM and Imath against the headers.

Each name in code type must occur in the headers of the library in whose column it stands, comments left out:
`Class::Member` in the header of the class. Each (gtx/…), (gtc/…) and (ext/…) must be a header of GLM. Each extension of
GLM, each header of Imath and each header of Eigen's geometry must occur in a table. A peer whose headers are not
installed is left out, and the output says so.
"""

import pathlib
import re
import sys

root = pathlib.Path(__file__).resolve().parent.parent
page = root / "docs/guides/coming-from-eigen-glm-imath.md"
FOLDERS = {
    "vexor": root / "vexor",
    "Eigen": pathlib.Path("/usr/include/eigen3"),
    "GLM": pathlib.Path("/usr/include/glm"),
    "Imath": pathlib.Path("/usr/include/Imath"),
}
# Headers without a feature of their own.
PLUMBING = {
    "Imath": {"Config", "Export", "Forward", "GL", "Int64", "Math", "Namespace", "Platform", "TypeTraits"},
    "Eigen": {"OrthoMethods", "RotationBase"},
}
# Code of C++ itself.
ANYWHERE = {"const", "constexpr", "double", "float", "operator", "true", "namespace", "random", "cmath", "std"}
wrong = []


def code(path):
    text = path.read_text(errors="replace")
    return re.sub(r"//[^\n]*|/\*.*?\*/", " ", text, flags=re.S)


def headers(library):
    if library == "vexor":
        return [path for path in FOLDERS[library].rglob("*.h")
                if not {"detail", "private", "arrays"} & set(path.parts) or path.parts[-2] == "arrays"]
    return [path for path in FOLDERS[library].rglob("*") if path.is_file() and path.suffix not in (".inl", ".txt")]


def columns():
    """The cells of all tables by library: the feature and the text."""
    cells, names = {library: [] for library in FOLDERS}, None
    for line in page.read_text().splitlines():
        if not line.startswith("|"):
            names = None
            continue
        fields = [field.strip() for field in line.strip("|").split("|")]
        if names is None:
            names = fields
        elif not set(line) <= set("|-"):
            if len(fields) != len(names):
                wrong.append("%d cells instead of %d: %s" % (len(fields), len(names), line))
            for name, field in zip(names[1:], fields[1:]):
                cells[name].append((fields[0], field))
    return cells


def check_names(library, cells):
    texts = {path: code(path) for path in headers(library)}
    words = set()
    for text in texts.values():
        words.update(re.findall(r"\w+", text))
    files = {str(path.relative_to(FOLDERS[library])) for path in texts}
    for feature, cell in cells:
        for piece in re.findall(r"`([^`]*)`", cell):
            if piece.startswith("extras/") or piece.endswith(".h"):
                if piece not in files:
                    wrong.append("%s, %s: no header %s" % (library, feature, piece))
                continue
            for owner, member in re.findall(r"\b([A-Z]\w+)::(\w+)", piece):
                own = [text for text in texts.values() if re.search(r"\bclass (VEXOR_\w+ )?%s\b[^;]*\{" % owner, text)]
                if not any(re.search(r"\b%s\b" % member, text) for text in own):
                    wrong.append("%s, %s: %s has no %s" % (library, feature, owner, member))
            for name in re.findall(r"(?<!std::)(?<!\w)[A-Za-z_]\w+", piece):
                # Macros make the names of Eigen's types; variables are a letter and digits.
                if name not in words and name not in ANYWHERE and not re.fullmatch(r"[a-z]\d+", name) \
                        and not (library == "Eigen" and re.fullmatch(r"(Matrix|Vector)[234X][dif]", name)):
                    wrong.append("%s, %s: nothing is called %s" % (library, feature, name))
        if library == "GLM":
            for header in re.findall(r"\b(?:gtx|gtc|ext)/\w+", cell):
                if header + ".hpp" not in files:
                    wrong.append("GLM, %s: no header %s" % (feature, header))


def check_coverage(library, cells):
    text = " ".join(cell for _, cell in cells)
    if library == "GLM":
        named = set(re.findall(r"\b(?:gtx|gtc)/\w+", text))
        wanted = {"%s/%s" % (folder, path.stem) for folder in ("gtc", "gtx")
                  for path in (FOLDERS[library] / folder).glob("*.hpp")}
        missing = wanted - named
    else:
        folder = FOLDERS[library] / ("" if library == "Imath" else "Eigen/src/Geometry")
        stems = {re.sub("^Imath", "", path.stem) for path in folder.glob("Imath*.h" if library == "Imath" else "*.h")}
        stems -= PLUMBING[library]
        missing = {stem for stem in stems if not re.search(r"\b(Imath)?" + stem, text, re.I)}
    wrong.extend("%s: no table mentions %s" % (library, name) for name in sorted(missing))


def main():
    checked = 0
    for library, cells in columns().items():
        if not FOLDERS[library].is_dir():
            print("%s is not installed: its column is left out" % library)
            continue
        check_names(library, cells)
        if library != "vexor":
            check_coverage(library, cells)
        checked += len(cells)
    print("\n".join(wrong) if wrong else "%d cells agree with the headers" % checked)
    return 1 if wrong else 0


sys.exit(main())
