// The reason why `tolvane` cannot do what it was asked to: bad usage, a file that cannot be read or
// written, a translation library that brings its process down. It is one line for the user, and the
// program ends with its status.
#pragma once

#include "tools/support/Stage.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace Tolvane::Tools {

class Error : public std::runtime_error {
public:
    // The stage and the file are for a caller to add (see `during`).
    using std::runtime_error::runtime_error;
    // `file` is the one at fault, empty if none is; `line` names it too.
    Error(Stage stage, std::string file, const std::string& line, int status = 2)
        : runtime_error(line), m_stage(stage), m_file(std::move(file)), m_status(status) {}

    Stage stage() const noexcept { return m_stage.value_or(Stage::Other); }
    const std::string& file() const noexcept { return m_file; }
    // Of the program: 2, or 1 where a translation library was loaded and then failed.
    int status() const noexcept { return m_status; }

    void addPlace(Stage stage, const std::string& file) {
        if (m_stage) return;
        m_stage = stage;
        m_file = file;
    }

private:
    std::optional<Stage> m_stage;
    std::string m_file;
    int m_status = 2;
};

// Calls `work` and returns what it does. An error that it throws without a stage gets these.
template <typename Work>
auto during(Stage stage, const std::string& file, const Work& work) {
    try {
        return work();
    } catch (Error& error) {
        error.addPlace(stage, file);
        throw;
    }
}

}  // namespace Tolvane::Tools
