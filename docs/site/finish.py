#!/usr/bin/env python3
"""Finishes Doxygen's pages: says to phones that the pages fit them, and copies the pictures."""

import pathlib
import shutil
import sys

site = pathlib.Path(sys.argv[1])
docs = pathlib.Path(__file__).resolve().parent.parent
for picture in docs.rglob("*.svg"):
    target = site / picture.relative_to(docs)
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(picture, target)
    shutil.copy(picture, site / picture.name)
for page in site.rglob("*.html"):
    text = page.read_text()
    if 'name="viewport"' not in text:
        page.write_text(text.replace("<head>", '<head>\n<meta name="viewport" content="width=device-width, initial-scale=1"/>', 1))
