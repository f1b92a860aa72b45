// Gives the product's side the content that the model has.
#pragma once

#include "tests/model/HostData.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>

namespace ModelTests {

void fillHost(VDataHandle handle, VPlug plug, const Model::HostNode& node);
Pelmor::AnyValue makeHolder(const Model::Holder& model);

}  // namespace ModelTests
