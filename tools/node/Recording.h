// What is kept of a run so that it can be played: where the joints were in each frame when they
// went in and when they came back, and which of them differ. Its size is bounded, however long the
// run is.
#pragma once

#include "tools/node/Mismatch.h"
#include "tools/node/RigFrame.h"

#include <OpenVornik/VMatrix.h>

#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// Three coordinates for each joint of the rig, relative to Recording::origin; NaN for a joint that
// is not there or has no finite position.
using Positions = std::vector<float>;

struct RecordedFrame {
    // The number of the evaluation, and the frame of the rig that it took.
    std::size_t evaluation;
    std::size_t frame;
    Positions wentIn;
    // Empty if it is the same, or if no skeleton came back.
    Positions cameBack;
    // The joints of which any value differs.
    std::set<std::size_t> differing;
};

// Frames in each of which something differs, in a row of evaluations.
struct FrameRow {
    std::size_t first;
    std::size_t last;
};

struct JointDifferences {
    // Nothing for values that are not of a single joint.
    std::optional<std::size_t> joint;
    // In how many evaluations any of its values differ; the rows are the first of these.
    std::size_t evaluations = 0;
    std::vector<FrameRow> rows;
    // The first value that differs.
    Mismatch first;
};

struct Recording {
    // In world units. Positions far from zero would lose their precision otherwise.
    std::array<double, 3> origin{};
    std::vector<RecordedFrame> frames;
    // Every how many evaluations one is kept; of the others only some in which anything differs.
    std::size_t step = 1;
    std::size_t evaluations = 0;
    bool hasCameBack = false;
    // In the order of the joints.
    std::vector<JointDifferences> differences;
};

class Recorder {
public:
    // `whole` says how many evaluations lie between two that take all joints.
    Recorder(std::size_t joints, std::size_t evaluations, std::size_t whole);

    // For each evaluation: it begins; what differs is added; and if the recorder then wants its
    // positions, they are. `cameBack` is empty where no port carries a skeleton.
    void begin(std::size_t evaluation, std::size_t frame);
    void add(const Mismatch& mismatch, std::optional<std::size_t> joint);
    bool wantsPositions() const;
    void add(const std::vector<PosedJoint>& wentIn,
             const std::optional<std::vector<VMatrix>>& cameBack);

    Recording take();

private:
    struct Known {
        JointDifferences differences;
        std::size_t lastEvaluation = 0;
    };

    bool isRegular() const;
    template <typename Worlds>
    Positions positions(const Worlds& worlds) const;

    std::size_t m_joints;
    std::size_t m_whole;
    Recording m_recording;
    // How many more frames may be kept because something differs in them.
    std::size_t m_framesLeft;
    // The evaluation that is under way.
    std::size_t m_evaluation = 0;
    std::size_t m_frame = 0;
    std::set<std::size_t> m_differing;
    bool m_anyDiffers = false;
    // For each joint, and last for what is of none.
    std::vector<Known> m_known;
};

}  // namespace Tolvane::Tools
