#include "tools/node/FillPlan.h"

#include "tools/node/RigFrame.h"

#include <algorithm>
#include <array>

namespace Tolvane::Tools {
namespace {

using Content = FillPlan::Content;
using Kind = DataShape::Kind;

bool isTransform(const DataShape& shape) {
    if (shape.kind != Kind::Compound || shape.children.size() != kMatrixCount) return false;
    std::size_t number = 0;
    return std::all_of(shape.children.begin(), shape.children.end(),
                       [&number](const DataShape& child) {
                           return child.kind == Kind::Matrix && !child.isArray &&
                                  child.name == "matrix" + std::to_string(number++);
                       });
}

Content contentOf(const DataShape& shape, bool isArray) {
    const auto ifArray = [isArray](Content array) { return isArray ? array : Content::Generated; };
    switch (shape.kind) {
        case Kind::Compound:
            if (!isTransform(shape)) return Content::Record;
            return isArray ? Content::JointTransforms : Content::Transform;
        case Kind::Matrix:
            return ifArray(Content::JointMatrices);
        case Kind::String:
            if (shape.name == "names") return ifArray(Content::JointNames);
            return shape.name == "name" && !isArray ? Content::GroupName : Content::Generated;
        case Kind::Double:
            if (shape.name != "weights" && shape.name != "weights_A") return Content::Generated;
            return ifArray(Content::JointWeights);
        case Kind::Bool:
        case Kind::Int:
        case Kind::Enum:
            return Content::Generated;
        case Kind::Empty:
        case Kind::Unknown:
            break;
    }
    return Content::None;
}

// Records are numbered from the top of the tree down, and the arrays of the n-th one take the n-th
// choice of joints; or, if an earlier array with the same content has that one, the next.
class Planner {
public:
    FillPlan plan(const DataShape& shape, bool isArray, std::size_t record) {
        const Content content = contentOf(shape, isArray);
        const auto index = static_cast<std::size_t>(content);
        if (content == Content::Record) return planRecord(shape);
        FillPlan plan{content, m_counts[index]++, record};
        if (content == Content::Generated) return plan;
        plan.choice = std::max(record, m_nextChoices[index]);
        m_nextChoices[index] = plan.choice + 1;
        return plan;
    }

private:
    FillPlan planRecord(const DataShape& shape) {
        const std::size_t record = m_records++;
        FillPlan plan{Content::Record, record, record};
        plan.members.resize(shape.children.size());
        // The record's own arrays choose before those of the records in it.
        for (const bool isRecord : {false, true})
            for (std::size_t i = 0; i < shape.children.size(); ++i) {
                const DataShape& child = shape.children[i];
                if ((contentOf(child, child.isArray) == Content::Record) == isRecord)
                    plan.members[i] = this->plan(child, child.isArray, record);
            }
        return plan;
    }

    std::size_t m_records = 0;
    std::array<std::size_t, FillPlan::kContents> m_counts{};
    std::array<std::size_t, FillPlan::kContents> m_nextChoices{};
};

}  // namespace

FillPlan planFor(const DataShape& shape) {
    return Planner().plan(shape, shape.isArray && shape.kind != Kind::Compound, 0);
}

}  // namespace Tolvane::Tools
