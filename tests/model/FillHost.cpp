#include "tests/model/FillHost.h"

#include "tests/support/HostData.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <cstring>

namespace ModelTests {
namespace {

using namespace Model;

struct Filling {
    VDataHandle handle;
    const VPlug& plug;

    void operator()(std::monostate) const {}
    void operator()(Number number) const { handle.asDouble() = valueOf(number); }
    void operator()(const std::string& text) const { handle.asString() = text.c_str(); }
    void operator()(const Matrix& matrix) const {
        std::memcpy(handle.asMatrix().matrix, matrix.data(), sizeof matrix);
    }
    void operator()(const Compound& children) const {
        for (unsigned i = 0; i < children.size(); ++i)
            fillHost(handle.child(plug.child(i)), plug.child(i), children[i]);
    }
    void operator()(const HostArray& elements) const {
        std::vector<unsigned> indices;
        for (const auto& element : elements) indices.push_back(element.first);
        TestSupport::setIndices(handle, indices);
        VArrayDataHandle array(handle);
        for (const auto& [index, element] : elements) {
            fillHost(array.outputValue(), plug.elementByLogicalIndex(index), element);
            array.next();
        }
    }
};

}  // namespace

void fillHost(VDataHandle handle, const VPlug& plug, const HostNode& node) {
    std::visit(Filling{handle, plug}, node.content);
}

}  // namespace ModelTests
