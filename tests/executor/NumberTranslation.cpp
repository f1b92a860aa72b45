#include "tests/executor/NumberTranslation.h"

#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>

namespace ExecutorTests {

using namespace TavrikGraph::Executor;

namespace {

std::string portOf(const HostContext& context) {
    return VFnAttribute(context.plug->attribute()).name().asChar();
}

bool addAttribute(const std::string& name, bool isInput, const NodeEditContext& context) {
    VFnNumericAttribute attribute;
    attribute.create(name.c_str(), name.c_str(), VFnNumericData::kDouble);
    attribute.setWritable(isInput);
    attribute.setReadable(!isInput);
    return context.modifier->addAttribute(context.node, attribute.object()) &&
           context.modifier->doIt();
}

}  // namespace

NumberTranslation::NumberTranslation() : TypeTranslation("Numbers") {}

void NumberTranslation::release() noexcept { calls.push_back("release"); }

void NumberTranslation::getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept {
    Pelmor::Array<Pelmor::String> all;
    all.append("double");
    names.swap(all);
}

bool NumberTranslation::translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                                          const HostContext& context) const noexcept {
    const std::string port = portOf(context);
    calls.push_back("read " + port + " " + type.getFullyQualifiedName().c_str());
    const double number = context.dataBlock->inputValue(*context.plug).asDouble();
    if (failingPorts.count(port)) return false;
    value = Pelmor::AnyValue::holding(number);
    return true;
}

bool NumberTranslation::translateToHost(const Pelmor::AnyValue& value,
                                        const HostContext& context) const noexcept {
    const std::string port = portOf(context);
    calls.push_back("write " + port);
    const double* number = value.getIf<double>();
    if (!number || failingPorts.count(port)) return false;
    context.dataBlock->outputValue(*context.plug).setDouble(*number);
    return static_cast<bool>(context.dataBlock->setClean(context.plug->attribute()));
}

bool NumberTranslation::portAdded(const Pelmor::String& portName, PortDirection direction,
                                  const Pelmor::Type& type, std::uint32_t portIndex, std::uint32_t,
                                  NodeEditContext* context) const noexcept {
    const std::string name = portName.c_str();
    lastAdded = {name,      direction,     type.getFullyQualifiedName().c_str(),
                 portIndex, context->node, context->modifier != nullptr};
    if (refusedPorts.count(name)) return false;
    return forgottenPorts.count(name) ||
           addAttribute(name, direction == PortDirection::Input, *context);
}

}  // namespace ExecutorTests
