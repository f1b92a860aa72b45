// A progress bar in the last line of a terminal, on standard error; nothing is printed where that
// is not a terminal. The destructor erases the bar.
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
