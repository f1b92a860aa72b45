#include "host/src/Attribute.h"

#include "host/src/ArrayData.h"

#include <OpenVornik/VMatrix.h>

#include <algorithm>
#include <string>
#include <utility>

namespace OpenVornik::Internal {

namespace {

template <typename T>
constexpr Extent extentOf() noexcept {
    return {sizeof(T), alignof(T)};
}

Extent leafExtent(Value value) noexcept {
    switch (value) {
        case Value::kBoolean:
            // Two bytes, as the address of the second one marks an element of an array.
            return {2, 2};
        case Value::kInteger:
            return extentOf<int>();
        case Value::kDouble:
            return extentOf<double>();
        case Value::kEnum:
            return extentOf<short>();
        case Value::kText:
            return extentOf<VString>();
        case Value::kMatrix:
            return extentOf<VMatrix>();
        case Value::kNothing:
        case Value::kCompound:
            break;
    }
    return {};
}

}  // namespace

std::size_t Extent::append(const Extent& part) noexcept {
    const std::size_t offset = (size + part.alignment - 1) / part.alignment * part.alignment;
    size = offset + part.size;
    alignment = std::max(alignment, part.alignment);
    return offset;
}

Attribute::Attribute(Definition definition) : m_definition(std::move(definition)) {}

Attribute::~Attribute() {
    for (Attribute* child : m_children) {
        child->m_parent = nullptr;
        child->release();
    }
}

bool Attribute::hasName(const VString& name) const noexcept {
    return name == m_definition.longName || name == m_definition.shortName;
}

bool Attribute::sharesNameWith(const Attribute& other) const noexcept {
    return hasName(other.m_definition.longName) || hasName(other.m_definition.shortName);
}

VStatus Attribute::setArray(bool array) {
    if (m_node) return VStatus::kFailure;
    m_array = array;
    return VStatus::kSuccess;
}

VStatus Attribute::addChild(Attribute& child) {
    if (m_node || child.m_node || child.m_parent) return VStatus::kFailure;
    for (const Attribute* above = this; above; above = above->m_parent) {
        if (above == &child) return VStatus::kFailure;
    }
    for (const Attribute* sibling : m_children) {
        if (sibling->sharesNameWith(child)) return VStatus::kFailure;
    }
    m_children.push_back(&child);
    child.retain();
    child.m_parent = this;
    return VStatus::kSuccess;
}

VStatus Attribute::accept(VFnData::Type type) {
    if (m_node) return VStatus::kFailure;
    if (type != VFnData::kString) return VStatus::kInvalidParameter;
    if (std::find(m_accepted.begin(), m_accepted.end(), type) == m_accepted.end()) {
        m_accepted.push_back(type);
    }
    m_definition.value = Value::kText;
    return VStatus::kSuccess;
}

unsigned Attribute::arrayDepth() const noexcept {
    unsigned deepest = 0;
    for (const Attribute* child : m_children) deepest = std::max(deepest, child->arrayDepth());
    return deepest + (m_array ? 1 : 0);
}

void Attribute::appendTreeTo(std::vector<Attribute*>& attributes) {
    attributes.push_back(this);
    for (Attribute* child : m_children) child->appendTreeTo(attributes);
}

void Attribute::place(Node& node, unsigned index) { place(node, index, 0); }

unsigned Attribute::place(Node& node, unsigned index, unsigned arraysAbove) {
    m_node = &node;
    m_index = index++;
    m_arraysAbove = arraysAbove;
    m_valueExtent = leafExtent(m_definition.value);
    for (Attribute* child : m_children) {
        index = child->place(node, index, arraysAbove + (m_array ? 1 : 0));
        child->m_offset = m_valueExtent.append(child->slotExtent());
    }
    m_endIndex = index;
    return index;
}

void Attribute::takeAway() noexcept {
    m_node = nullptr;
    for (Attribute* child : m_children) child->takeAway();
}

bool Attribute::isAtOrAbove(const Attribute& other) const noexcept {
    return m_node == other.m_node && m_index <= other.m_index && other.m_index < m_endIndex;
}

Extent Attribute::slotExtent() const noexcept {
    return m_array ? extentOf<ArrayData>() : m_valueExtent;
}

bool haveSameShape(const Attribute& a, const Attribute& b) noexcept {
    return a.isArray() == b.isArray() && haveSameValueShape(a, b);
}

bool haveSameValueShape(const Attribute& a, const Attribute& b) noexcept {
    return a.value() == b.value() &&
           std::equal(a.children().begin(), a.children().end(), b.children().begin(),
                      b.children().end(), [](const Attribute* childOfA, const Attribute* childOfB) {
                          return haveSameShape(*childOfA, *childOfB);
                      });
}

VString pathOf(const Attribute& attribute, bool isElement, const unsigned* indices) {
    VString path;
    if (const Attribute* parent = attribute.parent()) {
        path = pathOf(*parent, parent->isArray(), indices) + VString(".");
    }
    path += attribute.name();
    if (!isElement) return path;
    const std::string index = indices ? std::to_string(indices[attribute.arraysAbove()]) : "";
    return path + VString(("[" + index + "]").c_str());
}

}  // namespace OpenVornik::Internal
