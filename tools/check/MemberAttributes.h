// What right libraries leave out of the attributes of a type's members, and so carry no values of.
#pragma once

#include "tools/check/Trial.h"
#include "tools/node/DataShape.h"

#include <Pelmor/Type.h>

#include <functional>

namespace Tolvane::Tools {

// Of an array its elements' type, of any other type itself.
Pelmor::Type elementOf(const Pelmor::Type& type);

// False if it has members, at any depth, that the host has no attribute for: those are passed over.
bool hasAttributes(const Pelmor::Type& type);

// Calls `work` for each attribute of a member that is a single one although the member is an array,
// of what is carried in no array within a record: bools, ints, and structs but transforms. What is
// below it is looked at too, as `work` leaves it. `shape` is that of a port of `type`.
void forEachSingle(DataShape& shape, const Pelmor::Type& type,
                   const std::function<void(DataShape& single)>& work);
void noteSingle(Trial& trial, const Pelmor::Type& type, const DataShape& single);

}  // namespace Tolvane::Tools
