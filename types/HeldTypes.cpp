// The identities and the holder managers that the plugin supplies: for each record and for the
// shared array of it, and the identity of a string.
#include "types/Records.h"

#include <Pelmor/AnyValueManager.h>

namespace Pelmor::Internal {

template struct Identity<String, 0>;

template struct Identity<Core::Transform::Transform, 0>;
template struct Identity<Core::Transform::Transform, 1>;
template void manageHeld<Core::Transform::Transform>(AnyValueRequest*);
template void manageHeld<SharedArray<Core::Transform::Transform>>(AnyValueRequest*);

template struct Identity<Rigging::Module::NamedTransforms, 0>;
template struct Identity<Rigging::Module::NamedTransforms, 1>;
template void manageHeld<Rigging::Module::NamedTransforms>(AnyValueRequest*);
template void manageHeld<SharedArray<Rigging::Module::NamedTransforms>>(AnyValueRequest*);

template struct Identity<Rigging::Module::Pins, 0>;
template struct Identity<Rigging::Module::Pins, 1>;
template void manageHeld<Rigging::Module::Pins>(AnyValueRequest*);
template void manageHeld<SharedArray<Rigging::Module::Pins>>(AnyValueRequest*);

template struct Identity<Rigging::Module::InputsJoints, 0>;
template struct Identity<Rigging::Module::InputsJoints, 1>;
template void manageHeld<Rigging::Module::InputsJoints>(AnyValueRequest*);
template void manageHeld<SharedArray<Rigging::Module::InputsJoints>>(AnyValueRequest*);

template struct Identity<Rigging::Module::InputsControls, 0>;
template struct Identity<Rigging::Module::InputsControls, 1>;
template void manageHeld<Rigging::Module::InputsControls>(AnyValueRequest*);
template void manageHeld<SharedArray<Rigging::Module::InputsControls>>(AnyValueRequest*);

template struct Identity<Rigging::Module::Inputs, 0>;
template struct Identity<Rigging::Module::Inputs, 1>;
template void manageHeld<Rigging::Module::Inputs>(AnyValueRequest*);
template void manageHeld<SharedArray<Rigging::Module::Inputs>>(AnyValueRequest*);

template struct Identity<Rigging::Module::Outputs, 0>;
template struct Identity<Rigging::Module::Outputs, 1>;
template void manageHeld<Rigging::Module::Outputs>(AnyValueRequest*);
template void manageHeld<SharedArray<Rigging::Module::Outputs>>(AnyValueRequest*);

}  // namespace Pelmor::Internal
