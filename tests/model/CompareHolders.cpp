#include "tests/model/Compare.h"
#include "tests/model/GraphTypes.h"
#include "tests/model/Text.h"

#include <Pelmor/AnyValue.h>

#include <cstring>
#include <map>

namespace ModelTests {
namespace {

using namespace Model;

class HolderComparison {
public:
    Difference compare(const Pelmor::AnyValue& product, const Holder& model) {
        if (!model || !product.hasValue()) {
            if (!model && !product.hasValue()) return {};
            return differ(model ? "nothing" : "a value", model ? model->type : "nothing");
        }
        Difference found;
        visitType(model->type, [&](auto tag) {
            const auto* held = product.getIf<typename decltype(tag)::Type>();
            found = held ? compare(*held, model->value) : differ("another type", model->type);
        });
        return found;
    }

private:
    Difference compare(double product, const GraphValue& model) {
        return compareLeaves(numberOf(product), std::get<Number>(model.content));
    }

    Difference compare(const Pelmor::String& product, const GraphValue& model) {
        const std::string& text = std::get<std::string>(model.content);
        if (product.c_str() == text) return {};
        return differ(textOf(std::string(product.c_str())), textOf(text));
    }

    Difference compare(const Math::double4x4& product, const GraphValue& model) {
        Matrix matrix;
        std::memcpy(matrix.data(), product.rows, sizeof matrix);
        return compareLeaves(matrix, std::get<Matrix>(model.content));
    }

    Difference compare(const Pelmor::Ptr<Tavrik::Object>& product, const GraphValue& model) {
        const Object& object = std::get<Object>(model.content);
        const bool isDefault = product == Pelmor::Internal::getDefaultClass<Tavrik::Object>();
        if (isDefault != (object == defaultObject()))
            return differ(isDefault ? "the default object" : "another object",
                          isDefault ? "another" : "the default object");
        // The default object has uses of its own.
        return isDefault ? Difference() : compareShared(product, object);
    }

    template <typename Element>
    Difference compare(const Pelmor::SharedArray<Element>& product, const GraphValue& model) {
        const Array& elements = std::get<Array>(model.content);
        if (!product || !elements) {
            if (!product && !elements) return {};
            return differ(product ? "an array" : "null", elements ? "an array" : "null");
        }
        if (auto found = compareShared(product, elements)) return found;
        if (product->size() != elements->size())
            return differ(std::to_string(product->size()) + " elements",
                          std::to_string(elements->size()) + " elements");
        for (std::size_t i = 0; i < elements->size(); ++i)
            if (auto found = compare((*product)[i], (*elements)[i]))
                return at("[" + std::to_string(i) + "]", found);
        return {};
    }

    template <typename Record>
    Difference compare(const Record& product, const GraphValue& model) {
        const auto& members = std::get<Model::Record>(model.content);
        Difference found;
        std::size_t i = 0;
        eachMemberAndObject(product, [&](const auto& member) {
            if (!found && (found = compare(member, members[i])))
                found = at("." + std::to_string(i), found);
            ++i;
        });
        return found;
    }

    template <typename Leaf>
    static Difference compareLeaves(const Leaf& product, const Leaf& model) {
        return product == model ? Difference() : differ(textOf(product), textOf(model));
    }

    // One address on the one side goes with one on the other, in all holders.
    template <typename Product, typename Shared>
    Difference compareShared(const Pelmor::Ptr<Product>& product, const Shared& model) {
        const void* partner = m_ofProduct.emplace(product.get(), model.get()).first->second;
        if (partner != model.get()) return differ("one that is shared", "one that is not");
        partner = m_ofModel.emplace(model.get(), product.get()).first->second;
        if (partner != product.get()) return differ("one that is not shared", "one that is");
        const auto uses = static_cast<std::uint64_t>(model.use_count());
        if (product.useCount() == uses) return {};
        return differ(std::to_string(product.useCount()) + " uses", std::to_string(uses));
    }

    std::map<const void*, const void*> m_ofProduct;
    std::map<const void*, const void*> m_ofModel;
};

}  // namespace

Difference compareHolders(const ProductWorld& product, const ModelWorld& model) {
    HolderComparison comparison;
    Difference found;
    for (std::size_t i = 0; i < kHolders && !found; ++i)
        found = at("holder " + std::to_string(i),
                   comparison.compare(product.holders()[i], model.holders()[i]));
    return found;
}

}  // namespace ModelTests
