#include "host/src/Answer.h"
#include "host/src/ArrayData.h"
#include "host/src/Evaluation.h"
#include "host/src/Node.h"
#include "host/src/Observe.h"
#include "host/src/PlugAccess.h"
#include "host/src/Storage.h"

#include <OpenVornik/VArrayDataHandle.h>

using namespace OpenVornik::Internal;

VArrayDataHandle::VArrayDataHandle(const VDataHandle& handle, VStatus* status) {
    const DataPlace place{handle.m_attribute, handle.isElement()};
    if (refused(status, "VArrayDataHandle::VArrayDataHandle", place)) return;
    if (handle.isNull() || handle.holdsValue()) {
        fail(status, VStatus::kInvalidParameter);
        return;
    }
    m_attribute = handle.m_attribute;
    m_node = m_attribute->node();
    m_elements = succeed(status, &stored<ArrayData>(handle.storage()));
}

unsigned VArrayDataHandle::elementCount(VStatus* status) const {
    if (refused(status, "VArrayDataHandle::elementCount", DataPlace{m_attribute})) return 0;
    if (!m_elements) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, static_cast<unsigned>(m_elements->size()));
}

VDataHandle VArrayDataHandle::inputValue(VStatus* status) {
    if (refused(status, "VArrayDataHandle::inputValue", DataPlace{m_attribute})) return {};
    if (!m_elements) return fail(status, VStatus::kInvalidParameter);
    const VStatus evaluated =
        m_node->isClean(*m_attribute) ? VStatus() : evaluate(PlugAccess::whole(*m_attribute));
    const VDataHandle element = current();
    if (element.isNull()) return fail(status, VStatus::kNotFound);
    if (status) *status = evaluated;
    return element;
}

VDataHandle VArrayDataHandle::outputValue(VStatus* status) {
    if (refused(status, "VArrayDataHandle::outputValue", DataPlace{m_attribute})) return {};
    if (!m_elements) return fail(status, VStatus::kInvalidParameter);
    const VDataHandle element = current();
    if (element.isNull()) return fail(status, VStatus::kNotFound);
    return succeed(status, element);
}

unsigned VArrayDataHandle::elementIndex(VStatus* status) const {
    if (refused(status, "VArrayDataHandle::elementIndex", DataPlace{m_attribute})) return 0;
    if (!m_elements) return fail(status, VStatus::kInvalidParameter);
    if (m_position >= m_elements->size()) return fail(status, VStatus::kNotFound);
    return succeed(status, m_elements->logicalIndex(m_position));
}

VStatus VArrayDataHandle::next() {
    const VStatus answer = refusal("VArrayDataHandle::next", DataPlace{m_attribute});
    if (answer.error()) return answer;
    if (!m_elements) return VStatus::kInvalidParameter;
    if (m_position < m_elements->size()) ++m_position;
    m_elements->fetchAheadOf(m_position);
    return m_position < m_elements->size() ? VStatus::kSuccess : VStatus::kNotFound;
}

VStatus VArrayDataHandle::jumpToElement(unsigned logicalIndex) {
    const VStatus answer =
        refusal("VArrayDataHandle::jumpToElement", DataPlace{m_attribute}, logicalIndex);
    if (answer.error()) return answer;
    if (!m_elements) return VStatus::kInvalidParameter;
    const std::size_t position = m_elements->positionOf(logicalIndex);
    if (position == m_elements->size()) return VStatus::kNotFound;
    m_position = position;
    return VStatus::kSuccess;
}

VStatus VArrayDataHandle::jumpToArrayElement(unsigned position) {
    const VStatus answer =
        refusal("VArrayDataHandle::jumpToArrayElement", DataPlace{m_attribute}, position);
    if (answer.error()) return answer;
    if (!m_elements) return VStatus::kInvalidParameter;
    if (position >= m_elements->size()) return VStatus::kNotFound;
    m_position = position;
    return VStatus::kSuccess;
}

VArrayDataBuilder VArrayDataHandle::builder(VStatus* status) const {
    if (refused(status, "VArrayDataHandle::builder", DataPlace{m_attribute})) return {};
    if (!m_elements) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, VArrayDataBuilder(m_node, m_attribute, m_elements->share()));
}

VStatus VArrayDataHandle::set(const VArrayDataBuilder& builder) {
    const VStatus answer =
        refusal("VArrayDataHandle::set", DataPlace{m_attribute}, DataPlace{builder.m_attribute});
    if (answer.error()) return answer;
    if (!m_elements || !builder.m_elements || builder.m_attribute != m_attribute) {
        return VStatus::kInvalidParameter;
    }
    m_elements->replaceBy(*builder.m_elements);
    m_position = 0;
    return VStatus::kSuccess;
}

VStatus VArrayDataHandle::setAllClean() {
    const VStatus answer = refusal("VArrayDataHandle::setAllClean", DataPlace{m_attribute});
    if (answer.error()) return answer;
    if (!m_elements) return VStatus::kInvalidParameter;
    m_node->markClean(*m_attribute);
    return VStatus::kSuccess;
}

VDataHandle VArrayDataHandle::current() const noexcept {
    if (m_position >= m_elements->size()) return {};
    return VDataHandle(m_attribute, m_elements->element(m_position), true);
}
