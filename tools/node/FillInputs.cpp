#include "tools/node/FillInputs.h"

#include "tools/node/FillWalk.h"
#include "tools/node/LeafAccess.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>

namespace Tolvane::Tools {
namespace {

// Of a group with more joints, an element of an array of records gets this many. Of any other it
// gets one, so that arrays in arrays stay small.
constexpr std::size_t kElementJoints = 3;

void resize(const VDataHandle& handle, std::size_t size) {
    VArrayDataHandle array(handle);
    const unsigned before = array.elementCount();
    const auto after = static_cast<unsigned>(size);
    if (before == after) return;
    VArrayDataBuilder builder = array.builder();
    for (unsigned i = before; i < after; ++i) builder.addElement(i);
    for (unsigned i = after; i < before; ++i) builder.removeElement(i);
    array.set(builder);
}

class Filling {
public:
    static std::size_t array(const DataPlace& place, const DataPath&, std::size_t count) {
        resize(place.handle, count);
        // The host may have refused.
        return std::min<std::size_t>(count, VArrayDataHandle(place.handle).elementCount());
    }
    void element(const DataPath&, unsigned) const {}
    template <typename Value>
    void value(const DataPlace& place, const DataPath&, const Value& value) const {
        put(place.handle, value);
    }
};

}  // namespace

void fillInput(const FillPlan& plan, const DataPlace& port, const FrameData& data,
               std::uint64_t seed) {
    Filling filling;
    FillWalk(filling).port(plan, port, data, seed);
}

JointList chooseJoints(const JointList& joints, std::size_t choice) {
    const bool isEveryOther = choice % 4 >= 2 && joints.size() > 1;
    JointList chosen;
    for (std::size_t i = isEveryOther ? choice % 2 : 0; i < joints.size();
         i += isEveryOther ? 2 : 1)
        chosen.push_back(joints[i]);
    if (choice % 4 == 1) std::reverse(chosen.begin(), chosen.end());
    if (chosen.empty()) return chosen;
    const auto turn = static_cast<std::ptrdiff_t>(choice / 4 % chosen.size());
    std::rotate(chosen.begin(), chosen.begin() + turn, chosen.end());
    return chosen;
}

JointGroup elementGroup(const JointList& joints, std::size_t index) {
    JointGroup group{joints[index]->name, joints[index], {}};
    const std::size_t count = joints.size() > kElementJoints ? kElementJoints : 1;
    for (std::size_t i = 0; i < count; ++i)
        group.joints.push_back(joints[(index + i) % joints.size()]);
    return group;
}

}  // namespace Tolvane::Tools
