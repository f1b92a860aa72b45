// Reads and makes plugs from inside the host, where nobody is told of it.
#pragma once

#include "host/src/Attribute.h"

#include <OpenVornik/VPlug.h>

#include <algorithm>

namespace OpenVornik::Internal {

struct PlugAccess {
    static Node* node(const VPlug& plug) noexcept { return plug.m_node; }
    static const Attribute* attribute(const VPlug& plug) noexcept { return plug.m_attribute; }
    static const unsigned* indices(const VPlug& plug) noexcept { return plug.m_indices.data(); }

    static bool isElement(const VPlug& plug) noexcept {
        return plug.m_attribute && plug.m_depth > plug.m_attribute->arraysAbove();
    }
    static bool isWholeArray(const VPlug& plug) noexcept {
        return plug.m_attribute && plug.m_attribute->isArray() && !isElement(plug);
    }

    // The whole of `attribute`, in the elements that `near` stands in; 0 for arrays that it is not
    // inside of.
    static VPlug whole(const Attribute& attribute, const VPlug& near = {}) noexcept {
        VPlug plug;
        plug.m_node = attribute.node();
        plug.m_attribute = &attribute;
        plug.m_depth = attribute.arraysAbove();
        std::copy_n(near.m_indices.begin(), std::min(near.m_depth, plug.m_depth),
                    plug.m_indices.begin());
        return plug;
    }
};

// "walk.limbs[3].names", or nothing for a null plug.
VString nameOf(const VPlug& plug);

}  // namespace OpenVornik::Internal
