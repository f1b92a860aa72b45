#include "tests/types/SharedMembers.h"

namespace TypesTests {

struct WatchedPointees::Block : Pelmor::ControlBlock {
    Block(WatchedPointees& watcher, std::size_t ownPlace, std::shared_ptr<void> ownPointee)
        : ControlBlock{&s_operations, {1}},
          owner(watcher),
          place(ownPlace),
          pointee(std::move(ownPointee)) {}

    static void dispose(Pelmor::ControlBlock* block) noexcept {
        auto& self = *static_cast<Block*>(block);
        self.owner.addRelease(self.place);
        if (self.owner.m_onRelease) self.owner.m_onRelease(self.place);
    }

    static constexpr Pelmor::ControlBlockOperations s_operations{nullptr, &dispose};

    WatchedPointees& owner;
    std::size_t place;
    std::shared_ptr<void> pointee;
};

Pelmor::ControlBlock* WatchedPointees::addBlock(std::shared_ptr<void> pointee) {
    m_blocks.push_back(std::make_shared<Block>(*this, m_blocks.size(), std::move(pointee)));
    return m_blocks.back().get();
}

void WatchedPointees::addRelease(std::size_t place) {
    const std::lock_guard lock(m_releasesMutex);
    m_releases.push_back(place);
}

UseCounts WatchedPointees::counts() const {
    UseCounts counts;
    for (const auto& block : m_blocks) counts.push_back(block->useCount);
    return counts;
}

}  // namespace TypesTests
