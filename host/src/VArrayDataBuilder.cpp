#include "host/src/Answer.h"
#include "host/src/ArrayData.h"
#include "host/src/Attribute.h"
#include "host/src/Observe.h"

#include <OpenVornik/VArrayDataBuilder.h>

#include <utility>

using namespace OpenVornik::Internal;

VArrayDataBuilder::VArrayDataBuilder() noexcept = default;
VArrayDataBuilder::VArrayDataBuilder(VArrayDataBuilder&& other) noexcept = default;
VArrayDataBuilder::~VArrayDataBuilder() = default;

// Destroys the former elements before the attribute that says how they are laid out.
VArrayDataBuilder& VArrayDataBuilder::operator=(VArrayDataBuilder&& other) noexcept {
    m_elements = std::move(other.m_elements);
    m_node = other.m_node;
    m_attribute = other.m_attribute;
    m_keptAttribute = other.m_keptAttribute;
    return *this;
}

VArrayDataBuilder::VArrayDataBuilder(Node* node, const Attribute* attribute,
                                     std::unique_ptr<ArrayData> elements) noexcept
    : m_node(node),
      m_attribute(attribute),
      m_keptAttribute(handleTo(attribute)),
      m_elements(std::move(elements)) {}

VDataHandle VArrayDataBuilder::addElement(unsigned logicalIndex, VStatus* status) {
    const DataPlace place{m_attribute};
    if (refused(status, "VArrayDataBuilder::addElement", place, logicalIndex)) return {};
    if (!m_elements) return fail(status, VStatus::kInvalidParameter);
    std::byte* element = m_elements->addUnshared(logicalIndex);
    return succeed(status, VDataHandle(m_attribute, element, true));
}

VStatus VArrayDataBuilder::removeElement(unsigned logicalIndex) {
    const VStatus answer =
        refusal("VArrayDataBuilder::removeElement", DataPlace{m_attribute}, logicalIndex);
    if (answer.error()) return answer;
    if (!m_elements) return VStatus::kInvalidParameter;
    return m_elements->remove(logicalIndex) ? VStatus::kSuccess : VStatus::kNotFound;
}

unsigned VArrayDataBuilder::elementCount(VStatus* status) const {
    if (refused(status, "VArrayDataBuilder::elementCount", DataPlace{m_attribute})) return 0;
    if (!m_elements) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, static_cast<unsigned>(m_elements->size()));
}
