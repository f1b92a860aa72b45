// A host node, "rig", to which a translation adds ports.
#pragma once

#include "tests/plugin/Translation.h"
#include "tests/support/AttributeTree.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>

#include <gtest/gtest.h>

namespace PluginTests {

using TavrikGraph::Executor::PortDirection;
using Messages = TestSupport::ShownErrors::Messages;

class EditedNode : public testing::Test {
protected:
    bool add(const char* name, const Pelmor::Type& type,
             PortDirection direction = PortDirection::Input) {
        return translation->portAdded(name, direction, type, 0, 0, &context);
    }
    bool add(const char* name, const char* type, PortDirection direction = PortDirection::Input) {
        return add(name, library.getType(type), direction);
    }

    unsigned attributeCount() const { return VFnDependencyNode(node).attributeCount(); }
    VObject attribute(const char* name) const { return VFnDependencyNode(node).attribute(name); }
    TestSupport::AttributeLines tree(const char* name) const {
        return TestSupport::treeOf(attribute(name));
    }

    Translation translation = newTranslation();
    Pelmor::Library library;
    VObject node = VFnDependencyNode().create("rig");
    VDGModifier modifier;
    TavrikGraph::Executor::NodeEditContext context{nullptr, node, nullptr, &modifier};
    TestSupport::ShownErrors errors;
};

}  // namespace PluginTests
