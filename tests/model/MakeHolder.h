// Makes the graph's holder of what the model has in one.
#pragma once

#include "tests/model/GraphValue.h"

#include <Pelmor/AnyValue.h>

namespace ModelTests {

Pelmor::AnyValue makeHolder(const Model::Holder& model);

}  // namespace ModelTests
