#include "plugin/VornikRiggingTranslation.h"

#include "plugin/AddPort.h"
#include "plugin/TranslatorRegistry.h"

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VGlobal.h>

#include <stdexcept>

namespace Rigging::Module {

using TavrikGraph::Executor::HostContext;
using TavrikGraph::Executor::NodeEditContext;
using TavrikGraph::Executor::PortDirection;

VornikRiggingTranslation::VornikRiggingTranslation()
    : TypeTranslation("Rigging Translation Table") {}

// The framework may release an object that it never got. This file is compiled so that the check
// for null, which deleting makes, is not optimised away.
void VornikRiggingTranslation::release() noexcept { delete this; }

void VornikRiggingTranslation::getSupportedTypeNames(
    Pelmor::Array<Pelmor::String>& names) const noexcept {
    Pelmor::Array<Pelmor::String> supported;
    for (const auto& reader : TranslatorRegistry::instance().readers())
        supported.append(reader.first);
    names.clear();
    names.swap(supported);
}

bool VornikRiggingTranslation::translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                                                 const HostContext& context) const noexcept {
    VDataBlock dataBlock = *context.dataBlock;
    const VPlug plug = *context.plug;
    VDataHandle handle = dataBlock.inputValue(plug);
    const TranslatorRegistry& registry = TranslatorRegistry::instance();
    const HostReader read = registry.findReader(type.getFullyQualifiedName());
    if (!read) return false;
    read(value, handle, plug);
    return value.hasValue();
}

bool VornikRiggingTranslation::translateToHost(const Pelmor::AnyValue& value,
                                               const HostContext& context) const noexcept {
    VDataHandle handle = context.dataBlock->outputValue(*context.plug);
    const HostWriter write = TranslatorRegistry::instance().findWriter(value.type());
    if (!write) return false;
    try {
        write(value, handle, *context.plug);
        context.dataBlock->setClean(context.plug->attribute());
    } catch (const std::runtime_error& error) {
        VGlobal::displayError(VString(error.what()));
    }
    return true;
}

bool VornikRiggingTranslation::portAdded(const Pelmor::String& portName, PortDirection direction,
                                         const Pelmor::Type& type, std::uint32_t, std::uint32_t,
                                         NodeEditContext* context) const noexcept {
    const bool isInput = direction == PortDirection::Input;
    return addPort(portName, isInput, type, context->node, *context->modifier);
}

}  // namespace Rigging::Module
