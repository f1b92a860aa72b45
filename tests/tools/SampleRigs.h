// Small rig files whose matrices are easy to calculate by hand.
#pragma once

#include <string>

// Hips with a spine of two joints and a leg on each side: five joints in four limbs, four frames at
// ten per second. The hips move along x by one each frame; the chest turns about z by 90 degrees in
// frame 1 and stays turned.
inline std::string sampleBvh() {
    return R"(HIERARCHY
ROOT Hips
{
  OFFSET 0 0 0
  CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation
  JOINT Spine
  {
    OFFSET 0 2 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    JOINT Chest
    {
      OFFSET 0 3 0
      CHANNELS 3 Zrotation Xrotation Yrotation
      End Site
      {
        OFFSET 0 1 0
      }
    }
  }
  JOINT LeftLeg
  {
    OFFSET 1 -1 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    End Site
    {
      OFFSET 0 -1 0
    }
  }
  JOINT RightLeg
  {
    OFFSET -1 -1 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    End Site
    {
      OFFSET 0 -1 0
    }
  }
}
MOTION
Frames: 4
Frame Time: 0.1
0 10 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0
1 10 0 0 0 0 0 0 0 90 0 0 0 0 0 0 0 0
2 10 0 0 0 0 0 0 0 90 0 0 0 0 0 0 0 0
3 10 0 0 0 0 0 0 0 90 0 0 0 0 0 0 0 0
)";
}

// The same with a single frame.
inline std::string stillBvh() {
    std::string text = sampleBvh();
    text.replace(text.find("Frames: 4"), 9, "Frames: 1");
    return text.substr(0, text.find("\n1 10") + 1);
}

// The same with two frames that are equal.
inline std::string waitingBvh() {
    std::string text = sampleBvh();
    text.replace(text.find("Frames: 4"), 9, "Frames: 2");
    const std::size_t first = text.find("0 10 0");
    const std::size_t second = text.find("1 10 0");
    return text.substr(0, second) + text.substr(first, second - first);
}

// Two joints below a node "Stand", which is no joint and lifts them by 5. "Tip" is animated over
// one second: it stands at (0, 1, 0), after half a second at (0, 2, 0), at the end at (4, 2, 0).
// The four points of a mesh weigh 1, 1, 1/2 and 1/2 on "Base" and the rest on "Tip". There is a
// second animation, "still", with the first key alone.
inline std::string sampleGltf() {
    return R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}],
"nodes": [{"name": "Stand", "translation": [0, 5, 0], "children": [1, 3]},
          {"name": "Base", "children": [2]},
          {"name": "Tip", "translation": [0, 1, 0]},
          {"name": "Body", "mesh": 0, "skin": 0}],
"skins": [{"joints": [1, 2], "inverseBindMatrices": 8}],
"meshes": [{"primitives": [{"attributes": {"POSITION": 2, "JOINTS_0": 3, "WEIGHTS_0": 4},
                            "indices": 5}]}],
"animations": [{"name": "move", "channels": [{"sampler": 0, "target": {"node": 2, "path": "translation"}}],
                "samplers": [{"input": 0, "output": 1}]},
               {"name": "still", "channels": [{"sampler": 0, "target": {"node": 2, "path": "translation"}}],
                "samplers": [{"input": 6, "output": 7}]}],
"accessors": [
  {"bufferView": 0, "componentType": 5126, "count": 3, "type": "SCALAR", "min": [0], "max": [1]},
  {"bufferView": 1, "componentType": 5126, "count": 3, "type": "VEC3"},
  {"bufferView": 2, "componentType": 5126, "count": 4, "type": "VEC3", "min": [0, 0, 0], "max": [1, 1, 0]},
  {"bufferView": 3, "componentType": 5121, "count": 4, "type": "VEC4"},
  {"bufferView": 4, "componentType": 5126, "count": 4, "type": "VEC4"},
  {"bufferView": 5, "componentType": 5123, "count": 3, "type": "SCALAR"},
  {"bufferView": 0, "componentType": 5126, "count": 1, "type": "SCALAR", "min": [0], "max": [0]},
  {"bufferView": 1, "componentType": 5126, "count": 1, "type": "VEC3"},
  {"bufferView": 6, "componentType": 5126, "count": 2, "type": "MAT4"}],
"bufferViews": [
  {"buffer": 0, "byteOffset": 0, "byteLength": 12},
  {"buffer": 0, "byteOffset": 12, "byteLength": 36},
  {"buffer": 0, "byteOffset": 48, "byteLength": 48},
  {"buffer": 0, "byteOffset": 96, "byteLength": 16},
  {"buffer": 0, "byteOffset": 112, "byteLength": 64},
  {"buffer": 0, "byteOffset": 176, "byteLength": 6},
  {"buffer": 0, "byteOffset": 184, "byteLength": 128}],
"buffers": [{"byteLength": 312, "uri": "data:application/octet-stream;base64,AAAAAAAAAD8AAIA/AAAAAAAAgD8AAAAAAAAAAAAAAEAAAAAAAACAQAAAAEAAAAAAAAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAAAACAPwAAgD8AAAAAAAEAAAABAAAAAQAAAAEAAAAAgD8AAAAAAAAAAAAAAAAAAIA/AAAAAAAAAAAAAAAAAAAAPwAAAD8AAAAAAAAAAAAAAD8AAAA/AAAAAAAAAAAAAAEAAgAAAAAAgD8AAAAAAAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAAAAAAIA/AAAAAAAAAAAAAAAAAAAAAAAAgD8AAIA/AAAAAAAAAAAAAAAAAAAAAAAAgD8AAAAAAAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAAAAAAIA/"}]}
)";
}
