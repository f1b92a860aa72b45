#include "host/src/Answer.h"
#include "host/src/Evaluation.h"
#include "host/src/Node.h"
#include "host/src/Observe.h"
#include "host/src/PlugAccess.h"

#include <OpenVornik/VDataBlock.h>

using namespace OpenVornik::Internal;

VDataHandle VDataBlock::inputValue(const VPlug& plug, VStatus* status) {
    if (refused(status, "VDataBlock::inputValue", m_node, plug)) return {};
    if (!has(plug)) return fail(status, VStatus::kInvalidParameter);
    const VStatus evaluated = evaluate(plug);
    const VDataHandle handle = find(plug);
    if (handle.isNull()) return fail(status, VStatus::kNotFound);
    if (status) *status = evaluated;
    return handle;
}

VDataHandle VDataBlock::outputValue(const VPlug& plug, VStatus* status) {
    if (refused(status, "VDataBlock::outputValue", m_node, plug)) return {};
    if (!has(plug)) return fail(status, VStatus::kInvalidParameter);
    const VDataHandle handle = find(plug);
    if (handle.isNull()) return fail(status, VStatus::kNotFound);
    return succeed(status, handle);
}

VStatus VDataBlock::setClean(const VObject& attribute) {
    const VStatus answer = refusal("VDataBlock::setClean", m_node, attribute);
    if (answer.error()) return answer;
    const Attribute* owned = find(attribute);
    if (!owned) return VStatus::kInvalidParameter;
    m_node->markClean(*owned);
    return VStatus::kSuccess;
}

VStatus VDataBlock::setDirty(const VObject& attribute) {
    const VStatus answer = refusal("VDataBlock::setDirty", m_node, attribute);
    if (answer.error()) return answer;
    const Attribute* owned = find(attribute);
    if (!owned) return VStatus::kInvalidParameter;
    makeDirty(*owned);
    return VStatus::kSuccess;
}

bool VDataBlock::isClean(const VObject& attribute) const {
    if (refusal("VDataBlock::isClean", m_node, attribute).error()) return false;
    const Attribute* owned = find(attribute);
    return owned && m_node->isClean(*owned);
}

bool VDataBlock::has(const VPlug& plug) const noexcept {
    return m_node && PlugAccess::node(plug) == m_node;
}

VDataHandle VDataBlock::find(const VPlug& plug) const {
    std::byte* storage = m_node->findData(plug);
    if (!storage) return {};
    return VDataHandle(PlugAccess::attribute(plug), storage, PlugAccess::isElement(plug));
}

const Attribute* VDataBlock::find(const VObject& attribute) const noexcept {
    const Attribute* found = attributeOf(attribute);
    return m_node && found && found->node() == m_node ? found : nullptr;
}
