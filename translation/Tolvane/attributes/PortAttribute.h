// Turns the graph type of a port into the tree of host attributes that carries the port's values:
// the children of a compound stand for the members of the struct, in their order. The tree belongs
// to no node yet. Host statuses are not checked. [edit thread]
#pragma once

#include <OpenVornik/VObject.h>
#include <OpenVornik/VString.h>
#include <Pelmor/EnumType.h>
#include <Pelmor/StructType.h>
#include <Pelmor/Type.h>

namespace Tolvane {

// The attribute of a port of `type`: a compound for a struct, an enum for an enum, an array of
// these for an array, and the null object for anything else. An input port's attribute is writable
// and keyable but not readable, an output port's the reverse.
VObject createPortAttribute(const Pelmor::Type& type, const VString& name, bool isInput);

// A member named "weights" becomes a child named "weights_A". A member of a type that has no
// attribute is passed over. No child enforces a unique name, so that records can be nested freely.
VObject createCompoundAttribute(const Pelmor::StructType& type, const VString& name, bool isInput,
                                bool isArray);

// The fields' values are the low 16 bits of the enumerations'.
VObject createEnumAttribute(const Pelmor::EnumType& type, const VString& name, bool isInput,
                            bool isArray);

}  // namespace Tolvane
