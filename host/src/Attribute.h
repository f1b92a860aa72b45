// An attribute: its names, flags and children and, once a node has taken its tree, its place in the
// node's data. Data is laid out as in a C struct: a child has a byte offset in the block of the
// compound above it, so that finding it takes no search.
#pragma once

#include "host/src/Object.h"

#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnData.h>

#include <cstddef>
#include <vector>

namespace OpenVornik::Internal {

// What one value of an attribute is: all of it, or one element if it is an array.
enum class Value : unsigned char {
    kNothing,
    kBoolean,
    kInteger,
    kDouble,
    kEnum,
    kText,
    kMatrix,
    kCompound
};

struct Extent {
    std::size_t size = 0;
    std::size_t alignment = 1;

    // Adds room for `part` behind what there is and says where that room begins.
    std::size_t append(const Extent& part) noexcept;
};

class Attribute final : public Object {
public:
    struct Definition {
        VFnAttribute::Kind kind;
        VString longName;
        VString shortName;
        Value value;
        double defaultValue = 0.0;
    };
    struct Field {
        VString name;
        short value;
    };

    explicit Attribute(Definition definition);
    ~Attribute() override;

    const VString& name() const noexcept override { return m_definition.longName; }
    const Definition& definition() const noexcept { return m_definition; }
    bool hasName(const VString& name) const noexcept;
    bool sharesNameWith(const Attribute& other) const noexcept;

    bool readable = true;
    bool writable = true;
    bool keyable = false;
    bool enforcingUniqueName = true;
    std::vector<Field> fields;

    // What changes the shape of the data. Refused once a node has the attribute.
    VStatus setArray(bool array);
    VStatus addChild(Attribute& child);
    VStatus accept(VFnData::Type type);

    bool isArray() const noexcept { return m_array; }
    Value value() const noexcept { return m_definition.value; }
    const std::vector<Attribute*>& children() const noexcept { return m_children; }
    const std::vector<VFnData::Type>& acceptedTypes() const noexcept { return m_accepted; }
    Attribute* parent() const noexcept { return m_parent; }
    // How many arrays stand inside one another in this tree, at its deepest.
    unsigned arrayDepth() const noexcept;
    void appendTreeTo(std::vector<Attribute*>& attributes);

    // Places this tree in `node`, as its attributes from `index` on.
    void place(Node& node, unsigned index);
    void takeAway() noexcept;

    Node* node() const noexcept { return m_node; }
    // The tree's attributes are numbered in order, each compound before what is below it.
    unsigned index() const noexcept { return m_index; }
    unsigned endIndex() const noexcept { return m_endIndex; }
    bool isAtOrAbove(const Attribute& other) const noexcept;
    unsigned arraysAbove() const noexcept { return m_arraysAbove; }
    std::size_t offset() const noexcept { return m_offset; }
    Extent valueExtent() const noexcept { return m_valueExtent; }
    // What the attribute takes in the block of the compound above it.
    Extent slotExtent() const noexcept;

private:
    unsigned place(Node& node, unsigned index, unsigned arraysAbove);

    Definition m_definition;
    bool m_array = false;
    std::vector<Attribute*> m_children;
    std::vector<VFnData::Type> m_accepted;
    Attribute* m_parent = nullptr;

    Node* m_node = nullptr;
    unsigned m_index = 0;
    unsigned m_endIndex = 0;
    unsigned m_arraysAbove = 0;
    std::size_t m_offset = 0;
    Extent m_valueExtent;
};

// Whether the data of two attributes can be copied from one to the other as it lies.
bool haveSameShape(const Attribute& a, const Attribute& b) noexcept;
// The same for one value of each.
bool haveSameValueShape(const Attribute& a, const Attribute& b) noexcept;

// The path from the top level, such as "limbs[3].names". Without `indices`, one for each array
// above and one for an element, the brackets are empty.
VString pathOf(const Attribute& attribute, bool isElement, const unsigned* indices = nullptr);

}  // namespace OpenVornik::Internal
