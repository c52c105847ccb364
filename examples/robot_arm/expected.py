#!/usr/bin/env python3
"""The angles that robot_arm prints, computed in closed form and without the library.

Usage: expected.py ARM

The last three axes meet in a point, the wrist. Its place gives the first three angles, and the rotation that is left
gives the last three: eight solutions, of which the one nearest to the previous angles is the arm's. The numbers have 40
digits (Debian: python3-mpmath).
"""

import itertools
import sys

from mpmath import acos, asin, atan2, cos, matrix, mp, mpf, nint, pi, radians, degrees, sin, sqrt

mp.dps = 40


def about(axis, angle):
    i, j, k = axis, (axis + 1) % 3, (axis + 2) % 3
    r = matrix(3, 3)
    r[i, i] = 1
    r[j, j] = r[k, k] = cos(angle)
    r[j, k], r[k, j] = -sin(angle), sin(angle)
    return r


def forward(links, angles):
    rotation, place = mp.eye(3), matrix(3, 1)
    for (a, alpha, d), angle in zip(links, angles):
        turn = rotation * about(2, angle)
        place = place + turn * matrix([a, 0, d])
        rotation = turn * about(0, alpha)
    return rotation, place


def solutions(links, rotation, place):
    d1, a2, d4, d6 = links[0][2], links[1][0], links[3][2], links[5][2]
    wrist = place - d6 * rotation[:, 2]
    height = wrist[2] - d1
    for front, elbow, flip in itertools.product((1, -1), repeat=3):
        reach = front * sqrt(wrist[0] ** 2 + wrist[1] ** 2)
        q1 = atan2(front * wrist[1], front * wrist[0])
        bend = asin((reach ** 2 + height ** 2 - a2 ** 2 - d4 ** 2) / (2 * a2 * d4))
        q3 = bend if elbow > 0 else pi - bend
        q2 = atan2(height, reach) - atan2(-d4 * cos(q3), a2 + d4 * sin(q3))
        left = forward(links[:3], (q1, q2, q3))[0].T * rotation  # Rz(q4) Ry(q5) Rz(q6)
        q5 = flip * acos(left[2, 2])
        yield (q1, q2, q3, atan2(flip * left[1, 2], flip * left[0, 2]), q5,
               atan2(flip * left[2, 1], -flip * left[2, 0]))


def nearest(candidates, angles):
    turned = [[q + 2 * pi * nint((old - q) / (2 * pi)) for q, old in zip(candidate, angles)] for candidate in candidates]
    return min(turned, key=lambda candidate: sum((q - old) ** 2 for q, old in zip(candidate, angles)))


def main():
    links, angles, count = [], None, 0
    for line in open(sys.argv[1]):
        word, *numbers = line.split("#")[0].split() or [""]
        numbers = [mpf(number) for number in numbers]
        if word == "joint":
            links.append((numbers[0], radians(numbers[1]), numbers[2]))
        elif word == "start":
            angles = [radians(number) for number in numbers]
        elif word == "target":
            x, y, z = (radians(number) for number in numbers[3:])
            rotation, place = about(2, z) * about(1, y) * about(0, x), matrix(numbers[:3])
            angles = nearest(list(solutions(links, rotation, place)), angles)
            found, there = forward(links, angles)
            assert mp.norm(found - rotation) < mpf(10) ** -35 and mp.norm(there - place) < mpf(10) ** -35
            count += 1
            print("target %d  %s" % (count, " ".join("%12.7f" % float(degrees(angle)) for angle in angles)))


main()
