// All that the plugin asks of the framework's executor.
#include "cmake/needs/Needs.h"

#include <TavrikGraph/Executor/TypeTranslation.h>

// clang-format off
using namespace TavrikGraph::Executor;

struct Named : TypeTranslation { Named() : TypeTranslation("") {} };  // TavrikGraph::Executor::TypeTranslation::TypeTranslation
struct Releasing : TypeTranslation { void release() noexcept override; };  // TavrikGraph::Executor::TypeTranslation::release
struct Naming : TypeTranslation { void getSupportedTypeNames(Pelmor::Array<Pelmor::String>&) const noexcept override; };  // TavrikGraph::Executor::TypeTranslation::getSupportedTypeNames
struct Reading : TypeTranslation { bool translateFromHost(const Pelmor::Type&, Pelmor::AnyValue&, const HostContext&) const noexcept override; };  // TavrikGraph::Executor::TypeTranslation::translateFromHost
struct Writing : TypeTranslation { bool translateToHost(const Pelmor::AnyValue&, const HostContext&) const noexcept override; };  // TavrikGraph::Executor::TypeTranslation::translateToHost
struct Editing : TypeTranslation { bool portAdded(const Pelmor::String&, PortDirection, const Pelmor::Type&, std::uint32_t, std::uint32_t, NodeEditContext*) const noexcept override; };  // TavrikGraph::Executor::TypeTranslation::portAdded
struct Destroyed : TypeTranslation { ~Destroyed() override; };  // TavrikGraph::Executor::TypeTranslation::~TypeTranslation

NEEDS(a<VPlug*&>() = a<const HostContext&>().plug);  // TavrikGraph::Executor::HostContext::plug
NEEDS(a<VDataBlock*&>() = a<const HostContext&>().dataBlock);  // TavrikGraph::Executor::HostContext::dataBlock
NEEDS(a<const VObject*&>() = &a<const NodeEditContext&>().node);  // TavrikGraph::Executor::NodeEditContext::node
NEEDS(a<VDGModifier*&>() = a<const NodeEditContext&>().modifier);  // TavrikGraph::Executor::NodeEditContext::modifier
NEEDS(a<PortDirection>() == PortDirection::Input);  // TavrikGraph::Executor::PortDirection::Input
