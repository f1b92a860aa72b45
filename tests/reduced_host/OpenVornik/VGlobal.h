// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VString.h>

class VGlobal {
public:
    static void displayError(const VString& message);
};
