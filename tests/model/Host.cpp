#include "tests/model/Host.h"

namespace Model {
namespace {

void markWithAllBelow(HostAttribute& attribute, bool isClean) {
    attribute.isClean = isClean;
    for (const auto& child : attribute.children) markWithAllBelow(*child, isClean);
}

// There is nothing upstream and nothing that computes.
void evaluate(HostAttribute& attribute) {
    if (!attribute.isClean) markWithAllBelow(attribute, true);
}

bool isWholeArray(const Plug& plug) {
    return plug.attribute && plug.attribute->isArray && !plug.isElement;
}

DataHandle current(const ArrayHandle& array) {
    if (!array.elements || array.current == array.elements->end()) return {};
    return {array.attribute, &array.current->second};
}

}  // namespace

Plug Host::plugAt(const Place& place) {
    Plug plug{m_ports[place.port].attribute.get(), false};
    for (const unsigned part : place.path) {
        if (isWholeArray(plug))
            plug.isElement = true;
        else
            plug = {plug.attribute->children[part].get(), false};
    }
    return plug;
}

// What is not writable depends on what is.
void Host::setDirty(const Plug& plug) {
    markWithAllBelow(*plug.attribute, false);
    const HostAttribute* root = plug.attribute;
    for (HostAttribute* above = plug.attribute->parent; above; above = above->parent) {
        above->isClean = false;
        root = above;
    }
    bool isWritable = false;
    for (const Port& port : m_ports)
        if (port.attribute.get() == root) isWritable = port.isInput;
    for (const Port& port : m_ports)
        if (isWritable && !port.isInput) markWithAllBelow(*port.attribute, false);
}

DataHandle Host::inputValue(const Place& place) {
    if (fails("VDataBlock::inputValue")) return {};
    evaluate(*plugAt(place).attribute);
    return find(place);
}

DataHandle Host::outputValue(const Place& place) {
    return fails("VDataBlock::outputValue") ? DataHandle() : find(place);
}

void Host::setClean(HostAttribute* attribute) {
    if (!fails("VDataBlock::setClean") && attribute) markWithAllBelow(*attribute, true);
}

Plug Host::child(const Plug& plug, unsigned index) {
    if (fails("VPlug::child", index) || !plug.attribute || isWholeArray(plug)) return {};
    if (index >= plug.attribute->children.size()) return {};
    return {plug.attribute->children[index].get(), false};
}

Plug Host::elementByLogicalIndex(const Plug& plug, unsigned index) {
    if (fails("VPlug::elementByLogicalIndex", index) || !isWholeArray(plug)) return {};
    return {plug.attribute, true};
}

HostAttribute* Host::attribute(const Plug& plug) {
    return fails("VPlug::attribute") ? nullptr : plug.attribute;
}

DataHandle Host::child(const DataHandle& handle, const Plug& plug) {
    if (fails("VDataHandle::child") || !handle.node || !plug.attribute) return {};
    auto* children = std::get_if<Compound>(&handle.node->content);
    if (!children || plug.attribute->parent != handle.attribute) return {};
    return {plug.attribute, &(*children)[plug.attribute->position]};
}

Matrix& Host::asMatrix(const DataHandle& handle) {
    return value<Matrix>("VDataHandle::asMatrix", handle);
}
std::string& Host::asString(const DataHandle& handle) {
    return value<std::string>("VDataHandle::asString", handle);
}
Number& Host::asDouble(const DataHandle& handle) {
    return value<Number>("VDataHandle::asDouble", handle);
}
void Host::setString(const DataHandle& handle, const std::string& text) {
    setValue("VDataHandle::setString", handle, text);
}
void Host::setDouble(const DataHandle& handle, Number number) {
    setValue("VDataHandle::setDouble", handle, number);
}

ArrayHandle Host::arrayHandle(const DataHandle& handle) {
    if (fails("VArrayDataHandle::VArrayDataHandle") || !handle.node) return {};
    auto* elements = std::get_if<HostArray>(&handle.node->content);
    if (!elements) return {};
    return {handle.attribute, elements, elements->begin()};
}

unsigned Host::elementCount(const ArrayHandle& array) {
    if (fails("VArrayDataHandle::elementCount") || !array.elements) return 0;
    return static_cast<unsigned>(array.elements->size());
}

DataHandle Host::inputValue(const ArrayHandle& array) {
    if (fails("VArrayDataHandle::inputValue") || !array.elements) return {};
    evaluate(*array.attribute);
    return current(array);
}

DataHandle Host::outputValue(const ArrayHandle& array) {
    return fails("VArrayDataHandle::outputValue", -1, true) ? DataHandle() : current(array);
}

bool Host::next(ArrayHandle& array) {
    if (fails("VArrayDataHandle::next") || !array.elements) return false;
    if (array.current != array.elements->end()) ++array.current;
    return array.current != array.elements->end();
}

ArrayBuilder Host::builder(const ArrayHandle& array) {
    if (fails("VArrayDataHandle::builder") || !array.elements) return {};
    return {array.attribute, *array.elements};
}

void Host::set(ArrayHandle& array, const ArrayBuilder& builder) {
    if (fails("VArrayDataHandle::set") || !array.elements || !builder.attribute) return;
    *array.elements = builder.elements;
    array.current = array.elements->begin();
}

void Host::setAllClean(const ArrayHandle& array) {
    if (!fails("VArrayDataHandle::setAllClean") && array.attribute)
        markWithAllBelow(*array.attribute, true);
}

DataHandle Host::addElement(ArrayBuilder& builder, unsigned index) {
    if (fails("VArrayDataBuilder::addElement", index) || !builder.attribute) return {};
    auto found = builder.elements.find(index);
    if (found == builder.elements.end())
        found = builder.elements.emplace(index, newElement(*builder.attribute)).first;
    return {builder.attribute, &found->second};
}

bool Host::removeElement(ArrayBuilder& builder, unsigned index) {
    if (fails("VArrayDataBuilder::removeElement", index)) return false;
    return builder.elements.erase(index) == 1;
}

unsigned Host::elementCount(const ArrayBuilder& builder) {
    if (fails("VArrayDataBuilder::elementCount")) return 0;
    return static_cast<unsigned>(builder.elements.size());
}

void Host::displayError(const std::string& message) {
    if (!fails("VGlobal::displayError")) m_messages.push_back(message);
}

bool Host::fails(std::string_view operation, long long index, bool statusRequested) {
    return m_calls.add({operation, index, statusRequested}) != 0;
}

DataHandle Host::find(const Place& place) {
    HostNode* node = &m_ports[place.port].data;
    for (const unsigned part : place.path) {
        if (auto* elements = std::get_if<HostArray>(&node->content)) {
            const auto found = elements->find(part);
            if (found == elements->end()) return {};
            node = &found->second;
        } else {
            node = &std::get<Compound>(node->content)[part];
        }
    }
    return {plugAt(place).attribute, node};
}

template <typename T>
T& Host::value(std::string_view operation, const DataHandle& handle) {
    T& spare = std::get<T>(m_spares);
    spare = hostDefault<T>();
    if (fails(operation) || !handle.node) return spare;
    T* present = std::get_if<T>(&handle.node->content);
    return present ? *present : spare;
}

template <typename T>
void Host::setValue(std::string_view operation, const DataHandle& handle, const T& value) {
    if (fails(operation) || !handle.node) return;
    if (T* present = std::get_if<T>(&handle.node->content)) *present = value;
}

}  // namespace Model
