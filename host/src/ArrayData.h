// The elements of a sparse array, in ascending logical index. Each element is a block of its own,
// which stays where it is while others come and go.
//
// A builder's elements begin as the array's own blocks, and it copies one only before it hands it
// out for writing. The array never swaps a block for a copy, so that handles to its elements stay
// good. Blocks belong to one evaluation thread, which is why their use counts are plain.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace OpenVornik::Internal {

class Attribute;

class ArrayData {
public:
    explicit ArrayData(const Attribute& attribute) noexcept : m_attribute(attribute) {}
    ArrayData(const ArrayData&) = delete;
    ArrayData& operator=(const ArrayData&) = delete;
    ~ArrayData();

    std::size_t size() const noexcept { return m_indices.size() - m_removed; }
    unsigned logicalIndex(std::size_t position) const noexcept { return m_indices[position]; }
    std::byte* element(std::size_t position) const noexcept;
    // For who walks the elements and is at this one.
    void fetchAheadOf(std::size_t position) const noexcept;
    // size() where there is no such element.
    std::size_t positionOf(unsigned logicalIndex) const noexcept;

    // The element at `logicalIndex`, new where it is absent.
    std::byte* add(unsigned logicalIndex);
    // The same, for a builder: an element that no other array sees.
    std::byte* addUnshared(unsigned logicalIndex);
    // Of a builder: an array has its elements by position, and a removed one keeps its place. False
    // where there is no such element.
    bool remove(unsigned logicalIndex) noexcept;

    std::unique_ptr<ArrayData> share() const;
    // Replaces the elements by a builder's, sharing those that are not in some other array.
    void replaceBy(const ArrayData& builder);
    // Makes the elements equal to those of `other`, which may belong to another attribute of the
    // same shape, and keeps the blocks of those that both have.
    void copy(const ArrayData& other);

private:
    struct Block;

    std::size_t lowerBound(unsigned logicalIndex) const noexcept;
    void insertAt(std::size_t position, unsigned logicalIndex);
    Block* makeBlock() const;
    Block* copyOf(Block& block) const;
    void drop(Block* block) const noexcept;

    const Attribute& m_attribute;
    std::vector<unsigned> m_indices;
    // Null where the element was removed.
    std::vector<Block*> m_blocks;
    std::size_t m_removed = 0;
};

}  // namespace OpenVornik::Internal
