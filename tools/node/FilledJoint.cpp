#include "tools/node/FilledJoint.h"

#include "tools/node/FillInputs.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace Tolvane::Tools {
namespace {

using Content = FillPlan::Content;

// Goes down the path of a mismatch in the way in which its port was filled.
class Descent {
public:
    explicit Descent(const Mismatch& mismatch)
        : m_path(mismatch.path), m_index(mismatch.indices.begin()), m_end(mismatch.indices.end()) {}

    const PosedJoint* port(const FillPlan& plan, const DataShape& shape, const FrameData& data) {
        if (!shape.isArray || shape.kind != DataShape::Kind::Compound)
            return attribute(plan, shape, data.rig);
        const auto limb = nextIndex();
        return limb && *limb < data.limbs.size() ? one(plan, shape, data.limbs[*limb]) : nullptr;
    }

private:
    const PosedJoint* attribute(const FillPlan& plan, const DataShape& shape,
                                const JointGroup& group) {
        return shape.isArray ? element(plan, shape, group) : one(plan, shape, group);
    }

    const PosedJoint* element(const FillPlan& plan, const DataShape& shape,
                              const JointGroup& group) {
        const JointList joints = chooseJoints(group.joints, plan.choice);
        const auto index = nextIndex();
        if (!index || *index >= joints.size()) return nullptr;
        switch (plan.content) {
            case Content::JointNames:
            case Content::JointWeights:
            case Content::JointMatrices:
            case Content::JointTransforms:
                return joints[*index];
            default:
                return one(plan, shape, elementGroup(joints, *index));
        }
    }

    const PosedJoint* one(const FillPlan& plan, const DataShape& shape, const JointGroup& group) {
        if (plan.content == Content::Record) return member(plan, shape, group);
        if (plan.content == Content::Transform)
            return group.joints.empty() ? group.first
                                        : group.joints[plan.number % group.joints.size()];
        // A limb has the name of its first joint, the rig one of its own.
        if (plan.content == Content::GroupName && group.name == group.first->name)
            return group.first;
        return nullptr;
    }

    const PosedJoint* member(const FillPlan& plan, const DataShape& shape,
                             const JointGroup& group) {
        const std::string_view name = nextName();
        for (std::size_t i = 0; i < shape.children.size(); ++i)
            if (shape.children[i].name == name)
                return attribute(plan.members[i], shape.children[i], group);
        return nullptr;
    }

    std::optional<std::size_t> nextIndex() {
        if (m_index == m_end) return std::nullopt;
        return *m_index++;
    }

    // The path is names joined by dots, with indices in brackets behind some.
    std::string_view nextName() {
        const std::size_t begin = m_path.find_first_not_of("[0123456789].");
        if (begin == std::string_view::npos) return {};
        m_path.remove_prefix(begin);
        const std::string_view name = m_path.substr(0, m_path.find_first_of(".["));
        m_path.remove_prefix(name.size());
        const std::size_t dot = m_path.find('.');
        m_path.remove_prefix(std::min(dot, m_path.size()));
        return name;
    }

    std::string_view m_path;
    std::vector<unsigned>::const_iterator m_index, m_end;
};

}  // namespace

const PosedJoint* filledJoint(const FillPlan& plan, const DataShape& shape, const FrameData& data,
                              const Mismatch& mismatch) {
    return Descent(mismatch).port(plan, shape, data);
}

}  // namespace Tolvane::Tools
