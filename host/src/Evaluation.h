// Brings data up to date before it is read, and marks dirty what depends on data that has changed.
#pragma once

#include <OpenVornik/VPlug.h>
#include <OpenVornik/VStatus.h>

namespace OpenVornik::Internal {

class Attribute;

// Makes the plug's attribute clean. Returns the first failure of a node's compute on the way.
VStatus evaluate(const VPlug& plug);

// Marks `attribute`, and all that depends on it, dirty.
void makeDirty(const Attribute& attribute);

}  // namespace OpenVornik::Internal
