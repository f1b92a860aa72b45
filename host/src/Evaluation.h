// Brings data up to date before it is read, and spreads the news that it no longer is.
#pragma once

#include <OpenVornik/VPlug.h>
#include <OpenVornik/VStatus.h>

namespace OpenVornik::Internal {

class Attribute;

// Makes the plug's attribute clean. Gives the first failure of a node's compute on the way.
VStatus evaluate(const VPlug& plug);

// Makes dirty what a node has in `attribute` and whatever depends on it.
void makeDirty(const Attribute& attribute);

}  // namespace OpenVornik::Internal
