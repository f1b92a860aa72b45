// Puts a rig's data into host attributes, by the host's own operations, as any tool of the host
// would. No two members of a record get the same data, so that members that were exchanged show:
// some take the joints in reverse order, from the second on, or only every other one.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/FrameData.h"

#include <vector>

namespace Tolvane::Tools {

// A record that ports carry, alone and in arrays.
struct RecordType {
    const char* typeName;
    // Of the ports, without the direction in front: "Pins" for the port "inPins".
    const char* portName;
    // `record` is the data of one record and fits its type.
    void (*fill)(const DataPlace& record, const JointGroup& group);
};

// Every record that `tolvane` can make of a rig.
const std::vector<RecordType>& recordTypes();

// Gives the array one record for each limb, at logical indices from 0 on.
void fillRecordArray(const RecordType& type, const DataPlace& array,
                     const std::vector<JointGroup>& limbs);

}  // namespace Tolvane::Tools
