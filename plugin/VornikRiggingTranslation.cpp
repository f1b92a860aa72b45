#include "plugin/VornikRiggingTranslation.h"

#include <Pelmor/String.h>
#include <Pelmor/TypeInfo.h>

namespace Rigging::Module {
namespace {

// The plugin defines the identity of a string beside those of its records. No code in it uses that
// one, so this reference is marked as used, for the identity to be made.
[[gnu::used]] const Pelmor::Internal::TypeInfo& stringIdentity =
    Pelmor::Internal::HeldIdentity<Pelmor::String>::s_record;

}  // namespace

VornikRiggingTranslation::VornikRiggingTranslation()
    : RecordTranslation("Rigging Translation Table") {}

}  // namespace Rigging::Module
