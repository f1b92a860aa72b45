// A translation library whose factory returns null.
#include <TavrikGraph/Executor/TypeTranslation.h>

extern "C" __attribute__((visibility("default"))) TavrikGraph::Executor::TypeTranslation*
createTavrikTypeTranslation() {
    return nullptr;
}
