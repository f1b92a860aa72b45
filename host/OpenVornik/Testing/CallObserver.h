// Watches the calls of the host's interface, and makes them fail. An observer is told of every call
// that its thread makes from outside the host, in order and before it is carried out. It exists
// only where the host is built with OPENVORNIK_OBSERVATION.
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VStatus.h>
#include <OpenVornik/VString.h>

#include <string_view>

namespace OpenVornik::Testing {

struct Call {
    // Class and member, such as "VPlug::child"; "VArrayDataHandle::VArrayDataHandle" for a
    // constructor. The text lasts for the whole process.
    std::string_view operation;
    // What the call is made on: the name of the plug, the node, or the attribute; for data, the
    // path of the attribute from the top level, with "[]" behind it for one element of an array.
    // For a modifier it is what the change starts from: the node, or the source plug. Empty for a
    // call on nothing, and for a constructor of a plug or a `create`, which are made before there
    // is anything.
    VString subject;
    // The child index, logical index or position that the call was given, or -1.
    long long index = -1;
    // Any other argument, as text: a name, a plug's name, an attribute's name, a message, "true" or
    // "false". Several are joined by ", ".
    VString argument;
    // Whether the caller passed a pointer for the status. False where the status is the result.
    bool statusRequested = false;
};

// Observes the thread that made it until it is destroyed, on that thread. Observers nest: the
// newest alone is told. What an observer calls while it is told is not told to anybody.
class OPENVORNIK_API CallObserver {
public:
    CallObserver();
    CallObserver(const CallObserver&) = delete;
    CallObserver& operator=(const CallObserver&) = delete;
    virtual ~CallObserver();

    // The answer kSuccess lets the call go on. Any other makes it fail with that status, without
    // having been carried out: it changes nothing and gives what its declaration says of a failure,
    // else a null object, plug or handle, 0, false or empty text.
    //
    // May throw. The exception reaches whoever made the call, which has then not been carried out
    // and has filled no status. If that is a node's computation, the evaluations that wait for it
    // end too, and their attributes stay dirty.
    virtual VStatus::Code called(const Call& call) = 0;

private:
    CallObserver* m_previous;
};

}  // namespace OpenVornik::Testing
