#!/usr/bin/env python3
"""Shows Doxygen a header as its reader sees it.

A line such as `// ---- Length ----` in a class opens a group of members, and the remarks right below it hold for
the whole group; free operators and objects belong to the page of the class that the header declares.
"""

import pathlib
import re
import sys

header = pathlib.Path(sys.argv[1])
text = header.read_text()
name = header.stem
has_class = re.search(r"^class VEXOR_CLASS %s\b" % name, text, re.M)
HEADING = re.compile(r"(    )// ---- (.*?) -+$")
FREE = re.compile(r"(extern )?VEXOR_(API|INLINE) [^:(]*\boperator\W+\(|extern VEXOR_API ")

in_group = in_heading = False
print("/// @file")
for line in text.splitlines():
    if line.strip().startswith("~") and line.endswith("= default;"):
        continue  # a destructor that does nothing says nothing
    heading = HEADING.match(line)
    if in_heading and line.startswith("    // "):
        line = line.replace("//", "///", 1)
    elif in_heading:
        print("    /// @{")
        in_heading, in_group = False, True
    if in_group and (heading or line.rstrip() in ("};", "private:")):
        print("    /// @}")
        in_group = False
    if heading:
        line = "    /// @name %s" % heading.group(2)
        in_heading = True
    if has_class and FREE.match(line):
        print("/// @relates %s" % name)
    print(line)
