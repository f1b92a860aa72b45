// What belongs to the host as a whole.
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VString.h>

class OPENVORNIK_API VGlobal {
public:
    // Shows `message` to the user: to every VErrorListener, or on standard error if there is none.
    // [any thread]
    static void displayError(const VString& message);
};
