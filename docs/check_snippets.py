#!/usr/bin/env python3
"""Holds the code in the documentation against the programs that are compiled and run.

Every block of C++ or Python in a Markdown file stands below a comment that names its source:
    <!-- snippet: docs/snippets/file.cpp -->           the whole file
    <!-- snippet: docs/snippets/file.cpp region -->    from '// [region]' to the next '// [region]'
and a block of printed output below <!-- output: docs/snippets/file.out -->, or below
<!-- output: docs/snippets/file.out 3-5 --> for its lines 3 to 5.
With --write the blocks are filled in from their sources.
"""

import pathlib
import re
import sys
import textwrap

root = pathlib.Path(__file__).resolve().parent.parent
BLOCK = re.compile(r"(?:<!-- (snippet|output): (\S+)(?: (\S+))? -->\n)?```(\w*)\n(.*?)```\n", re.S)


def source(path, region):
    text = (root / path).read_text()
    if region is None:
        return text
    lines = re.fullmatch(r"(\d+)-(\d+)", region)
    if lines:
        first, last = int(lines.group(1)), int(lines.group(2))
        if not 0 < first <= last <= len(text.splitlines()):
            raise SystemExit("%s has no lines %s" % (path, region))
        return "".join(line + "\n" for line in text.splitlines()[first - 1:last])
    pieces = re.split(r"^ *(?://|#) \[%s\]\n" % re.escape(region), text, flags=re.M)
    if len(pieces) != 3:
        raise SystemExit("%s: region %s does not stand between two marks" % (path, region))
    return textwrap.dedent(pieces[1])


def main():
    write = "--write" in sys.argv
    wrong = blocks = 0
    installing = (root / "docs/guides/installing.md").read_text()
    for page in [root / "README.md", *sorted((root / "docs").rglob("*.md"))]:
        text = page.read_text()

        def check(match):
            nonlocal wrong, blocks
            kind, path, region, language, body = match.groups()
            if kind is None:
                if language in ("cpp", "c++", "python"):
                    print("%s: a block of code names no source:\n%s" % (page.name, body))
                    wrong += 1
                return match.group(0)
            blocks += 1
            expected = source(path, region)
            if body == expected:
                return match.group(0)
            if not write:
                print("%s: differs from %s %s" % (page.name, path, region or ""))
                wrong += 1
            head = match.group(0)[: match.group(0).index("```")]
            return "%s```%s\n%s```\n" % (head, language, expected)

        filled = BLOCK.sub(check, text)
        if write and filled != text:
            page.write_text(filled)
        # scripts/test-install runs the shell commands of the installation page; other pages may repeat them.
        for commands in re.findall(r"^```sh\n(.*?)```\n", text, re.S | re.M):
            if page.name in ("README.md", "get-started.md") and commands not in installing:
                print("%s: these commands are not on the installation page:\n%s" % (page.name, commands))
                wrong += 1
    if wrong:
        raise SystemExit("%d blocks differ" % wrong)
    if blocks == 0:
        raise SystemExit("no block of code found")
    print("each of the %d blocks of code is the program's" % blocks)


main()
