"""BVH: joints of one name, end sites, frame times in few digits."""

from expect import TELEVISION, expected
from linear import move, product, turn


def rigs():
    return [fingers(), television()]


def bvh(hierarchy, frames, frame_time):
    lines = "\n".join(" ".join(f"{number:g}" for number in frame) for frame in frames)
    return (
        f"HIERARCHY\n{hierarchy}MOTION\nFrames: {len(frames)}\nFrame Time: {frame_time}\n{lines}\n"
    )


def fingers():
    """Two joints of one name, which turn otherwise; 3.3333 seconds at 30 frames per second."""
    hierarchy = """ROOT Hand
{
  OFFSET 0 0 0
  CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation
  JOINT Finger
  {
    OFFSET 1 2 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    End Site
    {
      OFFSET 0 1 0
    }
  }
  JOINT Finger
  {
    OFFSET -1 2 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    End Site
    {
      OFFSET 0 1 0
    }
  }
}
"""
    frames = [[0.1 * i, 5, 0, 0, 0, 0, 0, 0.25 * i, 0, 0.5 * i, 0, 0.3 * i] for i in range(101)]
    world = product(move(10.0, 5, 0), move(-1, 2, 0), turn("z", 50), turn("y", 30))
    return {
        "files": {"fingers.bvh": bvh(hierarchy, frames, "0.033333")},
        "expected": expected(
            "fingers.bvh",
            [("Hand", None), ("Finger", 0), ("Finger", 0)],
            frames=101,
            fps=30,
            joint=2,
            frame=100,
            world=world,
            animated=3,
            animation="Motion",
        ),
    }


def television():
    """The rate of television, as the length of a frame in six digits."""
    hierarchy = """ROOT Root
{
  OFFSET 0 0 0
  CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation
  JOINT Head
  {
    OFFSET 0 3 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    End Site
    {
      OFFSET 0 1 0
    }
  }
}
"""
    frames = [[0, i, 0, 0, 10 * i, 0, 0, 0, 20 * i] for i in range(4)]
    world = product(move(0, 3, 0), turn("x", 30), move(0, 3, 0), turn("y", 60))
    return {
        "files": {"television.bvh": bvh(hierarchy, frames, "0.0333667")},
        "expected": expected(
            "television.bvh",
            [("Root", None), ("Head", 0)],
            frames=4,
            fps=TELEVISION,
            joint=1,
            frame=3,
            world=world,
            animated=2,
            animation="Motion",
        ),
    }
