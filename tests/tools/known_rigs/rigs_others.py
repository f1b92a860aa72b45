"""X, B3D, MD5, SMD and OBJ: rates that are not stated or in a second file, no skeleton."""

import math
import struct

from expect import expected
from linear import by_columns, identity, inverse_rigid, move, product, quaternion, scale, turn


def rigs():
    return [unstated_ticks(), unstated_frames(), two_files(), unstated_rate(), no_skeleton()]


def unstated_ticks():
    """An X file that does not say how many ticks are a second: 4,800. It is left-handed; a rig has
    its mirror image, for which z points the other way."""
    upper, lower = move(0, 1, 3), move(0, 2, 0)
    keys = [(160 * i, product(lower, turn("x", 9 * i))) for i in range(11)]
    mirror = scale(1, 1, -1)
    world = product(mirror, upper, lower, turn("x", 63), mirror)

    def numbers(matrix):
        return ",".join(f"{number:.6f}" for number in by_columns(matrix))

    def weights(name, weight, world):
        three = f"{weight},{weight},{weight}"
        offset = numbers(inverse_rigid(world))
        return f'   SkinWeights {{ "{name}"; 3; 0,1,2; {three}; {offset};; }}\n'

    text = (
        "xof 0303txt 0032\nFrame Scene {\n"
        f" FrameTransformMatrix {{ {numbers(identity())};; }}\n"
        f" Frame Upper {{\n  FrameTransformMatrix {{ {numbers(upper)};; }}\n"
        f"  Frame Lower {{\n   FrameTransformMatrix {{ {numbers(lower)};; }}\n  }}\n }}\n"
        f" Frame BodyFrame {{\n  FrameTransformMatrix {{ {numbers(identity())};; }}\n"
        "  Mesh Body {\n   3; 0.0;0.0;0.0;, 1.0;0.0;0.0;, 0.0;1.0;0.0;;\n   1; 3;0,1,2;;\n"
        "   XSkinMeshHeader { 2; 2; 2; }\n"
        + weights("Upper", 0.75, upper)
        + weights("Lower", 0.25, product(upper, lower))
        + "  }\n }\n}\nAnimationSet Swing {\n Animation {\n  { Lower }\n"
        f"  AnimationKey {{ 4; {len(keys)};\n"
        + ",\n".join(f"   {tick};16;{numbers(matrix)};;" for tick, matrix in keys)
        + ";\n  }\n }\n}\n"
    )
    return {
        "files": {"unstated_ticks.x": text},
        "expected": expected(
            "unstated_ticks.x",
            [("Upper", None), ("Lower", 0)],
            frames=11,
            fps=30,
            joint=1,
            frame=7,
            world=world,
            bones=2,
            animated=1,
            animation="Swing",
            weights=[0.75, 0.25],
        ),
    }


def unstated_frames():
    """A B3D file that gives no frames per second: 60. It is left-handed as well."""

    def chunk(tag, *contents):
        content = b"".join(contents)
        return tag + struct.pack("<i", len(content)) + content

    def node(name, place, *contents):
        numbers = struct.pack("<10f", *place, 1, 1, 1, 1, 0, 0, 0)
        return chunk(b"NODE", name + b"\0" + numbers, *contents)

    def bone(*weights):
        return chunk(b"BONE", *[struct.pack("<if", *weight) for weight in weights])

    places = [(0, [0, 2, 0]), (10, [0, 2, 5]), (30, [0, 7, 5])]
    keys = [struct.pack("<i3f", frame, *place) for frame, place in places]
    moved = chunk(b"KEYS", struct.pack("<i", 1), *keys)
    lower = node(b"Lower", [0, 2, 0], bone((1, 1.0), (2, 1.0)), moved)
    points = struct.pack("<3i9f", 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1, 0)
    faces = struct.pack("<4i", -1, 0, 1, 2)
    mesh = chunk(
        b"MESH", struct.pack("<i", -1), chunk(b"VRTS", points), chunk(b"TRIS", faces)
    )
    motion = chunk(b"ANIM", struct.pack("<2if", 0, 30, 0))
    upper = node(b"Upper", [0, 0, 4], bone((0, 1.0)), lower)
    body = node(b"Body", [0, 0, 0], mesh, motion, upper)
    return {
        "files": {"unstated_frames.b3d": chunk(b"BB3D", struct.pack("<i", 1), body)},
        "expected": expected(
            "unstated_frames.b3d",
            [("Upper", None), ("Lower", 0)],
            frames=31,
            fps=60,
            joint=1,
            frame=20,
            world=product(move(0, 0, -4), move(0, 4.5, -5)),
            bones=2,
            animated=1,
            weights=[1 / 3, 2 / 3],
        ),
    }


def two_files():
    """MD5, whose movement is in another file of the same name. It has z up, which its reader turns to
    y; the rate is 12. The first of its joints skins nothing, and so counts as what carries them."""
    degrees = [10 * i for i in range(5)]
    mesh = """MD5Version 10
commandline ""

numJoints 3
numMeshes 1

joints {
	"origin"	-1 ( 1 0 0 ) ( 0 0 0 )
	"upper"	0 ( 1 0 1 ) ( 0 0 0 )
	"lower"	1 ( 1 0 3 ) ( 0 0 0 )
}

mesh {
	shader "none"

	numverts 3
	vert 0 ( 0 0 ) 0 1
	vert 1 ( 0 0 ) 1 1
	vert 2 ( 0 0 ) 2 1

	numtris 1
	tri 0 0 1 2

	numweights 3
	weight 0 1 1 ( 0 0 0 )
	weight 1 1 1 ( 1 0 0 )
	weight 2 2 1 ( 0 1 0 )
}
"""
    bounds = "\t( -1 -1 -1 ) ( 1 1 1 )\n" * len(degrees)
    # A frame has the x of the turn of "lower" alone. The w that follows from it is never positive.
    frames = "".join(
        f"frame {i} {{\n\t{-quaternion('x', turned)[0]:.7f}\n}}\n\n" for i, turned in enumerate(degrees)
    )
    motion = f"""MD5Version 10
commandline ""

numFrames {len(degrees)}
numJoints 3
frameRate 12
numAnimatedComponents 1

hierarchy {{
	"origin"	-1 0 0
	"upper"	0 0 0
	"lower"	1 8 0
}}

bounds {{
{bounds}}}

baseframe {{
	( 1 0 0 ) ( 0 0 0 )
	( 0 0 1 ) ( 0 0 0 )
	( 0 0 2 ) ( 0 0 0 )
}}

{frames}"""
    world = product(turn("x", -90), move(1, 0, 0), move(0, 0, 1), move(0, 0, 2), turn("x", 30))
    return {
        "files": {"two_files.md5mesh": mesh, "two_files.md5anim": motion},
        "expected": expected(
            "two_files.md5mesh",
            [("upper", None), ("lower", 0)],
            frames=5,
            fps=12,
            joint=1,
            frame=3,
            world=world,
            bones=2,
            animated=2,
            weights=[2 / 3, 1 / 3],
        ),
    }


def unstated_rate():
    """SMD, which has no rate: 30 is what its compiler takes. z is up, and nothing is skinned."""
    text = 'version 1\nnodes\n0 "root" -1\n1 "upper" 0\n2 "lower" 1\nend\nskeleton\n'
    for i in range(5):
        lower = f"2 0 0 2 {math.radians(10 * i):.6f} 0 {math.radians(20 * i):.6f}"
        text += f"time {i}\n0 0 0 0 0 0 0\n1 0 0 1 0 0 0\n{lower}\n"
    # Turns are about x, then y, then z.
    world = product(move(0, 0, 1), move(0, 0, 2), turn("z", 60), turn("x", 30))
    return {
        "files": {"unstated_rate.smd": text + "end\n"},
        "expected": expected(
            "unstated_rate.smd",
            [("root", None), ("upper", 0), ("lower", 1)],
            frames=5,
            fps=30,
            joint=2,
            frame=3,
            world=world,
            animated=3,
            upAxis="z",
        ),
    }


def no_skeleton():
    """OBJ, which can hold none."""
    text = "o Left\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\no Right\nv 2 0 0\nv 3 0 0\nv 2 1 0\nf 4 5 6\n"
    return {
        "files": {"no_skeleton.obj": text},
        "expected": expected(
            "no_skeleton.obj",
            [("no_skeleton.obj", None), ("Left", 0), ("Right", 0)],
            frames=1,
            fps=30,
            joint=2,
            frame=0,
            world=identity(),
            hasSkeleton=False,
            inBetween=3,
        ),
    }
