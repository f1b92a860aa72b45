"""What is expected of a rig."""

from linear import by_columns

FILM = 24000 / 1001
TELEVISION = 30000 / 1001


def expected(file, joints, frames, fps, joint, frame, world, **more):
    """`joints` are names and parents. `world` is the matrix of one joint in one frame, for column
    vectors."""
    result = {
        "file": file,
        "hasSkeleton": True,
        "joints": [{"name": name, "parent": parent} for name, parent in joints],
        "bones": 0,
        "animated": 0,
        "inBetween": 0,
        "animation": "",
        "seconds": (frames - 1) / fps,
        "frames": frames,
        "fps": fps,
        "upAxis": "y",
        "metresPerUnit": None,
        "weights": None,
    }
    unknown = set(more) - set(result)
    assert not unknown, unknown
    result.update(more)
    # Where rounding stands in for the sign of nothing.
    numbers = [round(number, 12) + 0.0 for number in by_columns(world)]
    result["matrix"] = {"joint": joint, "frame": frame, "world": numbers}
    return result
