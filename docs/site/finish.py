#!/usr/bin/env python3
"""Finishes Doxygen's pages: the navigation, links between members, the index of the search, and the pictures.

The navigation is written down here, by hand: a reader looks for a guide by its purpose and for a class by its
kind, not by the alphabet. A page that it forgets, or one that no longer exists, stops the build.
"""

import collections
import html
import math
import pathlib
import re
import shutil
import sys

import search_index

SMALLEST_LETTERING = 11  # pixels; check.py measures it on the pages
site = pathlib.Path(sys.argv[1])
docs = pathlib.Path(__file__).resolve().parent.parent
# Each folder of examples/ with a README is a page.
EXAMPLES = sorted(page.parent.name for page in docs.parent.glob("examples/*/README.md"))
NAVIGATION = [
    ("Start", [
        ("md_docs_guides_get_started.html", "Get started"),
        ("md_docs_guides_recipes.html", "Recipes, with pictures"),
        ("md_docs_conventions.html", "Conventions"),
        ("md_docs_guides_installing.html", "Installing"),
        ("index.html", "Overview"),
    ]),
    ("Examples", [("examples.html", "All examples")] + [
        ("example_%s.html" % name, name.replace("_", " ").capitalize()) for name in EXAMPLES]),
    ("Guides", [
        ("md_docs_guides_first_steps.html", "First steps"),
        ("md_docs_guides_tolerances.html", "Tolerances"),
        ("md_docs_guides_solvers.html", "Choosing a solver"),
        ("md_docs_guides_storage.html", "Storage and views"),
        ("md_docs_guides_surprising_calls.html", "Calls that surprise"),
        ("md_docs_guides_coming_from_eigen_glm_imath.html", "From Eigen, GLM, Imath"),
        ("md_docs_guides_checked_builds.html", "Checked builds"),
        ("md_docs_guides_arrays.html", "Arrays"),
        ("md_docs_guides_from_python.html", "From Python"),
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
    ("Arrays", [("Vectors_8h.html", "Vectors.h"), ("Maps_8h.html", "Maps.h"), ("Matrices_8h.html", "Matrices.h"),
                ("Sums_8h.html", "Sums.h"), ("classvexor_1_1arrays_1_1Pairwise.html", "Pairwise")]),
    ("Opt-in headers", [("%s_8h.html" % header, header + ".h") for header in
                        ("stream", "format", "hash", "range", "make", "interpolate", "interop", "elementary")]),
    ("Foundation", ["VexorTolerance", "UInt64", "VexorException", "VexorSingular", "VexorNullVector",
                    "VexorDimensionMismatch", "VexorAllocationFailed", "VexorComputationFailed"]),
    ("Project", [
        ("md_docs_architecture.html", "Architecture"),
        ("md_docs_compatibility.html", "Compatibility"),
        ("md_CHANGELOG.html", "Changes"),
        ("md_CONTRIBUTING.html", "Contributing"),
    ]),
]


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


def linked(text, page, names):
    """Makes each member that a text names a link: one of this page, of the class before it, or of one page only."""
    def link(match):
        name = html.unescape(match.group(1))
        owner, _, member = re.sub(r"\(.*\)$", "", name).rpartition("::")
        target = names.get((owner, member)) if owner else names.get((page, member), alone.get(member))
        return '<code><a class="el" href="%s">%s</a></code>' % (target, match.group(1)) if target else match.group(0)

    pieces = re.split(r"(<a [^>]*href.*?</a>|<h\d.*?</h\d>|<pre.*?</pre>)", text, flags=re.S)
    pieces[::2] = [re.sub(r"<code>([\w:]+(?:\([^<]*\))?)</code>", link, piece) for piece in pieces[::2]]
    return "".join(pieces)


def with_whole_chips(text):
    """Keeps punctuation on the line of the code in front of it: only the head of long code may wrap."""
    def chip(match):
        before, code, after = match.groups()
        head = ""
        if len(search_index.plain(code)) > 36:
            parts = re.fullmatch(r"(.*?)([^&<>\s/:=_]{1,20})", code, re.S)
            if not parts or re.search(r"&\w*$", parts.group(1)):
                return match.group(0)
            head, code = '%s<code class="head">%s</code>' % (before, parts.group(1)), parts.group(2)
        return '%s<span class="chip">%s<code>%s</code>%s</span>' % (head, "" if head else before, code, after)
    return re.sub(r"(\(?)<code>((?:(?!</?code>).)*)</code>([.,;:)!?]+)", chip, text)


def descriptions_of_pictures():
    """What the guides say of their pictures for readers who do not see them; Doxygen drops it."""
    found = {}
    for page in [docs.parent / "README.md", *docs.rglob("*.md"), *docs.parent.glob("examples/*/README.md")]:
        for description, path in re.findall(r"!\[(.*?)\]\((\S*?\.svg)\)", page.read_text()):
            found[pathlib.Path(path).name] = description
    return found


def size_of(name):
    """The width of a picture, and the least width at which its lettering can be read."""
    text = (site / name).read_text()
    width = float(re.search(r'viewBox="0 0 ([\d.]+) ', text).group(1))
    smallest = min(map(float, re.findall(r'font-size[:=]"?\s*([\d.]+)', text)), default=SMALLEST_LETTERING)
    return width, math.ceil(SMALLEST_LETTERING / smallest * width)


def shown_picture(name, description):
    """A picture, in its narrow form on a phone; if it has none, it scrolls where its lettering would be too small."""
    width, least = size_of(name)
    narrow = name.replace(".svg", "-narrow.svg")
    if not (site / narrow).exists():
        return ('<span class="picture"><img src="%s" alt="%s" width="%d" style="min-width:%dpx"/></span>' %
                (name, html.escape(description), width, least))
    return ('<span class="picture"><picture><source media="(max-width: 800px)" srcset="%s" width="%d"/>'
            '<img src="%s" alt="%s"/></picture></span>' % (narrow, size_of(narrow)[0], name, html.escape(description)))


def finished(page, text):
    text = text.replace("<!-- navigation -->", navigation(page), 1)
    text = text.replace("</div><!-- top -->", "</div><!-- top -->\n<main>", 1)
    text = re.sub(r'<div id="nav-path".*?</div>', "", text, count=1, flags=re.S)
    text = re.sub(r'<div class="summary">.*?</div>', "", text, count=1, flags=re.S)
    text = with_places(text)
    text = text.replace("</div><!--header-->", "</div><!--header-->\n" + contents(text), 1)
    text = text.replace("<!-- start footer part -->", "</main>", 1)
    text = re.sub(r" (Class|File|Struct)( Template)? Reference( ·|</div>)", r"\3", text)
    text = re.sub(r' onclick="javascript:toggleInherit\(.*?\)"><img [^>]*>&#160;', ">", text)
    text = re.sub(r'(<dl class="section \w+"><dt>)(Example|See also)</dt>',
                  lambda match: match.group(1).replace("section", "section quiet") + match.group(2) + "</dt>", text)
    # A header of one class has no page of its own.
    text = re.sub(r'href="(\w+)_8h\.html"', lambda match: 'href="class%s.html"' % match.group(1)
                  if (site / ("class%s.html" % match.group(1))).exists() else match.group(0), text)
    text = re.sub(r'<div class="ttc".*?</div></div>\n?', "", text)  # tooltips, which need Doxygen's scripts
    text = text.replace('href="Arrays_8h.html"', 'href="md_docs_guides_arrays.html"')
    text = re.sub(r'<(?:object|img)\b[^>]*?(?:data|src)="(?:[^"]*/)?([^"/]*\.svg)"[^>]*>(?:</object>)?',
                  lambda match: shown_picture(match.group(1), descriptions.get(match.group(1), "")), text)
    # A constructor has no type before its name.
    text = re.sub(r'(<td class="memItemLeft"[^>]*>(?:<a [^>]*></a>)?\s*)&#160;</td>', r"\1</td>", text)
    # A table that is wider than the page scrolls by itself.
    return re.sub(r'<table class="(markdownTable|doxtable)">(.*?)</table>',
                  r'<div class="scroll"><table class="\1">\2</table></div>', text, flags=re.S)


# The navigation and the search replace Doxygen's indices and its scripts.
for pattern in ("*-members.html", "functions*.html", "globals*.html", "dir_*.html", "annotated.html", "classes.html",
                "files.html", "hierarchy.html", "inherits.html", "pages.html", "Arrays_8h.html", "namespace*.html",
                "*.js", "*.png", "doxygen.svg"):
    for page in site.glob(pattern):
        page.unlink()
for page in site.glob("*_8h.html"):
    if (site / ("class%s.html" % page.name[:-len("_8h.html")])).exists():
        page.unlink()

listed = {page for _, group in NAVIGATION for page, _ in entries(group)}
written = {page.name for pattern in ("index.html", "md_*.html", "example*.html", "class*.html", "*_8h.html")
           for page in site.glob(pattern)}
if listed != written:
    raise SystemExit("the navigation and the pages differ in: %s" % " ".join(sorted(listed ^ written)))

for picture in docs.rglob("*.svg"):
    target = site / picture.relative_to(docs)
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(picture, target)
    shutil.copy(picture, site / picture.name)
shutil.copy(docs / "site" / "site.js", site)

descriptions = descriptions_of_pictures()
texts = {page.name: finished(page.name, page.read_text()) for page in sorted(site.glob("*.html"))}
bare = [page for page, text in texts.items() if page.startswith("class")
        and not ("<dt>Example</dt>" in text and "<dt>See also</dt>" in text)]
if bare:
    raise SystemExit("class pages without an example or without guides, see class_pages.py: %s" % " ".join(bare))
names = {}
for page, text in texts.items():
    if 'class="memberdecls"' in text:
        owner = search_index.places_of(page, text)[0][search_index.TITLE].split("::")[-1].split("<")[0]
        for _, anchor, title, *_ in search_index.members(page, text, owner):
            target = "%s#%s" % (page, anchor)
            names.setdefault((page, title), target)
            names.setdefault(("vexor" if page.endswith("_8h.html") else owner, title), target)
bare = [page for page, text in texts.items() if page.startswith("example_") and 'class="picture"' not in text]
if bare:
    raise SystemExit("example pages without a picture: %s" % " ".join(bare))
pages_of = collections.Counter(member for owner, member in names if owner in texts)
alone = {member: target for (owner, member), target in names.items() if owner in texts and pages_of[member] == 1}
for page, text in texts.items():
    (site / page).write_text(with_whole_chips(linked(text, page, names)))
search_index.write(site, [page for _, group in NAVIGATION for page, _ in entries(group)])
