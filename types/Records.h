// The seven records that cross the boundary.
#pragma once

#include "types/Inputs.h"
#include "types/InputsControls.h"
#include "types/InputsJoints.h"
#include "types/NamedTransforms.h"
#include "types/Outputs.h"
#include "types/Pins.h"
#include "types/Transform.h"

namespace Rigging::Module {

// So that the code that handles all seven alike can name them alike.
using Core::Transform::Transform;

}  // namespace Rigging::Module
