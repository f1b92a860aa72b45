"""COLLADA: z up and centimetres, which its readers turn and scale away; times in four decimals."""

from expect import expected
from linear import by_rows, inverse_rigid, move, product, scale, turn


def rigs():
    return [centimetres()]


def centimetres():
    """Keys in each frame at 25 per second. A node that is no bone has the name of one."""
    upper, lower = move(0, 0, 100), move(0, 0, 50)
    degrees = [4 * i for i in range(26)]
    frames = [product(lower, turn("x", turned)) for turned in degrees]
    times = [f"{i / 25:.4f}" for i in range(26)]
    world = product(scale(0.01, 0.01, 0.01), turn("x", -90), upper, lower, turn("x", 40))
    return {
        "files": {"centimetres.dae": document(upper, lower, times, frames)},
        "expected": expected(
            "centimetres.dae",
            [("Rig_Upper", None), ("Rig_Lower", 0), ("Rig_Lower_end", 1)],
            frames=26,
            fps=25,
            joint=1,
            frame=10,
            world=world,
            bones=2,
            animated=1,
            inBetween=1,
            animation="animation",
            metresPerUnit=1,
            weights=[0.75, 0.25, 0],
        ),
    }


def numbers(*matrices):
    return " ".join(f"{number:.9g}" for matrix in matrices for number in by_rows(matrix))


def source(name, kind, values, count, stride, parameter):
    """`count` values of `stride` elements each."""
    params = "".join(f'<param name="{p}" type="{t}"/>' for p, t in parameter)
    return (
        f'<source id="{name}"><{kind}_array id="{name}-array" count="{count * stride}">{values}'
        f'</{kind}_array><technique_common><accessor source="#{name}-array" count="{count}" '
        f'stride="{stride}">{params}</accessor></technique_common></source>\n'
    )


def document(upper, lower, times, frames):
    floats = [("X", "float"), ("Y", "float"), ("Z", "float")]
    matrix = [("TRANSFORM", "float4x4")]
    inverses = numbers(inverse_rigid(upper), inverse_rigid(product(upper, lower)))
    identity = numbers(move(0, 0, 0))
    count = len(times)
    return (
        """<?xml version="1.0" encoding="utf-8"?>
<COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
<asset><created>2020-01-01T00:00:00</created><modified>2020-01-01T00:00:00</modified>
<unit name="centimeter" meter="0.01"/><up_axis>Z_UP</up_axis></asset>
<library_geometries><geometry id="Body-mesh" name="Body"><mesh>
"""
        + source("points", "float", "0 0 0 1 0 0 0 1 0", 3, 3, floats)
        + """<vertices id="vertices"><input semantic="POSITION" source="#points"/></vertices>
<triangles count="1"><input semantic="VERTEX" source="#vertices" offset="0"/><p>0 1 2</p></triangles>
</mesh></geometry></library_geometries>
<library_controllers><controller id="Body-skin"><skin source="#Body-mesh">
"""
        + f"<bind_shape_matrix>{identity}</bind_shape_matrix>\n"
        + source("bones", "Name", "Upper Lower", 2, 1, [("JOINT", "name")])
        + source("binds", "float", inverses, 2, 16, matrix)
        + source("weights", "float", "0.75 0.25", 2, 1, [("WEIGHT", "float")])
        + """<joints><input semantic="JOINT" source="#bones"/>
<input semantic="INV_BIND_MATRIX" source="#binds"/></joints>
<vertex_weights count="3"><input semantic="JOINT" source="#bones" offset="0"/>
<input semantic="WEIGHT" source="#weights" offset="1"/>
<vcount>2 2 2</vcount><v>0 0 1 1 0 0 1 1 0 0 1 1</v></vertex_weights>
</skin></controller></library_controllers>
<library_animations><animation id="swing">
"""
        + source("times", "float", " ".join(times), count, 1, [("TIME", "float")])
        + source("frames", "float", numbers(*frames), count, 16, matrix)
        + source("kinds", "Name", " ".join(["LINEAR"] * count), count, 1, [("INTERPOLATION", "name")])
        + """<sampler id="sampler"><input semantic="INPUT" source="#times"/>
<input semantic="OUTPUT" source="#frames"/><input semantic="INTERPOLATION" source="#kinds"/></sampler>
<channel source="#sampler" target="Rig_Lower/transform"/></animation></library_animations>
<library_visual_scenes><visual_scene id="Scene" name="Scene">
"""
        + f"""<node id="Stand" name="Lower"><matrix sid="transform">{identity}</matrix></node>
<node id="Rig" name="Rig"><matrix sid="transform">{identity}</matrix>
<node id="Rig_Upper" name="Upper" sid="Upper" type="JOINT">
<matrix sid="transform">{numbers(upper)}</matrix>
<node id="Rig_Lower" name="Lower" sid="Lower" type="JOINT">
<matrix sid="transform">{numbers(lower)}</matrix>
<node id="Rig_Lower_end" name="Lower_end" sid="Lower_end" type="JOINT">
<matrix sid="transform">{numbers(move(0, 0, 20))}</matrix></node></node></node></node>
"""
        + """<node id="Body" name="Body"><instance_controller url="#Body-skin">
<skeleton>#Rig_Upper</skeleton></instance_controller></node>
</visual_scene></library_visual_scenes>
<scene><instance_visual_scene url="#Scene"/></scene>
</COLLADA>
"""
    )
