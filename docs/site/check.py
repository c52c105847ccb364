#!/usr/bin/env python3
"""Checks the finished site: every link and picture leads somewhere, and no page is wider than a phone."""

import functools
import html.parser
import http.server
import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import urllib.parse

site = pathlib.Path(sys.argv[1]).resolve()
PAGES_ON_A_PHONE = ["index.html", "classVec3Dbl.html", "classMatDbl.html"]


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.links, self.names = [], set()
        self.feed(path.read_text())

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        for key in ("href", "src", "data"):
            if attributes.get(key):
                self.links.append(attributes[key])
        for key in ("id", "name"):
            if attributes.get(key):
                self.names.add(attributes[key])


class QuietHandler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


def broken_links():
    pages = {path: Page(path) for path in site.rglob("*.html")}
    for path, page in pages.items():
        for link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme or link.startswith(("javascript:", "//")):
                continue
            target = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
            if target.is_dir():
                target = target / "index.html"
            if not target.exists():
                yield "%s: %s leads nowhere" % (path.name, link)
            elif parts.fragment and target in pages and parts.fragment not in pages[target].names:
                yield "%s: %s has no such place" % (path.name, link)


def too_wide(chromium):
    """Loads pages in a window as wide as a phone and compares the page's width with it."""
    handler = functools.partial(QuietHandler, directory=str(site))
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    guides = [page.name for page in site.glob("md_docs_*.html")]
    for name in PAGES_ON_A_PHONE + guides:
        if not (site / name).exists():
            yield "%s: missing" % name
            continue
        with tempfile.TemporaryDirectory() as profile:
            probe = site / "probe.html"
            probe.write_text(
                '<!doctype html><title></title><body><iframe id="f" style="width:390px;height:800px;border:0"></iframe>'
                '<script>const f=document.getElementById("f");f.onload=()=>setTimeout(()=>{const d=f.contentDocument;'
                'document.title=d.documentElement.scrollWidth+" "+d.images.length+" "+'
                '[...d.images].filter(i=>!i.complete||!i.naturalWidth).map(i=>i.src).join(",")},300);'
                'f.src="%s"</script>' % name)
            dom = subprocess.run(
                [chromium, "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                 "--disable-background-networking", "--disable-component-update", "--disable-sync", "--disable-quic",
                 "--virtual-time-budget=8000", "--user-data-dir=" + profile,
                 "--dump-dom", "http://127.0.0.1:%d/probe.html" % server.server_port],
                capture_output=True, text=True, timeout=120).stdout
            probe.unlink()
        title = dom.partition("<title>")[2].partition("</title>")[0].split()
        if not title:
            yield "%s: did not load" % name
        elif int(title[0]) > 400:
            yield "%s: %s pixels wide on a phone" % (name, title[0])
        elif len(title) > 2:
            yield "%s: pictures that do not load: %s" % (name, title[2])


problems = list(broken_links())
chromium = shutil.which("chromium")
if chromium:
    problems += too_wide(chromium)
else:
    print("chromium is missing: the pages were not loaded")
for problem in problems:
    print(problem)
if problems:
    raise SystemExit("%d problems" % len(problems))
print("every link and picture is there, and every page fits a phone")
