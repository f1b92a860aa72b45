"""glTF: nodes of one name, objects among the bones, times in single precision."""

import base64
import json
import struct

from expect import FILM, expected
from linear import by_columns, inverse_rigid, move, product, quaternion, turn

TRIANGLE = [[0, 0, 0], [1, 0, 0], [0, 1, 0]]
METRES = {"upAxis": "y", "metresPerUnit": 1}


def rigs():
    return [objects_among_bones(), seconds_apart(), film(), skin_alone()]


class Gltf:
    def __init__(self, nodes, roots):
        self.buffer = b""
        self.document = {
            "asset": {"version": "2.0"},
            "scene": 0,
            "scenes": [{"nodes": roots}],
            "nodes": nodes,
            "accessors": [],
            "bufferViews": [],
        }

    def accessor(self, rows, kind, code="f"):
        component = {"f": 5126, "B": 5121}[code]
        numbers = [number for row in rows for number in row]
        data = struct.pack(f"<{len(numbers)}{code}", *numbers)
        view = {"buffer": 0, "byteOffset": len(self.buffer), "byteLength": len(data)}
        self.buffer += data + b"\0" * (-len(data) % 4)
        accessor = {
            "bufferView": len(self.document["bufferViews"]),
            "componentType": component,
            "count": len(rows),
            "type": kind,
        }
        if kind in ("SCALAR", "VEC3"):
            accessor["min"] = [single(min(column)) for column in zip(*rows)]
            accessor["max"] = [single(max(column)) for column in zip(*rows)]
        self.document["bufferViews"].append(view)
        self.document["accessors"].append(accessor)
        return len(self.document["accessors"]) - 1

    def add_mesh(self, weights=None):
        """A triangle, each of whose points weighs the same on the first bones of its skin."""
        attributes = {"POSITION": self.accessor(TRIANGLE, "VEC3")}
        if weights:
            bones = list(range(len(weights))) + [0] * (4 - len(weights))
            padded = weights + [0] * (4 - len(weights))
            attributes["JOINTS_0"] = self.accessor([bones] * 3, "VEC4", "B")
            attributes["WEIGHTS_0"] = self.accessor([padded] * 3, "VEC4")
        self.document.setdefault("meshes", []).append({"primitives": [{"attributes": attributes}]})

    def add_skin(self, joints, worlds):
        inverses = [by_columns(inverse_rigid(world)) for world in worlds]
        skin = {"joints": joints, "inverseBindMatrices": self.accessor(inverses, "MAT4")}
        self.document.setdefault("skins", []).append(skin)

    def add_animation(self, name, movements):
        """A movement is a node, what of it moves, the times and the values of its keys."""
        animation = {"name": name, "channels": [], "samplers": []}
        for node, path, times, values in movements:
            kind = "VEC4" if path == "rotation" else "VEC3"
            sampler = {
                "input": self.accessor([[time] for time in times], "SCALAR"),
                "output": self.accessor(values, kind),
            }
            target = {"node": node, "path": path}
            animation["channels"].append({"sampler": len(animation["samplers"]), "target": target})
            animation["samplers"].append(sampler)
        self.document.setdefault("animations", []).append(animation)

    def text(self):
        data = base64.b64encode(self.buffer).decode()
        uri = "data:application/octet-stream;base64," + data
        self.document["buffers"] = [{"byteLength": len(self.buffer), "uri": uri}]
        return json.dumps(self.document, indent=1) + "\n"


def single(number):
    return struct.unpack("<f", struct.pack("<f", number))[0]


def objects_among_bones():
    """Two bones and the node of a mesh have one name, and each moves; there are a camera, a light and
    a mesh below a bone, a node between two bones and one below the last. 3.3333 seconds at 30 frames
    per second."""
    nodes = [
        {"name": "Bone", "mesh": 1, "translation": [9, 9, 9]},
        {"name": "Body", "mesh": 0, "skin": 0},
        {"name": "Stand", "translation": [0, 0, 4], "children": [3]},
        {"name": "Bone", "translation": [0, 1, 0], "children": [4, 7, 8]},
        {"name": "Between", "translation": [0, 0.5, 0], "children": [5]},
        {"name": "Bone", "translation": [0, 1.5, 0], "children": [6, 9]},
        {"name": "End", "translation": [0, 1, 0]},
        {"name": "Eye", "camera": 0, "translation": [0, 0, 1]},
        {"name": "Lamp", "extensions": {"KHR_lights_punctual": {"light": 0}}},
        {"name": "Sword", "mesh": 1, "translation": [1, 0, 0]},
    ]
    gltf = Gltf(nodes, [0, 1, 2])
    gltf.document["cameras"] = [{"type": "perspective", "perspective": {"yfov": 0.7, "znear": 0.1}}]
    gltf.document["extensionsUsed"] = ["KHR_lights_punctual"]
    gltf.document["extensions"] = {"KHR_lights_punctual": {"lights": [{"type": "point"}]}}
    gltf.add_mesh([0.75, 0.25])
    gltf.add_mesh()
    gltf.add_skin([3, 5], [move(0, 1, 4), move(0, 3, 4)])
    times = [i / 30 for i in range(101)]
    gltf.add_animation(
        "Swing",
        [
            (0, "translation", times, [[9 + 0.1 * i, 9, 9] for i in range(101)]),
            (3, "rotation", times, [quaternion("x", 0.25 * i) for i in range(101)]),
            (5, "rotation", times, [quaternion("z", 0.5 * i) for i in range(101)]),
        ],
    )
    upper = product(move(0, 0, 4), move(0, 1, 0), turn("x", 25))
    world = product(upper, move(0, 0.5, 0), move(0, 1.5, 0), turn("z", 50))
    return {
        "files": {"objects_among_bones.gltf": gltf.text()},
        "expected": expected(
            "objects_among_bones.gltf",
            [("Bone", None), ("Between", 0), ("Bone", 1), ("End", 2)],
            frames=101,
            fps=30,
            joint=2,
            frame=100,
            world=world,
            bones=2,
            animated=2,
            inBetween=2,
            animation="Swing",
            weights=[0.75, 0, 0.25, 0],
            **METRES,
        ),
    }


def seconds_apart():
    """Keys whole seconds apart, and no skin. Of two animations the first is meant."""
    nodes = [
        {"name": "World", "translation": [0, 0, 2], "children": [1]},
        {"name": "Base", "translation": [0, 1, 0], "children": [2]},
        {"name": "Tip", "translation": [0, 3, 0]},
    ]
    gltf = Gltf(nodes, [0])
    places = [[0, 1, 0], [2, 1, 0], [2, 5, 0], [2, 5, 8]]
    gltf.add_animation("Lift", [(1, "translation", [0, 1, 2, 3], places)])
    gltf.add_animation("Other", [(2, "translation", [0], [[0, 3, 0]])])
    return {
        "files": {"seconds_apart.gltf": gltf.text()},
        "expected": expected(
            "seconds_apart.gltf",
            [("Base", None), ("Tip", 0)],
            frames=91,
            fps=30,
            joint=1,
            frame=45,
            world=product(move(0, 0, 2), move(2, 3, 0), move(0, 3, 0)),
            animated=2,
            animation="Lift",
            **METRES,
        ),
    }


def film():
    """Keys in each frame of a film for television, from frame 1 on."""
    gltf = Gltf([{"name": "Arm", "children": [1]}, {"name": "Hand", "translation": [2, 0, 0]}], [0])
    numbers = list(range(1, 49))
    turns = [quaternion("y", 3 * number) for number in numbers]
    gltf.add_animation("Film", [(0, "rotation", [number / FILM for number in numbers], turns)])
    return {
        "files": {"film.gltf": gltf.text()},
        "expected": expected(
            "film.gltf",
            [("Arm", None), ("Hand", 0)],
            frames=49,
            fps=FILM,
            joint=1,
            frame=40,
            world=product(turn("y", 120), move(2, 0, 0)),
            animated=1,
            inBetween=1,
            animation="Film",
            **METRES,
        ),
    }


def skin_alone():
    """A skin without an animation, whose mesh has the name of a bone."""
    nodes = [
        {"name": "Leg", "mesh": 0, "skin": 0},
        {"name": "Hip", "translation": [0, 4, 0], "children": [2]},
        {"name": "Leg", "translation": [1, 0, 0], "rotation": quaternion("z", 90)},
    ]
    gltf = Gltf(nodes, [0, 1])
    world = product(move(0, 4, 0), move(1, 0, 0), turn("z", 90))
    gltf.add_mesh([0.5, 0.5])
    gltf.add_skin([1, 2], [move(0, 4, 0), world])
    return {
        "files": {"skin_alone.gltf": gltf.text()},
        "expected": expected(
            "skin_alone.gltf",
            [("Hip", None), ("Leg", 0)],
            frames=1,
            fps=30,
            joint=1,
            frame=0,
            world=world,
            bones=2,
            weights=[0.5, 0.5],
            **METRES,
        ),
    }
