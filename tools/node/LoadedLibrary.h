// A translation library in the process of its own that it is tried in. What goes wrong is an error
// that names the library; where the process itself goes down, its notes say at what.
#pragma once

#include "tools/process/ChildSide.h"

#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <memory>
#include <string>

namespace Tolvane::Tools {

class LoadedLibrary {
public:
    // Throws Error if it cannot be loaded. `process` must outlive it.
    LoadedLibrary(const std::string& path, ChildSide& process);
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    ~LoadedLibrary();

    // Of the library itself, not watched.
    TavrikGraph::Executor::TypeTranslation& translation() const { return m_library->translation(); }

private:
    ChildSide& m_process;
    // Keeps the library in memory while its translation is released, so that releasing and
    // unloading can be told apart, and while an exception of its factory is looked at.
    void* m_handle = nullptr;
    std::unique_ptr<TavrikGraph::Executor::TranslationLibrary> m_library;
};

}  // namespace Tolvane::Tools
