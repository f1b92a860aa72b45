#include "tests/faults/Entries.h"

#include "tests/support/HostData.h"

#include <OpenVornik/VFnAttribute.h>

#include <iterator>

namespace FaultTests {
namespace {

const std::string kZero = textOf(TestSupport::leavesOf(Math::double4x4{}));
const std::string kIdentity = [] {
    Math::double4x4 matrix{};
    for (unsigned i = 0; i < 4; ++i) matrix.rows[i][i] = 1;
    return textOf(TestSupport::leavesOf(matrix));
}();

void addLeaf(Entries& entries, VDataHandle handle, const VPlug& plug) {
    TestSupport::Leaves leaf;
    switch (VFnAttribute(plug.attribute()).kind()) {
        case VFnAttribute::kNumeric:
            leaf.addNumber(handle.asDouble());
            break;
        case VFnAttribute::kTyped:
            leaf.addText(handle.asString().asChar());
            break;
        case VFnAttribute::kMatrix:
            leaf.addMatrix(handle.asMatrix().matrix);
            break;
        default:
            return;
    }
    entries[plug.name().asChar()] = textOf(leaf);
}

void addData(Entries& entries, VDataHandle handle, const VPlug& plug) {
    if (plug.isArray()) {
        for (const unsigned index : TestSupport::indicesOf(handle)) {
            const VPlug element = plug.elementByLogicalIndex(index);
            if (element.isCompound()) entries[element.name().asChar()] = kElement;
            addData(entries, TestSupport::elementOf(handle, index), element);
        }
    } else if (plug.isCompound()) {
        for (unsigned i = 0; i < plug.numChildren(); ++i)
            addData(entries, handle.child(plug.child(i)), plug.child(i));
    } else {
        addLeaf(entries, handle, plug);
    }
}

std::string defaultOf(const std::string& text, Defaults defaults) {
    if (text == kElement) return text;
    if (text.front() == '"') return "\"\"";
    if (text.compare(0, 6, "matrix") != 0) return "0";
    return defaults == Defaults::OfHost ? kIdentity : kZero;
}

}  // namespace

Entries entriesOf(VDataHandle handle, const VPlug& plug) {
    Entries entries;
    addData(entries, handle, plug);
    return entries;
}

bool isAt(const std::string& path, const std::string& place) {
    if (path.compare(0, place.size(), place) != 0) return false;
    return path.size() == place.size() || path[place.size()] == '.' || path[place.size()] == '[';
}

std::string elementPlace(const std::string& array, unsigned index) {
    return array + '[' + std::to_string(index) + ']';
}

unsigned lengthOf(const Entries& entries, const std::string& array) {
    unsigned length = 0;
    while (entries.count(elementPlace(array, length)) > 0) ++length;
    return length;
}

void erase(Entries& entries, const std::string& place) {
    for (auto entry = entries.lower_bound(place); entry != entries.end();)
        entry = isAt(entry->first, place) ? entries.erase(entry) : std::next(entry);
}

void replace(Entries& entries, const std::string& place, const Entries& source,
             const std::string& sourcePlace) {
    erase(entries, place);
    for (const auto& [path, text] : source)
        if (isAt(path, sourcePlace)) entries[place + path.substr(sourcePlace.size())] = text;
}

void replace(Entries& entries, const std::string& place, const Entries& source) {
    replace(entries, place, source, place);
}

void blank(Entries& entries, const std::string& place, Defaults defaults) {
    for (auto entry = entries.lower_bound(place); entry != entries.end();) {
        const std::string& path = entry->first;
        if (isAt(path, place) && path.find('[', place.size()) != std::string::npos) {
            entry = entries.erase(entry);
            continue;
        }
        if (isAt(path, place)) entry->second = defaultOf(entry->second, defaults);
        ++entry;
    }
}

}  // namespace FaultTests
