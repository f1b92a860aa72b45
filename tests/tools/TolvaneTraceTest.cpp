// `tolvane trace` from outside.
#include "tests/tools/FittingLines.h"
#include "tests/tools/TolvaneRun.h"
#include "tools/report/TraceReport.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace Tolvane::Tools;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::SizeIs;
using Json = nlohmann::ordered_json;

class TolvaneTrace : public TolvaneRun {
protected:
    static constexpr const char* kPins = "Rigging::Module::Pins";

    static Json traced(std::vector<std::string> arguments, int status = 0) {
        arguments.insert(arguments.begin(), {"trace", "--json"});
        const TolvaneProcess process = runTolvane(arguments);
        EXPECT_EQ(process.status, status);
        EXPECT_EQ(process.errors, "");
        return Json::parse(process.output);
    }
    static void expectRefusal(std::vector<std::string> arguments, const std::string& line) {
        arguments.insert(arguments.begin(), "trace");
        const TolvaneProcess process = runTolvane(arguments);
        EXPECT_EQ(process.status, 2);
        EXPECT_EQ(process.output, "");
        EXPECT_EQ(process.errors, "tolvane: " + line + "\n");
    }
};

// "asString in.names[] = text"
std::string callInWords(const Json& call) {
    const std::string operation = call["operation"];
    return operation.substr(operation.rfind(':') + 1) + " " + call["subject"].get<std::string>() +
           (call["result"].is_null() ? "" : " = " + call["result"].get<std::string>());
}

std::vector<std::string> callsIn(const Json& translation) {
    std::vector<std::string> calls;
    for (const Json& call : translation["calls"]) calls.push_back(callInWords(call));
    return calls;
}

TEST_F(TolvaneTrace, ListsEveryCallInOrderWithWhatItGave) {
    const Json trace = traced({rig(), "--port", kPins, "--direction", "in"});
    ASSERT_THAT(trace["translations"], SizeIs(1));
    const std::vector<std::string> calls = callsIn(trace["translations"][0]);
    EXPECT_EQ(calls.front(), "inputValue node = data");
    EXPECT_EQ(calls.back(), "next in.matrices = not found");
    for (const char* call : {"child in = in.names", "child in = data",
                             "VArrayDataHandle in.names = success", "elementCount in.names = 5"})
        EXPECT_THAT(calls, Contains(call));
    std::vector<std::string> texts;
    for (const std::string& call : calls)
        if (call.rfind("asString ", 0) == 0) texts.push_back(call);
    EXPECT_THAT(texts,
                ElementsAre("asString in.names[] = \"Hips\"", "asString in.names[] = \"Spine\"",
                            "asString in.names[] = \"Chest\"", "asString in.names[] = \"LeftLeg\"",
                            "asString in.names[] = \"RightLeg\""));
}

TEST_F(TolvaneTrace, FollowsAWriterIntoTheElementsThatItAdds) {
    const Json trace = traced({"--generated", std::string("array<") + kPins + ">", "--elements",
                               "2", "--direction", "out"});
    const std::vector<std::string> calls = callsIn(trace["translations"][0]);
    EXPECT_THAT(calls, Contains("elementCount out = 0"));
    EXPECT_THAT(calls, Contains("addElement out = data").Times(2));
    EXPECT_THAT(calls, Contains("elementCount out[].names = 0").Times(2));
    EXPECT_THAT(calls, Contains("addElement out[].names = data").Times(4));
    EXPECT_THAT(calls, Contains("elementCount out[].names = 2").Times(2));
    EXPECT_THAT(calls, Contains("set out[].names = success").Times(2));
    EXPECT_THAT(calls, Contains("setClean node = success"));
    EXPECT_THAT(calls, Each(testing::Not(HasSubstr("null"))));
}

TEST_F(TolvaneTrace, TracesAllTypesInBothDirectionsUnlessAskedOtherwise) {
    const auto directions = [&](const std::vector<std::string>& further) {
        std::vector<std::string> arguments{rig(), "--frame", "2"};
        arguments.insert(arguments.end(), further.begin(), further.end());
        std::map<std::string, std::size_t> counts;
        const Json trace = traced(arguments);
        for (const Json& each : trace["translations"]) ++counts[each["direction"]];
        return counts;
    };
    using Counts = std::map<std::string, std::size_t>;
    EXPECT_EQ(directions({}), (Counts{{"in", 14}, {"out", 14}}));
    EXPECT_EQ(directions({"--port", kPins}), (Counts{{"in", 1}, {"out", 1}}));
    for (const char* direction : {"in", "out"})
        EXPECT_EQ(directions({"--port", kPins, "--direction", direction}),
                  (Counts{{direction, 1}}));
}

std::int64_t timeOfCallsOf(const Json& translation) {
    std::int64_t time = 0;
    for (const Json& call : translation["calls"]) time += call["ns"].get<std::int64_t>();
    return time;
}

TEST_F(TolvaneTrace, SumsUpWhatTheCallsAndTheRestTake) {
    const Json trace = traced({rig()});
    std::int64_t calls = 0, timeOfCalls = 0, inKnown = 0, outside = 0;
    std::size_t number = 0;
    for (const Json& translation : trace["translations"]) {
        const std::int64_t time = timeOfCallsOf(translation);
        timeOfCalls += time;
        if (const Json& rest = translation["nsOutside"]; rest.is_null()) {
            EXPECT_LE(time, translation["ns"]);
        } else {
            EXPECT_GT(rest, 0);
            EXPECT_EQ(time + rest.get<std::int64_t>(), translation["ns"]);
            inKnown += time;
            outside += rest.get<std::int64_t>();
        }
        for (const Json& call : translation["calls"]) EXPECT_EQ(call["number"], ++number);
    }
    for (const Json& operation : trace["operations"]) {
        calls += operation["calls"].get<std::int64_t>();
        timeOfCalls -= operation["ns"].get<std::int64_t>();
    }
    EXPECT_EQ(calls, number);
    EXPECT_EQ(timeOfCalls, 0);
    EXPECT_GT(outside, 0);
    EXPECT_EQ(trace["nsOutside"], outside);
    EXPECT_EQ(trace["nsOfCalls"], inKnown);
    EXPECT_EQ(trace["ok"], true);
}

TEST_F(TolvaneTrace, ShowsWhatIsWrittenToTheAttributeOnTheWayOut) {
    const Json trace = traced({rig(), "--frame", "2", "--port", kPins, "--direction", "out"});
    std::vector<std::string> written;
    for (const Json& call : trace["translations"][0]["calls"])
        if (!call["written"].is_null()) written.push_back(call["written"]);
    // The names are arguments of the calls that set them.
    ASSERT_THAT(written, SizeIs(5));
    EXPECT_EQ(written[0], "1 0 0 0, 0 1 0 0, 0 0 1 0, 2 10 0 1");
    EXPECT_EQ(written[4], "1 0 0 0, 0 1 0 0, 0 0 1 0, 1 9 0 1");
    EXPECT_THAT(runTolvane({"trace", rig(), "--port", kPins, "--verbose"}).output,
                HasSubstr("VDataHandle::asMatrix on out.matrices[] <- 1 0 0"));
}

TEST_F(TolvaneTrace, ShowsWhatFollowsACallThatFails) {
    const auto callsIf = [&](const char* fails) {
        return traced(
            {"--generated", kPins, "--direction", "in", "--fail", fails})["translations"][0];
    };
    const Json without = callsIf("3");
    EXPECT_EQ(without["calls"][2]["operation"], "VDataHandle::child");
    EXPECT_EQ(without["calls"][2]["madeToFail"], true);
    EXPECT_EQ(without["calls"][2]["ns"], Json());
    EXPECT_EQ(callInWords(without["calls"][3]), "VArrayDataHandle  = invalid parameter");
    EXPECT_EQ(callInWords(without["calls"][4]), "elementCount  = 0");
    EXPECT_EQ(without["ns"], Json()) << "nobody measures an evaluation that fails";

    const Json atOnce = callsIf("1");
    EXPECT_EQ(atOnce["calls"][0]["madeToFail"], true);
    EXPECT_EQ(callInWords(atOnce["calls"][2]), "child  = null");
}

// Out of order, they would hide each other in a viewer.
TEST_F(TolvaneTrace, MakesEventsThatLieWithinThoseAround) {
    const TolvaneProcess process =
        runTolvane({"trace", rig(), "--port", kPins, "--format", "trace-event"});
    EXPECT_EQ(process.status, 0);
    const Json trace = Json::parse(process.output);
    double begin = 0, end = 0, last = 0;
    std::size_t calls = 0;
    for (const Json& event : trace["traceEvents"]) {
        EXPECT_EQ(event["ph"], "X");
        const double from = event["ts"], to = from + event["dur"].get<double>();
        if (event["cat"] == "translation") {
            EXPECT_GE(from, end);
            begin = last = from;
            end = to;
        } else {
            ++calls;
            EXPECT_GE(from, begin);
            EXPECT_GE(from, last - 1e-9);
            EXPECT_LE(to, end + 1e-9);
            last = to;
        }
    }
    EXPECT_GT(calls, 40U);
}

TEST_F(TolvaneTrace, PrintsALineForEachCallIndentedByMember) {
    const std::string output = runTolvane({"trace", "--generated", kPins}).output;
    EXPECT_THAT(output, HasSubstr(" ns  VPlug::child(0) on in = in.names\n"));
    EXPECT_THAT(output, HasSubstr(" ns    VArrayDataHandle::elementCount on in.names = 3\n"));
    EXPECT_THAT(output, HasSubstr("outside host calls"));
    expectLinesThatFit(output);
}

// Without the blanks that lines begin with and are broken at.
std::string withoutBlanks(std::string text) {
    const auto isBlank = [](char character) { return character == ' ' || character == '\n'; };
    text.erase(std::remove_if(text.begin(), text.end(), isBlank), text.end());
    return text;
}

// However deep a member is and however long it and its value are.
TEST(TraceText, CutsValuesAndNamesButNoOperation) {
    const std::string operation = "VArrayDataHandle::jumpToArrayElement",
                      wide = "左腕左腕左腕左腕左腕";
    const std::string subject = "in." + wide + wide + wide + wide, argument(90, 'a');
    const std::string value = "0.9998476951563913 -0.017452406437283512 0 0, " + wide + wide;
    TracedTranslation translation{"Type", true};
    for (std::size_t depth = 0; depth < 40; ++depth) {
        TracedCall& call = translation.calls.emplace_back(
            TracedCall{{operation, subject, 65'536, argument}, depth});
        call.answer = HostMirror::Answer{value, std::chrono::nanoseconds(1)};
    }
    const TraceReport report{std::string(200, 'l'), wide + subject, {translation}};
    for (const bool verbose : {false, true}) {
        std::ostringstream text;
        printTrace(text, report, verbose);
        expectLinesThatFit(text.str());
        const std::string whole = withoutBlanks(text.str());
        const auto count = [&](const std::string& part) {
            std::size_t found = 0;
            for (auto at = whole.find(withoutBlanks(part)); at != std::string::npos;
                 at = whole.find(withoutBlanks(part), at + 1))
                ++found;
            return found;
        };
        EXPECT_GE(count(operation), 40U);
        for (const std::string& part : {subject, argument, value, report.library, report.data})
            EXPECT_EQ(count(part) > 0, verbose) << part;
    }
}

TEST_F(TolvaneTrace, ShowsAsMuchOfAValueAsTheLineHolds) {
    const std::vector<std::string> arguments{
        "trace", WALK, "--port", "Core::Transform::Transform", "--direction", "in"};
    std::istringstream lines(runTolvane(arguments).output);
    std::size_t matrices = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("VDataHandle::asMatrix on in.matrix") == std::string::npos) continue;
        ++matrices;
        EXPECT_GT(line.size(), 70U) << line;
    }
    EXPECT_EQ(matrices, 8U);
}

TEST_F(TolvaneTrace, KeepsLongTextsWholeWhereNothingIsToBeCut) {
    const std::string name(200, 'H');
    std::string bvh = sampleBvh();
    bvh.replace(bvh.find("Hips"), 4, name);
    const std::vector<std::string> asText{
        "trace", folder.write("long.bvh", bvh), "--port", kPins, "--direction", "in"};
    const auto textWith = [&](const std::vector<std::string>& further) {
        std::vector<std::string> arguments = asText;
        arguments.insert(arguments.end(), further.begin(), further.end());
        return withoutBlanks(runTolvane(arguments).output);
    };
    EXPECT_THAT(textWith({"--json"}), HasSubstr("\\\"" + name + "\\\""));
    EXPECT_THAT(textWith({"--verbose"}), HasSubstr("=\"" + name + "\""));
    EXPECT_THAT(textWith({}), testing::Not(HasSubstr(std::string(50, 'H'))));
    expectLinesThatFit(runTolvane(asText).output);
}

TEST_F(TolvaneTrace, RefusesWhatMakesNoSense) {
    const std::string help = " (try \"tolvane trace --help\")";
    expectRefusal({rig(), "--generated", kPins}, "FILE excludes --generated" + help);
    for (const char* option : {"--port", "--frame", "--fps", "--animation", "--root"})
        expectRefusal({"--generated", kPins, option, "1"},
                      std::string("--generated excludes ") + option + help);
    for (const char* option : {"--elements", "--seed"})
        expectRefusal({rig(), option, "1"}, std::string(option) + " requires --generated" + help);
    expectRefusal({"--generated", "Nothing"},
                  "the graph does not know the type \"Nothing\" (see --types)");
}

TEST_F(TolvaneTrace, RefusesToFailACallBehindTheLast) {
    std::vector<std::string> arguments{"--generated", kPins,        "--direction",
                                       "in",          "--elements", "0"};
    const std::size_t count = traced(arguments)["translations"][0]["calls"].size();
    arguments.insert(arguments.end(), {"--fail", std::to_string(count)});
    EXPECT_EQ(traced(arguments)["translations"][0]["calls"][count - 1]["madeToFail"], true);
    const std::string behind = std::to_string(count + 1);
    arguments.back() = behind;
    expectRefusal(arguments,
                  "--fail " + behind + ": there are only " + std::to_string(count) + " calls");
}

TEST_F(TolvaneTrace, FailsIfAValueIsNotCarried) {
    const TemporaryFolder types;
    const std::string file = types.write("types.json", R"({"structs": [{"name": "Odd", "members":
        [{"name": "number", "type": "double"}]}]})");
    const Json trace = traced({"--generated", "Odd", "--types", file}, 1);
    EXPECT_EQ(trace["translations"][0]["translated"], false);
    EXPECT_EQ(trace["ok"], false);
}

}  // namespace
