// The two kinds of function that carry a value across the boundary.
#pragma once

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>

namespace Rigging::Module {

// Reads the data of `plug` into `value`. It never throws and never reports: a failure is an empty
// `value`. [evaluation thread]
using HostReader = void (*)(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);

// Writes `value` into the data of `plug`. It reports a failure by throwing std::runtime_error with
// the message for the user. [evaluation thread]
using HostWriter = void (*)(const Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);

}  // namespace Rigging::Module
