"""What the page of a class or of a header shows beside its comments: an example program and links to guides."""

import pathlib

root = pathlib.Path(__file__).resolve().parent.parent.parent
SNIPPETS = root / "docs" / "snippets"

GUIDES = {
    "arrays": ("md_docs_guides_arrays.html", "Arrays"),
    "checked": ("md_docs_guides_checked_builds.html", "Checked builds"),
    "conventions": ("md_docs_conventions.html", "Conventions, with pictures"),
    "eigen": ("md_docs_eigen_accuracy.html", "Accuracy of eigenvalues"),
    "elementary": ("md_docs_elementary.html", "Sine, cosine and arc tangent"),
    "exactness": ("md_docs_exactness.html", "Exactness"),
    "extras": ("md_docs_guides_extras.html", "Opt-in headers"),
    "failures": ("md_docs_guides_first_steps.html#first_steps_failures", "Failures"),
    "peers": ("md_docs_guides_coming_from_eigen_glm_imath.html", "Coming from Eigen, GLM or Imath"),
    "points": ("md_docs_conventions.html#conventions_points-and-vectors", "Points and vectors"),
    "solvers": ("md_docs_guides_solvers.html", "Choosing a solver"),
    "storage": ("md_docs_guides_storage.html", "Storage and views"),
    "surprising": ("md_docs_guides_surprising_calls.html", "Calls that surprise"),
    "tolerances": ("md_docs_guides_tolerances.html", "Tolerances"),
}
SEE_ALSO = {
    "Vec2Dbl": "conventions tolerances arrays extras",
    "Vec3Dbl": "conventions tolerances arrays extras",
    "Vec2Flt": "tolerances arrays surprising",
    "Vec3Flt": "tolerances arrays surprising",
    "Vec2Int": "surprising",
    "Pnt2Dbl": "points tolerances arrays",
    "Pnt3Dbl": "points tolerances arrays",
    "Pnt2Flt": "points tolerances arrays",
    "Pnt3Flt": "points tolerances arrays",
    "Mat2Dbl": "solvers conventions eigen",
    "Mat3Dbl": "solvers conventions eigen arrays",
    "AffMat2Dbl": "conventions points surprising",
    "AffMat3Dbl": "conventions points arrays",
    "Quaternion": "conventions extras elementary peers",
    "VecDbl": "storage solvers tolerances",
    "VecFlt": "storage tolerances",
    "MatDbl": "solvers storage conventions",
    "Pairwise": "arrays exactness",
    "VexorTolerance": "tolerances",
    "UInt64": "surprising extras",
    "VexorException": "failures solvers",
    "VexorSingular": "solvers failures",
    "VexorNullVector": "tolerances failures",
    "VexorDimensionMismatch": "storage solvers failures",
    "VexorAllocationFailed": "storage failures",
    "VexorComputationFailed": "solvers failures",
    "SmallSolver": "solvers",
    "elementary": "elementary exactness",
    **{header: "extras peers" for header in ("format", "hash", "interop", "interpolate", "make", "range", "stream")},
    **{header: "arrays exactness" for header in ("Maps", "Matrices", "Sums", "Vectors")},
}
# Examples that stand in a guide as well.
OTHER_EXAMPLES = {
    **{header: "extras_" + header for header in ("format", "hash", "interop", "interpolate", "make", "range", "stream")},
    "Pairwise": "arrays_blocks", "Sums": "arrays_blocks", "Vectors": "arrays",
}


def block(language, text):
    return ["@code{%s}" % language, *text.rstrip("\n").split("\n"), "@endcode"]


def extra_lines(name):
    """The lines of a comment that stand at the end of a class's or a header's own description."""
    lines = []
    program = SNIPPETS / (OTHER_EXAMPLES.get(name, "classes/" + name) + ".cpp")
    if program.exists():
        lines += ["", "@par Example", ""]
        lines += block(".cpp", program.read_text()) + ["It prints", ""]
        lines += block(".unparsed", program.with_suffix(".out").read_text())
    if name in SEE_ALSO:
        links = ['<a href="%s">%s</a>' % GUIDES[guide] for guide in SEE_ALSO[name].split()]
        lines += ["", "@par See also", "", ", ".join(links)]
    return lines
