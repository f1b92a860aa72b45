// What the command line asks of the framework's executor, besides what the plugin does: it loads
// libraries and evaluates graphs.
#include "cmake/needs/Needs.h"

#include <TavrikGraph/Executor/GraphNode.h>
#include <TavrikGraph/Executor/LoadError.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <string>

// clang-format off
using namespace TavrikGraph::Executor;

NEEDS(GraphNode(a<TypeTranslation&>(), "", a<GraphNode::Graph>()));  // TavrikGraph::Executor::GraphNode
NEEDS(a<GraphNode&>().addPort("", PortDirection::Output, a<const Pelmor::Type&>()));  // TavrikGraph::Executor::GraphNode::addPort
NEEDS(VObject(a<const GraphNode&>().hostNode()));  // TavrikGraph::Executor::GraphNode::hostNode
NEEDS(VPlug(a<const GraphNode&>().ports()[0].plug));  // TavrikGraph::Executor::GraphNode::ports
NEEDS(a<const GraphNode::Port&>().value.hasValue());  // TavrikGraph::Executor::GraphNode::Port::value
NEEDS(a<const GraphNode::Port&>().translated ? 1 : 0);  // TavrikGraph::Executor::GraphNode::Port::translated
NEEDS(TranslationLibrary(std::string()));  // TavrikGraph::Executor::TranslationLibrary
NEEDS(&a<const TranslationLibrary&>().translation());  // TavrikGraph::Executor::TranslationLibrary::translation
NEEDS(a<const LoadError&>().what());  // TavrikGraph::Executor::LoadError
NEEDS(Pelmor::String(a<const TypeTranslation&>().name()));  // TavrikGraph::Executor::TypeTranslation::name
NEEDS(HostContext{nullptr, a<VPlug*>(), a<VDataBlock*>()});  // TavrikGraph::Executor::HostContext
NEEDS(NodeEditContext{nullptr, a<const VObject&>(), nullptr, a<VDGModifier*>()});  // TavrikGraph::Executor::NodeEditContext
NEEDS(a<TypeTranslation&>().getSupportedTypes(a<const Pelmor::Library&>(), a<Pelmor::EntityIndexedList<Pelmor::Type>&>()));  // TavrikGraph::Executor::TypeTranslation::getSupportedTypes
NEEDS(a<TypeTranslation&>().portRemoved("", ""));  // TavrikGraph::Executor::TypeTranslation::portRemoved
NEEDS(a<TypeTranslation&>().portRenamed("", "", ""));  // TavrikGraph::Executor::TypeTranslation::portRenamed
NEEDS(a<TypeTranslation&>().registerHostPlugins(nullptr));  // TavrikGraph::Executor::TypeTranslation::registerHostPlugins
NEEDS(a<TypeTranslation&>().unregisterHostPlugins(nullptr));  // TavrikGraph::Executor::TypeTranslation::unregisterHostPlugins
