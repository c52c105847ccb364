#!/usr/bin/env python3
"""Shows Doxygen a Markdown page: each heading gets the anchor that links to it use.

Links such as [text](#the-heading) work by themselves where Markdown is shown; Doxygen wants the anchor
written down, and different ones on different pages. The page of an example program also gets the text about its data,
which it links to, and its code.
"""

import pathlib
import re
import sys

root = pathlib.Path(__file__).resolve().parent.parent.parent
page = pathlib.Path(sys.argv[1])
folder = page.resolve().parent
is_example = page.name == "README.md" and folder != root


def prefix_of(path):
    """The beginning of a page's anchors; for a page of the examples also its name."""
    if path.stem != "README" or "examples" not in path.relative_to(root).parts:
        return path.stem.replace("-", "_").lower() + "_"
    return "examples_" if path.parent.name == "examples" else "example_%s_" % path.parent.name


prefix = prefix_of(folder / page.name)


def anchor(title):
    words = re.sub(r"[^\w\s-]", "", title.lower()).strip()
    return prefix + re.sub(r"\s", "-", words)


def link(match):
    text, target, place = match.groups()
    path = (folder / target).resolve() if target else folder / page.name
    if place:
        return "[%s](#%s%s)" % (text, prefix_of(path), place)
    if is_example and path.parent.parent.name == "data":
        return "[%s](#%s)" % (text, anchor("The data")) if prefix != "examples_" else text
    if target and path.name == "README.md" and path.parent != root:
        # Doxygen shows no code in the text of such a link.
        return "[%s](#%s)" % (text.replace("`", ""), prefix_of(path).rstrip("_"))
    return text if is_example and path.suffix != ".md" else match.group(0)


def with_data(text):
    """Puts the README of the data that an example links to, without its title, at the end."""
    for target in re.findall(r"\]\((\.\./data/\w+/README\.md)\)", text):
        about = (folder / target).read_text()
        text += "\n" + re.sub(r"^##", "###", about.split("\n", 1)[1], flags=re.M)
    return text


def code():
    sources = sorted(path for path in folder.iterdir() if path.suffix in (".h", ".cpp", ".py"))
    sources.sort(key=lambda path: path.name != "main.cpp")
    parts = ["## The code"] if sources else []
    for path in sources:
        language = "py" if path.suffix == ".py" else "cpp"
        parts.append("### %s\n\n```{.%s}\n%s```" % (path.name, language, path.read_text()))
    return "\n\n".join(parts)


text = page.read_text()
if page.name == "README.md" and not is_example:
    text = text.replace("\n", " {#mainpage}\n", 1)
elif is_example:
    text = re.sub(r"^# (.*)$", r"# \1 {#%s}" % prefix.rstrip("_"), text, count=1, flags=re.M)
    text = "%s\n\n%s\n" % (with_data(text), code() if prefix != "examples_" else "")
in_code = False
for line in text.splitlines():
    if line.startswith("```"):
        in_code = not in_code
    if not in_code:
        heading = re.match(r"(##+) (.*)$", line)
        if heading:
            line = "%s %s {#%s}" % (heading.group(1), heading.group(2), anchor(heading.group(2)))
        else:
            line = line.replace("\\|", "\u2223")  # Doxygen takes \| in a link for a command
            line = re.sub(r"(!\[[^\]]*\]\()[\w./-]*/([\w-]+\.svg\))", r"\1pictures/\2", line)
            line = re.sub(r"(?<!!)\[(`[^`]*`|[^\]]*)\]\(((?![a-z]+:)[^()#\s]*)(?:#([\w-]+))?\)", link, line)
    print(line)
