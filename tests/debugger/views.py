#!/usr/bin/env python3
"""Compares what a debugger shows of one object of every class with expected.txt, which holds for all, and what gdb
and lldb show of every class in every way that a program holds an object.

views.py gdb    GDB PROGRAM VIEWS        the views loaded by hand
views.py gdb    GDB PROGRAM --installed [PREFIX]   loaded by gdb itself, which is only told to trust the prefix
views.py lldb   LLDB PROGRAM VIEWS
views.py natvis COMPILER VIEWS SOURCE LIBRARY SCRATCH   what the file's expressions give, as compiled C++

Ends with 77 where the debugger cannot run a program here, and says why.
"""

import os
import re
import subprocess
import sys
import xml.etree.ElementTree

HERE = os.path.dirname(os.path.abspath(__file__))
SKIPPED = 77


def expectations():
    with open(os.path.join(HERE, "expected.txt")) as file:
        return dict(line.rstrip("\n").split(" = ", 1) for line in file)


def output_of(*command, **options):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, **options)
    return done.stdout


def compare(expected, shown, transcript):
    """Ends the program: with 0 if every object shows as expected."""
    if not expected:
        sys.exit("no object to compare")
    wrong = ["%s shows as %s and not %s" % (name, shown.get(name), text)
             for name, text in expected.items() if shown.get(name) != text]
    if wrong or "Python Exception" in transcript or "Traceback" in transcript:
        sys.exit("\n".join(wrong + ["", transcript]))
    print("%d objects show as expected" % len(expected))
    sys.exit(0)


def classes():
    """All classes of the library but its exceptions."""
    found = set()
    for folder, _, files in os.walk(os.path.join(HERE, "..", "..", "vexor")):
        for file in files:
            with open(os.path.join(folder, file)) as header:
                found.update(re.findall(r"^class VEXOR_CLASS (\w+)", header.read(), re.M))
    return found


def subjects():
    """The classes in the order in which the program shows them in every way, each with the text of its object."""
    with open(os.path.join(HERE, "Subject.cpp")) as file:
        found = re.findall(r"^    InEveryWay<(\w+)>\((\w+)\);$", file.read(), re.M)
    if {name for name, _ in found} != classes():
        sys.exit("Subject.cpp lacks, or has too much: %s" % " ".join({name for name, _ in found} ^ classes()))
    return [(name, expectations()[variable]) for name, variable in found]


# What the variables of InEveryWay show: T is the object's text, C its class. Addresses are left out.
SAME = ("reference constReference rvalueReference constant alias aliasReference array[1] holder.member "
        "holder.memberReference *pointer *aliasPointer").split()
POINTERS = "pointer pointerToConst aliasPointer pointerReference holder.memberPointer".split()


def in_every_way(more):
    """The expected text of 'class: expression', for a debugger's own way to show what holds an object."""
    forms = dict.fromkeys(SAME, "T")
    forms.update(dict.fromkeys(POINTERS, "0x T"))
    forms.update(more)
    return {"%s: %s" % (name, expression): re.sub("T|C", lambda letter: {"T": text, "C": name}[letter.group()], form)
            for name, text in subjects() for expression, form in forms.items()}


def without_address(text):
    """Without what only says where an object is; lldb also unfolds a reference on the lines below."""
    return re.sub(r"^\([^@]*\) @0x: ", "", re.sub(r"(?<!\w)0x[0-9a-f]{6,}", "0x", text)).removesuffix(": {")


# ---- gdb ---------------------------------------------------------------------------------------------


def gdb(debugger, program, views, prefix=None):
    commands = ["set debuginfod enabled off"]
    if prefix:
        commands.append("set auto-load safe-path " + prefix)
    if views != "--installed":
        commands.append("source " + views)
    commands += ["set print frame-arguments all", "break Here", "run", "up"]
    expected = expectations()
    for name in expected:
        commands += ["echo shown %s =" % name, "output " + name, "echo \\n"]
    ways = in_every_way({"array": "{T, T}", "holder": "{member = T, memberReference = T, memberPointer = 0x T}",
                         "derived": "{<C> = T, more = 5}", "derivedReference": "{<C> = T, more = 5}",
                         "nullPointer": "0x0"})
    current = None
    for way in ways:
        name, expression = way.split(": ")
        if name != current:
            commands += ["continue", "backtrace", "up"]
            current = name
        commands += ["echo shown %s =" % way, "output " + expression, "echo \\n"]
    arguments = [word for command in commands for word in ("-ex", command)]
    transcript = output_of(debugger, "-nx", "-batch", *arguments, program)
    shown = dict(re.findall(r"^shown ([^=]+) =(.*)$", transcript, re.M))
    shown.update({way: without_address(shown.get(way, "")) for way in ways})
    compare({**expected, **ways}, shown, transcript)


# ---- lldb --------------------------------------------------------------------------------------------


def lldb_environment(debugger):
    """Where lldb finds its Python: that of the system, and its own modules, for which Debian's lldb 14 looks
    in a wrong place."""
    environment = dict(os.environ)
    environment["PATH"] = os.path.dirname(debugger) + os.pathsep + environment["PATH"]
    told = re.search(r"^/.*", output_of(debugger, "-P", env=environment), re.M).group()
    if not os.path.exists(os.path.join(told, "lldb", "embedded_interpreter.py")):
        library = os.path.join(os.path.dirname(os.path.realpath(debugger)), "..", "lib")
        version = re.search(r"python3[^/]*", told).group()
        environment["PYTHONPATH"] = os.path.normpath(os.path.join(library, version, "dist-packages"))
    return environment


def lldb(debugger, program, views):
    # A container may forbid to switch the random placement of programs off, which lldb does by default.
    commands = ["command script import " + views, "settings set target.disable-aslr false",
                "breakpoint set --name Here", "run", "up"]
    expected = expectations()
    commands += ["frame variable " + name for name in expected]
    # Within another aggregate it shows a pointer by what it leads to alone.
    ways = in_every_way({"array": "([0] = T, [1] = T)", "holder": "(member = T, memberReference = T, memberPointer = T)",
                         "derived": "(C = T, more = 5)", "derivedReference": "0x (C = T, more = 5)",
                         "nullPointer": "nullptr",
                         **dict.fromkeys(("reference", "constReference", "rvalueReference", "aliasReference",
                                          "holder.memberReference"), "0x T")})
    current = None
    for way in ways:
        name, expression = way.split(": ")
        if name != current:
            commands += ["continue", "bt", "up", 'script print("shown %s")' % name]
            current = name
        commands.append("frame variable " + expression)
    arguments = [word for command in commands for word in ("-o", command)]
    transcript = output_of(debugger, "--no-lldbinit", "--batch", *arguments, program,
                           env=lldb_environment(debugger))
    refused = re.search(r"^error: .*(packet returned an error|not permitted|lost connection|handshake).*$", transcript,
                        re.M)
    if refused:
        print("skipped: lldb may not run a program here:", refused.group())
        sys.exit(SKIPPED)
    shown = {}
    objects, *parts = re.split(r"^shown (\w+)$", transcript, flags=re.M)
    shown.update(re.findall(r"^\([^()]+\) (\w+) = (.*)$", objects, re.M))
    for name, part in zip(parts[::2], parts[1::2]):
        for expression, text in re.findall(r"^\([^()]+\) (\S+) = (.*)$", part, re.M):
            shown["%s: %s" % (name, expression)] = without_address(text)
    compare({**expected, **ways}, shown, transcript)


# ---- Visual Studio -----------------------------------------------------------------------------------
# Its expressions are C++ in the scope of the class. Each becomes a function of a class derived from the
# viewed one, compiled without access control, so that a field that is renamed or gone fails here.

PRELUDE = r"""
#include <vexor/vexor.h>

#include <sstream>
#include <string>

template <class T> struct View;
template <class T> std::string Show(T const& value) { return View<T>::Show(value); }
std::string Show(double value) { std::ostringstream text; text << value; return text.str(); }
std::string Show(float value) { return Show(static_cast<double>(value)); }
std::string Show(int value) { return std::to_string(value); }
std::string Show(long value) { return std::to_string(value); }
std::string Show(long long value) { return std::to_string(value); }

template <class Item> std::string List(int count, int most, char const* things, Item const& item)
{
    std::string text = "(";
    for (int i = 0; i < count && i < most; ++i)
        text += (i ? ", " : "") + item(i);
    return text + (count > most ? ", ... " + std::to_string(count - most) + " more" + things + ")" : ")");
}
"""

NAMESPACE = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"


def display(text):
    """A DisplayString as a C++ expression: the braces hold expressions, doubled ones stand for themselves."""
    parts = []
    for plain, expression in re.findall(r"([^{}]+)|\{([^{}]*)\}", text):
        parts.append('std::string("%s")' % plain if plain else "::Show(%s)" % expression)
    return " + ".join(parts)


def natvis_class(name, type_node):
    body = []
    for string in type_node.findall(NAMESPACE + "DisplayString"):
        statement = "return %s%%s;" % display(string.text)
        condition = string.get("Condition")
        body.append(("if (%s) " % condition if condition else "") + statement)
    items = ""
    for array in type_node.findall("%sExpand/%sArrayItems" % (NAMESPACE, NAMESPACE)):
        size, pointer = (array.find(NAMESPACE + tag).text for tag in ("Size", "ValuePointer"))
        rank = int(array.findtext(NAMESPACE + "Rank", "1"))
        if rank == 1:
            items = ' + " " + List(%s, 12, "", [&](int i) { return ::Show((%s)[i]); })' % (size, pointer)
        else:
            height, width = (size.replace("$i", str(i)) for i in range(2))
            backward = array.findtext(NAMESPACE + "Direction", "Forward") == "Backward"
            place = "i + j * (%s)" % height if backward else "i * (%s) + j" % width
            items = (' + " " + List(%s, 6, " rows", [&](int i) { return List(%s, 6, "", [&](int j) '
                     '{ return ::Show((%s)[%s]); }); })' % (height, width, pointer, place))
        if "rows" in pointer:
            items = ""  # shown in the text already
    return ("template <> struct View<%s> : %s {\n    std::string Text() const\n    {\n        %s\n    }\n"
            "    static std::string Show(%s const& value)\n    {\n"
            "        return static_cast<View const&>(value).Text();\n    }\n};\n"
            % (name, name, "\n        ".join(line % items for line in body), name))


def natvis(compiler, views, source, library, scratch):
    types = {}
    for type_node in xml.etree.ElementTree.parse(views).getroot().findall(NAMESPACE + "Type"):
        for named in [type_node] + type_node.findall(NAMESPACE + "AlternativeType"):
            types[named.get("Name")] = type_node

    if classes() != set(types):
        sys.exit("without a view, or no class: " + " ".join(sorted(classes() ^ set(types))))

    with open(os.path.join(HERE, "Subject.cpp")) as file:
        subject = re.sub(r"#include.*|    InEveryWay<.*>\(\w+\);$", "", file.read(), flags=re.M)
    prints = "".join('    std::printf("%s = %%s\\n", Show(%s).c_str());\n' % (name, name) for name in expectations())
    os.makedirs(scratch, exist_ok=True)
    generated, program = os.path.join(scratch, "Natvis.cpp"), os.path.join(scratch, "natvis")
    with open(generated, "w") as file:
        file.write(PRELUDE + "#include <cstdio>\n\n")
        file.write("\n".join("template <> struct View<%s>;" % name for name in sorted(types)) + "\n\n")
        # Those of fixed size first, since others show them as their parts.
        for name in sorted(types, key=lambda name: (name.startswith("Aff"), name.startswith("Mat"), name)):
            file.write(natvis_class(name, types[name]) + "\n")
        file.write(re.sub(r"(\n    VexorTolerance .*\n)    Here\(\);\n", r"\1" + prints.replace("\\", r"\\"), subject))
    command = [compiler, "-std=c++17", "-w", "-fno-access-control", "-I", source,
               generated, library, "-Wl,-rpath," + os.path.dirname(library), "-o", program]
    if os.path.exists(program):
        os.remove(program)
    transcript = output_of(*command)
    if os.path.exists(program):
        transcript = output_of(program)
    compare(expectations(), dict(line.split(" = ", 1) for line in transcript.splitlines() if " = " in line), transcript)


def main():
    kind, *rest = sys.argv[1:]
    {"gdb": gdb, "lldb": lldb, "natvis": natvis}[kind](*rest)


if __name__ == "__main__":
    main()
