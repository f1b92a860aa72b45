#include "tools/report/ProgressBar.h"

#include <algorithm>
#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kLongestBar = 40;
constexpr std::size_t kShortestBar = 5;
constexpr const char* kEraseLine = "\r\033[K";

// Asked each time, for people resize windows. One that does not say counts as an ordinary one.
std::size_t terminalColumns() {
    winsize size{};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : 80;
}

}  // namespace

ProgressBar::ProgressBar() : m_isTerminal(isatty(STDERR_FILENO) == 1) {}

ProgressBar::~ProgressBar() {
    if (m_isShown) std::cerr << kEraseLine << std::flush;
}

void ProgressBar::show(std::size_t done, std::size_t total) {
    if (!m_isTerminal) return;
    const std::size_t percent = 100 * done / total;
    if (percent == m_shownPercent) return;
    m_shownPercent = percent;
    const std::string line = progressLine(done, total, terminalColumns());
    if (line.empty() && !m_isShown) return;
    m_isShown = true;
    std::cerr << kEraseLine << line << std::flush;
}

std::string progressLine(std::size_t done, std::size_t total, std::size_t columns) {
    std::string percent = std::to_string(100 * done / total) + " %";
    const std::string widest = "100 %", brackets = "[] ";
    const std::size_t room = columns > 0 ? columns - 1 : 0;
    if (room < widest.size()) return {};
    if (room < kShortestBar + brackets.size() + widest.size()) return percent;
    const std::size_t length = std::min(kLongestBar, room - brackets.size() - widest.size());
    const std::size_t filled = length * done / total;
    return '[' + std::string(filled, '=') + std::string(length - filled, ' ') + "] " + percent;
}

}  // namespace Tolvane::Tools
