#include "tests/model/MakeHolder.h"

#include "tests/model/GraphTypes.h"

#include <cstring>

namespace ModelTests {
namespace {

using namespace Model;

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
