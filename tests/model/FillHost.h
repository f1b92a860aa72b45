// Gives the host's data the content that the model has.
#pragma once

#include "tests/model/HostData.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

namespace ModelTests {

void fillHost(VDataHandle handle, VPlug plug, const Model::HostNode& node);

}  // namespace ModelTests
