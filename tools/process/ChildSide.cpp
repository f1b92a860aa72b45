#include "tools/process/ChildSide.h"

namespace Tolvane::Tools {
namespace {

// A plain store would do as well, for the parent wants to know no more than that there was one.
void count(std::atomic<std::uint64_t>& moves) noexcept {
    moves.store(moves.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
}

}  // namespace

void ChildSide::enter(Stage stage) noexcept {
    // What comes then is cleaning up, and not what took the memory.
    if (m_block.memoryRanOut != 0) return;
    m_block.stage = static_cast<std::uint32_t>(stage);
    m_block.hasFrame = 0;
    m_block.port[0] = '\0';
    count(m_block.moves);
}

void ChildSide::atFrame(std::size_t frame) noexcept {
    m_block.hasFrame = 1;
    m_block.frame = frame;
    m_block.port[0] = '\0';
    count(m_block.moves);
}

void ChildSide::atPort(std::string_view port) noexcept {
    store(m_block.port, port);
    count(m_block.moves);
}

void ChildSide::progress(std::size_t done, std::size_t total) noexcept {
    m_block.done.store(done, std::memory_order_relaxed);
    m_block.total.store(total, std::memory_order_relaxed);
    count(m_block.moves);
}

void ChildSide::noticePrints() noexcept {
    if (m_firstPrint || m_capture.size() <= m_allowed) return;
    m_firstPrint = Print{place(), m_capture.textFrom(m_allowed)};
}

void ChildSide::allowPrints() {
    m_allowedText += m_capture.textFrom(m_allowed);
    m_allowed = m_capture.size();
}

Place ChildSide::place() const {
    Place place{static_cast<Stage>(m_block.stage), std::string(stored(m_block.port)), {}};
    if (m_block.hasFrame != 0) place.frame = m_block.frame;
    return place;
}

}  // namespace Tolvane::Tools
