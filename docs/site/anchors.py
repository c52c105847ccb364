#!/usr/bin/env python3
"""Gives each heading of a Markdown page the anchor that links to it use, for Doxygen.

Links such as [text](#the-heading) work by themselves where Markdown is shown; Doxygen wants the anchor
written down, and different ones on different pages.
"""

import pathlib
import re
import sys

page = pathlib.Path(sys.argv[1])


def prefix_of(stem):
    return stem.replace("-", "_").lower() + "_"


prefix = prefix_of(page.stem)


def anchor(title):
    words = re.sub(r"[^\w\s-]", "", title.lower()).strip()
    return prefix + re.sub(r"\s", "-", words)


in_code = False
for number, line in enumerate(page.read_text().splitlines()):
    if line.startswith("```"):
        in_code = not in_code
    if not in_code:
        heading = re.match(r"(##+) (.*)$", line)
        if heading:
            line = "%s %s {#%s}" % (heading.group(1), heading.group(2), anchor(heading.group(2)))
        else:
            line = re.sub(r"\]\(#([\w-]+)\)", lambda link: "](#%s%s)" % (prefix, link.group(1)), line)
            line = re.sub(r"\]\((?:[\w./-]*/)?([\w-]+)\.md#([\w-]+)\)",
                          lambda link: "](#%s%s)" % (prefix_of(link.group(1)), link.group(2)), line)
    print(line)
