#!/usr/bin/env python3
"""What turning_body prints of the library's steps, computed without the library.

Usage: expected.py STEPS

Python's floats are IEEE doubles and each operation rounds once. The sines and cosines come from mpmath with 200 bits
and are rounded once to a double (Debian: python3-mpmath). It takes about a second for 5,000 steps.
"""

import math
import struct
import sys

from mpmath import mp, mpf

mp.prec = 200
STEP = 0.01


def sine(x):
    return float(mp.sin(mpf(x)))


def cosine(x):
    return float(mp.cos(mpf(x)))


def add(a, b):
    return [p + q for p, q in zip(a, b)]


def scaled(s, a):
    return [s * p for p in a]


def dot(a, b):
    return (a[0] * b[0] + a[1] * b[1]) + a[2] * b[2]


def cross(a, b):
    return [a[1] * b[2] - b[1] * a[2], a[2] * b[0] - a[0] * b[2], b[1] * a[0] - a[1] * b[0]]


def length(a):
    return math.sqrt(dot(a, a))


def normalized(a):
    n = length(a)
    return [p / n for p in a]


def perpendicular(a):
    order = sorted(range(3), key=lambda i: abs(a[i]))  # stable: equal ones stay in index order
    result = [0.0, 0.0, 0.0]
    result[order[2]] = a[order[0]]
    result[order[0]] = -a[order[2]]
    return normalized(result)


def rotated(v, axis, angle):
    p = perpendicular(axis)
    q = cross(axis, p)
    along_p, along_q, along_axis = dot(v, p), dot(v, q), dot(v, axis)
    c, s = cosine(angle), sine(angle)
    return add(add(scaled(c * along_p - s * along_q, p), scaled(c * along_q + s * along_p, q)), scaled(along_axis, axis))


def product(a, b):
    u, v, w, s = a
    x, y, z, t = b
    return [s * x + u * t + v * z - w * y, s * y + v * t + w * x - u * z, s * z + w * t + u * y - v * x,
            s * t - u * x - v * y - w * z]


def normalized_quaternion(q):
    if q[0] == q[1] == q[2] == 0.0:
        return [q[0], q[1], q[2], 1.0]
    r = 1.0 / math.sqrt(((q[0] * q[0] + q[1] * q[1]) + q[2] * q[2]) + q[3] * q[3])
    q = [c * r for c in q]
    return q[:3] + [min(1.0, max(-1.0, q[3]))]


def turned(q, vector):
    n, s = q[:3], q[3]
    t = add(scaled(s, vector), cross(n, vector))
    along = dot(vector, n)
    return [p - r for p, r in zip(add(scaled(along, n), scaled(s, t)), cross(t, n))]


def acceleration(w):
    i = (1.0, 2.0, 3.0)
    return [(i[1] - i[2]) * (w[1] * w[2]) / i[0], (i[2] - i[0]) * (w[2] * w[0]) / i[1], (i[0] - i[1]) * (w[0] * w[1]) / i[2]]


def advanced(w):
    a = acceleration(w)
    b = acceleration(add(w, scaled(0.5 * STEP, a)))
    c = acceleration(add(w, scaled(0.5 * STEP, b)))
    d = acceleration(add(w, scaled(STEP, c)))
    return add(w, scaled(STEP / 6.0, add(add(add(a, scaled(2.0, b)), scaled(2.0, c)), d)))


def shown(numbers):
    bits = " ".join(struct.pack(">d", number).hex() for number in numbers)
    return "%s  (%s)" % (bits, ", ".join("%.6f" % number for number in numbers))


def main():
    steps = int(sys.argv[1])
    velocity, orientation, marker = [0.001, 2.0, 0.001], [0.0, 0.0, 0.0, 1.0], [1.0, 0.0, 0.0]
    for _ in range(steps):
        angle = length(velocity) * STEP
        axis = normalized(velocity)
        marker = rotated(marker, normalized(turned(orientation, axis)), angle)
        half = angle * 0.5
        orientation = product(orientation, scaled(sine(half), axis) + [cosine(half)])
        orientation = normalized_quaternion(orientation)
        velocity = advanced(velocity)
    print("%d steps of %g s" % (steps, STEP))
    print("orientation", shown(orientation))
    print("marker     ", shown(marker))


main()
