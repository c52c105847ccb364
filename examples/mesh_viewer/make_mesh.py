#!/usr/bin/env python3
"""Makes the mesh of a tube along a trefoil knot, as an OBJ file on standard output.

The knot is ((2 + cos 3t) cos 2t, (2 + cos 3t) sin 2t, sin 3t). Its circles lie across it, in the plane of the
principal normal and the binormal, so the last joins the first.
"""

from math import cos, pi, sin, sqrt

AROUND, ALONG, RADIUS = 10, 72, 0.5


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def unit(a):
    length = sqrt(sum(x * x for x in a))
    return [x / length for x in a]


def circle(t):
    r, r1, r2 = 2 + cos(3 * t), -3 * sin(3 * t), -9 * cos(3 * t)  # with derivatives
    place = [r * cos(2 * t), r * sin(2 * t), sin(3 * t)]
    first = [r1 * cos(2 * t) - 2 * r * sin(2 * t), r1 * sin(2 * t) + 2 * r * cos(2 * t), 3 * cos(3 * t)]
    second = [(r2 - 4 * r) * cos(2 * t) - 4 * r1 * sin(2 * t), (r2 - 4 * r) * sin(2 * t) + 4 * r1 * cos(2 * t),
              -9 * sin(3 * t)]
    binormal = unit(cross(first, second))
    normal = cross(binormal, unit(first))
    for k in range(AROUND):
        c, s = RADIUS * cos(2 * pi * k / AROUND), RADIUS * sin(2 * pi * k / AROUND)
        yield [p + c * n + s * b for p, n, b in zip(place, normal, binormal)]


print("# A tube along a trefoil knot: %d by %d quadrangles. Made by make_mesh.py." % (ALONG, AROUND))
for i in range(ALONG):
    for point in circle(2 * pi * i / ALONG):
        print("v %.4f %.4f %.4f" % tuple(x + 0.0 for x in point))
for i in range(ALONG):
    here, there = AROUND * i, AROUND * ((i + 1) % ALONG)
    for k in range(AROUND):
        n = (k + 1) % AROUND
        print("f %d %d %d %d" % (here + k + 1, here + n + 1, there + n + 1, there + k + 1))
