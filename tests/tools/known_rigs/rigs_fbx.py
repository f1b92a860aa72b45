"""FBX: z up, centimetres and inches, turns before turns, a take that begins late."""

from expect import expected
from fbx_binary import binary
from linear import by_columns, inverse_rigid, move, product, turn

SECOND = 46186158000


def rigs():
    return [z_up(), in_binary(), named_as_its_mesh(), pivots()]


class Fbx:
    def __init__(self, up_axis, unit, time_mode):
        self.objects = []
        self.connections = []
        self.next_id = 1000
        settings = [
            number("UpAxis", up_axis),
            number("UpAxisSign", 1),
            number("FrontAxis", 2 if up_axis == 1 else 1),
            number("FrontAxisSign", 1 if up_axis == 1 else -1),
            number("CoordAxis", 0),
            number("CoordAxisSign", 1),
            f'P: "UnitScaleFactor", "double", "Number", "",{unit}',
        ]
        if time_mode is not None:
            settings.append(f'P: "TimeMode", "enum", "", "",{time_mode}')
        self.settings = settings

    def add(self, kind, name, subkind, lines=(), properties=()):
        self.next_id += 1
        body = list(lines)
        if properties:
            body += ["Properties70:  {"] + ["\t" + line for line in properties] + ["}"]
        text = "".join(f"\t\t{line}\n" for line in body)
        title = f'\t{kind}: {self.next_id}, "{name}", "{subkind}"'
        self.objects.append(f"{title} {{\n{text}\t}}\n")
        return self.next_id

    def connect(self, child, parent, member=None):
        if member:
            self.connections.append(f'\tC: "OP",{child},{parent}, "{member}"\n')
        else:
            self.connections.append(f'\tC: "OO",{child},{parent}\n')

    def add_node(self, name, parent, kind, place, **components):
        """`components` are further ones of the transformation, by their names in FBX."""
        properties = [vector("Lcl Translation", "Lcl Translation", place)]
        if components:
            properties.append('P: "RotationActive", "bool", "", "",1')
        properties += [vector(name, "Vector3D", values) for name, values in components.items()]
        node = self.add("Model", f"Model::{name}", kind, ["Version: 232"], properties)
        self.connect(node, parent)
        flags = {"LimbNode": "Skeleton", "Camera": "Camera", "Null": "Null"}.get(kind)
        if flags:
            lines = [f'TypeFlags: "{flags}"']
            self.connect(self.add("NodeAttribute", f"NodeAttribute::{name}", kind, lines), node)
        return node

    def add_triangle(self, node):
        lines = array("Vertices", [0, 0, 0, 1, 0, 0, 0, 1, 0])
        lines += array("PolygonVertexIndex", [0, 1, -3]) + ["GeometryVersion: 124"]
        geometry = self.add("Geometry", "Geometry::", "Mesh", lines)
        self.connect(geometry, node)
        return geometry

    def add_skin(self, geometry, bones):
        """A bone is its node, its weight on each point, and its world matrix; the mesh is in the
        middle of the world."""
        skin = self.add("Deformer", "Deformer::", "Skin", ["Version: 101"])
        self.connect(skin, geometry)
        for node, weight, world in bones:
            lines = ["Version: 100"] + array("Indexes", [0, 1, 2]) + array("Weights", [weight] * 3)
            lines += array("Transform", by_columns(inverse_rigid(world)))
            lines += array("TransformLink", by_columns(world))
            cluster = self.add("Deformer", "SubDeformer::", "Cluster", lines)
            self.connect(cluster, skin)
            self.connect(node, cluster)

    def add_take(self, name, start, stop):
        times = {"LocalStart": start, "LocalStop": stop}
        times.update({"ReferenceStart": start, "ReferenceStop": stop})
        lines = [f'P: "{key}", "KTime", "Time", "",{time}' for key, time in times.items()]
        take = self.add("AnimationStack", f"AnimStack::{name}", "", properties=lines)
        layer = self.add("AnimationLayer", "AnimLayer::Base", "", ["Layer: 0"])
        self.connect(layer, take)
        return layer

    def add_curves(self, layer, node, member, times, values):
        """`values` are one list for each of x, y and z."""
        lines = [f'P: "d|{axis}", "Number", "", "A",{keys[0]}' for axis, keys in zip("XYZ", values)]
        curves = self.add("AnimationCurveNode", "AnimCurveNode::", "", properties=lines)
        self.connect(curves, layer)
        self.connect(curves, node, member)
        for axis, keys in zip("XYZ", values):
            lines = ["Default: 0", "KeyVer: 4009"] + array("KeyTime", times)
            lines += array("KeyValueFloat", keys) + array("KeyAttrFlags", [260])
            lines += array("KeyAttrDataFloat", [0] * 4) + array("KeyAttrRefCount", [len(times)])
            curve = self.add("AnimationCurve", "AnimCurve::", "", lines)
            self.connect(curve, curves, f"d|{axis}")

    def text(self):
        settings = "".join(f"\t\t{line}\n" for line in self.settings)
        return (
            "; FBX 7.4.0 project file\n; ----\n\n"
            "FBXHeaderExtension:  {\n\tFBXHeaderVersion: 1003\n\tFBXVersion: 7400\n}\n"
            "GlobalSettings:  {\n\tVersion: 1000\n\tProperties70:  {\n" + settings + "\t}\n}\n"
            f"Definitions:  {{\n\tVersion: 100\n\tCount: {len(self.objects)}\n}}\n"
            "Objects:  {\n" + "".join(self.objects) + "}\n"
            "Connections:  {\n" + "".join(self.connections) + "}\n"
        )


def number(name, value):
    return f'P: "{name}", "int", "Integer", "",{value}'


def vector(name, kind, values):
    return f'P: "{name}", "{kind}", "", "A",{",".join(map(repr, values))}'


def array(name, values):
    return [f"{name}: *{len(values)} {{", "\ta: " + ",".join(map(repr, values)), "}"]


def time_of(frame, rate):
    return frame * SECOND // rate


def z_up():
    """Centimetres with z up. Bones with a turn before their own. The take begins at frame 10, where
    time zero is. A mesh, a camera and an end below a bone. 3.3333 seconds at 30 frames per second."""
    fbx = Fbx(up_axis=2, unit=1, time_mode=6)
    armature = fbx.add_node("Armature", 0, "Null", [0, 0, 3])
    hips = fbx.add_node("Hips", armature, "LimbNode", [0, 0, 100], PreRotation=[90, 0, 0])
    leg = fbx.add_node("Leg", hips, "LimbNode", [0, 10, 0], PreRotation=[0, 0, 30])
    fbx.add_node("Leg_end", leg, "LimbNode", [0, 5, 0])
    fbx.add_node("Eye", leg, "Camera", [0, 5, 0])
    fbx.add_triangle(fbx.add_node("Sword", leg, "Mesh", [1, 0, 0]))
    body = fbx.add_triangle(fbx.add_node("Body", 0, "Mesh", [0, 0, 0]))
    hips_world = product(move(0, 0, 103), turn("x", 90))
    leg_world = product(hips_world, move(0, 10, 0), turn("z", 30))
    fbx.add_skin(body, [(hips, 0.75, hips_world), (leg, 0.25, leg_world)])
    start, stop = time_of(10, 30), time_of(110, 30)
    layer = fbx.add_take("Walk", start, stop)
    places = [[0, 7], [0, 0], [100, 100]]
    fbx.add_curves(layer, hips, "Lcl Translation", [start, time_of(20, 30)], places)
    fbx.add_curves(layer, leg, "Lcl Rotation", [start, stop], [[0, 0], [0, 0], [0, 90]])
    world = product(move(0, 0, 3), move(7, 0, 100), turn("x", 90), move(0, 10, 0), turn("z", 75))
    return {
        "files": {"z_up.fbx": fbx.text()},
        "expected": expected(
            "z_up.fbx",
            [("Hips", None), ("Leg", 0), ("Leg_end", 1)],
            frames=101,
            fps=30,
            joint=1,
            frame=50,
            world=world,
            bones=2,
            animated=2,
            inBetween=1,
            animation="Walk",
            upAxis="z",
            metresPerUnit=0.01,
            weights=[0.75, 0.25, 0],
        ),
    }


def in_binary():
    """The same in binary."""
    rig = z_up()
    expectation = dict(rig["expected"], file="in_binary.fbx")
    return {
        "files": {"in_binary.fbx": binary(rig["files"]["z_up.fbx"])},
        "expected": expectation,
    }


def named_as_its_mesh():
    """A mesh that has the name of the bone that moves it and stands before it; inches; no rate, but
    keys on frames of 1/24 second. What carries the bones moves as well."""
    fbx = Fbx(up_axis=1, unit=2.54, time_mode=None)
    body = fbx.add_triangle(fbx.add_node("Arm", 0, "Mesh", [0, 0, 0]))
    cart = fbx.add_node("Cart", 0, "Null", [0, 0, 0])
    arm = fbx.add_node("Arm", cart, "LimbNode", [0, 1, 0])
    hand = fbx.add_node("Hand", arm, "LimbNode", [2, 0, 0])
    fbx.add_skin(body, [(arm, 0.5, move(0, 1, 0)), (hand, 0.5, move(2, 1, 0))])
    times = [0, time_of(5, 24), time_of(24, 24)]
    layer = fbx.add_take("Wave", 0, times[-1])
    fbx.add_curves(layer, arm, "Lcl Rotation", times, [[0, 0, 0], [0, 0, 0], [0, 60, 60]])
    fbx.add_curves(layer, cart, "Lcl Translation", [0, times[-1]], [[0, 24], [0, 0], [0, 0]])
    return {
        "files": {"named_as_its_mesh.fbx": fbx.text()},
        "expected": expected(
            "named_as_its_mesh.fbx",
            [("Arm", None), ("Hand", 0)],
            frames=25,
            fps=24,
            joint=1,
            frame=5,
            world=product(move(5, 0, 0), move(0, 1, 0), turn("z", 60), move(2, 0, 0)),
            bones=2,
            animated=1,
            inBetween=0,
            animation="Wave",
            metresPerUnit=0.0254,
            weights=[0.5, 0.5],
        ),
    }


def pivots():
    """Joints that turn about pivots, with turns before and after their own, one of which has geometry
    that stands elsewhere, which moves no joint."""
    fbx = Fbx(up_axis=1, unit=100, time_mode=11)
    upper = fbx.add_node(
        "Upper",
        0,
        "LimbNode",
        [0, 1, 0],
        RotationOffset=[0, 0.5, 0],
        RotationPivot=[1, 0, 0],
        PreRotation=[0, 0, 30],
        PostRotation=[20, 0, 0],
        GeometricTranslation=[0, 0, 9],
    )
    lower = fbx.add_node("Lower", upper, "LimbNode", [0, 2, 0], PostRotation=[0, 0, 40])
    fbx.add_node("End", lower, "LimbNode", [0, 3, 0])
    stop = time_of(24, 24)
    layer = fbx.add_take("Bend", 0, stop)
    fbx.add_curves(layer, upper, "Lcl Rotation", [0, stop], [[0, 0], [0, 0], [0, 90]])
    fbx.add_curves(layer, lower, "Lcl Rotation", [0, stop], [[0, 60], [0, 0], [0, 0]])
    world = product(
        move(0, 1, 0),
        move(0, 0.5, 0),
        move(1, 0, 0),
        turn("z", 30),
        turn("z", 45),
        turn("x", -20),
        move(-1, 0, 0),
        move(0, 2, 0),
        turn("x", 30),
        turn("z", -40),
        move(0, 3, 0),
    )
    return {
        "files": {"pivots.fbx": fbx.text()},
        "expected": expected(
            "pivots.fbx",
            [("Upper", None), ("Lower", 0), ("End", 1)],
            frames=25,
            fps=24,
            joint=2,
            frame=12,
            world=world,
            animated=2,
            inBetween=1,
            animation="Bend",
            metresPerUnit=1,
        ),
    }
