"""The index of the full-text search: a list of places (page, section or member), each with its text.

The search itself, site.js, reads this list as a script, because a page that is opened from a file may not load data.
"""

import html
import json
import re

TITLE = 2

# The tags of the browser's own text flow; a space stands for any other tag.
INLINE = re.compile(r"</?(?:a|b|em|strong|code|span|sub|sup)\b[^>]*>")


def plain(markup):
    text = re.sub(r"<(script|style)\b.*?</\1>", " ", markup, flags=re.S)
    text = re.sub(r"<[^>]*>", " ", INLINE.sub("", text))
    return re.sub(r"\s+", " ", html.unescape(text).replace("More...", "")).strip()


def members(page, text, owner):
    """One place for each name of a class or header; overloads share it."""
    details = dict(re.findall(r'<a id="(\w+)" name="\w+"></a>\s*<h2 class="memtitle">.*?<div class="memdoc">(.*?)'
                              r'\n</div>\n</div>', text, re.S))
    places = {}
    rows = re.findall(r'<tr class="memitem:(\w+)[^"]*">(.*?)</tr>(?:\s*<tr class="memdesc:\1[^"]*">(.*?)</tr>)?',
                      text, re.S)
    for anchor, declaration, description in rows:
        name = re.search(r'<(?:b|a class="el"[^>]*)>([^<]+)</(?:b|a)>', declaration.split('memItemRight"')[-1])
        if not name or 'id="%s"' % anchor not in text:
            continue
        title = plain(name.group(1))
        place = places.setdefault(title, [page, anchor, title, owner, "member", ""])
        words = "%s. %s" % (plain(declaration), plain(details.get(anchor, description)))
        place[5] = ("%s %s" % (place[5], words)).strip()
    return list(places.values())


def places_of(page, text):
    """The places of one finished page."""
    title = plain(re.search(r'<div class="title">(.*?)</div>', text, re.S).group(1))
    content = text.split('<div class="contents">', 1)[1].split("</main>", 1)[0]
    if 'class="memberdecls"' in content:
        head, _ = content.split('<table class="memberdecls">', 1)
        return [[page, "", title, "", "page", plain(head)]] + members(page, content, title)
    pieces = re.split(r'<h[1-4]><a class="anchor" id="([\w-]+)"></a>(.*?)</h[1-4]>', content, flags=re.S)
    places = [[page, "", title, "", "page", plain(pieces[0])]]
    for anchor, heading, body in zip(pieces[1::3], pieces[2::3], pieces[3::3]):
        if page.startswith("example") and plain(heading).endswith((".cpp", ".h", ".py")):
            continue  # the sources of an example
        places.append([page, anchor, plain(heading), title, "section", plain(body)])
    return places


def write(site, pages):
    places = [place for page in pages for place in places_of(page, (site / page).read_text())]
    lines = ",\n".join(json.dumps(place, ensure_ascii=False) for place in places)
    (site / "search-index.js").write_text("const SEARCH_INDEX = [\n%s\n];\n" % lines)
