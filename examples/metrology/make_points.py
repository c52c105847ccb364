#!/usr/bin/env python3
"""Makes the measured points of a plate and of a ball whose least-squares fits are known exactly.

Usage: make_points.py plane|sphere

A fit is the exact least-squares solution if the deviations are orthogonal to every small change of the fit: for a plane
their sum and their moments along two directions of it are 0, for a sphere their sum and their sum along every
direction. The deviations here are such numbers, and the frame, the directions and all coordinates are decimals, so
nothing is rounded. The fractions are exact; the checks at the end of each shape would fail otherwise.
"""

import itertools
import sys
from fractions import Fraction

MICROMETRE = Fraction(1, 1000)  # in millimetres


def decimal(number, digits):
    scaled = number * 10 ** digits
    assert scaled.denominator == 1, "not a decimal of %d digits" % digits
    text = "%0*d" % (digits + 1, abs(scaled.numerator))
    return ("-" if number < 0 else "") + text[:-digits] + "." + text[-digits:]


def show(points, digits):
    for point in points:
        print(" ".join(decimal(x, digits) for x in point))


def head(title, lines, deviations, parameters):
    rms = (float(sum(d * d for d in deviations)) / (len(deviations) - parameters)) ** 0.5
    print("# %s, %d points in mm. Made by make_points.py; the least-squares fit is exactly:" % (title, len(deviations)))
    for line in lines:
        print("#   " + line)
    print("#   deviations from %.4f to %.4f um" % (float(min(deviations) / MICROMETRE), float(max(deviations) / MICROMETRE)))
    print("#   standard deviation, with n - %d: %.9f um" % (parameters, rms * 1000.0))


def plane():
    # The rotation of the quaternion (24, 3, -6, 2)/25: its elements are whole numbers over 625.
    s, u, v, w = 24, 3, -6, 2
    assert s * s + u * u + v * v + w * w == 625
    along = [Fraction(x, 625) for x in (s * s + u * u - v * v - w * w, 2 * (u * v + w * s), 2 * (u * w - v * s))]
    across = [Fraction(x, 625) for x in (2 * (u * v - w * s), s * s - u * u + v * v - w * w, 2 * (v * w + u * s))]
    normal = [Fraction(x, 625) for x in (2 * (u * w + v * s), 2 * (v * w - u * s), s * s - u * u - v * v + w * w)]
    origin = [Fraction("312.5"), Fraction("-148.25"), Fraction("87.125")]
    grid = list(itertools.product(range(-4, 5), range(-3, 4)))  # the means of i² and j² are 20/3 and 4
    deviation = {(i, j): Fraction(i * i * 3 - 20, 4) * Fraction(1, 5) * MICROMETRE
                 - Fraction(j * j - 4, 2) * MICROMETRE + Fraction(i * j, 4) * MICROMETRE for i, j in grid}
    assert all(sum(d * m(i, j) for (i, j), d in deviation.items()) == 0
               for m in (lambda i, j: 1, lambda i, j: i, lambda i, j: j))
    head("A plate", ["centroid " + " ".join(decimal(x, 4) for x in origin),
                     "normal   " + " ".join(decimal(x, 4) for x in normal)], list(deviation.values()), 3)
    show([[o + 30 * i * a + 30 * j * b + deviation[i, j] * n for o, a, b, n in zip(origin, along, across, normal)]
          for i, j in grid], 9)


def sphere():
    # Directions of the upper half whose coordinates are whole numbers over 25, and per height a deviation in 0.1 um.
    by_height = {25: 12, 24: 10, 20: -3, 15: -3, 0: 1}
    centre = [Fraction("412.25"), Fraction("-96.5"), Fraction("140.75")]
    radius = Fraction("12.4987")
    directions = [d for d in itertools.product(range(-25, 26), repeat=3) if sum(x * x for x in d) == 625 and d[2] in by_height]
    deviation = {}
    for x, y, z in directions:
        oval = abs(x * x - y * y) // 60 * (1 if x * x > y * y else -1)
        deviation[x, y, z] = Fraction(by_height[z] + oval, 10) * MICROMETRE
    assert all(sum(d * m(*u) for u, d in deviation.items()) == 0
               for m in (lambda x, y, z: 1, lambda x, y, z: x, lambda x, y, z: y, lambda x, y, z: z))
    head("A ball", ["centre " + " ".join(decimal(x, 4) for x in centre), "radius " + decimal(radius, 4)],
         list(deviation.values()), 4)
    show([[c + (radius + deviation[u]) * Fraction(x, 25) for c, x in zip(centre, u)] for u in directions], 8)


{"plane": plane, "sphere": sphere}[sys.argv[1]]()
