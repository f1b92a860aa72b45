#include "host/src/Node.h"

#include "host/src/ArrayData.h"
#include "host/src/PlugAccess.h"
#include "host/src/Storage.h"

#include <algorithm>

namespace OpenVornik::Internal {

namespace {

std::byte* findElement(ArrayData& array, unsigned logicalIndex) {
    const std::size_t position = array.positionOf(logicalIndex);
    return position < array.size() ? array.element(position) : nullptr;
}

std::byte* addElement(ArrayData& array, unsigned logicalIndex) { return array.add(logicalIndex); }

// Goes down to the data of `attribute`, or to one element of it, from the slot of its root.
template <typename Element>
std::byte* descend(const Attribute& attribute, bool isElement, const unsigned* indices,
                   const std::vector<std::unique_ptr<std::byte[]>>& slots, Element element) {
    std::byte* slot = slots[attribute.index()].get();
    if (const Attribute* parent = attribute.parent()) {
        std::byte* above = descend(*parent, parent->isArray(), indices, slots, element);
        if (!above) return nullptr;
        slot = above + attribute.offset();
    }
    if (!isElement) return slot;
    return element(stored<ArrayData>(slot), indices[attribute.arraysAbove()]);
}

}  // namespace

Node::~Node() {
    disconnectAll(*this);
    while (!m_roots.empty()) removeLast();
}

VStatus Node::add(Attribute& attribute) {
    if (attribute.node() || attribute.parent()) return VStatus::kFailure;
    if (attribute.arrayDepth() > VPlug::kMaxArrayDepth) return VStatus::kFailure;
    std::vector<Attribute*> tree;
    attribute.appendTreeTo(tree);
    if (hasNameClash(tree)) return VStatus::kFailure;

    const std::size_t index = m_attributes.size();
    attribute.place(*this, static_cast<unsigned>(index));
    attribute.retain();
    m_roots.push_back(&attribute);
    m_attributes.insert(m_attributes.end(), tree.begin(), tree.end());
    m_clean.resize(m_attributes.size(), false);
    m_slots.resize(m_attributes.size());
    m_slots[index] = std::make_unique<std::byte[]>(attribute.slotExtent().size);
    constructSlot(attribute, m_slots[index].get());
    return VStatus::kSuccess;
}

void Node::removeLast() noexcept {
    Attribute* attribute = m_roots.back();
    const std::size_t index = attribute->index();
    destroySlot(*attribute, m_slots[index].get());
    m_slots.resize(index);
    m_clean.resize(index);
    m_attributes.resize(index);
    m_roots.pop_back();
    attribute->takeAway();
    attribute->release();
}

Attribute* Node::find(const VString& name) const noexcept {
    for (Attribute* attribute : m_roots) {
        if (attribute->hasName(name)) return attribute;
    }
    return nullptr;
}

std::byte* Node::findData(const VPlug& plug) const {
    return descend(*PlugAccess::attribute(plug), PlugAccess::isElement(plug),
                   PlugAccess::indices(plug), m_slots, findElement);
}

std::byte* Node::addData(const VPlug& plug) {
    return descend(*PlugAccess::attribute(plug), PlugAccess::isElement(plug),
                   PlugAccess::indices(plug), m_slots, addElement);
}

void Node::markClean(const Attribute& attribute) {
    std::fill(m_clean.begin() + attribute.index(), m_clean.begin() + attribute.endIndex(), true);
}

void Node::markDirty(const Attribute& attribute) {
    std::fill(m_clean.begin() + attribute.index(), m_clean.begin() + attribute.endIndex(), false);
    for (const Attribute* above = attribute.parent(); above; above = above->parent()) {
        m_clean[above->index()] = false;
    }
}

// `tree` begins with its root. The root clashes with the names of other roots and with those that
// the node's children claim for themselves; a child of the tree that claims its name clashes with
// any attribute of the node or the tree that has it.
bool Node::hasNameClash(const std::vector<Attribute*>& tree) const {
    const Attribute* root = tree.front();
    for (const Attribute* present : m_attributes) {
        const bool claimsName = !present->parent() || present->enforcingUniqueName;
        if (claimsName && present->sharesNameWith(*root)) return true;
    }
    std::vector<Attribute*> all = m_attributes;
    all.insert(all.end(), tree.begin(), tree.end());
    for (const Attribute* added : tree) {
        if (added == root || !added->enforcingUniqueName) continue;
        for (const Attribute* other : all) {
            if (other != added && other->sharesNameWith(*added)) return true;
        }
    }
    return false;
}

}  // namespace OpenVornik::Internal
