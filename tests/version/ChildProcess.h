// Runs a program and gives what it wrote.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace VersionTests {

struct ChildResult {
    int exitStatus;  // -1 where the program did not come to its end
    std::string standardOutput;
    std::string standardError;
};

enum class StandardError { Captured, Closed };

// `variable` is set to `value` in the program's environment, or is not there at all.
ChildResult runChild(const std::vector<std::string>& command, const char* variable,
                     const std::optional<std::string>& value,
                     StandardError standardError = StandardError::Captured);

}  // namespace VersionTests
