#include "tools/node/FillInputs.h"

#include "tools/node/GenerateData.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>
#include <string>

namespace Tolvane::Tools {
namespace {

using Content = FillPlan::Content;

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

template <typename FillElement>
void fillElements(const DataPlace& place, std::size_t count, ElementCounts& counts,
                  FillElement fillElement) {
    counts.push_back(count);
    resize(place.handle, count);
    VArrayDataHandle array(place.handle);
    const std::size_t present = std::min<std::size_t>(count, array.elementCount());
    for (std::size_t i = 0; i < present; ++i) {
        fillElement(DataPlace{place.shape, array.outputValue()}, i);
        array.next();
    }
}

// Matrix i of the transform is matrix i + `shift` of the joint.
void fillTransform(const DataPlace& place, const PosedJoint& joint, std::size_t shift = 0) {
    for (std::size_t i = 0; i < kMatrixCount; ++i)
        place.child(i).handle.setMatrix(joint.matrices[(i + shift) % kMatrixCount]);
}

// Each single transform of a record takes the next joint, and the next matrix first where there is
// no other joint.
void fillTransform(const DataPlace& place, const JointGroup& group, std::size_t number) {
    if (group.joints.empty()) return fillTransform(place, *group.first, number);
    const std::size_t count = group.joints.size();
    fillTransform(place, *group.joints[number % count], number / count);
}

void fillName(const DataPlace& place, const JointGroup& group, std::size_t number) {
    std::string name = group.name.asChar();
    if (number > 0) name += "." + std::to_string(number);
    VDataHandle(place.handle).setString(name.c_str());
}

void fill(const FillPlan& plan, const DataPlace& place, const JointGroup& group, std::uint64_t seed,
          ElementCounts& counts);

void fillOne(const FillPlan& plan, const DataPlace& place, const JointGroup& group,
             std::uint64_t seed, ElementCounts& counts) {
    switch (plan.content) {
        case Content::Record:
            for (std::size_t i = 0; i < plan.members.size(); ++i)
                fill(plan.members[i], place.child(i), group, seed, counts);
            break;
        case Content::GroupName:
            fillName(place, group, plan.number);
            break;
        case Content::Transform:
            fillTransform(place, group, plan.number);
            break;
        case Content::Generated:
            generateData(place, seedOf(seed, plan.number));
            break;
        case Content::JointNames:
        case Content::JointWeights:
        case Content::JointMatrices:
        case Content::JointTransforms:
        case Content::None:
            break;
    }
}

void fillArray(const FillPlan& plan, const DataPlace& place, const JointGroup& group,
               std::uint64_t seed, ElementCounts& counts) {
    const JointList joints = chooseJoints(group.joints, plan.choice);
    fillElements(place, joints.size(), counts, [&](DataPlace element, std::size_t i) {
        const PosedJoint& joint = *joints[i];
        switch (plan.content) {
            case Content::JointNames:
                return element.handle.setString(joint.name);
            case Content::JointWeights:
                return element.handle.setDouble(joint.weight);
            case Content::JointMatrices:
                return element.handle.setMatrix(joint.matrices[plan.number % kMatrixCount]);
            case Content::JointTransforms:
                return fillTransform(element, joint);
            default:
                return fillOne(plan, element, elementGroup(joints, i), seedOf(seed, i), counts);
        }
    });
}

void fill(const FillPlan& plan, const DataPlace& place, const JointGroup& group, std::uint64_t seed,
          ElementCounts& counts) {
    if (plan.content == Content::None) return;
    if (place.shape.isArray)
        fillArray(plan, place, group, seed, counts);
    else
        fillOne(plan, place, group, seed, counts);
}

}  // namespace

ElementCounts fillInput(const FillPlan& plan, const DataPlace& port, const FrameData& data,
                        std::uint64_t seed) {
    ElementCounts counts;
    if (!port.shape.isArray || port.shape.kind != DataShape::Kind::Compound)
        fill(plan, port, data.rig, seed, counts);
    else
        fillElements(port, data.limbs.size(), counts, [&](const DataPlace& element, std::size_t i) {
            fillOne(plan, element, data.limbs[i], seedOf(seed, i), counts);
        });
    return counts;
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
