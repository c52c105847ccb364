#!/usr/bin/env python3
"""Checks the finished site: links lead somewhere, pages can be read on a phone and in the dark, words are found.

The links are read from the files. For the rest headless Chromium loads each page in a frame as wide as a phone, and
types words into the search of a page that is opened as a file.
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
SMALLEST_LETTERING = 11
LEAST_CONTRAST = 4.5  # of text, by the Web Content Accessibility Guidelines
# The words, and the beginning of a link that is expected among the first three results.
SEARCHES = {
    "determinant": "make_8h.html#",
    "install": "md_docs_guides_installing.html",
    "print": "md_docs_guides_extras.html#extras_printing",
    "euler": "md_docs_conventions.html#conventions_euler-angles",
    "least squares": "md_docs_guides_solvers.html#solvers_least-squares",
}

PROBE = """<!doctype html><title></title><body><script>
const report = [];

// The smallest lettering of a picture, as it is displayed.
const sizes = {};
async function lettering(image) {
    const source = image.currentSrc;
    if (!source.endsWith(".svg"))
        return Infinity;
    if (!(source in sizes)) {
        const box = document.createElement("div");
        box.innerHTML = await (await fetch(source)).text();
        document.body.append(box);
        sizes[source] = Math.min(Infinity, ...[...box.querySelectorAll("text, tspan")].map(text =>
            parseFloat(getComputedStyle(text).fontSize))) / box.querySelector("svg").viewBox.baseVal.width;
        box.remove();
    }
    return sizes[source] * image.width;
}

// Punctuation that stands on the line below the code that it belongs to.
function isTorn(code) {
    const next = code.nextSibling;
    if (!next || next.nodeType !== Node.TEXT_NODE || !/^\\u2060?[.,;:)!?]/.test(next.data) || !code.offsetParent)
        return false;
    const range = code.ownerDocument.createRange();
    range.setStart(next, 0);
    range.setEnd(next, next.data.search(/[.,;:)!?]/) + 1);
    const boxes = [...code.getClientRects()];
    return range.getBoundingClientRect().top > boxes[boxes.length - 1].bottom;
}

function luminance(colour) {
    const parts = colour.match(/[\\d.]+/g).slice(0, 3).map(part => part / 255).map(part =>
        part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
    return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2];
}

function background(element, style) {
    for (; element; element = element.parentElement) {
        const colour = style(element).backgroundColor;
        if (!/, 0\\)$/.test(colour))
            return colour;
    }
    return "rgb(255, 255, 255)";
}

function faint(inside, style) {
    const seen = {};
    const parts = "#bar a, #side a, main p, main a, main td, main th, main code, main span, footer";
    for (const element of inside.querySelectorAll(parts))
        if (element.textContent.trim() && element.offsetParent
            && !element.matches(".memSeparator, .permalink *")) {
            const colour = style(element).color;
            const pair = colour + " on " + background(element, style);
            if (pair in seen)
                continue;
            const [light, dark] = [luminance(colour), luminance(background(element, style))].sort((a, b) => b - a);
            seen[pair] = (light + 0.05) / (dark + 0.05) < LEAST_CONTRAST ? element.textContent.trim().slice(0, 40) : "";
        }
    return Object.entries(seen).filter(([, text]) => text).map(([pair, text]) => pair + ": " + text);
}

async function look(page) {
    const frame = document.createElement("iframe");
    frame.style = "width:PHONE_WIDTHpx;height:800px;border:0";
    const loaded = new Promise(done => frame.onload = done);
    frame.src = page;
    document.body.append(frame);
    await loaded;
    const inside = frame.contentDocument;
    const style = element => frame.contentWindow.getComputedStyle(element);
    const images = [...inside.images];
    await Promise.all(images.map(image => image.decode().catch(() => 0)));
    const small = [...inside.querySelectorAll("main p, main li, main td, main .line")].filter(element =>
        element.textContent.trim() && element.offsetParent
        && !element.matches(".memSeparator")
        && parseFloat(style(element).fontSize) < SMALLEST_TEXT);
    const letterings = await Promise.all(images.map(lettering));
    const colours = [];
    for (const choice of ["light", "dark"]) {
        inside.documentElement.dataset.colours = choice;
        colours.push(...faint(inside, style));
    }
    report.push({page, hasMain: !!inside.querySelector("main"),
        width: inside.documentElement.scrollWidth,
        missing: images.filter(image => !image.naturalWidth).map(image => image.src),
        lettering: images.map((image, i) => [image.currentSrc.replace(/.*\\//, ""), letterings[i]])
            .filter(([, size]) => size < SMALLEST_LETTERING),
        torn: [...inside.querySelectorAll("main code")].filter(isTorn).map(code => code.textContent),
        faint: colours,
        small: small.slice(0, 3).map(element => element.textContent.trim().slice(0, 40))});
    frame.remove();
}
(async () => {
    for (const page of PAGES)
        await look(page);
    const result = document.createElement("pre");
    result.id = "report";
    result.textContent = JSON.stringify(report);
    document.body.replaceChildren(result);
})();
</script></body>"""

# Types each query letter by letter and waits for its results. Then presses the button of the colours twice.
TYPIST = """<script>
document.addEventListener("DOMContentLoaded", async () => {
    const field = document.getElementById("query");
    const results = document.getElementById("results");
    const report = {};
    for (const query of QUERIES) {
        field.focus();
        field.value = "";
        for (const letter of query) {
            field.value += letter;
            field.dispatchEvent(new Event("input"));
        }
        for (let wait = 0; results.dataset.query !== query && wait < 500; ++wait)
            await new Promise(done => setTimeout(done, 20));
        report[query] = [...results.querySelectorAll("a")].map(link => link.getAttribute("href"));
    }
    report.colours = [0, 1, 2].map(press => {
        if (press)
            document.getElementById("colours").click();
        return document.documentElement.dataset.colours;
    });
    const result = document.createElement("pre");
    result.id = "report";
    result.textContent = JSON.stringify(report);
    document.body.replaceChildren(result);
});
</script></head>"""


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.links, self.names = [], set()
        self.feed(path.read_text())

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        for key in ("href", "src", "srcset", "data"):
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
    index = json.loads((site / "search-index.js").read_text().split("=", 1)[1].rstrip(";\n"))
    for name, place, *_ in index:
        if site / name not in pages:
            yield "search-index.js: %s leads nowhere" % name
        elif place and place not in pages[site / name].names:
            yield "search-index.js: %s#%s has no such place" % (name, place)


def report_of(chromium, address):
    """What the page at an address leaves in its element `report`."""
    with tempfile.TemporaryDirectory() as profile:
        # A phone's scroll bars take no room.
        dom = subprocess.run(
            [chromium, "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run", "--hide-scrollbars",
             "--disable-background-networking", "--disable-component-update", "--disable-sync", "--disable-quic",
             "--virtual-time-budget=600000", "--user-data-dir=" + profile, "--dump-dom", address],
            capture_output=True, text=True, timeout=300).stdout
    text = Report(dom).text
    return json.loads(text) if text else []


def trouble_on_a_phone(chromium):
    handler = functools.partial(QuietHandler, directory=str(site))
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    pages = sorted(page.name for page in site.glob("*.html"))
    probe = site / "probe.html"
    text = PROBE.replace("PAGES", json.dumps(pages))
    for name in ("PHONE_WIDTH", "SMALLEST_TEXT", "SMALLEST_LETTERING", "LEAST_CONTRAST"):
        text = text.replace(name, str(globals()[name]))
    probe.write_text(text)
    report = report_of(chromium, "http://127.0.0.1:%d/probe.html" % server.server_port)
    probe.unlink()
    server.shutdown()
    for page in sorted(set(pages) - {found["page"] for found in report}):
        yield "%s: did not load" % page
    for found in report:
        if not found["hasMain"]:
            yield "%s: has no content" % found["page"]
        if found["width"] > PHONE_WIDTH:
            yield "%s: %d pixels wide on a phone" % (found["page"], found["width"])
        for picture in found["missing"]:
            yield "%s: the picture %s does not load" % (found["page"], picture)
        for picture, size in found["lettering"]:
            yield "%s: lettering of %.1f pixels on a phone in %s" % (found["page"], size, picture)
        for text in found["torn"]:
            yield "%s: punctuation is torn from %s" % (found["page"], text)
        for text in found["faint"]:
            yield "%s: low contrast, %s" % (found["page"], text)
        for text in found["small"]:
            yield "%s: smaller than %d pixels on a phone: %s" % (found["page"], SMALLEST_TEXT, text)


def trouble_with_the_search(chromium):
    probe = site / "probe.html"
    probe.write_text((site / "index.html").read_text().replace("</head>", TYPIST.replace(
        "QUERIES", json.dumps(list(SEARCHES))), 1))
    report = report_of(chromium, probe.as_uri())
    probe.unlink()
    for query, expected in SEARCHES.items():
        first = report[query][:3] if report else []
        if not any(link.startswith(expected) for link in first):
            yield "the search for %s does not find %s first, but %s" % (query, expected, " ".join(first) or "nothing")
    if not report or report["colours"] != ["light", "dark", "light"]:
        yield "the button does not switch the colours: %s" % (report and report["colours"])


chromium = shutil.which("chromium")
if not chromium:
    raise SystemExit("chromium is missing: scripts/install-dependencies docs")
problems = list(broken_links()) + list(trouble_on_a_phone(chromium)) + list(trouble_with_the_search(chromium))
for problem in problems:
    print(problem)
if problems:
    raise SystemExit("%d problems" % len(problems))
print("every link and picture is there, every page fits a phone, in the dark too, and the search finds its pages")
