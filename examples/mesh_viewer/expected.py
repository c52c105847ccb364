#!/usr/bin/env python3
"""What mesh_viewer prints of a mesh from its usual place, computed in another way and without the library.

Usage: expected.py MESH.obj

The eye is put into the mesh's own coordinates, the view comes from the three axes of a camera that looks from there to
the middle, and a face is turned to the eye if the eye is in front of it. The numbers have 40 digits (Debian:
python3-mpmath).
"""

import sys

from mpmath import cos, matrix, mp, mpf, radians, sin, sqrt, tan

mp.dps = 40


def cross(a, b):
    return matrix([a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]])


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def unit(a):
    return a / sqrt(dot(a, a))


def shown(numbers):
    return "(" + ", ".join("%.6f" % float(x) for x in numbers) + ")"


vertices, faces = [], []
for line in open(sys.argv[1]):
    word, *fields = line.split("#")[0].split() or [""]
    if word == "v":
        vertices.append(matrix([mpf(x) for x in fields]))
    elif word == "f":
        faces.append([vertices[int(x) - 1] for x in fields])

least = matrix([min(v[i] for v in vertices) for i in range(3)])
most = matrix([max(v[i] for v in vertices) for i in range(3)])
middle, radius = (least + most) / 2, sqrt(dot(most - least, most - least)) / 2
print("%d vertices, %d faces\nbox     %s to %s" % (len(vertices), len(faces), shown(least), shown(most)))

# A polygon's area vector by the shoelace formula, the volume by the divergence theorem on a fan of triangles.
areas = [sum((cross(a, b) for a, b in zip(f, f[1:] + f[:1])), matrix(3, 1)) / 2 for f in faces]
volume = sum(dot(f[0], cross(a, b)) for f in faces for a, b in zip(f[1:], f[2:])) / 6
print("area    %.6f\nvolume  %.6f" % (float(sum(sqrt(dot(a, a)) for a in areas)), float(volume)))

azimuth, elevation = radians(30), radians(60)
eye = middle + 4 * radius * matrix([cos(elevation) * cos(azimuth), cos(elevation) * sin(azimuth), sin(elevation)])
forward = unit(middle - eye)
right = unit(cross(forward, matrix([0, 0, 1])))
up = cross(right, forward)
zoom, near, far = 1 / tan(radians(15)), mpf(3), mpf(5)
rows = [[zoom * x / radius for x in right] + [-zoom * dot(right, eye) / radius],
        [zoom * x / radius for x in up] + [-zoom * dot(up, eye) / radius]]
depth = [x / radius for x in forward] + [-dot(forward, eye) / radius]  # the distance in front of the eye
rows.append([(far + near) / (far - near) * x for x in depth])
rows[2][3] -= 2 * far * near / (far - near)
rows.append(depth)
print("transform from the mesh to the cube of the view")
for row in rows:
    print("  " + shown(row))

seen = [dot(a, eye - sum(f, matrix(3, 1)) / len(f)) > 0 for a, f in zip(areas, faces)]
print("%d faces turned to the eye" % sum(seen))
