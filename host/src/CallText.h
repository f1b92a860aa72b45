// What calls are made on and with, as the text that an observer is given.
#pragma once

#include <OpenVornik/VMatrix.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VString.h>

#include <array>

namespace OpenVornik::Internal {

// The subject of a call on nothing.
struct Nothing {};

// A place in a node's data; nothing, if the attribute is null.
struct DataPlace {
    const Attribute* attribute;
    bool isElement = false;
};

// The arguments of VString::format.
using FormatArguments = std::array<const VString*, 10>;

VString textOf(Nothing);
VString textOf(const VString& text);
VString textOf(const VObject& object);
VString textOf(const Object* object);
VString textOf(const VPlug& plug);
VString textOf(const DataPlace& place);
VString textOf(const FormatArguments& arguments);
VString textOf(const VMatrix& matrix);
VString textOf(bool value);
VString textOf(int value);
VString textOf(double value);

}  // namespace OpenVornik::Internal
