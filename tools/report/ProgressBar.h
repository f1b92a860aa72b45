// A progress bar in the last line of a terminal, on standard error; nothing is printed where that
// is not a terminal. The destructor erases the bar.
#pragma once

#include <cstddef>
#include <string>

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
    bool m_isShown = false;
    std::size_t m_shownPercent = 101;
};

// The bar for a terminal that shows so many columns; it leaves the last one free, where some
// terminals begin a new line. In a narrow one it is only the percentage, or empty.
std::string progressLine(std::size_t done, std::size_t total, std::size_t columns);

}  // namespace Tolvane::Tools
