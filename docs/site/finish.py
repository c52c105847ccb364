#!/usr/bin/env python3
"""Finishes Doxygen's pages: puts the navigation on each of them, and copies the pictures.

The navigation is written down here, by hand: a reader looks for a guide by its purpose and for a class by its
kind, not by the alphabet. A page that it forgets, or one that no longer exists, stops the build.
"""

import html
import pathlib
import re
import shutil
import sys

NAVIGATION = [
    ("Guides", [
        ("index.html", "Overview"),
        ("md_docs_guides_installing.html", "Installing"),
        ("md_docs_guides_first_steps.html", "First steps"),
        ("md_docs_conventions.html", "Conventions"),
        ("md_docs_guides_tolerances.html", "Tolerances"),
        ("md_docs_guides_solvers.html", "Choosing a solver"),
        ("md_docs_guides_storage.html", "Storage and views"),
        ("md_docs_guides_surprising_calls.html", "Calls that surprise"),
        ("md_docs_guides_coming_from_eigen_glm_imath.html", "From Eigen, GLM, Imath"),
        ("md_docs_guides_checked_builds.html", "Checked builds"),
        ("md_docs_guides_arrays.html", "Arrays"),
        ("md_docs_guides_extras.html", "Opt-in headers"),
        ("md_docs_guides_debuggers.html", "Debuggers"),
    ]),
    ("Figures", [
        ("md_docs_performance.html", "Performance"),
        ("md_docs_eigen_accuracy.html", "Accuracy"),
        ("md_docs_exactness.html", "Exactness"),
        ("md_docs_elementary.html", "Sine and angle"),
        ("md_docs_mutation.html", "Mutation tests"),
    ]),
    ("Vectors", ["Vec2Dbl", "Vec3Dbl", "Vec2Flt", "Vec3Flt", "Vec2Int"]),
    ("Points", ["Pnt2Dbl", "Pnt3Dbl", "Pnt2Flt", "Pnt3Flt"]),
    ("Matrices and maps", ["Mat2Dbl", "Mat3Dbl", "AffMat2Dbl", "AffMat3Dbl", "Quaternion",
                           ("SmallSolver_8h.html", "Small systems")]),
    ("Run-time size", ["VecDbl", "VecFlt", "MatDbl"]),
    ("Arrays", [("classvexor_1_1arrays_1_1Pairwise.html", "Pairwise")]),
    ("Foundation", ["VexorTolerance", "UInt64", "VexorException", "VexorSingular", "VexorNullVector",
                    "VexorDimensionMismatch", "VexorAllocationFailed", "VexorComputationFailed"]),
    ("Project", [
        ("md_docs_architecture.html", "Architecture"),
        ("md_docs_compatibility.html", "Compatibility"),
        ("md_CHANGELOG.html", "Changes"),
        ("md_CONTRIBUTING.html", "Contributing"),
    ]),
]
site = pathlib.Path(sys.argv[1])
docs = pathlib.Path(__file__).resolve().parent.parent


def entries(group):
    return [entry if isinstance(entry, tuple) else ("class%s.html" % entry, entry) for entry in group]


def navigation(current):
    lists = []
    for title, group in NAVIGATION:
        items = "".join('<li><a href="%s"%s>%s</a></li>' %
                        (page, ' aria-current="page"' if page == current else "", html.escape(name))
                        for page, name in entries(group))
        lists.append("<h2>%s</h2><ul>%s</ul>" % (title, items))
    # On a wide screen the list is always open; on a phone it opens at a touch.
    return ('<nav id="side"><input type="checkbox" id="menu" aria-label="Contents"/>'
            '<label for="menu">Contents</label><div>%s</div></nav>' % "".join(lists))


def with_places(text):
    """Gives each group of members a place that links can lead to."""
    return re.sub(r'<div class="groupHeader">(.*?)</div>',
                  lambda match: '<div class="groupHeader" id="%s">%s</div>' %
                  ("group-" + re.sub(r"\W+", "-", match.group(1).lower()), match.group(1)), text)


def contents(text):
    """The headings of a guide or the groups of a class: in the margin of a wide screen, else below the title."""
    headings = re.findall(r'<h1><a class="anchor" id="([\w-]+)"></a>\s*(.*?)</h1>', text, re.S)
    headings = headings or re.findall(r'<div class="groupHeader" id="([\w-]+)">(.*?)</div>', text)
    if '<a id="related"' in text:
        headings.append(("related", "Free functions"))
    if len(headings) < 3:
        return ""
    items = "".join('<li><a href="#%s">%s</a></li>' % (place, re.sub("<.*?>|:.*", "", title).strip())
                    for place, title in headings)
    return '<aside id="contents"><h2>On this page</h2><ul>%s</ul></aside>' % items


# The navigation and the search replace Doxygen's indices.
for pattern in ("*-members.html", "functions*.html", "globals*.html", "dir_*.html", "annotated.html", "classes.html",
                "files.html", "hierarchy.html", "inherits.html", "pages.html"):
    for page in site.glob(pattern):
        page.unlink()

listed = {page for _, group in NAVIGATION for page, _ in entries(group)}
written = {page.name for pattern in ("index.html", "md_*.html", "class*.html", "SmallSolver_8h.html")
           for page in site.glob(pattern)}
if listed != written:
    raise SystemExit("the navigation and the pages differ in: %s" % " ".join(sorted(listed ^ written)))

for picture in docs.rglob("*.svg"):
    target = site / picture.relative_to(docs)
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(picture, target)
    shutil.copy(picture, site / picture.name)
for page in site.glob("*.html"):
    text = page.read_text()
    text = text.replace("<!-- navigation -->", navigation(page.name), 1)
    text = text.replace("</div><!-- top -->", "</div><!-- top -->\n<main>", 1)
    text = re.sub(r'<div id="nav-path".*?</div>', "", text, count=1, flags=re.S)
    text = re.sub(r'<div class="summary">.*?</div>', "", text, count=1, flags=re.S)
    text = with_places(text)
    text = text.replace("</div><!--header-->", "</div><!--header-->\n" + contents(text), 1)
    text = text.replace("<!-- start footer part -->", "</main>", 1)
    text = text.replace(" Class Reference</div>", "</div>").replace(" File Reference</div>", "</div>")
    # A constructor has no type before its name.
    text = re.sub(r'(<td class="memItemLeft"[^>]*>(?:<a [^>]*></a>)?\s*)&#160;</td>', r"\1</td>", text)
    # A table that is wider than the page scrolls by itself.
    text = re.sub(r'<table class="(markdownTable|doxtable)">(.*?)</table>',
                  r'<div class="scroll"><table class="\1">\2</table></div>', text, flags=re.S)
    page.write_text(text)
