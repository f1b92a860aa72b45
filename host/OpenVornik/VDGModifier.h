// Changes the dependency graph: a list of operations, carried out together. [edit thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VStatus.h>

#include <memory>

class OPENVORNIK_API VDGModifier {
public:
    VDGModifier();
    VDGModifier(const VDGModifier&) = delete;
    VDGModifier& operator=(const VDGModifier&) = delete;
    ~VDGModifier();

    // Each queues one operation, or refuses it at once, queuing nothing, where its arguments can
    // never be carried out: something null or of the wrong kind, an attribute that a compound or a
    // node already has, a plug and itself, plugs whose attributes differ in shape, a source that is
    // not readable or a destination that is not writable.
    VStatus addAttribute(const VObject& node, const VObject& attribute);
    VStatus connect(const VPlug& source, const VPlug& destination);
    VStatus disconnect(const VPlug& source, const VPlug& destination);

    // Carries out what is queued, in order, and empties the queue. What was connected is dirty
    // then. Where an operation is refused (a name that the node has, a child that enforces a unique
    // name where the node has it anywhere, arrays too deep, a destination that is connected, a
    // connection that is not there), what this call had carried out before it is taken back and the
    // nodes are as they were.
    VStatus doIt();

private:
    struct Operations;
    std::unique_ptr<Operations> m_operations;
};
