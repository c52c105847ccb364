#!/usr/bin/env python3
"""Writes exact_figures.h: the bits that Quaternion's operations have to give.

Each formula is evaluated in exact rational arithmetic, with one rounding to the nearest double after
every single operation, in the order that the class documents. Beside each formula stand the ones that it
could be taken for (other orders of the terms, a division in place of a reciprocal, other forms of the same
mathematics). Operands are drawn until, over the cases kept, every one of these gives other bits somewhere:
so a test on the figures tells them apart.

Usage: exact_figures.py > exact_figures.h
"""
import itertools
import math
import random
from fractions import Fraction


class Dbl:
    """A double. Every operation is exact and then rounded once, to the nearest, ties to even."""

    def __init__(self, value):
        self.exact = Fraction(float(Fraction(value)))

    @staticmethod
    def of(value):
        return value if isinstance(value, Dbl) else Dbl(value)

    def __add__(self, other): return Dbl(self.exact + Dbl.of(other).exact)
    def __sub__(self, other): return Dbl(self.exact - Dbl.of(other).exact)
    def __mul__(self, other): return Dbl(self.exact * Dbl.of(other).exact)
    def __truediv__(self, other): return Dbl(self.exact / Dbl.of(other).exact)
    def __rtruediv__(self, other): return Dbl(Fraction(other) / self.exact)
    def __rmul__(self, other): return self * other
    def __neg__(self): return Dbl(-self.exact)
    def __eq__(self, other): return self.exact == Dbl.of(other).exact
    def __hash__(self): return hash(self.exact)

    def root(self):
        """The square root, rounded once: an integer root with far more bits than a double holds."""
        shift = 400
        n = self.exact * 4**shift
        floor = math.isqrt(n.numerator // n.denominator)
        sticky = 0 if floor * floor == n else Fraction(1, 2)  # below the last bit, it only breaks ties
        return Dbl((floor + sticky) / Fraction(2**shift))

    def text(self):
        return float(self.exact).hex()


def total(terms):
    result = terms[0]
    for term in terms[1:]:
        result = result + term
    return result


def other_sums(terms):
    """The sums of four terms in every order and grouping but ((0 + 1) + 2) + 3. Swapping the operands of
    one addition is no other computation."""
    def trees(indices):
        if len(indices) == 1:
            return {indices[0]: terms[indices[0]]}
        found = {}
        for size in range(1, len(indices)):
            for part in itertools.combinations(indices, size):
                rest = tuple(i for i in indices if i not in part)
                for left, a in trees(part).items():
                    for right, b in trees(rest).items():
                        found[frozenset((left, right))] = a + b
        return found
    found = trees((0, 1, 2, 3))
    del found[frozenset((frozenset((frozenset((0, 1)), 2)), 3))]
    return [found[tree] for tree in sorted(found, key=repr)]


# ---- The operations, each with the formulas that it could be taken for -------------------------------
# A formula maps operands to a tuple. The other formulas come as a list of such tuples; an element that they
# share with the documented formula is None there.

def dot(a, b): return (a[0] * b[0] + a[1] * b[1]) + a[2] * b[2]
def cross(a, b):
    return (a[1] * b[2] - b[1] * a[2], a[2] * b[0] - a[0] * b[2], b[1] * a[0] - a[1] * b[0])
def add(a, b): return tuple(x + y for x, y in zip(a, b))
def sub(a, b): return tuple(x - y for x, y in zip(a, b))
def scale(k, a): return tuple(k * x for x in a)


def product_terms(a, b):
    return (
        (a[3] * b[0], a[0] * b[3], a[1] * b[2], -(a[2] * b[1])),
        (a[3] * b[1], a[1] * b[3], a[2] * b[0], -(a[0] * b[2])),
        (a[3] * b[2], a[2] * b[3], a[0] * b[1], -(a[1] * b[0])),
        (a[3] * b[3], -(a[0] * b[0]), -(a[1] * b[1]), -(a[2] * b[2])))


def product(a, b): return tuple(total(terms) for terms in product_terms(a, b))


def product_others(a, b): return list(zip(*map(other_sums, product_terms(a, b))))


def normalize(q):
    reciprocal = 1 / total([x * x for x in q]).root()
    return scale(reciprocal, q)


def normalize_others(q):
    squares = [x * x for x in q]
    length = total(squares).root()
    found = [tuple(x / length for x in q)]
    found += [scale(1 / other.root(), q) for other in other_sums(squares)]
    return found


def rotate(q, p):
    n, s = q[:3], q[3]
    t = add(scale(s, p), cross(n, p))
    return sub(add(scale(dot(p, n), n), scale(s, t)), cross(t, n))


def rotate_others(q, p):
    n, s = q[:3], q[3]
    t = add(scale(s, p), cross(n, p))
    d = dot(p, n)
    zero = Dbl(0)
    m = matrix(q)
    other_d = total([p[2] * n[2], p[1] * n[1], p[0] * n[0]])
    twice = scale(Dbl(2), cross(n, p))
    return [
        add(scale(d, n), sub(scale(s, t), cross(t, n))),
        add(sub(scale(d, n), cross(t, n)), scale(s, t)),
        add(add(scale(s, t), cross(n, t)), scale(d, n)),
        sub(add(scale(other_d, n), scale(s, t)), cross(t, n)),
        product(product(q, p + (zero,)), (-q[0], -q[1], -q[2], q[3]))[:3],
        tuple(dot(m[3 * r:3 * r + 3], p) for r in range(3)),
        add(add(p, scale(s, twice)), cross(n, twice)),
    ]


def matrix(q):
    u, v, w, s = q
    return (
        s * s + u * u - v * v - w * w, 2 * (u * v - w * s), 2 * (u * w + v * s),
        2 * (u * v + w * s), s * s - u * u + v * v - w * w, 2 * (v * w - u * s),
        2 * (u * w - v * s), 2 * (v * w + u * s), s * s - u * u - v * v + w * w)


def matrix_others(q):
    u, v, w, s = q
    one = Dbl(1)
    signs = ((1, -1, -1), (-1, 1, -1), (-1, -1, 1))
    terms = [[s * s] + [x * x if sign > 0 else -(x * x) for x, sign in zip((u, v, w), row)] for row in signs]
    diagonals = list(zip(*map(other_sums, terms)))
    diagonals.append((one - 2 * (v * v + w * w), one - 2 * (u * u + w * w), one - 2 * (u * u + v * v)))
    return [(a, None, None, None, b, None, None, None, c) for a, b, c in diagonals]


def from_matrix(m):
    return normalize(from_matrix_raw(m))


def from_matrix_raw(m, inverted=(), order=0):
    """As documented, or with the quotients of the components in `inverted` formed by a reciprocal, or with
    the sum in another order."""
    def quotient(component, a, root):
        return a * (1 / root) if component in inverted else a / root

    at = lambda r, c: m[3 * r + c]
    trace = (at(0, 0) + at(1, 1)) + at(2, 2)
    values = [trace, at(0, 0), at(1, 1), at(2, 2)]
    best = 0
    for index in range(1, 4):
        if values[best].exact < values[index].exact:
            best = index
    if best == 0:
        trace = (trace, at(0, 0) + (at(1, 1) + at(2, 2)), (at(0, 0) + at(2, 2)) + at(1, 1))[order]
        root = 2 * (trace + 1).root()
        return (quotient(0, at(2, 1) - at(1, 2), root), quotient(1, at(0, 2) - at(2, 0), root),
                quotient(2, at(1, 0) - at(0, 1), root), root * Fraction(1, 4))
    i = best - 1
    j, k = (i + 1) % 3, (i + 2) % 3
    a, b, c = at(i, i), at(j, j), at(k, k)
    root = 2 * (((a - b) - c) + 1, (a + 1) - (b + c), ((a + 1) - b) - c)[order].root()
    result = [None] * 4
    result[i] = root * Fraction(1, 4)
    result[j] = quotient(j, at(i, j) + at(j, i), root)
    result[k] = quotient(k, at(i, k) + at(k, i), root)
    result[3] = quotient(3, at(k, j) - at(j, k), root)
    return tuple(result)


def from_matrix_others(m):
    raw = from_matrix_raw(m)
    length = total([x * x for x in raw]).root()
    return [
        raw,
        tuple(x / length for x in raw),
        normalize(from_matrix_raw(m, order=1)),
        normalize(from_matrix_raw(m, order=2)),
        *[tuple(x if c == component else None
                for c, x in enumerate(normalize(from_matrix_raw(m, inverted=(component,)))))
          for component in range(4) if raw[component] != from_matrix_root(m)],
    ]


def from_matrix_root(m):
    """The component that is no quotient."""
    return max(from_matrix_raw(m), key=lambda x: x.exact)


def unit(axis):
    length = dot(axis, axis).root()
    return tuple(x / length for x in axis)


def unit_others(axis):
    length = dot(axis, axis).root()
    return [scale(1 / length, axis)]


def axis_cosine(axis, cosine):
    g = ((Dbl(1) - cosine) * Fraction(1, 2)).root()
    k = ((cosine + 1) * Fraction(1, 2)).root()
    return tuple(x * g for x in unit(axis)) + (k,)


def axis_cosine_others(axis, cosine):
    g = ((Dbl(1) - cosine) * Fraction(1, 2)).root()
    k = ((cosine + 1) * Fraction(1, 2)).root()
    length = dot(axis, axis).root()
    other_g = (Dbl(1) - k * k).root()
    return [
        tuple((x * g) / length for x in axis) + (None,),
        tuple(x * (g / length) for x in axis) + (None,),
        tuple(x * (1 / length) * g for x in axis) + (None,),
        tuple(x * other_g for x in unit(axis)) + (None,),
    ]


def relative_scalar(a, b):
    """The scalar of a times the conjugate of b, normalised: the cosine of half the distance."""
    return (normalize(product(a, (-b[0], -b[1], -b[2], b[3])))[3],)


def relative_scalar_others(a, b):
    relative = product(a, (-b[0], -b[1], -b[2], b[3]))
    return [(relative[3],), (total([x * y for x, y in zip(a, b)]),),
            (relative[3] / total([x * x for x in relative]).root(),)]


# ---- Drawing the operands ----------------------------------------------------------------------------

rng = random.Random(20260101)


def number():
    significand = 1 + Fraction(rng.getrandbits(52), 2**52)
    return Dbl(rng.choice((-1, 1)) * significand * Fraction(2)**rng.randint(-3, 1))


def numbers(count): return tuple(number() for _ in range(count))


def near_unit():
    return normalize(numbers(4))


def rotation(component):
    """A matrix near a rotation, with the trace (3) or the diagonal element of the component the largest."""
    while True:
        q = list(numbers(4))
        q[component] = q[component] * 3
        m = tuple(x * (1 + Fraction(rng.randint(-2**20, 2**20), 2**40)) for x in matrix(normalize(q)))
        values = [m[0].exact, m[4].exact, m[8].exact, m[0].exact + m[4].exact + m[8].exact]
        if values.index(max(values)) == component:
            return m


def cases(formula, others, draw):
    """Cases that together tell every other formula apart in every element."""
    kept = []
    open_questions = None
    while open_questions is None or open_questions:
        operands = draw()
        result = formula(*operands)
        rivals = others(*operands)
        if open_questions is None:
            open_questions = {(r, e) for r, rival in enumerate(rivals)
                              for e, element in enumerate(rival) if element is not None}
        answered = {(r, e) for r, e in open_questions if rivals[r][e] != result[e]}
        if answered:
            open_questions -= answered
            kept.append((operands, result))
    return kept


def flat(operands):
    for operand in operands:
        if isinstance(operand, tuple):
            yield "{" + ", ".join(x.text() for x in operand) + "}"
        else:
            yield operand.text()


def main():
    print("#pragma once")
    print("// Bits that follow from exact rational arithmetic with one rounding after each operation.")
    print("// Written by exact_figures.py, which says what they tell apart; do not edit, but make it anew beside it:")
    print("//     python3 exact_figures.py > exact_figures.h")
    print()
    print("// clang-format off")
    print("namespace exact_figures {")
    figures = (
        ("Product", "double a[4], b[4], result[4];", product, product_others,
         lambda: (numbers(4), numbers(4))),
        ("Normalize", "double q[4], result[4];", normalize, normalize_others, lambda: (numbers(4),)),
        ("RotatePoint", "double q[4], p[3], result[3];", rotate, rotate_others,
         lambda: (numbers(4), numbers(3))),
        ("Distance", "double a[4], b[4], cosineOfHalf;", relative_scalar, relative_scalar_others,
         lambda: (near_unit(), near_unit())),
        ("SetAxisCosAngle", "double axis[3], cosine, result[4];", axis_cosine, axis_cosine_others,
         lambda: (numbers(3), Dbl(rng.uniform(-1, 1)))),
        ("UnitAxis", "double axis[3], result[3];", unit, unit_others, lambda: (numbers(3),)),
        ("SetFromMatrix", "double m[9], result[4];", from_matrix, from_matrix_others,
         *[lambda component=component: (rotation(component),) for component in (3, 0, 1, 2)]),
        ("GetRotationMatrix", "double q[4], result[9];", matrix, matrix_others, lambda: (near_unit(),)),
    )
    for name, fields, formula, others, *draws in figures:
        print()
        print("struct %sCase { %s };" % (name, fields))
        print("inline constexpr %sCase %sCases[] = {" % (name, name[0].lower() + name[1:]))
        for draw in draws:  # each of them tells the formulas apart by itself
            for operands, result in cases(formula, others, draw):
                result = result[0] if len(result) == 1 else result
                print("    {" + ", ".join(flat(operands + (result,))) + "},")
        print("};")
    print()
    print("} // namespace exact_figures")
    print("// clang-format on")


if __name__ == "__main__":
    main()
