// Reads and makes plugs from inside the host, without telling an observer.
#pragma once

#include "host/src/Attribute.h"

#include <OpenVornik/VPlug.h>

#include <algorithm>

namespace OpenVornik::Internal {

struct PlugAccess {
    // Null for a null plug, as is the attribute.
    static Node* node(const VPlug& plug) noexcept {
        return plug.m_attribute ? plug.m_attribute->node() : nullptr;
    }
    static const Attribute* attribute(const VPlug& plug) noexcept { return plug.m_attribute; }
    static const unsigned* indices(const VPlug& plug) noexcept {
        return plug.m_path.indices.data();
    }

    static bool isElement(const VPlug& plug) noexcept {
        return plug.m_attribute && plug.m_path.depth > plug.m_attribute->arraysAbove();
    }
    static bool isWholeArray(const VPlug& plug) noexcept {
        return plug.m_attribute && plug.m_attribute->isArray() && !isElement(plug);
    }

    // The whole of `attribute`, in the same elements as `near` as far down as both go, then in
    // those at logical index 0.
    static VPlug whole(const Attribute& attribute, const VPlug& near = {}) noexcept {
        VPlug plug;
        plug.m_attribute = &attribute;
        plug.m_path.depth = attribute.arraysAbove();
        std::copy_n(indices(near), std::min(near.m_path.depth, plug.m_path.depth),
                    plug.m_path.indices.begin());
        return plug;
    }
};

// "walk.limbs[3].names", or nothing for a null plug.
VString nameOf(const VPlug& plug);

}  // namespace OpenVornik::Internal
