// Attributes in the shape of the graph's types, made with the host's interface alone.
#pragma once

#include <OpenVornik/VObject.h>

#include <vector>

namespace TestSupport {

VObject textAttribute(const char* name, bool isArray = false);
VObject matrixAttribute(const char* name, bool isArray = false);
VObject doubleAttribute(const char* name, bool isArray = false);
// Holds nothing.
VObject objectAttribute(const char* name);
VObject compoundAttribute(const char* name, const std::vector<VObject>& children,
                          bool isArray = false);

// For each type that a reader or a writer has for elements: text, matrices, numbers, records.
template <typename T>
VObject attributeFor(const char* name, bool isArray = false);

// The same with other names, and with two texts where a record with objects has those.
template <typename T>
VObject attributeWithTextsForObjects(const char* name);

}  // namespace TestSupport
