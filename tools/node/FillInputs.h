// Puts a rig's data into host attributes, with the host's own operations, as a rigger's tools
// would. No two members of a record get the same data, so that none can take another's place
// unseen: some take the joints in reverse order, from the second on, or only every other one.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/FrameData.h"

#include <array>

namespace Tolvane::Tools {

// One of the seven records that ports carry, alone and in arrays.
struct RecordType {
    const char* typeName;
    const char* portName;
    // `record` is the data of one record and has the shape of its type.
    void (*fill)(const DataPlace& record, const JointGroup& group);
};

extern const std::array<RecordType, 7> kRecordTypes;

// Gives the array one record for each limb, at the logical indices from 0 on.
void fillRecordArray(const RecordType& type, const DataPlace& array,
                     const std::vector<JointGroup>& limbs);

}  // namespace Tolvane::Tools
