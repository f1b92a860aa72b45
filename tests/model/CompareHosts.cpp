#include "tests/model/Compare.h"
#include "tests/model/Text.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <cstring>

namespace ModelTests {
namespace {

using namespace Model;

Difference compare(VDataHandle handle, VPlug plug, const HostNode& node);

struct HostComparison {
    VDataHandle handle;
    VPlug plug;

    Difference operator()(std::monostate) const { return {}; }

    Difference operator()(Number model) const {
        const Number product = numberOf(handle.asDouble());
        return product == model ? Difference() : differ(textOf(product), textOf(model));
    }

    Difference operator()(const std::string& model) const {
        const char* product = handle.asString().asChar();
        return product == model ? Difference() : differ(textOf(product), textOf(model));
    }

    Difference operator()(const Matrix& model) const {
        Matrix product;
        std::memcpy(product.data(), handle.asMatrix().matrix, sizeof product);
        return product == model ? Difference() : differ(textOf(product), textOf(model));
    }

    Difference operator()(const Compound& children) const {
        for (unsigned i = 0; i < children.size(); ++i) {
            VPlug child = VPlug(plug).child(i);
            if (auto found = compare(handle.child(child), child, children[i]))
                return at("." + std::to_string(i), found);
        }
        return {};
    }

    Difference operator()(const HostArray& model) const {
        VArrayDataHandle product(handle);
        const std::size_t count = product.elementCount();
        if (count != model.size())
            return differ(std::to_string(count) + " elements",
                          std::to_string(model.size()) + " elements");
        for (const auto& [index, element] : model) {
            const unsigned productIndex = product.elementIndex();
            if (productIndex != index)
                return differ("an element at " + std::to_string(productIndex),
                              "one at " + std::to_string(index));
            VPlug elementPlug = VPlug(plug).elementByLogicalIndex(index);
            if (auto found = compare(product.outputValue(), elementPlug, element))
                return at("[" + std::to_string(index) + "]", found);
            product.next();
        }
        return {};
    }
};

Difference compare(VDataHandle handle, VPlug plug, const HostNode& node) {
    return std::visit(HostComparison{handle, plug}, node.content);
}

Difference compareClean(const VDataBlock& block, VPlug plug, const HostAttribute& model) {
    const bool isClean = block.isClean(plug.attribute());
    if (isClean != model.isClean)
        return differ(isClean ? "clean" : "dirty", model.isClean ? "clean" : "dirty");
    // The whole of an array has no children, only an element of it.
    VPlug above = plug.isArray() ? VPlug(plug).elementByLogicalIndex(0) : plug;
    for (unsigned i = 0; i < model.children.size(); ++i)
        if (auto found = compareClean(block, above.child(i), *model.children[i]))
            return at("." + std::to_string(i), found);
    return {};
}

}  // namespace

Difference compareHosts(const ProductWorld& product, const ModelWorld& model) {
    Difference found;
    for (std::size_t i = 0; i < model.ports().size() && !found; ++i) {
        const Port& port = model.ports()[i];
        VPlug plug = product.ports()[i];
        VDataBlock block = product.block();
        found = compare(block.outputValue(plug), plug, port.data);
        if (!found) found = compareClean(block, plug, *port.attribute);
        found = at("port " + std::to_string(i), found);
    }
    return found;
}

}  // namespace ModelTests
