// A node whose attributes the built plugin makes: one of the shape of any graph type, to be filled
// and compared.
#pragma once

#include "tools/node/DataShape.h"

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/GraphNode.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <stdexcept>

class PluginNode {
public:
    Tolvane::Tools::DataShape addInput(const char* name, const Pelmor::Type& type) {
        if (!m_node.addPort(name, TavrikGraph::Executor::PortDirection::Input, type))
            throw std::runtime_error("the plugin made no attribute");
        return Tolvane::Tools::shapeOf(m_node.ports().back().plug);
    }

    Tolvane::Tools::DataPlace place(const Tolvane::Tools::DataShape& shape) {
        return {shape, VFnDependencyNode(m_node.hostNode()).dataBlock().outputValue(shape.plug)};
    }

    Pelmor::Library types;

private:
    TavrikGraph::Executor::TranslationLibrary m_library{PLUGIN};
    TavrikGraph::Executor::GraphNode m_node{m_library.translation(), "node",
                                            [](const auto&, const auto&) {}};
};
