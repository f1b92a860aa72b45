#include "tools/view/Page.h"

#include "tools/report/Json.h"
#include "tools/report/Report.h"
#include "tools/view/Base64.h"
#include "tools/view/Framing.h"
#include "tools/view/Markup.h"
#include "tools/view/PageParts.h"
#include "tools/view/ScaleBar.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <map>
#include <string_view>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kMostMessages = 10;
// Of more joints nobody reads a list, and browsers take long to show it.
constexpr std::size_t kMostJointsListed = 500;

// Numbers of 32 bits each, the lowest byte first, whatever the machine's order.
class FloatText {
public:
    void add(float value) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        for (int i = 0; i < 4; ++i) m_bytes += static_cast<char>(bits >> 8 * i & 0xffU);
    }
    void add(const Positions& positions) {
        for (const float value : positions) add(value);
    }
    std::string text() const { return base64(m_bytes); }

private:
    std::string m_bytes;
};

// The place of a frame in the recording, and then the first and the last of each run of joints that
// follow each other: most often all joints of a frame differ, or few.
Json differingJoints(std::size_t index, const std::set<std::size_t>& joints) {
    Json ranges = Json::array({index});
    for (auto joint = joints.begin(); joint != joints.end();) {
        const std::size_t first = *joint;
        std::size_t last = first;
        while (++joint != joints.end() && *joint == last + 1) ++last;
        ranges.push_back(first);
        ranges.push_back(last);
    }
    return ranges;
}

void addFrames(Json& data, const Recording& recording) {
    FloatText wentIn, cameBack;
    Json frames = Json::array(), evaluations = Json::array(), cameBackFrames = Json::array(),
         differing = Json::array();
    for (std::size_t i = 0; i < recording.frames.size(); ++i) {
        const RecordedFrame& frame = recording.frames[i];
        frames.push_back(frame.frame);
        evaluations.push_back(frame.evaluation);
        wentIn.add(frame.wentIn);
        if (!frame.cameBack.empty()) {
            cameBackFrames.push_back(i);
            cameBack.add(frame.cameBack);
        }
        if (!frame.differing.empty()) differing.push_back(differingJoints(i, frame.differing));
    }
    data["frames"] = frames;
    data["evaluations"] = evaluations;
    data["step"] = recording.step;
    data["hasCameBack"] = recording.hasCameBack;
    data["wentIn"] = wentIn.text();
    data["cameBack"] = cameBack.text();
    data["cameBackFrames"] = cameBackFrames;
    data["differing"] = differing;
}

void addFraming(Json& data, const Rig& rig, const Framing& framing) {
    FloatText middles;
    for (const Vector3& middle : framing.middles)
        for (const double value : middle) middles.add(static_cast<float>(value));
    std::string sides;
    for (const BodySide side : framing.sides)
        sides += side == BodySide::Left ? 'l' : side == BodySide::Right ? 'r' : 'm';
    const auto grid = scaleBar(framing.size / 2, rig.metresPerUnit);
    data["up"] = framing.up;
    data["left"] = framing.left;
    data["size"] = framing.size;
    data["ground"] = framing.ground;
    data["grid"] = grid ? grid->length : framing.size / 2;
    data["gridLabel"] = grid ? grid->label : "";
    data["middles"] = middles.text();
    data["sides"] = sides;
}

Json differencesOf(const Recording& recording) {
    Json all = Json::array();
    for (const JointDifferences& differences : recording.differences) {
        if (all.size() == kMostJointsListed) break;
        Json rows = Json::array();
        for (const FrameRow& row : differences.rows)
            rows.push_back({{"first", row.first}, {"last", row.last}});
        const Mismatch& first = differences.first;
        all.push_back({{"joint", differences.joint ? Json(*differences.joint) : Json()},
                       {"evaluations", differences.evaluations},
                       {"rows", rows},
                       {"place", placeOf(first)},
                       {"what", first.what},
                       {"expected", first.expected},
                       {"actual", first.actual}});
    }
    return all;
}

Json typesOf(const RunResult& result) {
    Json types = Json::array();
    for (const TypeResult& type : result.types)
        types.push_back({{"name", type.typeName},
                         {"attributes", type.attributeCount},
                         {"leaves", type.comparison.leavesCompared},
                         {"fromHost", type.fromHost.median().count()},
                         {"toHost", type.toHost.median().count()},
                         {"mismatches", type.comparison.mismatches}});
    return types;
}

// What the table does not say.
Json remarksOn(const RunResult& result) {
    Json remarks = Json::array();
    if (!result.recording->hasCameBack)
        remarks.push_back(
            "No port carries a record with an array of transforms: shown is the skeleton that "
            "went in.");
    for (const TypeResult& type : result.types)
        if (type.attributeCount == 0 && type.comparison.firstMismatch)
            remarks.push_back(type.typeName + ": " + type.comparison.firstMismatch->what);
    for (const NotTried& type : result.notTried)
        remarks.push_back("Not tried, for " + type.reason + ": " + type.typeName);
    for (const std::string& name : result.notCarried)
        remarks.push_back("Described, but not carried by the library: " + name);
    std::size_t count = 0;
    for (const auto& [message, times] : result.hostMessages.kept()) {
        if (count++ == kMostMessages) {
            remarks.push_back("... and other messages of the host");
            break;
        }
        remarks.push_back("The host displayed, " + std::to_string(times) +
                          (times == 1 ? " time: " : " times: ") + message);
    }
    return remarks;
}

Json dataOf(const Rig& rig, const std::string& libraryName, const RunResult& result) {
    const Recording& recording = *result.recording;
    Json data;
    data["file"] = std::filesystem::path(rig.file).filename().string();
    data["animation"] = rig.animation;
    data["frameCount"] = rig.frameCount;
    data["framesPerSecond"] = rig.framesPerSecond;
    data["library"] = libraryName;
    data["ok"] = result.ok();
    data["verdict"] = verdictOf(result);
    data["evaluated"] = result.evaluated;
    data["joints"] = Json::array();
    data["parents"] = Json::array();
    for (const Joint& joint : rig.joints) {
        data["joints"].push_back(joint.name);
        data["parents"].push_back(joint.parent ? Json(*joint.parent) : Json(-1));
    }
    addFraming(data, rig, framingOf(rig, recording));
    addFrames(data, recording);
    data["differences"] = differencesOf(recording);
    data["moreDiffering"] = recording.differences.size() - data["differences"].size();
    data["types"] = typesOf(result);
    data["remarks"] = remarksOn(result);
    return data;
}

// JSON that can stand within a page, whose markup it must not end.
std::string textOf(const Json& data) {
    std::string text;
    for (const char character : printed(data, -1)) {
        if (character == '<')
            text += "\\u003c";
        else
            text += character;
    }
    return text;
}

// Puts the parts in the places that have their names, such as {{style}}.
std::string filled(std::string_view page, const std::map<std::string_view, std::string>& parts) {
    std::string result;
    while (true) {
        const std::size_t begin = page.find("{{");
        result += page.substr(0, begin);
        if (begin == std::string_view::npos) return result;
        const std::size_t end = page.find("}}", begin);
        result += parts.at(page.substr(begin + 2, end - begin - 2));
        page.remove_prefix(end + 2);
    }
}

}  // namespace

std::string makePage(const Rig& rig, const std::string& libraryName, const RunResult& result) {
    const std::string file = std::filesystem::path(rig.file).filename().string();
    return filled(kPageHtml, {{"title", markup(file)},
                              {"style", kPageStyle},
                              {"player", kPagePlayer},
                              {"data", textOf(dataOf(rig, libraryName, result))}});
}

}  // namespace Tolvane::Tools
