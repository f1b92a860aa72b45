#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VGlobal.h>
#include <Tolvane/Dispatch.h>

#include <stdexcept>

namespace Tolvane {

using TavrikGraph::Executor::HostContext;

void getSupportedTypeNames(GetRegistry registry, Pelmor::Array<Pelmor::String>& names) noexcept {
    Pelmor::Array<Pelmor::String> supported;
    for (const auto& reader : registry().readers()) supported.append(reader.first);
    names.clear();
    names.swap(supported);
}

bool readFromHost(GetRegistry registry, const Pelmor::Type& type, Pelmor::AnyValue& value,
                  const HostContext& context) noexcept {
    VDataBlock dataBlock = *context.dataBlock;
    const VPlug plug = *context.plug;
    VDataHandle handle = dataBlock.inputValue(plug);
    const HostReader read = registry().findReader(type.getFullyQualifiedName());
    if (!read) return false;
    read(value, handle, plug);
    return value.hasValue();
}

bool writeToHost(GetRegistry registry, const Pelmor::AnyValue& value,
                 const HostContext& context) noexcept {
    VDataHandle handle = context.dataBlock->outputValue(*context.plug);
    const HostWriter write = registry().findWriter(value.type());
    if (!write) return false;
    try {
        write(value, handle, *context.plug);
        context.dataBlock->setClean(context.plug->attribute());
    } catch (const std::runtime_error& error) {
        VGlobal::displayError(VString(error.what()));
    }
    return true;
}

}  // namespace Tolvane
