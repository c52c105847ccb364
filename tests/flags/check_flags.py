#!/usr/bin/env python3
"""Compiles the transcript with each floating-point flag of a compiler, with and without the flags that the package
hands out, and compares what it prints with a reference program's. The two kinds of flags that the headers refuse must
stop the build with their message.

Usage: check_flags.py COMPILER --library LIBRARY --reference PROGRAM [--each] [--jobs N]

The reference is a transcript built with plain flags, whose full output another test compares with the committed
hashes. Without --each, flags that change no result by themselves share one program, and few sets are compiled with
the package's flags as well."""
import argparse
import concurrent.futures
import os
import re
import subprocess
import sys
import tempfile

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TRANSCRIPT = os.path.join(SOURCE, "tests", "transcript", "Transcript.cpp")
PACKAGE = ["-ffp-contract=off", "-DVEXOR_FP_CONTRACT_OFF"]
ROUNDS = "60"

FAST_MATH = "-ffast-math .* changes documented results"
X87 = "x87 evaluation changes documented results"

# Every set is compiled by itself.
COMMON = [
    "-march=native",
    "-mfma",
    "-mfma -ffp-contract=fast",
    "-mfma -ffp-contract=on",
    "-freciprocal-math",
    "-fassociative-math -fno-signed-zeros -fno-trapping-math",
    "-funsafe-math-optimizations",
    "-fno-signed-zeros",
    "-ffinite-math-only",
    "-Ofast -fno-finite-math-only",
    "-O3 -march=native -funsafe-math-optimizations -ffinite-math-only -mrecip",
]
GCC = COMMON + [
    "-fsingle-precision-constant",
    "-mno-ieee-fp",
]
CLANG = COMMON + [
    "-fno-honor-nans",
    "-fno-honor-infinities",
    "-fapprox-func",
    "-fdenormal-fp-math=preserve-sign",
    "-fdenormal-fp-math=positive-zero",
    "-ffp-model=strict",
]
# These change no result by themselves: compiled together, or one at a time with --each.
GCC_HARMLESS = [
    "-fassociative-math",
    "-fno-trapping-math",
    "-frounding-math",
    "-fsignaling-nans",
    "-ffloat-store",
    "-fexcess-precision=fast",
    "-fno-math-errno",
    "-fcx-limited-range",
    "-fcx-fortran-rules",
    "-fno-fp-int-builtin-inexact",
    "-mrecip",
]
CLANG_HARMLESS = [
    "-fassociative-math",
    "-fno-trapping-math",
    "-frounding-math",
    "-ffp-exception-behavior=maytrap",
    "-fno-math-errno",
    "-mrecip=all",
    "-fno-strict-float-cast-overflow",
]
GCC_REFUSED = {
    "-ffast-math": FAST_MATH,
    "-Ofast": FAST_MATH,
    "-mfpmath=387": X87,
    "-mfpmath=both": X87,
}
CLANG_REFUSED = {
    "-ffast-math": FAST_MATH,
    "-Ofast": FAST_MATH,
    "-ffp-model=fast": FAST_MATH,
    "-m32 -mno-sse2 -nostdinc": X87,
}
# With the package's flags the headers decide alike for all sets but these, so that only --each takes the others.
WITH_PACKAGE = [
    "-mfma -ffp-contract=fast",
    "-O3 -march=native -funsafe-math-optimizations -ffinite-math-only -mrecip",
    "-fsingle-precision-constant",
    "-mno-ieee-fp",
]
# Of newer compilers only.
SINCE = {
    "clang": {
        15: ["-ffp-eval-method=double", "-ffp-eval-method=extended"],
        19: ["-mfma -ffp-contract=fast-honor-pragmas"],
    },
}


def run(command):
    return subprocess.run(command, capture_output=True, text=True, errors="replace", check=False)


def processor_has_fma():
    with open("/proc/cpuinfo", encoding="ascii", errors="replace") as info:
        return re.search(r"^flags\s*:.*\bfma\b", info.read(), re.M) is not None


def outcome(options, flags, expected):
    """Nothing, or what is wrong with the client that is built so."""
    with tempfile.TemporaryDirectory() as folder:
        object_file, program = os.path.join(folder, "o.o"), os.path.join(folder, "program")
        # The flags stand in the compiling command alone. In a link command some of them bring a start-up
        # routine that flushes denormal numbers in the whole process, which no header can undo.
        built = run([options.compiler, "-std=c++17", "-O2", "-w", f"-I{SOURCE}", *flags, "-c", TRANSCRIPT, "-o", object_file])
        if built.returncode:
            return "does not build: " + "\n".join(built.stderr.splitlines()[:5])
        linked = run([options.compiler, object_file, options.library, f"-Wl,-rpath,{os.path.dirname(options.library)}", "-o", program])
        if linked.returncode:
            return "does not link: " + linked.stderr
        ran = run([program, ROUNDS])
        if ran.returncode:
            return f"ended with {ran.returncode}"
        wrong = [line.split("  ")[0] for line, right in zip(ran.stdout.splitlines(), expected) if line != right]
        if wrong or len(ran.stdout.splitlines()) != len(expected):
            return "other bits: " + ", ".join(wrong)
        return ""


def refusal(options, flags, message):
    header = os.path.join(SOURCE, "vexor", "foundation", "Config.h")
    built = run([options.compiler, "-std=c++17", "-w", *flags, "-fsyntax-only", "-x", "c++", header])
    if built.returncode == 0:
        return "compiles, and must not"
    return "" if re.search(message, built.stderr) else "refused without the message: " + built.stderr


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("compiler")
    parser.add_argument("--library", required=True)
    parser.add_argument("--reference", required=True)
    parser.add_argument("--each", action="store_true")
    parser.add_argument("--jobs", type=int, default=1)
    options = parser.parse_args()

    version = run([options.compiler, "--version"]).stdout
    clang = "clang" in version
    sets = list(CLANG if clang else GCC)
    harmless = CLANG_HARMLESS if clang else GCC_HARMLESS
    refused = CLANG_REFUSED if clang else GCC_REFUSED
    sets += harmless if options.each else [" ".join(harmless)]
    major = int(re.search(r"(\d+)\.\d+\.\d+", version).group(1))
    for since, flags in SINCE["clang"].items():
        if clang and major >= since:
            sets += flags

    ran = run([options.reference, ROUNDS])
    expected = ran.stdout.splitlines()
    if ran.returncode or len(expected) < 20:
        sys.exit(f"the reference ended with {ran.returncode} after {len(expected)} lines")

    jobs, left_out = [], []
    for flags in sets:
        if "-mfma" in flags and not processor_has_fma():
            left_out.append(flags)
            continue
        jobs.append((flags, outcome, flags.split(), expected))
        if options.each or flags in WITH_PACKAGE:
            # As CMake orders them: the client's CMAKE_CXX_FLAGS first, then what the package hands out.
            jobs.append((flags + ", with the package's flags", outcome, flags.split() + PACKAGE, expected))
    for flags, message in refused.items():
        jobs.append((flags, refusal, flags.split(), message))

    failed = 0
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for (name, kind, *_), wrong in zip(jobs, pool.map(lambda job: job[1](options, *job[2:]), jobs)):
            verdict = f"FAILED ({wrong})" if wrong else "refused" if kind is refusal else "same bits"
            print(f"{name}: {verdict}", flush=True)
            failed += bool(wrong)
    for flags in left_out:
        print(f"left out, this processor has no fused multiply-add: {flags}")
    print(f"{options.compiler}: {len(jobs) - failed} of {len(jobs)} as they must be")
    if failed or not jobs:
        sys.exit(1)


main()
