// What a translation object does when the framework calls it, for any registry. A registry is given
// as the function that builds it at its first call, because the host is asked first. No exception
// reaches the framework: one that is not handled here ends the process.
#pragma once

#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Pelmor/String.h>
#include <Pelmor/Type.h>
#include <TavrikGraph/Executor/TypeTranslation.h>
#include <Tolvane/TranslatorRegistry.h>

namespace Tolvane {

using GetRegistry = const TranslatorRegistry& (*)();

// Replaces `names` by the names that have a reader, in the registry's order. [any thread]
void getSupportedTypeNames(GetRegistry registry, Pelmor::Array<Pelmor::String>& names) noexcept;

// Reads the port's data into `value`. The host is asked for the port's input before the type is
// looked up, so that it evaluates the port whether the type is carried or not. False where the type
// has no reader or the reader left no value. [evaluation thread]
bool readFromHost(GetRegistry registry, const Pelmor::Type& type, Pelmor::AnyValue& value,
                  const TavrikGraph::Executor::HostContext& context) noexcept;

// Writes `value` into the port's data and marks it clean. False where the value's type has no
// writer. A writer's std::runtime_error is shown to the user: what it wrote before stays, the port
// stays dirty, and the result is true all the same. [evaluation thread]
bool writeToHost(GetRegistry registry, const Pelmor::AnyValue& value,
                 const TavrikGraph::Executor::HostContext& context) noexcept;

}  // namespace Tolvane
