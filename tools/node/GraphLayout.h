// How values of the graph lie in memory, told from their types alone, and whether a translation
// library lays them out in the same way.
#pragma once

#include <Pelmor/AnyValue.h>
#include <Pelmor/Type.h>

#include <cstddef>
#include <optional>
#include <string>

namespace Tolvane::Tools {

// In bytes, as a C++ struct with the members of the type has it.
std::size_t sizeOf(const Pelmor::Type& type);

// What is wrong if `value` is an array whose elements have another size than those of `type`, an
// array of structs. Nothing also where the size cannot be told: a record that is held by itself
// says nothing of its size.
std::optional<std::string> wrongElementSize(const Pelmor::AnyValue& value,
                                            const Pelmor::Type& type);

}  // namespace Tolvane::Tools
