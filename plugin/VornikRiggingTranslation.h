// The plugin's translation object.
#pragma once

#include "plugin/Records.h"

#include <Tolvane/RecordTranslation.h>

namespace Rigging::Module {

class VornikRiggingTranslation : public Tolvane::RecordTranslation<Records> {
public:
    VornikRiggingTranslation();
};

}  // namespace Rigging::Module
