#include "tools/node/HostMessages.h"

namespace Tolvane::Tools {

void HostMessages::add(const std::string& text, std::size_t times) {
    const auto known = m_places.find(text);
    if (known != m_places.end()) {
        m_kept[known->second].times += times;
    } else if (m_kept.size() < kMost) {
        m_places.emplace(text, m_kept.size());
        m_kept.push_back({text, times});
    } else {
        m_timesOfOthers += times;
    }
}

void HostMessages::add(const HostMessages& more) {
    for (const Message& message : more.m_kept) add(message.text, message.times);
    m_timesOfOthers += more.m_timesOfOthers;
}

std::size_t HostMessages::times() const noexcept {
    std::size_t times = m_timesOfOthers;
    for (const Message& message : m_kept) times += message.times;
    return times;
}

}  // namespace Tolvane::Tools
