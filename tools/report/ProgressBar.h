// A progress bar in the last line of a terminal. It is gone when it is destroyed; what is no
// terminal never sees it.
#pragma once

#include <cstddef>

namespace Tolvane::Tools {

class ProgressBar {
public:
    ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar();

    void show(std::size_t done, std::size_t total);

private:
    bool m_isTerminal;
    std::size_t m_shownPercent = 101;
};

}  // namespace Tolvane::Tools
