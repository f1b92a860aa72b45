#include "tools/node/RunFrames.h"

#include "tools/node/DataPath.h"
#include "tools/node/NamedTypes.h"

#include <OpenVornik/VErrorListener.h>
#include <Pelmor/ArrayType.h>
#include <Pelmor/StructType.h>

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <set>

namespace Tolvane::Tools {
namespace {

// Which evaluations a picture shows: evenly spread, and under churn only those with all joints.
std::set<std::size_t> evaluationsToDraw(std::size_t evaluations, bool churn) {
    const std::size_t step = churn ? kShareCount : 1;
    const std::size_t candidates = (evaluations + step - 1) / step;
    const std::size_t count = std::min(candidates, kMostSnapshots);
    std::set<std::size_t> chosen;
    for (std::size_t i = 0; i < count; ++i)
        chosen.insert(step * (count == 1 ? 0 : i * (candidates - 1) / (count - 1)));
    return chosen;
}

// Keeps the first mismatches of a run and passes all of them on.
class Collector {
public:
    Collector(RunResult& result, const RunListener& listener)
        : m_result(result), m_listener(listener.mismatch) {}

    // Whether it has any use for another mismatch.
    bool wantsMore() const {
        return m_listener || m_result.firstMismatches.size() < kMostMismatchesKept;
    }

    void add(const TypeResult& type, std::optional<std::size_t> frame, const Mismatch& mismatch) {
        const FoundMismatch found{type.typeName, frame, mismatch};
        if (m_result.firstMismatches.size() < kMostMismatchesKept)
            m_result.firstMismatches.push_back(found);
        if (m_listener) m_listener(found);
    }

    // Keeps the first mismatch of each type that had none before.
    void addFirsts(const std::vector<TypeResult>& types, std::optional<std::size_t> frame) {
        for (const TypeResult& type : types)
            if (type.comparison.firstMismatch && m_seen.insert(type.typeName).second)
                m_result.firstOfTypes.push_back(
                    {type.typeName, frame, *type.comparison.firstMismatch});
    }

private:
    std::set<std::string> m_seen;
    RunResult& m_result;
    const std::function<void(const FoundMismatch&)>& m_listener;
};

// Every rig has joints, so a type of which nothing was compared has not been shown to work.
void refuseEmptyComparisons(std::vector<TypeResult>& types, Collector& collector) {
    for (TypeResult& type : types) {
        if (type.comparison.leavesCompared > 0 || type.comparison.mismatches > 0) continue;
        type.comparison.addMismatch(
            DataPath(type.typeName).mismatch("nothing was compared"),
            [&](const Mismatch& mismatch) { collector.add(type, std::nullopt, mismatch); });
    }
}

// What the translation names is asked for again: types that it named only later have no ports.
std::vector<NotTried> notTried(const TavrikGraph::Executor::TypeTranslation& translation,
                               const RoundTrip& roundTrip) {
    std::vector<NotTried> types;
    std::set<std::string> known;
    for (const std::string& name : roundTrip.notTried()) {
        types.push_back({name, "the graph does not know it (see --types)", true});
        known.insert(name);
    }
    for (const TypeResult& type : roundTrip.results()) known.insert(type.typeName);
    for (const std::string& name : distinctNamesOf(translation))
        if (known.count(name) == 0)
            types.push_back({name, "the library named it only after the run had begun", false});
    return types;
}

// Adds the type's name and those of all types that its values consist of.
void addNames(const Pelmor::Type& type, std::set<std::string>& names) {
    if (!names.insert(type.getFullyQualifiedName().c_str()).second) return;
    if (type.getTypeKind() == Pelmor::TypeKind::Array)
        addNames(Pelmor::ArrayType(type).getElementType(), names);
    if (type.getTypeKind() != Pelmor::TypeKind::Struct) return;
    const Pelmor::StructType structType(type);
    for (auto member = structType.begin(); member != structType.end(); ++member)
        addNames(member->getType(), names);
}

std::vector<std::string> notCarried(const std::vector<TypeResult>& types,
                                    const RunOptions& options) {
    std::set<std::string> carried;
    for (const TypeResult& type : types)
        addNames(options.types.getType(type.typeName.c_str()), carried);
    std::vector<std::string> names;
    for (const std::string& name : options.expectedTypes)
        if (carried.count(name) == 0) names.push_back(name);
    return names;
}

// Of what differs, the recorder learns which joint it is of.
void addTo(Recorder& recorder, const Mismatch& mismatch, const RoundTrip& roundTrip,
           const FrameData& data, const RigFrame& pose) {
    std::optional<std::size_t> index;
    if (const PosedJoint* joint = roundTrip.jointOf(mismatch, data))
        index = static_cast<std::size_t>(joint - &pose.joints().front());
    recorder.add(mismatch, index);
}

// Ports that could not be added are known before anything is evaluated.
void addMisfits(const RoundTrip& roundTrip, Collector& collector) {
    for (const TypeResult& type : roundTrip.results())
        if (type.comparison.firstMismatch)
            collector.add(type, std::nullopt, *type.comparison.firstMismatch);
    collector.addFirsts(roundTrip.results(), std::nullopt);
}

// `pose` is that of the frame, which the recorder has begun, if there is one.
void carryFrame(RoundTrip& roundTrip, std::size_t frame, const FrameData& data,
                const RigFrame& pose, Collector& collector, std::optional<Recorder>& recorder) {
    RoundTrip::Listener onMismatch;
    if (collector.wantsMore() || recorder)
        onMismatch = [&](const TypeResult& type, const Mismatch& mismatch) {
            collector.add(type, frame, mismatch);
            if (recorder) addTo(*recorder, mismatch, roundTrip, data, pose);
        };
    roundTrip.carry(data, onMismatch);
    collector.addFirsts(roundTrip.results(), frame);
    if (!recorder || !recorder->wantsPositions()) return;
    std::optional<std::vector<VMatrix>> cameOut;
    if (roundTrip.carriesASkeleton()) cameOut = roundTrip.worldMatricesThatCameOut();
    recorder->add(pose.joints(), cameOut);
}

}  // namespace

RunResult runFrames(const Rig& rig, TavrikGraph::Executor::TypeTranslation& translation,
                    const RunOptions& options, const RunListener& listener) {
    RunResult result;
    const VErrorListener errors(
        [&result](const VString& message) { result.hostMessages.add(message.asChar()); });
    const FrameRange frames = framesOf(rig, options.frames);
    const std::size_t evaluations = options.evaluations.value_or(
        options.churn ? std::max(frames.size(), kShareCount) : frames.size());
    const auto drawn =
        options.draw ? evaluationsToDraw(evaluations, options.churn) : std::set<std::size_t>();

    const std::vector<Limb> limbs = splitIntoLimbs(rig);
    const std::string rigName = std::filesystem::path(rig.file).stem().string();
    RigFrame pose(rig);
    RoundTrip roundTrip(translation, options.types);
    if (listener.begins) listener.begins(roundTrip);
    Collector collector(result, listener);
    std::optional<Recorder> recorder;
    if (options.record)
        recorder.emplace(rig.joints.size(), evaluations, options.churn ? kShareCount : 1);
    addMisfits(roundTrip, collector);

    for (; result.evaluated < evaluations; ++result.evaluated) {
        const std::size_t frame = frames.first + result.evaluated % frames.size();
        const Share share = options.churn ? churnShare(result.evaluated) : Share::All;
        if (listener.evaluates) listener.evaluates(frame);
        pose.pose(frame);
        const FrameData data = frameData(rigName.c_str(), pose.joints(), limbs, share);
        if (recorder) recorder->begin(result.evaluated, frame);
        carryFrame(roundTrip, frame, data, pose, collector, recorder);
        if (drawn.count(result.evaluated) != 0)
            result.snapshots.push_back({frame, roundTrip.worldMatricesThatCameOut()});
        // Nothing is asked of the translation any more once the last evaluation has been told of.
        if (result.evaluated + 1 == evaluations) result.notTried = notTried(translation, roundTrip);
        if (listener.evaluated) listener.evaluated(result.evaluated + 1, evaluations);
    }
    if (recorder) result.recording = recorder->take();
    result.types = roundTrip.results();
    result.portNames = roundTrip.portNames();
    result.notCarried = notCarried(result.types, options);
    refuseEmptyComparisons(result.types, collector);
    collector.addFirsts(result.types, std::nullopt);
    return result;
}

bool RunResult::ok() const {
    return !types.empty() && mismatches() == 0 && hostMessages.times() == 0 && !misdeed &&
           notCarried.empty() &&
           std::all_of(notTried.begin(), notTried.end(),
                       [](const NotTried& type) { return type.isExcused; });
}

std::size_t RunResult::leavesCompared() const {
    return std::accumulate(types.begin(), types.end(), std::size_t{0},
                           [](std::size_t sum, const TypeResult& type) {
                               return sum + type.comparison.leavesCompared;
                           });
}

std::size_t RunResult::mismatches() const {
    return std::accumulate(
        types.begin(), types.end(), std::size_t{0},
        [](std::size_t sum, const TypeResult& type) { return sum + type.comparison.mismatches; });
}

}  // namespace Tolvane::Tools
