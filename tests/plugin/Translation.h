// A translation object as the framework has it: made by the factory, released at the end.
#pragma once

#include <TavrikGraph/Executor/TypeTranslation.h>

#include <memory>

extern "C" TavrikGraph::Executor::TypeTranslation* createTavrikTypeTranslation();

namespace PluginTests {

struct Release {
    void operator()(TavrikGraph::Executor::TypeTranslation* translation) const noexcept {
        translation->release();
    }
};

using Translation = std::unique_ptr<TavrikGraph::Executor::TypeTranslation, Release>;

inline Translation newTranslation() { return Translation(createTavrikTypeTranslation()); }

}  // namespace PluginTests
