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

    // Each queues one operation. It fails, and queues nothing, if the operation could never be
    // carried out: an argument is null or of the wrong kind, a compound or a node has the attribute
    // already, both plugs are the same, their attributes differ in shape, the source is not
    // readable or the destination not writable.
    VStatus addAttribute(const VObject& node, const VObject& attribute);
    VStatus connect(const VPlug& source, const VPlug& destination);
    VStatus disconnect(const VPlug& source, const VPlug& destination);

    // Carries out what is queued, in order, and empties the queue. New connections make their
    // destinations dirty. If one operation fails (the node has the attribute's name, or has a name
    // anywhere that a child enforces as unique, arrays are nested too deep, the destination is
    // connected already, a connection to be broken is not there), those before it are undone, those
    // after it are dropped, and the nodes are as they were.
    VStatus doIt();

private:
    struct Operations;
    std::unique_ptr<Operations> m_operations;
};
