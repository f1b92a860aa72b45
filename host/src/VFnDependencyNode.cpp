#include "host/src/Answer.h"
#include "host/src/Node.h"
#include "host/src/Observe.h"
#include "host/src/PlugAccess.h"

#include <OpenVornik/VFnDependencyNode.h>

#include <utility>

using namespace OpenVornik::Internal;

VFnDependencyNode::VFnDependencyNode(const VObject& node, VStatus* status) {
    if (refused(status, "VFnDependencyNode::VFnDependencyNode", node)) return;
    if (nodeOf(node)) {
        m_node = succeed(status, node);
    } else {
        fail(status, VStatus::kInvalidParameter);
    }
}

VObject VFnDependencyNode::create(const VString& name, VStatus* status) {
    if (refused(status, "VFnDependencyNode::create", Nothing(), name)) return {};
    m_node = handleTo(new Node(name));
    return succeed(status, m_node);
}

VString VFnDependencyNode::name(VStatus* status) const {
    if (refused(status, "VFnDependencyNode::name", m_node)) return {};
    const Node* node = nodeOf(m_node);
    if (!node) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, node->name());
}

VObject VFnDependencyNode::attribute(const VString& name, VStatus* status) const {
    if (refused(status, "VFnDependencyNode::attribute", m_node, name)) return {};
    const Node* node = nodeOf(m_node);
    if (!node) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, handleTo(node->find(name)));
}

unsigned VFnDependencyNode::attributeCount(VStatus* status) const {
    if (refused(status, "VFnDependencyNode::attributeCount", m_node)) return 0;
    const Node* node = nodeOf(m_node);
    if (!node) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, static_cast<unsigned>(node->roots().size()));
}

VObject VFnDependencyNode::attribute(unsigned index, VStatus* status) const {
    if (refused(status, "VFnDependencyNode::attribute", m_node, index)) return {};
    const Node* node = nodeOf(m_node);
    if (!node || index >= node->roots().size()) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, handleTo(node->roots()[index]));
}

VPlug VFnDependencyNode::findPlug(const VString& name, VStatus* status) const {
    if (refused(status, "VFnDependencyNode::findPlug", m_node, name)) return {};
    const Node* node = nodeOf(m_node);
    if (!node) return fail(status, VStatus::kInvalidParameter);
    const Attribute* attribute = node->find(name);
    if (!attribute) return fail(status, VStatus::kNotFound);
    return succeed(status, PlugAccess::whole(*attribute));
}

VDataBlock VFnDependencyNode::dataBlock(VStatus* status) const {
    if (refused(status, "VFnDependencyNode::dataBlock", m_node)) return {};
    Node* node = nodeOf(m_node);
    if (!node) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, node->dataBlock());
}

VStatus VFnDependencyNode::setCompute(Compute compute) {
    const VStatus answer = refusal("VFnDependencyNode::setCompute", m_node);
    if (answer.error()) return answer;
    Node* node = nodeOf(m_node);
    if (!node) return VStatus::kInvalidParameter;
    node->compute = std::move(compute);
    return VStatus::kSuccess;
}
