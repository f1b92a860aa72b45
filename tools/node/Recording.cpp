#include "tools/node/Recording.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace Tolvane::Tools {
namespace {

// Of the frames that are kept regularly, and as many again of those that differ. As the file of a
// page, this is some 2.5 megabytes.
constexpr std::size_t kMostPositions = 150'000;
constexpr std::size_t kMostRows = 20;

const VMatrix& worldOf(const VMatrix& world) { return world; }
const VMatrix& worldOf(const PosedJoint& joint) { return joint.matrices[kWorld]; }

bool sameBits(const Positions& a, const Positions& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0;
}

}  // namespace

Recorder::Recorder(std::size_t joints, std::size_t evaluations, std::size_t whole)
    : m_joints(joints), m_whole(whole), m_known(joints + 1) {
    const std::size_t mostFrames = std::max<std::size_t>(kMostPositions / joints, 2);
    const std::size_t candidates = (evaluations + whole - 1) / whole;
    m_recording.evaluations = evaluations;
    m_recording.step = whole * ((candidates + mostFrames - 1) / mostFrames);
    m_framesLeft = mostFrames;
}

void Recorder::begin(std::size_t evaluation, std::size_t frame) {
    m_evaluation = evaluation;
    m_frame = frame;
    m_differing.clear();
    m_anyDiffers = false;
}

void Recorder::add(const Mismatch& mismatch, std::optional<std::size_t> joint) {
    m_anyDiffers = true;
    if (joint) m_differing.insert(*joint);
    Known& known = m_known[joint.value_or(m_joints)];
    JointDifferences& differences = known.differences;
    if (differences.evaluations == 0)
        differences.first = mismatch;
    else if (known.lastEvaluation == m_evaluation)
        return;
    const bool goesOn = differences.evaluations > 0 && m_evaluation == known.lastEvaluation + 1 &&
                        m_frame == differences.rows.back().last + 1;
    if (goesOn)
        differences.rows.back().last = m_frame;
    else if (differences.rows.size() < kMostRows)
        differences.rows.push_back({m_frame, m_frame});
    ++differences.evaluations;
    known.lastEvaluation = m_evaluation;
}

bool Recorder::wantsPositions() const { return isRegular() || (m_anyDiffers && m_framesLeft > 0); }

void Recorder::add(const std::vector<PosedJoint>& wentIn,
                   const std::optional<std::vector<VMatrix>>& cameBack) {
    if (!isRegular()) --m_framesLeft;
    if (m_recording.frames.empty())
        for (unsigned axis = 0; axis < 3; ++axis) {
            const double value = worldOf(wentIn.front())[3][axis];
            m_recording.origin[axis] = std::isfinite(value) ? value : 0;
        }
    RecordedFrame recorded{m_evaluation, m_frame, positions(wentIn), {}, m_differing};
    if (cameBack) {
        recorded.cameBack = positions(*cameBack);
        if (sameBits(recorded.wentIn, recorded.cameBack)) Positions().swap(recorded.cameBack);
        m_recording.hasCameBack = true;
    }
    m_recording.frames.push_back(std::move(recorded));
}

Recording Recorder::take() {
    for (std::size_t i = 0; i < m_known.size(); ++i) {
        JointDifferences& differences = m_known[i].differences;
        if (differences.evaluations == 0) continue;
        if (i < m_joints) differences.joint = i;
        m_recording.differences.push_back(std::move(differences));
    }
    return std::move(m_recording);
}

bool Recorder::isRegular() const {
    const bool isLast = m_evaluation + 1 == m_recording.evaluations && m_evaluation % m_whole == 0;
    return isLast || m_evaluation % m_recording.step == 0;
}

template <typename Worlds>
Positions Recorder::positions(const Worlds& worlds) const {
    Positions positions(3 * m_joints, std::numeric_limits<float>::quiet_NaN());
    for (std::size_t i = 0; i < std::min(m_joints, worlds.size()); ++i)
        for (unsigned axis = 0; axis < 3; ++axis) {
            const double value = worldOf(worlds[i])[3][axis] - m_recording.origin[axis];
            if (std::abs(value) <= std::numeric_limits<float>::max())
                positions[3 * i + axis] = static_cast<float>(value);
        }
    return positions;
}

}  // namespace Tolvane::Tools
