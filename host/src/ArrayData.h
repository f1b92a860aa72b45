// The elements of a sparse array, in ascending logical index. Each element is a block of its own,
// which stays where it is while others come and go.
//
// A builder begins with the array's own blocks and copies one only before it gives it out for
// writing. The array never replaces a block by a copy, so that handles to its elements stay valid.
// A node's data is used by one thread at a time, so the use counts of blocks need not be atomic.
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
    // For callers that walk the elements and have reached this one: loads the next ones early.
    void fetchAheadOf(std::size_t position) const noexcept;
    // size() if there is no such element.
    std::size_t positionOf(unsigned logicalIndex) const noexcept;

    // The element at `logicalIndex`, a new one if it is absent.
    std::byte* add(unsigned logicalIndex);
    // The same, for a builder: an element that no other array sees.
    std::byte* addUnshared(unsigned logicalIndex);
    // For builders alone: a removed element keeps its place, and arrays find elements by position.
    // False if there is no such element.
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
    // Null for an element that was removed.
    std::vector<Block*> m_blocks;
    std::size_t m_removed = 0;
};

}  // namespace OpenVornik::Internal
