// The walks of each record, compiled once for the plugin and its tests.
#include "plugin/Records.h"

#include <Tolvane/convert/Read.h>
#include <Tolvane/convert/Write.h>

template struct Tolvane::Translators<Rigging::Module::Transform>;
template struct Tolvane::Translators<Rigging::Module::NamedTransforms>;
template struct Tolvane::Translators<Rigging::Module::Pins>;
template struct Tolvane::Translators<Rigging::Module::InputsJoints>;
template struct Tolvane::Translators<Rigging::Module::InputsControls>;
template struct Tolvane::Translators<Rigging::Module::Inputs>;
template struct Tolvane::Translators<Rigging::Module::Outputs>;
