#include "tests/model/FillHost.h"

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

}  // namespace

void fillHost(VDataHandle handle, VPlug plug, const HostNode& node) {
    std::visit(Filling{handle, plug}, node.content);
}

}  // namespace ModelTests
