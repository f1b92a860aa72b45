// The plugin's one exported symbol.
#include "plugin/VornikRiggingTranslation.h"

#include <Tolvane/Factory.h>

TavrikGraph::Executor::TypeTranslation* createTavrikTypeTranslation() {
    return new Rigging::Module::VornikRiggingTranslation;
}
