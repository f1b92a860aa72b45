#include "host/src/CallText.h"

#include "host/src/Attribute.h"
#include "host/src/Node.h"
#include "host/src/PlugAccess.h"

#include <charconv>
#include <string>

namespace OpenVornik::Internal {

VString textOf(Nothing) { return {}; }

VString textOf(const VString& text) { return text; }

VString textOf(const VObject& object) {
    if (const Node* node = nodeOf(object)) return node->name();
    if (const Attribute* attribute = attributeOf(object)) return attribute->name();
    return {};
}

VString textOf(const Object* object) { return object ? object->name() : VString(); }

VString textOf(const VPlug& plug) { return nameOf(plug); }

VString textOf(const DataPlace& place) {
    return place.attribute ? pathOf(*place.attribute, place.isElement) : VString();
}

VString textOf(const FormatArguments& arguments) {
    VString text;
    const char* separator = "";
    for (const VString* argument : arguments) {
        if (argument == &VString::argUnused) continue;
        text += separator + *argument;
        separator = ", ";
    }
    return text;
}

VString textOf(const VMatrix& matrix) {
    VString text;
    const char* separator = "";
    for (const auto& row : matrix.matrix) {
        for (const double value : row) {
            text += separator + textOf(value);
            separator = " ";
        }
    }
    return text;
}

VString textOf(bool value) { return value ? "true" : "false"; }

VString textOf(int value) { return std::to_string(value).c_str(); }

VString textOf(double value) {
    std::array<char, 32> text{};
    std::to_chars(text.data(), text.data() + text.size() - 1, value);
    return text.data();
}

}  // namespace OpenVornik::Internal
