// Runs the built `tolvane` as a user would, and keeps what it printed.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <string>
#include <vector>

#include <sys/wait.h>

struct TolvaneProcess {
    int status;
    std::string output;
    std::string errors;
};

inline std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char character : text)
        result += character == '\'' ? "'\\''" : std::string(1, character);
    return result + "'";
}

// `environment` is of the form NAME=VALUE. A process that takes longer than `seconds` is killed. A
// process that was killed has a status above 2 or below 0.
inline TolvaneProcess runTolvane(const std::vector<std::string>& arguments,
                                 const std::string& environment = "TOLVANE_TEST_FAULT=",
                                 int seconds = 60) {
    const TemporaryFolder folder;
    std::string command = "timeout -s KILL " + std::to_string(seconds) + " env " +
                          quoted(environment) + " " + quoted(TOLVANE);
    for (const std::string& argument : arguments) command += " " + quoted(argument);
    command += " </dev/null >" + quoted(folder.path("out")) + " 2>" + quoted(folder.path("err"));
    const int result = std::system(command.c_str());
    return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, readFile(folder.path("out")),
            readFile(folder.path("err"))};
}
