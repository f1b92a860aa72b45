// What `tolvane` prints for a person fits a terminal, whatever names there are.
#pragma once

#include "tools/support/Columns.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

inline void expectLinesThatFit(const std::string& output) {
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(Tolvane::Tools::columnsOf(line), Tolvane::Tools::kLineColumns) << line;
}
