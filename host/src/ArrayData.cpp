#include "host/src/ArrayData.h"

#include "host/src/Attribute.h"
#include "host/src/Storage.h"

#include <algorithm>
#include <new>
#include <utility>

namespace OpenVornik::Internal {

// The head of an element; its value lies behind it.
struct alignas(std::max_align_t) ArrayData::Block {
    unsigned uses = 1;

    std::byte* value() noexcept { return reinterpret_cast<std::byte*>(this + 1); }
};

ArrayData::~ArrayData() {
    for (Block* block : m_blocks)
        if (block) drop(block);
}

std::byte* ArrayData::element(std::size_t position) const noexcept {
    return m_blocks[position]->value();
}

// In an array that does not fit the nearer caches, loading elements before they are needed hides
// the latency of memory.
void ArrayData::fetchAheadOf(std::size_t position) const noexcept {
    constexpr std::size_t kElementsAhead = 2, kCachedBytes = std::size_t{1} << 20, kLine = 64;
    const std::size_t elementSize = m_attribute.valueExtent().size;
    if (elementSize * size() < kCachedBytes || position + kElementsAhead >= size()) return;
    const std::byte* coming = element(position + kElementsAhead);
    for (std::size_t i = 0; i < elementSize; i += kLine) __builtin_prefetch(coming + i);
}

std::size_t ArrayData::positionOf(unsigned logicalIndex) const noexcept {
    const std::size_t position = lowerBound(logicalIndex);
    const bool found = position < size() && m_indices[position] == logicalIndex;
    return found ? position : size();
}

std::byte* ArrayData::add(unsigned logicalIndex) {
    const std::size_t position = lowerBound(logicalIndex);
    if (position == size() || m_indices[position] != logicalIndex) insertAt(position, logicalIndex);
    return element(position);
}

std::byte* ArrayData::addUnshared(unsigned logicalIndex) {
    const std::size_t position = lowerBound(logicalIndex);
    if (position == m_indices.size() || m_indices[position] != logicalIndex) {
        insertAt(position, logicalIndex);
    } else if (Block*& block = m_blocks[position]; !block) {
        block = makeBlock();
        --m_removed;
    } else if (block->uses > 1) {
        Block* own = copyOf(*block);
        drop(std::exchange(block, own));
    }
    return element(position);
}

bool ArrayData::remove(unsigned logicalIndex) noexcept {
    const std::size_t position = lowerBound(logicalIndex);
    if (position == m_indices.size() || m_indices[position] != logicalIndex) return false;
    if (!m_blocks[position]) return false;
    drop(std::exchange(m_blocks[position], nullptr));
    ++m_removed;
    return true;
}

std::unique_ptr<ArrayData> ArrayData::share() const {
    auto sharing = std::make_unique<ArrayData>(m_attribute);
    sharing->m_indices = m_indices;
    sharing->m_blocks = m_blocks;
    for (Block* block : m_blocks) ++block->uses;
    return sharing;
}

void ArrayData::replaceBy(const ArrayData& builder) {
    std::vector<Block*> blocks;
    blocks.reserve(builder.size());
    for (std::size_t i = 0; i < builder.m_blocks.size(); ++i) {
        Block* block = builder.m_blocks[i];
        if (!block) continue;
        const std::size_t position = positionOf(builder.m_indices[i]);
        const bool isMine = position < size() && m_blocks[position] == block;
        if (isMine || block->uses == 1) {
            ++block->uses;
            blocks.push_back(block);
        } else {
            blocks.push_back(copyOf(*block));
        }
    }
    m_indices.clear();
    m_indices.reserve(builder.size());
    for (std::size_t i = 0; i < builder.m_blocks.size(); ++i)
        if (builder.m_blocks[i]) m_indices.push_back(builder.m_indices[i]);
    m_blocks.swap(blocks);
    for (Block* replaced : blocks) drop(replaced);
}

void ArrayData::copy(const ArrayData& other) {
    std::vector<Block*> blocks;
    blocks.reserve(other.size());
    for (std::size_t i = 0; i < other.size(); ++i) {
        const std::size_t position = positionOf(other.m_indices[i]);
        if (position < size()) ++m_blocks[position]->uses;
        blocks.push_back(position < size() ? m_blocks[position] : makeBlock());
        copyValue(m_attribute, blocks.back()->value(), other.element(i));
    }
    m_indices = other.m_indices;
    m_blocks.swap(blocks);
    for (Block* replaced : blocks) drop(replaced);
}

// Arrays are mostly dense and mostly grow at their end; both are found without a search.
std::size_t ArrayData::lowerBound(unsigned logicalIndex) const noexcept {
    const std::size_t end = m_indices.size();
    if (m_indices.empty() || m_indices.back() < logicalIndex) return end;
    if (logicalIndex < end && m_indices[logicalIndex] == logicalIndex) return logicalIndex;
    const auto bound = std::lower_bound(m_indices.begin(), m_indices.end(), logicalIndex);
    return static_cast<std::size_t>(bound - m_indices.begin());
}

void ArrayData::insertAt(std::size_t position, unsigned logicalIndex) {
    const auto offset = static_cast<std::ptrdiff_t>(position);
    m_indices.insert(m_indices.begin() + offset, logicalIndex);
    m_blocks.insert(m_blocks.begin() + offset, makeBlock());
}

ArrayData::Block* ArrayData::makeBlock() const {
    void* memory = ::operator new(sizeof(Block) + m_attribute.valueExtent().size);
    auto* block = new (memory) Block();
    constructValue(m_attribute, block->value());
    return block;
}

ArrayData::Block* ArrayData::copyOf(Block& block) const {
    Block* copy = makeBlock();
    copyValue(m_attribute, copy->value(), block.value());
    return copy;
}

void ArrayData::drop(Block* block) const noexcept {
    if (--block->uses > 0) return;
    destroyValue(m_attribute, block->value());
    ::operator delete(block);
}

}  // namespace OpenVornik::Internal
