// A translation library whose factory gives nothing.
#include "tests/executor/libraries/LibraryEvents.h"

namespace TavrikGraph::Executor {
class TypeTranslation;
}

static const UnloadingNote g_unloadingNote;

extern "C" __attribute__((visibility("default"))) TavrikGraph::Executor::TypeTranslation*
createTavrikTypeTranslation() {
    noteLibraryEvent("asked");
    return nullptr;
}
