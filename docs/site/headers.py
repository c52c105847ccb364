#!/usr/bin/env python3
"""Shows Doxygen a header as its reader sees it.

A line such as `// ---- Length ----` in a class opens a group of members, and the remarks right below it hold for
the whole group; free operators and objects belong to the page of the class that the header declares. The remarks at
the head of a header without a class describe the header. class_pages.py adds an example and links to guides.
"""

import pathlib
import re
import sys

import class_pages

header = pathlib.Path(sys.argv[1])
lines = header.read_text().splitlines()
name = header.stem
CLASS = re.compile(r"class (?:VEXOR_\w+ )?(\w+)(?: : .*)? \{$")
HEADING = re.compile(r"(    )// ---- (.*?) -+$")
FREE = re.compile(r"(extern )?VEXOR_(API|INLINE) [^:(]*\boperator\W+\(|extern VEXOR_API ")
has_class = any(found and found.group(1) == name for found in map(CLASS.match, lines))


def head_of_file():
    """The first remarks that stand in front of everything that is declared, and describe the header."""
    first = next((i for i, line in enumerate(lines) if re.match(r"//( |$)", line)), None)
    declared = next((i for i, line in enumerate(lines) if line.startswith(("///", "namespace"))), len(lines))
    if first is None or first > declared:
        return range(0)
    last = next((i for i in range(first, len(lines)) if not re.match(r"//( |$)", lines[i])), len(lines))
    return range(first, last)


def documentation(text_lines):
    return [("/// " + line).rstrip() for line in text_lines]


head = range(0) if has_class else head_of_file()
result = ["/// @file", *("/" + lines[i] for i in head)]
if name in class_pages.SEE_ALSO and not has_class:
    result += documentation(["", "`#include <%s>`" % header.resolve().relative_to(class_pages.root).as_posix()])
    result += documentation(class_pages.extra_lines(name))
result.append("")
in_group = in_heading = False
for number, line in enumerate(lines):
    if line.strip().startswith("~") and line.endswith("= default;"):
        continue  # a destructor that does nothing says nothing
    heading = HEADING.match(line)
    if in_heading and line.startswith("    // "):
        line = line.replace("//", "///", 1)
    elif in_heading:
        result.append("    /// @{")
        in_heading, in_group = False, True
    if in_group and (heading or line.rstrip() in ("};", "private:")):
        result.append("    /// @}")
        in_group = False
    if heading:
        line = "    /// @name %s" % heading.group(2)
        in_heading = True
    if has_class and FREE.match(line):
        result.append("/// @relates %s" % name)
    # The comment of a class template stands in front of its parameters.
    declared = CLASS.match(lines[number + 1] if line.startswith("template") and number + 1 < len(lines) else line)
    if declared and not lines[number - 1].startswith("template"):
        result += documentation(class_pages.extra_lines(declared.group(1)))
    result.append(line)
print("\n".join(result))
