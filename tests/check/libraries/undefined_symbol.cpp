// A translation library that needs a function which nobody has.
#include <TavrikGraph/Executor/TypeTranslation.h>

TavrikGraph::Executor::TypeTranslation* createElsewhere();

extern "C" __attribute__((visibility("default"))) TavrikGraph::Executor::TypeTranslation*
createTavrikTypeTranslation() {
    return createElsewhere();
}
