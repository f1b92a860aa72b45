#include "tools/rig/ReadRig.h"

#include "tools/process/Message.h"
#include "tools/rig/RigMessage.h"

namespace Tolvane::Tools {

namespace {

// `read` makes a message of what is in the file, `understand` the thing again.
template <typename Read, typename Understand>
auto readThing(const std::string& path, const Limits& limits, const Read& read,
               const Understand& understand, const Watch& watch = {}) {
    const std::string message = inReadingProcess(path, limits, read, watch);
    try {
        auto thing = understand(message);
        thing.file = path;
        return thing;
    } catch (const BadMessage& bad) {
        throw Error(Stage::Reading, path, path + ": its reader makes no rig of it: " + bad.what());
    }
}

}  // namespace

Rig readRig(const std::string& path, const LoadOptions& options, const Limits& limits,
            const Watch& watch) {
    return readThing(
        path, limits, [&] { return messageOf(loadRig(path, options)); }, &rigOf, watch);
}

RigInfo readInfo(const std::string& path, const std::optional<std::string>& root,
                 const Limits& limits) {
    return readThing(
        path, limits, [&] { return messageOf(loadInfo(path, root)); }, &infoOf);
}

std::string inReadingProcess(const std::string& path, const Limits& limits,
                             const std::function<std::string()>& read, const Watch& watch) {
    const auto work = [&](ChildSide& self) {
        self.enter(Stage::Reading);
        return during(Stage::Reading, path, read);
    };
    // While a file is read nothing can be said of progress, and a slow disk takes its time too.
    Limits patient = limits;
    patient.silence = 2 * limits.silence;
    Outcome outcome = runInChild(work, patient, watch);
    if (outcome.end == Outcome::End::Answered) return std::move(outcome.answer);
    if (outcome.end == Outcome::End::Failed) throw Error(*outcome.error);
    throw Error(Stage::Reading, path, path + ": its reader " + inWords(outcome));
}

}  // namespace Tolvane::Tools
