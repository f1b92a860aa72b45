#include "tests/version/ChildProcess.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

namespace VersionTests {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File temporaryFile() {
    if (std::FILE* file = std::tmpfile()) return File(file);
    throw std::runtime_error("no temporary file can be made");
}

std::string contentOf(std::FILE* file) {
    std::string content;
    std::rewind(file);
    for (int character = std::fgetc(file); character != EOF; character = std::fgetc(file))
        content += static_cast<char>(character);
    return content;
}

[[noreturn]] void becomeProgram(const std::vector<std::string>& command, const char* variable,
                                const std::optional<std::string>& value, std::FILE* output,
                                std::FILE* error, StandardError standardError) {
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    if (value)
        setenv(variable, value->c_str(), 1);
    else
        unsetenv(variable);
    dup2(fileno(output), STDOUT_FILENO);
    if (standardError == StandardError::Captured)
        dup2(fileno(error), STDERR_FILENO);
    else
        close(STDERR_FILENO);
    execv(arguments[0], arguments.data());
    _exit(127);
}

}  // namespace

ChildResult runChild(const std::vector<std::string>& command, const char* variable,
                     const std::optional<std::string>& value, StandardError standardError) {
    const File output = temporaryFile(), error = temporaryFile();
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no process can be made");
    if (child == 0)
        becomeProgram(command, variable, value, output.get(), error.get(), standardError);
    int status = 0;
    waitpid(child, &status, 0);
    const int exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return {exitStatus, contentOf(output.get()), contentOf(error.get())};
}

}  // namespace VersionTests
