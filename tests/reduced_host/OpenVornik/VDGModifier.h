// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VObject.h>
#include <OpenVornik/VStatus.h>

class VDGModifier {
public:
    VDGModifier(const VDGModifier& other) = delete;

    VStatus addAttribute(const VObject& node, const VObject& attribute);
    VStatus doIt();
};
