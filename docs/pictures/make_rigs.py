#!/usr/bin/env python3
"""Writes the three rigs whose pictures are in this folder: make_rigs.py FOLDER

They face elsewhere than the bundled walk: the walk itself, turned, in a kind of file where z is up; a
swimmer, who lies; an animal on four legs whose joints have no names that tell their sides."""

import math
import sys
from pathlib import Path

WALK = Path(__file__).parents[2] / "examples" / "walk.bvh"
FRAMES = 30


# ---- Matrices of column vectors, as rows ----

def turn(axis, degrees):
    c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    return {"x": [[1, 0, 0], [0, c, -s], [0, s, c]],
            "y": [[c, 0, s], [0, 1, 0], [-s, 0, c]],
            "z": [[c, -s, 0], [s, c, 0], [0, 0, 1]]}[axis]


def product(first, *others):
    for other in others:
        first = [[sum(row[k] * other[k][j] for k in range(3)) for j in range(3)] for row in first]
    return first


def apply(matrix, vector):
    return [sum(a * b for a, b in zip(row, vector)) for row in matrix]


def numbers(values):
    return " ".join(f"{value + 0.0:.4f}" for value in values)


# ---- The walk with z up ----

def read_bvh(text):
    """The joints as [name, parent, offset], and for each frame the numbers of its channels. Of end
    sites there is nothing, and every joint but the root turns around z, x and y."""
    head, motion = text.split("MOTION")
    joints, open_joints = [], []
    for line in head.splitlines():
        words = line.split() or [""]
        if words[0] in ("ROOT", "JOINT"):
            joints.append([words[1], open_joints[-1] if open_joints else -1, None])
            open_joints.append(len(joints) - 1)
        elif words[0] == "End":
            open_joints.append(None)
        elif words[0] == "OFFSET" and open_joints[-1] is not None:
            joints[open_joints[-1]][2] = [float(word) for word in words[1:]]
        elif words[0] == "}":
            open_joints.pop()
    return joints, [[float(word) for word in line.split()] for line in motion.splitlines()[3:]]


def turned_walk():
    joints, frames = read_bvh(WALK.read_text())
    world = product(turn("z", 140), turn("x", 90))
    lines = ["version 1", "nodes"]
    lines += [f'{i} "{name}" {parent}' for i, (name, parent, _) in enumerate(joints)]
    lines += ["end", "skeleton"]
    for time, channels in enumerate(frames[:FRAMES]):
        lines.append(f"time {time}")
        for i, (_, _, offset) in enumerate(joints):
            z, x, y = channels[3 * i + 3:3 * i + 6]
            matrix, place = product(turn("z", z), turn("x", x), turn("y", y)), offset
            if i == 0:
                matrix, place = product(world, matrix), apply(world, channels[:3])
            # Around x first, then y, then z.
            angles = [math.atan2(matrix[2][1], matrix[2][2]), -math.asin(matrix[2][0]),
                      math.atan2(matrix[1][0], matrix[0][0])]
            lines.append(f"{i} {numbers(place)} {numbers(angles)}")
    return "\n".join(lines + ["end", ""])


# ---- BVH files ----

def hierarchy(joints, index, depth):
    name, _, offset = joints[index]
    below = [i for i, joint in enumerate(joints) if joint[1] == index]
    kind = "ROOT" if depth == 0 else "JOINT"
    places = "6 Xposition Yposition Zposition " if depth == 0 else "3 "
    lines = [f"{kind} {name}", "{", f"OFFSET {numbers(offset)}",
             f"CHANNELS {places}Zrotation Xrotation Yrotation"]
    for child in below:
        lines += hierarchy(joints, child, depth + 1)
    if not below:
        lines += ["End Site", "{", f"OFFSET {numbers([offset[0] / 4, offset[1] / 4, offset[2] / 4])}",
                  "}"]
    return lines + ["}"]


def bvh(joints, heading, pose):
    """`joints` are in the order in which they are written. `pose` gives, for a time from 0 to 1, how
    far the root has come, its height, its turn before it is headed, and the turns of joints by name."""
    lines = ["HIERARCHY", *hierarchy(joints, 0, 0), "MOTION", f"Frames: {FRAMES}",
             "Frame Time: 0.04"]
    for frame in range(FRAMES):
        far, height, root, turns = pose(frame / (FRAMES - 1))
        channels = apply(turn("y", heading), [0, height, far])
        for i, (name, _, _) in enumerate(joints):
            matrix = turns.get(name, turn("x", 0))
            if i == 0:
                matrix = product(turn("y", heading), root)
            channels += [math.degrees(angle) for angle in
                         (math.atan2(-matrix[0][1], matrix[1][1]), math.asin(matrix[2][1]),
                          math.atan2(-matrix[2][0], matrix[2][2]))]
        lines.append(numbers(channels))
    return "\n".join(lines + [""])


def swimmer():
    joints = [["Hips", -1, [0, 0, 0]], ["Chest", 0, [0, 40, 0]], ["Head", 1, [0, 22, 2]]]
    for side, out in (("Left", 1), ("Right", -1)):
        first = len(joints)
        joints += [[side + "Arm", 1, [17 * out, 10, 0]], [side + "Forearm", first, [2 * out, -28, 0]],
                   [side + "Hand", first + 1, [0, -25, 0]], [side + "Leg", 0, [9 * out, -4, 0]],
                   [side + "Shin", first + 3, [0, -44, 0]], [side + "Foot", first + 4, [0, -42, 0]]]

    def pose(time):
        turns = {}
        for side, lead in (("Left", 0), ("Right", 0.5)):
            stroke = time * 1.5 + lead
            kick = math.sin(2 * math.pi * 4 * (time + lead / 4))
            bend = max(0, math.sin(2 * math.pi * stroke))
            turns[side + "Arm"] = turn("x", -180 - 360 * stroke)
            turns[side + "Forearm"] = turn("x", -60 * bend)
            turns[side + "Leg"] = turn("x", 14 * kick)
            turns[side + "Shin"] = turn("x", 12 - 10 * kick)
            turns[side + "Foot"] = turn("x", 50)
        roll = 20 * math.sin(2 * math.pi * 1.5 * time)
        return 220 * time, 0, product(turn("x", 90), turn("y", roll)), turns

    return bvh(in_order(joints), 50, pose)


def animal():
    # A trunk that lies along z, a neck, a head, a tail, and four legs with paws, which tell the front.
    joints = [["n00", -1, [0, 0, 0]], ["n01", 0, [0, 2, 30]], ["n02", 1, [0, 2, 28]],
              ["n03", 2, [0, 14, 16]], ["n04", 3, [0, 4, 16]], ["n05", 0, [0, 4, -22]],
              ["n06", 5, [0, -8, -18]]]
    legs = []
    for above, out, back in ((2, 1, False), (2, -1, False), (0, 1, True), (0, -1, True)):
        first = len(joints)
        bend = -6 if back else 4
        joints += [[f"n{first:02}", above, [8 * out, -6, 0]],
                   [f"n{first + 1:02}", first, [0, -24, -bend]],
                   [f"n{first + 2:02}", first + 1, [0, -20, bend]],
                   [f"n{first + 3:02}", first + 2, [0, -2, 9]]]
        legs.append((first, out, back))

    def pose(time):
        turns = {}
        stride = 2 * math.pi * 3 * time
        for first, out, back in legs:
            phase = stride + (2.6 if back else 0) + 0.5 * out
            turns[f"n{first:02}"] = turn("x", 38 * math.sin(phase))
            knee = 30 * max(0, math.cos(phase))
            turns[f"n{first + 1:02}"] = turn("x", -knee if back else knee)
            turns[f"n{first + 2:02}"] = turn("x", -20 * math.sin(phase))
        turns["n01"] = turn("x", 12 * math.sin(stride + 1))
        turns["n03"] = turn("x", -8 * math.sin(stride))
        turns["n05"] = turn("x", 15 * math.sin(stride))
        return 300 * time, 52 + 5 * math.sin(stride), turn("x", -6 * math.sin(stride)), turns

    return bvh(in_order(joints), 225, pose)


def in_order(joints):
    """As they are written: each before those below it, and these before the next."""
    order = []

    def add(index):
        order.append(index)
        for i, joint in enumerate(joints):
            if joint[1] == index:
                add(i)

    add(0)
    return [[joints[i][0], order.index(joints[i][1]) if i else -1, joints[i][2]] for i in order]


if __name__ == "__main__":
    for name, content in (("turned_walk.smd", turned_walk()), ("swimmer.bvh", swimmer()),
                          ("animal.bvh", animal())):
        (Path(sys.argv[1]) / name).write_text(content)
