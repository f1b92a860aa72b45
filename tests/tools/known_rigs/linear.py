"""Matrices for column vectors as lists of rows, and quaternions as (x, y, z, w). All in doubles."""

import math


def identity():
    return [[float(row == column) for column in range(4)] for row in range(4)]


def product(*matrices):
    result = identity()
    for matrix in matrices:
        result = [
            [sum(result[row][k] * matrix[k][column] for k in range(4)) for column in range(4)]
            for row in range(4)
        ]
    return result


def move(x, y, z):
    return [[1.0, 0.0, 0.0, x], [0.0, 1.0, 0.0, y], [0.0, 0.0, 1.0, z], [0.0, 0.0, 0.0, 1.0]]


def scale(x, y, z):
    return [[x, 0.0, 0.0, 0.0], [0.0, y, 0.0, 0.0], [0.0, 0.0, z, 0.0], [0.0, 0.0, 0.0, 1.0]]


def turn(axis, degrees):
    """A turn about the axis "x", "y" or "z", counterclockwise seen from its tip."""
    c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    first, second = {"x": (1, 2), "y": (2, 0), "z": (0, 1)}[axis]
    matrix = identity()
    matrix[first][first] = matrix[second][second] = c
    matrix[first][second], matrix[second][first] = -s, s
    return matrix


def quaternion(axis, degrees):
    half = math.radians(degrees) / 2
    return [math.sin(half) * float(axis == name) for name in "xyz"] + [math.cos(half)]


def inverse_rigid(matrix):
    """The inverse of a matrix that only turns and moves."""
    turned = [[matrix[column][row] for column in range(3)] for row in range(3)]
    moved = [-sum(turned[row][k] * matrix[k][3] for k in range(3)) for row in range(3)]
    return [turned[row] + [moved[row]] for row in range(3)] + [[0.0, 0.0, 0.0, 1.0]]


def by_columns(matrix):
    return [matrix[row][column] for column in range(4) for row in range(4)]


def by_rows(matrix):
    return [number for row in matrix for number in row]
