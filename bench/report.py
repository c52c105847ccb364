#!/usr/bin/env python3
"""Turns the benchmarks' results into docs/performance.md and the chart of the product.

Usage: report.py RESULTS PAGE [CHART]
       report.py --below-floor FILE
Without a chart only the page's sections on arrays are replaced. The second form lists the operations and sizes of
bench_members whose ratios are below the floor, as patterns of benchmarks.
"""

import collections
import json
import math
import os
import pathlib
import re
import statistics
import subprocess
import sys
import textwrap

FIXED = ["vectors", "points", "matrices", "rotations"]
VARIANTS = [("O3", "-O3"), ("O2", "-O2"), ("O3_v3", "-O3 -march=x86-64-v3"), ("O2_v3", "-O2 -march=x86-64-v3")]
PEERS = ["Eigen", "GLM", "Imath"]
ORDER = ["Dot", "Cross", "GetNormalizedCopy", "IsParallelTo", "Point + vector", "DistanceTo", "Mat3 x vector",
         "Mat3 x Mat3", "Affine map x point", "Solve 3x3", "Invert 3x3", "EigenSym 3x3", "EigenSym 3x3 with vectors",
         "Quaternion product", "RotatePoint", "GetRotationMatrix", "SetAxisAngle", "Rotate", "GetAngleWith",
         "GetEulerAngles"]


class Results:
    """Median processor time in nanoseconds, by operation, size and library."""

    def __init__(self, path):
        data = json.loads(path.read_text())
        self.context = data["context"]
        times = collections.defaultdict(list)
        for run in data["benchmarks"]:
            if run["run_type"] == "iteration":
                times[tuple(run["name"].rsplit("/", 2))].append(run["cpu_time"])
        self.times = collections.defaultdict(dict)
        self.operations = []
        self.sizes = collections.defaultdict(list)
        for (operation, library, size), values in times.items():
            self.times[operation, size][library] = statistics.median(values)
            if operation not in self.operations:
                self.operations.append(operation)
            if size not in self.sizes[operation]:
                self.sizes[operation].append(size)
        # The runs come in random order.
        self.operations.sort(key=lambda name: (ORDER.index(name) if name in ORDER else len(ORDER), name))
        for sizes in self.sizes.values():
            sizes.sort(key=lambda size: [int(n) for n in re.findall(r"\d+", size)] or [1 << 30])

    def at(self, operation, size):
        return self.times[operation, size]


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|---" + "|---:" * (len(head) - 1) + "|"]
    lines += ["| " + " | ".join(row) + " |" for row in rows]
    return "\n".join(lines) + "\n"


def duration(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def ratio(times, peer):
    """How many times as long the peer takes: above 1, vexor is the faster one."""
    return f"{times[peer] / times['vexor']:.2f}" if peer in times else "–"


def square(size):
    return "x" not in size


def product_flops(size):
    numbers = [int(n) for n in size.split("x")]
    return 2 * math.prod(numbers if len(numbers) == 3 else numbers * 3)


def products(results):
    peers = ["OpenBLAS", "OpenBLAS, new result", "Eigen", "plain loops"]
    head = ["n", "time", "GFLOP/s"] + peers
    parts = []
    for title, wanted in (("n × n × n", square), ("rows × inner × columns", lambda s: not square(s))):
        rows = []
        for size in results.sizes["Product"]:
            times = results.at("Product", size)
            if wanted(size) and "vexor" in times:
                rows.append([size.replace("x", " × "), duration(times["vexor"]),
                             f"{product_flops(size) / times['vexor']:.1f}"] + [ratio(times, p) for p in peers])
        if rows:
            parts.append(table([title] + head[1:], rows))
    return "\n".join(parts)


def against(results, operations, peers):
    rows = []
    for operation in operations:
        for size in results.sizes[operation]:
            times = results.at(operation, size)
            if "vexor" in times:
                rows.append([f"`{operation}`", size, duration(times["vexor"])] + [ratio(times, p) for p in peers])
    return table(["operation", "n", "time"] + peers, rows)


def transposes(results):
    """Beside the peer's ratio the one it would have were vexor to do no more than move the bytes."""
    rows = []
    for operation in ("Transpose", "GetTransposedCopy"):
        for size in results.sizes[operation]:
            times = results.at(operation, size)
            if not {"vexor", "Eigen", "moving alone"} <= times.keys():
                continue
            rows.append([f"`{operation}`", size, duration(times["vexor"]), ratio(times, "Eigen"),
                         duration(times["moving alone"]), f"{times['Eigen'] / times['moving alone']:.2f}"])
    return table(["operation", "n", "time", "Eigen", "moving alone", "most that Eigen's ratio can be"], rows)


def fixed(files, size):
    """One table over the groups: time an element, and each peer as a ratio."""
    rows = []
    for results in files:
        for operation in results.operations:
            times = results.at(operation, size)
            if "vexor" not in times:
                continue
            each = times["vexor"] / (int(size) if size.isdigit() else 100 if size == "chain" else 1)
            cells = []
            for peer in PEERS:
                plain, cofactors = times.get(peer), times.get(peer + " (cofactors)")
                shown = [f"{plain / times['vexor']:.2f}"] if plain else []
                shown += [f"{cofactors / times['vexor']:.2f}*"] if cofactors else []
                cells.append(", ".join(shown) or "–")
            best = min((times[peer] for peer in PEERS if peer in times), default=None)
            rows.append([f"{operation}", f"{each:.2f} ns"] + cells + [f"{best / times['vexor']:.2f}" if best else "–"])
    return table(["operation", "vexor"] + PEERS + ["fastest peer"], rows)


def least_of(times, part):
    """The time of the fastest of several ways to do a part of the work alone, or None."""
    return min((time for library, time in times.items() if library.startswith(part)), default=None)


def arrays(results, size):
    """Functions of vexor::arrays by instruction set, beside the loop over the member and the peers' loops."""
    sets = [name for name in ("baseline", "AVX2", "AVX-512")
            if any(name in results.at(operation, size) for operation in results.operations)]
    rows = []
    for operation in results.operations:
        times = results.at(operation, size)
        if "loop" not in times:
            continue
        best = min((times[peer] for peer in PEERS if peer in times), default=None)
        cells = [f"{times['loop'] / int(size):.2f} ns", f"{best / int(size):.2f} ns" if best else "–"]
        for name in sets:
            cells += [f"{times[name] / int(size):.2f} ns", f"{times['loop'] / times[name]:.2f}"]
        last = times[sets[-1]]
        moving = least_of(times, "moving the bytes")
        rows.append([operation] + cells + [f"{best / last:.2f}" if best else "–"]
                    + ([f"{moving / int(size):.2f} ns", f"{moving / last:.2f}"] if moving else ["–", "–"]))
    head = ["operation", "loop", "fastest peer"]
    for name in sets:
        head += [name, "× loop"]
    return table(head + ["× peer", "moving alone", "share"], rows)


# What array functions should reach at 1,000 elements, as multiples of a loop, with AVX2 and with AVX-512.
GOALS = [("Normalize", "peer", 3, 4), ("Affine map x point", "peer", 1.5, 2.5), ("RotatePoint", "peer", 1.5, 2.5),
         ("IsParallelTo", "peer", 1.5, 2), ("Cross", "peer", 1, 1.5), ("Solve 3x3", "Eigen", 3, 5),
         ("Solve 3x3", "loop", 2, 3), ("Invert 3x3", "Eigen", 3, 5), ("Invert 3x3", "loop", 2, 3),
         ("EigenSym 3x3", "loop", 2, 2), ("Sum", "loop", 4, 4)]


def limits(times, name):
    """The times of parts of the work alone in an instruction set, by the part; of several ways to do it the fastest."""
    parts = {}
    for library, time in times.items():
        if library.endswith(" alone " + name):
            part = re.sub(r" \(.*\)", "", library.removesuffix(" alone " + name))
            parts[part] = min(time, parts.get(part, time))
    return sorted(parts.items(), key=lambda part: -part[1])


def goals(results):
    """The goals beside what is reached, and for those not reached the multiples that parts of the work alone allow."""
    rows = []
    for operation, reference, *factors in GOALS:
        times = results.at(operation, "1000")
        for name, factor in zip(("AVX2", "AVX-512"), factors):
            if name not in times:
                continue
            whole = times[reference] if reference in times else min(times[p] for p in PEERS if p in times)
            reached = whole / times[name]
            allowed = [(part, whole / time) for part, time in limits(times, name)]
            cells = ["; ".join(f"{part} {most:.2f}" for part, most in allowed if (most < factor) == forbids)
                     if reached < factor else "" for forbids in (True, False)]
            if reached < factor and not cells[0]:
                cells[0] = "none"
            rows.append([operation, name, reference, f"{factor:g}", f"{reached:.2f}"] + cells)
    return table(["operation", "set", "× the loop of", "goal", "reached", "forbidden by", "allowed by"], rows)


MOVING = 0.9


def beyond_moving(results):
    """The functions whose share of moving at 1,000,000 elements is below the goal, and what limits them."""
    rows = []
    for operation in results.operations:
        times, few = results.at(operation, "1000000"), results.at(operation, "1000")
        for name in ("AVX2", "AVX-512"):
            moving = least_of(times, "moving the bytes")
            if moving and name in times and moving / times[name] < MOVING:
                both = least_of(times, "operations and moving")
                rows.append([operation, name, f"{moving / times[name]:.2f}"]
                            + ([f"{moving / both:.2f}", f"{both / 1e6:.2f} ns"] if both else ["–", "–"])
                            + [f"{few[name] / 1000:.2f} ns", f"{moving / 1e6:.2f} ns", f"{times[name] / 1e6:.2f} ns"])
    return table(["operation", "set", "share of moving", "most possible", "operations and moving", "1,000 elements",
                  "moving 1,000,000", "1,000,000 elements"], rows)


FLOOR = 0.97
TEMPLATE = pathlib.Path(__file__).parent / "performance.md.in"


def array_sets(client):
    """The instruction sets that clients use. A CPU that runs the second client's loops does not run the baseline."""
    return ["baseline", "AVX2", "AVX-512"] if client == "-O3" else ["AVX2", "AVX-512"]


def ratios_to_loop(results, sets):
    """(operation, size, set, ratio of the loop over the member to the array function) of all measured."""
    for operation in results.operations:
        for size in results.sizes[operation]:
            times = results.at(operation, size)
            loop = (times["own loop"] + times["own loop again"]) / 2
            yield from ((operation, size, name, loop / times[name]) for name in sets if name in times)


def below_floor(file):
    """Patterns of the benchmarks of which a ratio is below the floor."""
    sets = array_sets("" if "v3" in file.name else "-O3")
    return sorted({f"^{operation}/.*/{size}$"
                   for operation, size, _, value in ratios_to_loop(Results(file), sets) if value < FLOOR})


def members(results_of_clients):
    """The lowest ratio of each array function to the loop over its member, over all sizes, and that size."""
    lowest, low, count = collections.defaultdict(dict), [], 0
    for client, results in results_of_clients.items():
        for operation, size, name, value in ratios_to_loop(results, array_sets(client)):
            count += 1
            column = name + (", v3 client" if client != "-O3" else "")
            lowest[operation][column] = min((value, int(size)), lowest[operation].get(column, (math.inf, 0)))
            if value < FLOOR:
                times = results.at(operation, size)
                low.append([operation, client, name, f"{int(size):,}", f"{value:.2f}",
                            f"{value * times[name] / times['plain']:.2f}",
                            f"{times['own loop again'] / times['own loop']:.2f}"])
    columns = list(next(iter(lowest.values())))
    rows = [[operation] + ["{:.2f} ({:,})".format(*cells[column]) if column in cells else "–" for column in columns]
            for operation, cells in sorted(lowest.items())]
    twins = [min(pair) / max(pair) for results in results_of_clients.values() for times in results.times.values()
             if "own loop again" in times for pair in [(times["own loop"], times["own loop again"])]]
    noise = (f"The loop and the same loop again, timed in the same run, differ by more than {1 - FLOOR:.0%} in "
             f"{sum(twin < FLOOR for twin in twins)} of {len(twins)} cases. So a ratio below {FLOOR} is measured again with 25 "
             f"repetitions instead of 7, and this value counts. {len(low)} of {count:,} are below {FLOOR} then.")
    below = (f"The ratios below {FLOOR}. *The loop, called* is the ratio of the loop over the member itself, called as the array "
             "functions are: where it is as low, the call and the places of code and data in the caches decide, not the registers. "
             "With `EigenSym` it also keeps what a failure would have to restore.")
    text = textwrap.fill(noise, 115) + "\n\n" + table(["operation"] + columns, rows)
    if low:
        text += ("\n" + textwrap.fill(below, 115) + "\n\n"
                 + table(["operation", "client", "set", "elements", "ratio", "the loop, called", "loop again / loop"], low))
    return text


def elementary(path):
    """Sin, cos, acos and atan2 beside the C library's, each result in nanoseconds."""
    if not path.exists():
        return ""
    results = Results(path)
    rows = []
    for size, calls in (("1000", "independent"), ("chain", "dependent")):
        for operation in ("Sin", "Cos", "SinCos", "Acos", "Atan2"):
            times = results.at(operation, size)
            if "vexor" not in times:
                continue
            cells = [f"{times[name] / 1000:.1f} ns" for name in ("libc", "vexor")]
            cells.append(f"{times['vexor'] / times['libc']:.2f}")
            other = times["without fused multiply-add"]
            rows.append([f"`{operation}`", calls] + cells + [f"{other / 1000:.1f} ns", f"{other / times['libc']:.2f}"])
    return table(["function", "calls", "C library", "vexor", "× C library", "without fused multiply-add",
                  "× C library"], rows)


def guard(results, name):
    """What asking for the range costs, against the null check that a normalisation needs anyway."""
    times = results.at("GetNormalizedCopy", "1000"), results.at("GetNormalizedCopy", "call")
    return [name] + [ratio(each, "null check alone") for each in times]


def growth(results):
    rows = []
    for operation in ("Product", "MatrixTimesVector", "Solve", "Svd", "EigenSym with vectors", "Sum"):
        sizes = [s for s in results.sizes[operation] if square(s) and "vexor" in results.at(operation, s)
                 and (operation == "Sum" or int(s) & (int(s) - 1) == 0)]
        for small, large in zip(sizes, sizes[1:]):
            if int(large) < 2 * int(small) or int(small) < 4:
                continue
            t0, t1 = (results.at(operation, s)["vexor"] for s in (small, large))
            exponent = math.log(t1 / t0) / math.log(int(large) / int(small))
            rows.append([f"`{operation}`", f"{small} → {large}", duration(t0), duration(t1), f"{exponent:.2f}"])
    return table(["operation", "n", "from", "to", "exponent"], rows)


def chart(results, path):
    """Speed of the product over n, on logarithmic axes."""
    sizes = [s for s in results.sizes["Product"] if square(s) and int(s) & (int(s) - 1) == 0]
    width, height, left, top, right, bottom = 720, 420, 64, 24, 130, 48
    colours = {"vexor": "#0b6bcb", "Eigen": "#c2410c", "OpenBLAS": "#4d7c0f", "plain loops": "#6b7280"}
    low, high = 0.05, 200.0

    def x(n):
        span = math.log2(int(sizes[-1]) / int(sizes[0])) or 1
        return left + (width - left - right) * math.log2(n / int(sizes[0])) / span

    def y(speed):
        return top + (height - top - bottom) * (1 - math.log(speed / low) / math.log(high / low))

    svg = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" font-family="sans-serif" '
           'font-size="13">', '<title>Dense product: speed over n, one thread</title>',
           f'<rect width="{width}" height="{height}" fill="white"/>']
    for speed in (0.1, 1, 10, 100):
        svg.append(f'<path d="M{left} {y(speed):.1f}H{width - right}" stroke="#d1d5db"/>'
                   f'<text x="{left - 8}" y="{y(speed) + 4:.1f}" text-anchor="end">{speed:g}</text>')
    for size in sizes:
        svg.append(f'<path d="M{x(int(size)):.1f} {height - bottom}v5" stroke="black"/>'
                   f'<text x="{x(int(size)):.1f}" y="{height - bottom + 19}" text-anchor="middle">{size}</text>')
    svg.append(f'<text x="{(left + width - right) / 2}" y="{height - 8}" text-anchor="middle">n</text>'
               f'<text transform="translate(16 {(top + height - bottom) / 2}) rotate(-90)" '
               'text-anchor="middle">GFLOP/s</text>')
    labels = []
    for library, colour in colours.items():
        points = [(x(int(s)), y(product_flops(s) / results.at("Product", s)[library])) for s in sizes
                  if library in results.at("Product", s)]
        if not points:
            continue
        svg.append('<polyline fill="none" stroke="{}" stroke-width="{}" points="{}"/>'.format(
            colour, 3 if library == "vexor" else 1.8, " ".join(f"{a:.1f},{b:.1f}" for a, b in points)))
        labels.append([points[-1][1], points[-1][0], library, colour])
    labels.sort()
    for above, label in zip(labels, labels[1:]):
        label[0] = max(label[0], above[0] + 16)
    for at, end, library, colour in labels:
        svg.append(f'<text x="{end + 8:.1f}" y="{at + 4:.1f}" fill="{colour}">{library}</text>')
    svg.append("</svg>")
    path.write_text("\n".join(svg) + "\n")


def version(package):
    shown = subprocess.run(["dpkg-query", "-W", "-f", "${source:Upstream-Version}", package], capture_output=True,
                           text=True, check=False).stdout
    return shown or "unknown"


def machine():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith(("model name", "Processor")):
            name = line.split(":", 1)[1].strip()
            break
    else:
        name = os.uname().machine
    fields = dict(line.split(":", 1) for line in subprocess.run(
        ["lscpu"], capture_output=True, text=True, check=False, env={**os.environ, "LC_ALL": "C"}
    ).stdout.splitlines() if ":" in line)
    def of(key):
        return fields.get(key, "?").strip()

    caches = ", ".join(f"{of(k)} {k.removesuffix(' cache')}" for k in ("L1d cache", "L2 cache", "L3 cache"))
    return f"{name} (family {of('CPU family')}, model {of('Model')}), {of('CPU(s)')} cores; {caches}"


def from_python(file):
    """The Python module beside its peers; the loop and the bare copy in the last columns."""
    if not file.exists():
        return "Not measured in this run."
    data = json.loads(file.read_text())
    peers = ["NumPy", "SciPy", "loop", "copy"]
    rows = [[name, duration(times["vexor"])] + [ratio(times, peer) for peer in peers] for name, times in data["rows"].items()]
    calls = [[name, duration(times["vexor"]), duration(times["bare"]), f"{times['vexor'] / times['bare']:.2f}"]
             for name, times in data["calls"].items()]
    return (f"Python {data['python']}, NumPy {data['numpy']}, SciPy {data['scipy']}; arrays of {data['count']:,}, one core.\n\n"
            + table(["operation", "an element", "× NumPy", "× SciPy", "× plain loop", "× copying"], rows) + "\n"
            + table(["a single call", "vexor", "pybind11's least", "ratio"], calls))


def of_arrays(folder):
    """The tables on functions over arrays, from C++ and from Python."""
    over_arrays = []
    for variant, flags in VARIANTS:
        file = folder / f"g++-bench_arrays_{variant}.json"
        if not file.exists():
            continue
        results = Results(file)
        for size in ("200", "1000", "100000", "1000000"):
            if any(results.at(operation, size) for operation in results.operations):
                over_arrays.append(f"### {int(size):,} elements, loops by g++ {flags}\n\n" + arrays(results, size))

    by_client = {flags: Results(folder / f"g++-bench_members_{variant}.json") for variant, flags in VARIANTS
                 if (folder / f"g++-bench_members_{variant}.json").exists()}
    plain_client = folder / "g++-bench_arrays_O3.json"
    return {
        "ARRAYS": "\n".join(over_arrays),
        "ARRAY_GOALS": goals(Results(plain_client)) if plain_client.exists() else "",
        "ARRAY_MOVING": beyond_moving(Results(plain_client)) if plain_client.exists() else "",
        "ARRAY_MEMBERS": members(by_client) if by_client else "",
        "PYTHON": from_python(folder / "python.json"),
    }


def filled(text, values):
    for key, value in values.items():
        text = text.replace(f"@{key}@", value.rstrip("\n"))
    return text


def replace_arrays(folder, page):
    """Puts new sections on arrays in the place of the page's."""
    def sections(text):
        begin, end = text.index("\n## Arrays\n"), text.index("\n## Allocations\n")
        return text[:begin], text[begin:end], text[end:]
    old = page.read_text()
    new = sections(TEMPLATE.read_text())[1]
    before, _, after = sections(old)
    page.write_text(before + filled(new, of_arrays(folder)) + after)


def main():
    if sys.argv[1] == "--below-floor":
        print("\n".join(below_floor(pathlib.Path(sys.argv[2]))))
        return
    folder, page, *pictures = (pathlib.Path(argument) for argument in sys.argv[1:])
    if not pictures:
        replace_arrays(folder, page)
        return
    picture = pictures[0]
    text = TEMPLATE.read_text()
    dynamic = Results(folder / "g++-bench_dynamic.json")
    chart(dynamic, picture)

    compilers, sections, others, guards = [], [], [], []
    for compiler in ("g++", "clang++"):
        for variant, flags in VARIANTS:
            files = [folder / f"{compiler}-bench_{group}_{variant}.json" for group in FIXED]
            if not all(file.exists() for file in files):
                continue
            results = [Results(file) for file in files]
            name = results[0].context["compiler"]
            if name not in compilers:
                compilers.append(name)
            sections.append(f"#### {compiler} {flags}\n\n" + fixed(results, "1000"))
            guards.append(guard(results[0], f"{compiler} {flags}"))
            if compiler == "g++" and variant == "O3":
                for size, title in (("200", "Arrays of 200"), ("1000000", "Arrays of 1,000,000"),
                                    ("call", "A single call"), ("chain", "Calls that wait for one another")):
                    if any(results[0].at(o, size) for o in results[0].operations):
                        others.append(f"#### {title}, g++ -O3\n\n" + fixed(results, size))

    libraries = ", ".join(f"{name} {version(package)}" for name, package in (
        ("OpenBLAS", "libopenblas-dev"), ("Eigen", "libeigen3-dev"), ("GLM", "libglm-dev"), ("Imath", "libimath-dev")))
    values = {
        "MACHINE": machine(),
        "COMPILERS": ", ".join(compilers),
        "LIBRARIES": libraries,
        "OPENBLAS": dynamic.context["openblas"],
        "CHART": os.path.relpath(picture, page.parent),
        "PRODUCTS": products(dynamic),
        "VECTORS": against(dynamic, ["MatrixTimesVector"], ["OpenBLAS", "Eigen"]),
        "SINGLES": against(dynamic, ["MatrixTimesSingleVector"], []),
        "TRANSPOSES": transposes(dynamic),
        "SUMS": against(dynamic, ["Sum", "Dot", "LengthSquared"], ["additions alone", "Eigen"]),
        "DRIVERS": against(dynamic, ["Solve", "ReSolve", "SolveSym", "SolveLinearLeastSquares", "Invert", "Svd",
                                     "EigenSym", "EigenSym with vectors"],
                           ["LAPACK", "with workspace"]),
        "FIXED": "\n".join(sections),
        "OTHERS": "\n".join(others),
        "ELEMENTARY": elementary(folder / "g++-bench_elementary.json"),
        "GUARD": table(["flags", "arrays of 1,000", "a single call"], guards),
        "GROWTH": growth(dynamic),
    }
    page.write_text(filled(text, values | of_arrays(folder)))


if __name__ == "__main__":
    main()
