// The plugin's one exported symbol.
#include "plugin/VornikRiggingTranslation.h"

// A new translation object, which the caller disposes of with `release`. [any thread]
extern "C" __attribute__((visibility("default"))) TavrikGraph::Executor::TypeTranslation*
createTavrikTypeTranslation() {
    return new Rigging::Module::VornikRiggingTranslation;
}
