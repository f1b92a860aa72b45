#include "tests/faults/Progress.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VFnAttribute.h>

namespace FaultTests {
namespace {

bool writesLeaf(std::string_view operation) {
    return operation == "VDataHandle::asMatrix" || operation == "VDataHandle::setString" ||
           operation == "VDataHandle::setDouble";
}

// Faster than a text, which a sweep would make a million times.
std::string bytesOf(VDataHandle handle, VPlug plug) {
    const auto bytes = [](const auto& value) {
        return std::string(reinterpret_cast<const char*>(&value), sizeof value);
    };
    switch (VFnAttribute(plug.attribute()).kind()) {
        case VFnAttribute::kNumeric:
            return bytes(handle.asDouble());
        case VFnAttribute::kMatrix:
            return bytes(handle.asMatrix().matrix);
        case VFnAttribute::kTyped:
            return std::string("text ") + handle.asString().asChar();
        default:
            return {};
    }
}

bool isOnePart(const HostTree& former, const HostTree& written) {
    const bool hasParts = written.isArray || !written.parts.empty();
    return !hasParts || (written.isArray && former.parts.size() != written.parts.size());
}

}  // namespace

HostTree hostTreeOf(VDataHandle handle, VPlug plug) {
    HostTree tree;
    tree.isArray = plug.isArray();
    if (tree.isArray) {
        VArrayDataHandle elements(handle);
        for (unsigned i = 0, count = elements.elementCount(); i < count; ++i, elements.next())
            tree.parts.push_back(hostTreeOf(elements.outputValue(), plug.elementByLogicalIndex(i)));
    } else if (plug.isCompound()) {
        for (unsigned i = 0; i < plug.numChildren(); ++i)
            tree.parts.push_back(hostTreeOf(handle.child(plug.child(i)), plug.child(i)));
    } else {
        tree.leaf = bytesOf(handle, plug);
    }
    return tree;
}

std::string progressOf(const HostTree& now, const HostTree& former, const HostTree& written) {
    if (isOnePart(former, written)) {
        const bool isObject = written.parts.empty() && !written.isArray && written.leaf.empty();
        if (isObject) return "";
        return now == written ? "n" : now == former ? "o" : "?";
    }
    if (now.parts.size() != written.parts.size()) return "?";
    std::string progress;
    for (std::size_t i = 0; i < now.parts.size(); ++i)
        progress += progressOf(now.parts[i], former.parts[i], written.parts[i]);
    return progress;
}

std::string progressAfter(std::size_t calls, const Operations& plan, std::size_t parts) {
    std::size_t written = 0, builders = 0;
    for (std::size_t i = 0; i < calls; ++i) {
        if (plan[i] == "VArrayDataHandle::builder") ++builders;
        const bool isGivenBack = plan[i] == "VArrayDataHandle::set";
        if (isGivenBack) --builders;
        if (builders == 0 && (isGivenBack || writesLeaf(plan[i]))) ++written;
    }
    return std::string(written, 'n') + std::string(parts - written, 'o');
}

}  // namespace FaultTests
