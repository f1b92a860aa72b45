#include "plugin/VornikRiggingTranslation.h"

#include <Pelmor/String.h>
#include <Pelmor/TypeInfo.h>

namespace Rigging::Module {
namespace {

// The identity of a string belongs to the plugin as those of its records do. Nothing in it asks for
// that one, so it is marked to be kept.
[[gnu::used]] const Pelmor::Internal::TypeInfo& stringIdentity =
    Pelmor::Internal::HeldIdentity<Pelmor::String>::s_record;

}  // namespace

VornikRiggingTranslation::VornikRiggingTranslation()
    : RecordTranslation("Rigging Translation Table") {}

}  // namespace Rigging::Module
