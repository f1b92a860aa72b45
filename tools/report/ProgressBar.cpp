#include "tools/report/ProgressBar.h"

#include <iostream>
#include <string>

#include <unistd.h>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kWidth = 40;
constexpr const char* kEraseLine = "\r\033[K";

}  // namespace

ProgressBar::ProgressBar() : m_isTerminal(isatty(STDERR_FILENO) == 1) {}

ProgressBar::~ProgressBar() {
    if (m_isTerminal) std::cerr << kEraseLine << std::flush;
}

void ProgressBar::show(std::size_t done, std::size_t total) {
    if (!m_isTerminal) return;
    const std::size_t percent = 100 * done / total;
    if (percent == m_shownPercent) return;
    m_shownPercent = percent;
    const std::size_t filled = kWidth * done / total;
    std::cerr << kEraseLine << '[' << std::string(filled, '=') << std::string(kWidth - filled, ' ')
              << "] " << percent << " %" << std::flush;
}

}  // namespace Tolvane::Tools
