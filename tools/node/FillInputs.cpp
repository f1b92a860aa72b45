#include "tools/node/FillInputs.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>

namespace Tolvane::Tools {
namespace {

// ---- Which joints a member gets ----

JointList reversed(JointList joints) {
    std::reverse(joints.begin(), joints.end());
    return joints;
}

JointList fromTheSecondOn(JointList joints) {
    if (!joints.empty()) std::rotate(joints.begin(), joints.begin() + 1, joints.end());
    return joints;
}

JointList everyOther(const JointList& joints, std::size_t from) {
    JointList chosen;
    for (std::size_t i = from; i < joints.size(); i += 2) chosen.push_back(joints[i]);
    return chosen;
}

// ---- Arrays ----

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

template <typename Items, typename FillElement>
void fillArray(const DataPlace& place, const Items& items, FillElement fillElement) {
    resize(place.handle, items.size());
    VArrayDataHandle array(place.handle);
    for (const auto& item : items) {
        fillElement(DataPlace{place.shape, array.outputValue()}, item);
        array.next();
    }
}

void fillNames(const DataPlace& place, const JointList& joints) {
    fillArray(place, joints, [](DataPlace element, const PosedJoint* joint) {
        element.handle.setString(joint->name);
    });
}

void fillMatrices(const DataPlace& place, const JointList& joints, TransformMatrix which) {
    fillArray(place, joints, [which](DataPlace element, const PosedJoint* joint) {
        element.handle.setMatrix(joint->matrices[which]);
    });
}

void fillWeights(const DataPlace& place, const JointList& joints) {
    fillArray(place, joints, [](DataPlace element, const PosedJoint* joint) {
        element.handle.setDouble(joint->weight);
    });
}

void fillTransform(const DataPlace& place, const PosedJoint& joint) {
    for (std::size_t i = 0; i < kMatrixCount; ++i)
        place.child(i).handle.setMatrix(joint.matrices[i]);
}

void fillTransforms(const DataPlace& place, const JointList& joints) {
    fillArray(place, joints, [](const DataPlace& element, const PosedJoint* joint) {
        fillTransform(element, *joint);
    });
}

// ---- Records ----

void fillNamedTransforms(const DataPlace& record, const JointList& joints) {
    fillNames(record.child(0), joints);
    fillTransforms(record.child(1), joints);
}

void fillPins(const DataPlace& record, const JointList& joints) {
    fillNames(record.child(0), joints);
    fillMatrices(record.child(1), joints, kWorld);
}

void fillInputsJoints(const DataPlace& record, const JointList& joints) {
    fillNames(record.child(0), joints);
    fillMatrices(record.child(1), joints, kRestWorld);
    fillNamedTransforms(record.child(2), reversed(joints));
}

void fillInputsControls(const DataPlace& record, const JointList& joints) {
    fillNames(record.child(0), joints);
    fillMatrices(record.child(1), joints, kLocal);
    fillWeights(record.child(2), joints);
    fillNamedTransforms(record.child(3), reversed(joints));
}

// The two objects at the end of this record and of the next have no data in the host.
void fillInputs(const DataPlace& record, const JointList& joints) {
    fillPins(record.child(0), joints);
    fillInputsJoints(record.child(1), fromTheSecondOn(joints));
    fillInputsControls(record.child(2), everyOther(joints, 0));
    fillInputsControls(record.child(3), everyOther(joints, 1));
}

void fillOutputs(const DataPlace& record, const JointGroup& group) {
    record.child(0).handle.setString(group.name);
    fillPins(record.child(1), group.joints);
    fillNamedTransforms(record.child(2), reversed(group.joints));
    fillNamedTransforms(record.child(3), everyOther(group.joints, 0));
    fillNamedTransforms(record.child(4), everyOther(group.joints, 1));
}

template <void (*fill)(const DataPlace&, const JointList&)>
void fillFromJoints(const DataPlace& record, const JointGroup& group) {
    fill(record, group.joints);
}

void fillFromFirst(const DataPlace& record, const JointGroup& group) {
    fillTransform(record, *group.first);
}

}  // namespace

const std::vector<RecordType>& recordTypes() {
    static const std::vector<RecordType> s_types{
        {"Core::Transform::Transform", "Transform", fillFromFirst},
        {"Rigging::Module::NamedTransforms", "NamedTransforms",
         fillFromJoints<fillNamedTransforms>},
        {"Rigging::Module::Pins", "Pins", fillFromJoints<fillPins>},
        {"Rigging::Module::InputsJoints", "InputsJoints", fillFromJoints<fillInputsJoints>},
        {"Rigging::Module::InputsControls", "InputsControls", fillFromJoints<fillInputsControls>},
        {"Rigging::Module::Inputs", "Inputs", fillFromJoints<fillInputs>},
        {"Rigging::Module::Outputs", "Outputs", fillOutputs},
    };
    return s_types;
}

void fillRecordArray(const RecordType& type, const DataPlace& array,
                     const std::vector<JointGroup>& limbs) {
    fillArray(array, limbs, type.fill);
}

}  // namespace Tolvane::Tools
