// What the host displayed in a run. The same message often comes in every frame, so each text is
// kept once, and no more of them than anybody reads.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Tolvane::Tools {

class HostMessages {
public:
    struct Message {
        std::string text;
        // How often it was displayed.
        std::size_t times;
    };

    static constexpr std::size_t kMost = 1000;

    void add(const std::string& text, std::size_t times = 1);
    void add(const HostMessages& more);

    // The first kMost different ones, in the order in which they came first.
    const std::vector<Message>& kept() const noexcept { return m_kept; }
    // How often others were displayed.
    std::size_t timesOfOthers() const noexcept { return m_timesOfOthers; }
    // How often any was.
    std::size_t times() const noexcept;

private:
    std::vector<Message> m_kept;
    // Where each is in the list.
    std::map<std::string, std::size_t> m_places;
    std::size_t m_timesOfOthers = 0;
};

}  // namespace Tolvane::Tools
