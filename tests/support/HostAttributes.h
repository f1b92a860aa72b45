// Attributes in the shape of the graph's types, made with the host's interface alone.
#pragma once

#include "tests/support/RecordTrees.h"

#include <OpenVornik/VObject.h>

#include <string>
#include <vector>

namespace TestSupport {

VObject textAttribute(const char* name, bool isArray = false);
VObject matrixAttribute(const char* name, bool isArray = false);
VObject doubleAttribute(const char* name, bool isArray = false);
// Holds nothing.
VObject objectAttribute(const char* name);
VObject compoundAttribute(const char* name, const std::vector<VObject>& children,
                          bool isArray = false);

// What stands for the objects of a record, of which neither readers nor writers may know.
using ObjectAttribute = VObject (*)(const char* name);

// For each type that a reader or a writer has: texts, matrices, numbers, records, and the arrays
// that records hold.
template <typename T>
VObject attributeFor(const char* name, bool isArray = false,
                     ObjectAttribute object = objectAttribute) {
    if constexpr (kIsArray<T>) {
        return attributeFor<ElementOf<T>>(name, true, object);
    } else if constexpr (kIsObject<T>) {
        return object(name);
    } else if constexpr (std::is_same_v<T, Pelmor::String>) {
        return textAttribute(name, isArray);
    } else if constexpr (std::is_same_v<T, Math::double4x4>) {
        return matrixAttribute(name, isArray);
    } else if constexpr (std::is_same_v<T, double>) {
        return doubleAttribute(name, isArray);
    } else {
        std::vector<VObject> children;
        eachMemberType<T>([&](const char* member, auto tag) {
            using Type = typename decltype(tag)::Type;
            children.push_back(attributeFor<Type>(childName(member), false, object));
        });
        return compoundAttribute(name, children, isArray);
    }
}

// The same, with a text where a record has an object.
template <typename T>
VObject attributeWithTextsForObjects(const char* name) {
    return attributeFor<T>(name, false, [](const char* child) { return textAttribute(child); });
}

}  // namespace TestSupport
