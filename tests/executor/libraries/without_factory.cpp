// A library without the factory; one of its functions has nearly its name.
#include "tests/executor/libraries/LibraryEvents.h"

static const UnloadingNote g_unloadingNote;

extern "C" __attribute__((visibility("default"))) int createTavrikTypeTranslations() { return 0; }
