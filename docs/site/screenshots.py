#!/usr/bin/env python3
"""Takes pictures of the finished site: start page, a class page, a search, dark colours, a phone.

Usage: screenshots.py SITE FOLDER
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

site, folder = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
SEARCHES = ("determinant", "install", "print", "euler", "least squares")
DARK = "--blink-settings=preferredColorScheme=0"
WIDE = (1280, 900)
# A window of Chromium is at least 500 pixels wide, so a phone is a frame in one.
PHONE = '<body style="margin:0"><iframe src="%s" style="width:400px;height:860px;border:0"></iframe></body>'

shots = [("start", "index.html", WIDE, ()), ("get-started", "md_docs_guides_get_started.html", WIDE, ()),
         ("class", "classVec3Dbl.html", WIDE, ()), ("dark", "classVec3Dbl.html", WIDE, (DARK,)),
         ("example", "example_superpose.html", WIDE, ())]
shots += [("search-" + words.replace(" ", "-"), "index.html?q=" + words.replace(" ", "%20"), WIDE, ())
          for words in SEARCHES]
phones = [("phone", "md_docs_guides_recipes.html", ()), ("phone-dark", "md_docs_conventions.html", (DARK,))]


def shoot(address, name, size, options):
    with tempfile.TemporaryDirectory() as profile:
        subprocess.run([shutil.which("chromium"), "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                        "--hide-scrollbars", "--virtual-time-budget=5000", "--user-data-dir=" + profile,
                        "--window-size=%d,%d" % size, "--screenshot=%s" % (folder / (name + ".png")), *options, address],
                       check=True, capture_output=True, timeout=120)


folder.mkdir(parents=True, exist_ok=True)
for name, page, size, options in shots:
    shoot((site / "index.html").as_uri().replace("index.html", page), name, size, options)
with tempfile.TemporaryDirectory() as frames:
    for name, page, options in phones:
        frame = pathlib.Path(frames) / "frame.html"
        frame.write_text(PHONE % (site / page).as_uri())
        shoot(frame.as_uri(), name, (400, 860), options)
print("%d pictures in %s" % (len(shots) + len(phones), folder))
