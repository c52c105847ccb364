#!/usr/bin/env python3
"""Checks the finished site: every link and picture leads somewhere, and every page can be read on a phone.

The first is told from the files; for the second headless Chromium loads each page in a frame as wide as a phone.
"""

import functools
import html.parser
import http.server
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import urllib.parse

site = pathlib.Path(sys.argv[1]).resolve()
PHONE_WIDTH = 390
SMALLEST_TEXT = 12

PROBE = """<!doctype html><title></title><body><script>
const report = [];
async function look(page) {
    const frame = document.createElement("iframe");
    frame.style = "width:%dpx;height:800px;border:0";
    const loaded = new Promise(done => frame.onload = done);
    frame.src = page;
    document.body.append(frame);
    await loaded;
    const inside = frame.contentDocument;
    await Promise.all([...inside.images].map(image => image.decode().catch(() => 0)));
    const small = [...inside.querySelectorAll("main p, main li, main td, main .line")].filter(element =>
        element.textContent.trim() && element.offsetParent
        && !element.matches(".memSeparator")
        && parseFloat(frame.contentWindow.getComputedStyle(element).fontSize) < %d);
    report.push({page, hasMain: !!inside.querySelector("main"),
        width: inside.documentElement.scrollWidth,
        missing: [...inside.images].filter(image => !image.naturalWidth).map(image => image.src),
        small: small.slice(0, 3).map(element => element.textContent.trim().slice(0, 40))});
    frame.remove();
}
(async () => {
    for (const page of %s)
        await look(page);
    const result = document.createElement("pre");
    result.id = "report";
    result.textContent = JSON.stringify(report);
    document.body.replaceChildren(result);
})();
</script></body>"""


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


class Report(html.parser.HTMLParser):
    """The text of the element `report`."""

    def __init__(self, text):
        super().__init__()
        self.text, self.is_inside = "", False
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        self.is_inside = dict(attributes).get("id") == "report"

    def handle_data(self, data):
        if self.is_inside:
            self.text += data


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
    for index in (site / "search").glob("*.js"):
        for name, place in re.findall(r"'\.\./([\w.-]+\.html)#?([\w-]*)'", index.read_text()):
            target = site / name
            if target not in pages:
                yield "search/%s: %s leads nowhere" % (index.name, name)
            elif place and place not in pages[target].names:
                yield "search/%s: %s#%s has no such place" % (index.name, name, place)


def trouble_on_a_phone(chromium):
    handler = functools.partial(QuietHandler, directory=str(site))
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    pages = sorted(page.name for page in site.glob("*.html"))
    probe = site / "probe.html"
    probe.write_text(PROBE % (PHONE_WIDTH, SMALLEST_TEXT, json.dumps(pages)))
    with tempfile.TemporaryDirectory() as profile:
        dom = subprocess.run(
            [chromium, "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-sync", "--disable-quic",
             "--virtual-time-budget=600000", "--user-data-dir=" + profile,
             "--dump-dom", "http://127.0.0.1:%d/probe.html" % server.server_port],
            capture_output=True, text=True, timeout=300).stdout
    probe.unlink()
    server.shutdown()
    text = Report(dom).text
    report = json.loads(text) if text else []
    for page in sorted(set(pages) - {found["page"] for found in report}):
        yield "%s: did not load" % page
    for found in report:
        if not found["hasMain"]:
            yield "%s: has no content" % found["page"]
        if found["width"] > PHONE_WIDTH:
            yield "%s: %d pixels wide on a phone" % (found["page"], found["width"])
        for picture in found["missing"]:
            yield "%s: the picture %s does not load" % (found["page"], picture)
        for text in found["small"]:
            yield "%s: smaller than %d pixels on a phone: %s" % (found["page"], SMALLEST_TEXT, text)


chromium = shutil.which("chromium")
if not chromium:
    raise SystemExit("chromium is missing: scripts/install-dependencies docs")
problems = list(broken_links()) + list(trouble_on_a_phone(chromium))
for problem in problems:
    print(problem)
if problems:
    raise SystemExit("%d problems" % len(problems))
print("every link and picture is there, and every page fits a phone")
