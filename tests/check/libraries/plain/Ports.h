// Gives host nodes their attributes for ports.
#pragma once

#include <Pelmor/Type.h>
#include <TavrikGraph/Executor/NodeEditContext.h>

#include <string>

namespace Plain {

// Throws Failure, and the node is as it was, if the port can have no attribute.
void addPort(std::string name, bool isInput, const Pelmor::Type& type,
             TavrikGraph::Executor::NodeEditContext& context);

// For the fault of a library that never forgets a name.
void rememberRemoved(const std::string& name);

}  // namespace Plain
