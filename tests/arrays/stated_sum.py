#!/usr/bin/env python3
"""Prints the bits of the sum of SumsTest.cpp's points in the order that Sums.h states."""

import math
import struct

COUNT, BLOCK, RUNNING = 100003, 4096, 8


def in_pairs(numbers):
    while len(numbers) > 1:
        numbers = [sum(numbers[i:i + 2][1:], numbers[i]) for i in range(0, len(numbers), 2)]
    return numbers[0]


def stated_sum(numbers):
    blocks = []
    for begin in range(0, len(numbers), BLOCK):
        running = [0.0] * RUNNING
        for i, number in enumerate(numbers[begin:begin + BLOCK]):
            running[i % RUNNING] += number
        blocks.append(in_pairs(running))
    return in_pairs(blocks)


state = 1
coordinates = []
for _ in range(3 * COUNT):
    state = (state * 6364136223846793005 + 1442695040888963407) % 2**64
    coordinates.append(math.ldexp((state >> 11) * 2.0**-52 - 1.0, (state >> 3) % 17))
for k in range(3):
    print("0x%016xu" % struct.unpack("<Q", struct.pack("<d", stated_sum(coordinates[k::3]))))
