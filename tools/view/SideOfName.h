// The side of the body that a joint's name speaks of.
#pragma once

#include <string_view>

namespace Tolvane::Tools {

enum class BodySide { Left, Middle, Right };

struct NamedSide {
    BodySide side = BodySide::Middle;
    // Whether the name says it with a word, such as "left", and not with a letter, which may as
    // well stand for something else.
    bool isWord = false;
};

// Understands "LeftArm", "rig:left_arm", "lefthand", "arm.L", "L_arm", "LArm", "arm_l_01" and the
// characters that East Asian names have for it. Middle for a name that speaks of no side or of
// both.
NamedSide sideOfName(std::string_view name);

}  // namespace Tolvane::Tools
