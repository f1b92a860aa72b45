#include "tests/model/GiveContent.h"

#include "tests/model/GraphTypes.h"
#include "tests/support/HostData.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>

#include <cstring>

namespace ModelTests {
namespace {

using namespace Model;

struct Filling {
    VDataHandle handle;
    VPlug plug;

    void operator()(std::monostate) const {}
    void operator()(Number number) const { handle.asDouble() = valueOf(number); }
    void operator()(const std::string& text) const { handle.asString() = text.c_str(); }
    void operator()(const Matrix& matrix) const {
        std::memcpy(handle.asMatrix().matrix, matrix.data(), sizeof matrix);
    }
    void operator()(const Compound& children) const {
        for (unsigned i = 0; i < children.size(); ++i)
            fillHost(handle.child(VPlug(plug).child(i)), VPlug(plug).child(i), children[i]);
    }
    void operator()(const HostArray& elements) const {
        giveIndices(elements);
        VArrayDataHandle array(handle);
        for (const auto& [index, element] : elements) {
            fillHost(array.outputValue(), VPlug(plug).elementByLogicalIndex(index), element);
            array.next();
        }
    }

    void giveIndices(const HostArray& elements) const {
        VArrayDataHandle array(handle);
        VArrayDataBuilder builder = array.builder();
        for (const unsigned present : TestSupport::indicesOf(handle))
            if (elements.count(present) == 0) builder.removeElement(present);
        for (const auto& element : elements) builder.addElement(element.first);
        array.set(builder);
    }
};

void assign(double& number, const GraphValue& model) {
    number = valueOf(std::get<Number>(model.content));
}

void assign(Pelmor::String& text, const GraphValue& model) {
    text = std::get<std::string>(model.content).c_str();
}

void assign(Math::double4x4& matrix, const GraphValue& model) {
    std::memcpy(matrix.rows, std::get<Matrix>(model.content).data(), sizeof matrix.rows);
}

void assign(Pelmor::Ptr<Tavrik::Object>& object, const GraphValue& model) {
    if (std::get<Object>(model.content) == defaultObject())
        object = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
    else
        object = Pelmor::makePtr<Tavrik::Object>();
}

template <typename Record>
void assign(Record& record, const GraphValue& model);

template <typename Element>
void assign(Pelmor::SharedArray<Element>& array, const GraphValue& model) {
    array = nullptr;
    const Array& elements = std::get<Array>(model.content);
    if (!elements) return;
    array = Pelmor::makePtr<Pelmor::Array<Element>>(elements->size());
    for (std::size_t i = 0; i < elements->size(); ++i) assign((*array)[i], (*elements)[i]);
}

template <typename Record>
void assign(Record& record, const GraphValue& model) {
    const auto& members = std::get<Model::Record>(model.content);
    std::size_t index = 0;
    eachMemberAndObject(record, [&](auto& member) { assign(member, members[index++]); });
}

}  // namespace

void fillHost(VDataHandle handle, VPlug plug, const HostNode& node) {
    std::visit(Filling{handle, plug}, node.content);
}

Pelmor::AnyValue makeHolder(const Holder& model) {
    Pelmor::AnyValue holder;
    if (!model) return holder;
    visitType(model->type, [&](auto tag) {
        typename decltype(tag)::Type value{};
        assign(value, model->value);
        holder = Pelmor::AnyValue::holding(std::move(value));
    });
    return holder;
}

}  // namespace ModelTests
