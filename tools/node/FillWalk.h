// Which value goes to which place of an input. It is said here once, for those who put the values
// in and for those who look whether they are still there.
#pragma once

#include "tools/node/DataPath.h"
#include "tools/node/DataShape.h"
#include "tools/node/FillInputs.h"
#include "tools/node/FillPlan.h"
#include "tools/node/FrameData.h"
#include "tools/node/GenerateData.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

namespace Tolvane::Tools {

// Tells a visitor of each array and each value, in order. The visitor has
//   std::size_t array(place, path, count): it should have `count` elements, at logical indices from
//   0
//     on; returns how many of them are to be visited.
//   void element(path, logicalIndex): one that comes next; the path has the index that it should be
//   at. void value(place, path, value): a VMatrix, VString, double, bool, int or short.
template <typename Visitor>
class FillWalk {
public:
    explicit FillWalk(Visitor& visitor) : m_visitor(visitor) {}

    void port(const FillPlan& plan, const DataPlace& place, const FrameData& data,
              std::uint64_t seed) {
        const DataPath path(place.shape.name);
        if (!place.shape.isArray || place.shape.kind != DataShape::Kind::Compound)
            return attribute(plan, place, path, data.rig, seed);
        elements(place, path, data.limbs.size(),
                 [&](const DataPlace& element, const DataPath& at, std::size_t i) {
                     one(plan, element, at, data.limbs[i], seedOf(seed, i));
                 });
    }

private:
    using Content = FillPlan::Content;

    void attribute(const FillPlan& plan, const DataPlace& place, const DataPath& path,
                   const JointGroup& group, std::uint64_t seed) {
        if (plan.content == Content::None) return;
        if (place.shape.isArray)
            array(plan, place, path, group, seed);
        else
            one(plan, place, path, group, seed);
    }

    void array(const FillPlan& plan, const DataPlace& place, const DataPath& path,
               const JointGroup& group, std::uint64_t seed) {
        const JointList joints = chooseJoints(group.joints, plan.choice);
        elements(place, path, joints.size(),
                 [&](const DataPlace& element, const DataPath& at, std::size_t i) {
                     const PosedJoint& joint = *joints[i];
                     switch (plan.content) {
                         case Content::JointNames:
                             return m_visitor.value(element, at, joint.name);
                         case Content::JointWeights:
                             return m_visitor.value(element, at, joint.weight);
                         case Content::JointMatrices:
                             return m_visitor.value(element, at,
                                                    joint.matrices[plan.number % kMatrixCount]);
                         case Content::JointTransforms:
                             return transform(element, at, joint);
                         default:
                             return one(plan, element, at, elementGroup(joints, i),
                                        seedOf(seed, i));
                     }
                 });
    }

    void one(const FillPlan& plan, const DataPlace& place, const DataPath& path,
             const JointGroup& group, std::uint64_t seed) {
        switch (plan.content) {
            case Content::Record:
                for (std::size_t i = 0; i < plan.members.size(); ++i)
                    attribute(plan.members[i], place.child(i),
                              DataPath(path, place.shape.children[i].name), group, seed);
                break;
            case Content::GroupName:
                name(place, path, group, plan.number);
                break;
            case Content::Transform:
                transform(place, path, group, plan.number);
                break;
            case Content::Generated:
                generated(place, path, seedOf(seed, plan.number));
                break;
            case Content::JointNames:
            case Content::JointWeights:
            case Content::JointMatrices:
            case Content::JointTransforms:
            case Content::None:
                break;
        }
    }

    void generated(const DataPlace& place, const DataPath& path, std::uint64_t seed) {
        if (const auto generated = generatedValue(place.shape, seed))
            std::visit([&](const auto& value) { m_visitor.value(place, path, value); }, *generated);
    }

    void name(const DataPlace& place, const DataPath& path, const JointGroup& group,
              std::size_t number) {
        std::string name = group.name.asChar();
        if (number > 0) name += "." + std::to_string(number);
        m_visitor.value(place, path, VString(name.c_str()));
    }

    // Each single transform of a record takes the next joint, and the next matrix first where there
    // is no other joint.
    void transform(const DataPlace& place, const DataPath& path, const JointGroup& group,
                   std::size_t number) {
        if (group.joints.empty()) return transform(place, path, *group.first, number);
        const std::size_t count = group.joints.size();
        transform(place, path, *group.joints[number % count], number / count);
    }

    // Matrix i of the transform is matrix i + `shift` of the joint.
    void transform(const DataPlace& place, const DataPath& path, const PosedJoint& joint,
                   std::size_t shift = 0) {
        for (std::size_t i = 0; i < kMatrixCount; ++i)
            m_visitor.value(place.child(i), DataPath(path, place.shape.children[i].name),
                            joint.matrices[(i + shift) % kMatrixCount]);
    }

    template <typename VisitElement>
    void elements(const DataPlace& place, const DataPath& path, std::size_t count,
                  VisitElement visitElement) {
        const std::size_t visited = m_visitor.array(place, path, count);
        if (visited == 0) return;
        VArrayDataHandle array(place.handle);
        for (std::size_t i = 0; i < visited; ++i, array.next()) {
            const DataPath at(path, static_cast<unsigned>(i));
            m_visitor.element(at, array.elementIndex());
            visitElement(DataPlace{place.shape, array.outputValue()}, at, i);
        }
    }

    Visitor& m_visitor;
};

}  // namespace Tolvane::Tools
