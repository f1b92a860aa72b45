// What each attribute of a port is filled with, decided once from the tree of attributes. Where
// kind and name ask for the data of a rig they get it; everything else gets generated values. No
// two members of a record get the same data, as long as the rig has joints enough, so that members
// that were exchanged show: some take the joints in reverse order, or only every other one, or
// begin with the second.
#pragma once

#include "tools/node/DataShape.h"

#include <cstddef>
#include <vector>

namespace Tolvane::Tools {

struct FillPlan {
    enum class Content {
        None,             // the host keeps no data for it
        Record,           // a compound, by its members
        GroupName,        // a text "name"
        JointNames,       // an array of texts "names"
        JointWeights,     // an array of doubles "weights", or "weights_A", as ports may call it
        JointMatrices,    // any other array of matrices: one matrix of each joint
        JointTransforms,  // an array of transforms: all matrices of each joint
        Transform,        // a single transform: all matrices of one joint
        Generated
    };
    static constexpr std::size_t kContents = 9;

    Content content = Content::None;
    // Counts the attributes of the tree that have this content, from 0 on.
    std::size_t number = 0;
    // Which joints an array has elements for, as `chooseJoints` takes it. 0 is all, in their order.
    std::size_t choice = 0;
    // Of a record, one for each child of its shape.
    std::vector<FillPlan> members = {};
};

// The plan for a port's attribute or, where that is an array of compounds, for one element of it.
FillPlan planFor(const DataShape& shape);

}  // namespace Tolvane::Tools
