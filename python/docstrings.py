#!/usr/bin/env python3
"""Writes the comments of the headers as a C++ table, from which the Python module takes its docstrings.

Usage: docstrings.py OUTPUT HEADER...

A comment of `///` lines belongs to the declaration below it. The key is Class, Class.member or arrays.function; a free
operator belongs to the first class among its parameters. Comments of overloads are joined.
"""

import pathlib
import re
import sys

CLASS = re.compile(r"class (?:VEXOR_CLASS |VEXOR_API )(\w+)[^;]*\{$")
NAME = re.compile(r"(operator *(?:\(\)|\[\]|[^\s(\w]+|\w+)|~?\w+) *\(")
FIELD = re.compile(r"^(?:std::)?\w+ (\w+); *///< (.*)$")
WORDS = r"VEXOR_\w+|constexpr|explicit|inline|static|virtual"
# What says nothing to a Python program: it has no const and includes no header.
NOT_FOR_PYTHON = re.compile(r"^The same, read-only\. ?|(?:^| )Requires \w+\.h\.")


def members(text):
    """Yields (class or None, name, parameters, comment) for each declaration below a comment, and for fields."""
    owner, comment = None, []
    text = re.sub(r"^namespace (?:vexor::)?detail \{.*?^\} // namespace (?:vexor::)?detail", "", text, flags=re.M | re.S)
    text = re.sub(r"(?:^///[^\n]*\n)*^template <class Partial>\nclass Pairwise \{.*?^\};", "", text, flags=re.M | re.S)
    lines = iter(text.splitlines())
    for line in lines:
        stripped = line.strip()
        if stripped.startswith("/// ") or stripped == "///":
            comment.append(stripped[4:])
            continue
        started = CLASS.match(stripped)
        if started:
            owner = started.group(1)
            yield owner, None, "", comment
        elif line.startswith("};"):
            owner = None
        elif FIELD.match(stripped) and owner:
            name, said = FIELD.match(stripped).groups()
            yield owner, name, "", [said]
        elif comment and stripped.startswith("template"):
            continue
        elif comment and not stripped.startswith("//"):
            declaration = stripped
            while declaration.count("(") > declaration.count(")"):
                declaration += " " + next(lines).strip()
            declaration = re.sub(r"^(?:(?:%s) )*" % WORDS, "", declaration)
            found = NAME.search(declaration)
            if found:
                depth, end = 1, found.end()
                while depth:
                    depth += {"(": 1, ")": -1}.get(declaration[end], 0)
                    end += 1
                yield owner, found.group(1).replace(" ", ""), declaration[found.end():end - 1], comment
        comment = []


def said_before(header, owner, name, entries):
    """The array functions have a form with a count and one without; Pairwise is a class for C++ alone."""
    return "/arrays/" in header and owner is None and "arrays." + name in entries


def table(headers):
    entries = {}
    for header in headers:
        text = pathlib.Path(header).read_text(encoding="utf-8")
        classes = re.findall(r"^class (?:VEXOR_CLASS |VEXOR_API )?(\w+)", text, re.M)
        for owner, name, parameters, comment in members(text):
            if name and (name.startswith("~") or name == "defined"):
                continue
            if "Integer" in parameters or said_before(header, owner, name, entries):
                continue  # a form that only C++ needs
            if owner is None:
                named = [word for word in re.findall(r"\w+", parameters) if word in classes]
                if "/arrays/" in header:
                    owner = "arrays"
                elif name.startswith("operator"):
                    owner = named[0] if named else None
            key = ".".join(part for part in (owner, name) if part)
            said = NOT_FOR_PYTHON.sub("", " ".join(line or "\n\n" for line in comment)).replace(" \n\n ", "\n\n").strip()
            if said and said not in (other for _, other in entries.setdefault(key, [])):
                entries[key].append((parameters, said))
    return entries


def joined(key, forms):
    if len(forms) == 1:
        return forms[0][1]
    name = key.split(".")[-1]
    return "\n\n".join("%s(%s): %s" % (name, re.sub(r" = [^,]*", "", parameters).replace(" const&", "")
                                      .replace("* const ", "* "), said) for parameters, said in forms)


def main():
    entries = table(sys.argv[2:])
    quoted = lambda text: '"%s"' % text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n")
    lines = ["    {%s, %s}," % (quoted(key), quoted(joined(key, forms))) for key, forms in sorted(entries.items()) if forms]
    output = pathlib.Path(sys.argv[1])
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_text("// Written by python/docstrings.py.\n" + "\n".join(lines) + "\n", encoding="utf-8")


main()
