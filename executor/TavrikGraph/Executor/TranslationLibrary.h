// A translation library, loaded at run time, and the translation object that its factory gave. Both
// go with it: the object is released, then the library is unloaded, so nothing that came from the
// library may outlive it, values of its types included. [any thread]
#pragma once

#include <TavrikGraph/Executor/Export.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <memory>
#include <string>

namespace TavrikGraph::Executor {

class TAVRIKGRAPH_API TranslationLibrary {
public:
    // Throws LoadError if there is no such file, it is no library, it lacks the factory, or the
    // factory returns null. `path` is a path, never a name to search for.
    explicit TranslationLibrary(const std::string& path);

    const std::string& path() const noexcept { return m_path; }
    TypeTranslation& translation() const noexcept { return *m_translation; }

private:
    struct Unload {
        void operator()(void* library) const noexcept;
    };
    struct Release {
        void operator()(TypeTranslation* translation) const noexcept { translation->release(); }
    };

    std::string m_path;
    std::unique_ptr<void, Unload> m_library;
    std::unique_ptr<TypeTranslation, Release> m_translation;
};

}  // namespace TavrikGraph::Executor
