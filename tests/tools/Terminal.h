// Runs the built `tolvane` in a terminal of a given width, as a person would.
#pragma once

#include <cstdlib>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

// What it printed on either stream. `environment` is of the form NAME=VALUE, each.
inline std::string printedInTerminal(unsigned short columns, std::vector<std::string> arguments,
                                     const std::vector<std::string>& environment = {}) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
        throw std::runtime_error("no terminal");
    const int inside = open(ptsname(terminal), O_RDWR | O_NOCTTY);
    const winsize size{24, columns, 0, 0};
    ioctl(inside, TIOCSWINSZ, &size);
    std::vector<char*> words{const_cast<char*>(TOLVANE)};
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        unsetenv("NO_COLOR");
        setenv("TERM", "xterm", 1);
        for (const std::string& setting : environment) putenv(const_cast<char*>(setting.c_str()));
        for (const int descriptor : {0, 1, 2}) dup2(inside, descriptor);
        close(terminal);
        execv(TOLVANE, words.data());
        _exit(127);
    }
    close(inside);
    std::string printed;
    char buffer[4096];
    // Reading fails once nobody has the terminal open any more.
    for (ssize_t got = 0; (got = read(terminal, buffer, sizeof buffer)) > 0;)
        printed.append(buffer, static_cast<std::size_t>(got));
    close(terminal);
    int status = 0;
    waitpid(child, &status, 0);
    return printed;
}
