#include "host/src/Answer.h"
#include "host/src/Node.h"
#include "host/src/Observe.h"
#include "host/src/PlugAccess.h"

#include <OpenVornik/VPlug.h>

#include <algorithm>
#include <type_traits>

using namespace OpenVornik::Internal;

static_assert(std::is_trivially_copyable_v<VPlug>);

VPlug::VPlug(const VObject& node, const VObject& attribute, VStatus* status) {
    if (refused(status, "VPlug::VPlug", Nothing(), node, attribute)) return;
    const Node* owner = nodeOf(node);
    const Attribute* owned = attributeOf(attribute);
    if (!owner || !owned || owned->node() != owner) {
        fail(status, VStatus::kInvalidParameter);
        return;
    }
    *this = succeed(status, PlugAccess::whole(*owned));
}

VPlug VPlug::child(unsigned index, VStatus* status) {
    if (refused(status, "VPlug::child", *this, index)) return {};
    if (isNull() || PlugAccess::isWholeArray(*this) || index >= m_attribute->children().size()) {
        return fail(status, VStatus::kInvalidParameter);
    }
    succeed(status);
    return VPlug(*this, m_attribute->children()[index]);
}

unsigned VPlug::numChildren(VStatus* status) const {
    if (refused(status, "VPlug::numChildren", *this)) return 0;
    if (isNull() || m_attribute->value() != Value::kCompound) {
        return fail(status, VStatus::kInvalidParameter);
    }
    return succeed(status, static_cast<unsigned>(m_attribute->children().size()));
}

VPlug VPlug::elementByLogicalIndex(unsigned logicalIndex, VStatus* status) {
    if (refused(status, "VPlug::elementByLogicalIndex", *this, logicalIndex)) return {};
    if (!PlugAccess::isWholeArray(*this)) return fail(status, VStatus::kInvalidParameter);
    VPlug element = *this;
    element.m_path.indices[element.m_path.depth++] = logicalIndex;
    return succeed(status, element);
}

unsigned VPlug::logicalIndex(VStatus* status) const {
    if (refused(status, "VPlug::logicalIndex", *this)) return 0;
    if (!PlugAccess::isElement(*this)) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, m_path.indices[m_path.depth - 1]);
}

bool VPlug::isArray(VStatus* status) const {
    if (refused(status, "VPlug::isArray", *this)) return false;
    if (isNull()) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, PlugAccess::isWholeArray(*this));
}

bool VPlug::isElement(VStatus* status) const {
    if (refused(status, "VPlug::isElement", *this)) return false;
    if (isNull()) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, PlugAccess::isElement(*this));
}

bool VPlug::isCompound(VStatus* status) const {
    if (refused(status, "VPlug::isCompound", *this)) return false;
    if (isNull()) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, m_attribute->value() == Value::kCompound);
}

VObject VPlug::attribute(VStatus* status) const {
    if (refused(status, "VPlug::attribute", *this)) return {};
    if (isNull()) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, handleTo(m_attribute));
}

VObject VPlug::node(VStatus* status) const {
    if (refused(status, "VPlug::node", *this)) return {};
    if (isNull()) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, handleTo(PlugAccess::node(*this)));
}

VString VPlug::name(VStatus* status) const {
    if (refused(status, "VPlug::name", *this)) return {};
    if (isNull()) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, nameOf(*this));
}

bool VPlug::equals(const VPlug& other) const noexcept {
    const unsigned* indices = PlugAccess::indices(*this);
    return m_attribute == other.m_attribute && m_path.depth == other.m_path.depth &&
           std::equal(indices, indices + m_path.depth, PlugAccess::indices(other));
}

VString OpenVornik::Internal::nameOf(const VPlug& plug) {
    if (plug.isNull()) return {};
    const VString path = pathOf(*PlugAccess::attribute(plug), PlugAccess::isElement(plug),
                                PlugAccess::indices(plug));
    return PlugAccess::node(plug)->name() + VString(".") + path;
}
