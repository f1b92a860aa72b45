// What a translation library exports, and has to define.
#pragma once

#include <TavrikGraph/Executor/TypeTranslation.h>

// A new translation object, which the caller disposes of with `release`. [any thread]
extern "C" __attribute__((visibility("default"))) TavrikGraph::Executor::TypeTranslation*
createTavrikTypeTranslation();
