// What `tolvane` is doing while something goes wrong: the words by which messages and `--json` name
// it.
#pragma once

#include <cstdint>

namespace Tolvane::Tools {

enum class Stage : std::uint32_t {
    Usage,       // what is asked for makes no sense, or does not fit the rig
    Reading,     // a rig, a description of types
    Loading,     // a translation library is loaded and its factory called
    Names,       // it is asked for the names of its types
    Ports,       // it is given ports
    Evaluating,  // it translates values
    Releasing,   // its values and its translation object are disposed of
    Unloading,   // it is unloaded
    Reporting,   // reports and pictures are made
    Writing,     // files and standard output are written
    Other,       // anything else, such as a process that cannot be started
};

// One word in lower case. Whatever is no stage counts as Other.
const char* wordFor(Stage stage) noexcept;

// All words, in order, separated by commas and blanks.
const char* stageWords() noexcept;

}  // namespace Tolvane::Tools
