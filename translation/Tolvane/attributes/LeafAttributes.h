// Makes the attributes that stand at the leaves of a record's tree. They keep the host's default
// flags; those that can be arrays are told whether to be. Those for "bool" and "int"
// never become arrays. Host statuses are not checked. [edit thread]
#pragma once

#include <OpenVornik/VObject.h>
#include <OpenVornik/VString.h>

namespace Tolvane {

VObject createStringAttribute(const VString& name, bool isArray);
VObject createMatrixAttribute(const VString& name, bool isArray);
VObject createDoubleAttribute(const VString& name, bool isArray);
// For the graph's generic objects: accepts no data of the host.
VObject createObjectAttribute(const VString& name, bool isArray);
VObject createBoolAttribute(const VString& name);
VObject createIntAttribute(const VString& name);

}  // namespace Tolvane
