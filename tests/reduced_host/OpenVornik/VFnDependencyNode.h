// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VObject.h>
#include <OpenVornik/VString.h>

class VFnDependencyNode {
public:
    explicit VFnDependencyNode(const VObject& node);
    VFnDependencyNode(const VFnDependencyNode& other) = delete;

    VObject attribute(const VString& name);
    VString name();
};
