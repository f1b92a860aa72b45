#include "tools/report/InfoReport.h"

#include "tools/report/Json.h"
#include "tools/report/Table.h"
#include "tools/report/Words.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <array>
#include <ostream>
#include <string>

namespace Tolvane::Tools {
namespace {

constexpr const char* kUnknown = "unknown";
constexpr std::array kAxes{"x", "y", "z"};
// The column at which facts stand.
constexpr std::size_t kInfoFacts = 12;
// What a table with its other columns leaves of a line.
constexpr std::size_t kWidestName = 40;

void printAnimations(std::ostream& out, const RigInfo& info) {
    if (info.animations.empty()) return;
    out << "\n";
    Table table({"Animation", "Seconds", "Frames", "Per second"});
    for (const AnimationInfo& animation : info.animations) {
        const auto& timing = animation.timing;
        table.addRow({shortened('"' + oneLine(animation.name) + '"', kWidestName),
                      timing ? shortText(timing->seconds) : kUnknown,
                      timing ? grouped(timing->frameCount) : kUnknown,
                      timing ? shortText(timing->framesPerSecond) : kUnknown});
    }
    table.print(out);
}

}  // namespace

void printInfo(std::ostream& out, const RigInfo& info) {
    printFact(out, "Rig", info.file, false, kInfoFacts);
    const std::string joints = grouped(info.joints) + ": " + grouped(info.bones) +
                               " bones of skins, " + grouped(info.animated) + " animated, " +
                               grouped(info.inBetween) + " in between or below";
    out << "Joints      " << wrapped(joints, kInfoFacts).substr(kInfoFacts) << "\n"
        << (info.hasSkeleton ? "" : "            no skeleton: every node taken for a joint\n")
        << "Meshes      " << grouped(info.meshes) << ", " << grouped(info.skins) << " with bones\n"
        << "Up axis     " << kAxes[info.world.upAxis] << "\n"
        << "Unit        "
        << (info.world.metresPerUnit ? shortText(*info.world.metresPerUnit) + " m" : kUnknown)
        << "\n"
        << "Animations  " << grouped(info.animations.size()) << "\n";
    printAnimations(out, info);
}

void printInfoAsJson(std::ostream& out, const RigInfo& info) {
    Json animations = Json::array();
    for (const AnimationInfo& animation : info.animations) {
        const auto& timing = animation.timing;
        animations.push_back({{"name", animation.name},
                              {"seconds", timing ? Json(timing->seconds) : Json()},
                              {"fps", timing ? Json(timing->framesPerSecond) : Json()},
                              {"frames", timing ? Json(timing->frameCount) : Json()}});
    }
    const Json report{
        {"file", info.file},
        {"hasSkeleton", info.hasSkeleton},
        {"joints",
         {{"count", info.joints},
          {"bones", info.bones},
          {"animated", info.animated},
          {"inBetween", info.inBetween}}},
        {"meshes", info.meshes},
        {"skins", info.skins},
        {"upAxis", kAxes[info.world.upAxis]},
        {"metresPerUnit", info.world.metresPerUnit ? Json(*info.world.metresPerUnit) : Json()},
        {"animations", animations}};
    out << printed(report);
}

}  // namespace Tolvane::Tools
