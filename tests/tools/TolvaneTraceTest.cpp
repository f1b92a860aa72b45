// `tolvane trace` from outside.
#include "tests/tools/TolvaneRun.h"
#include "tools/support/Columns.h"

#include <map>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

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

std::vector<std::string> callsOf(const Json& translation) {
    std::vector<std::string> calls;
    for (const Json& call : translation["calls"]) calls.push_back(callInWords(call));
    return calls;
}

TEST_F(TolvaneTrace, ListsEveryCallInOrderWithWhatItGave) {
    const Json trace = traced({rig(), "--port", kPins, "--direction", "in"});
    ASSERT_THAT(trace["translations"], SizeIs(1));
    const std::vector<std::string> calls = callsOf(trace["translations"][0]);
    const std::vector<std::string> beginning(calls.begin(), calls.begin() + 9);
    EXPECT_THAT(beginning,
                ElementsAre("inputValue node = data", "child in = in.names", "child in = data",
                            "VArrayDataHandle in.names = success", "elementCount in.names = 5",
                            "inputValue in.names = data", "asString in.names[] = \"Hips\"",
                            "next in.names = success", "inputValue in.names = data"));
    EXPECT_EQ(calls.back(), "next in.matrices = not found");
}

TEST_F(TolvaneTrace, FollowsAWriterIntoTheElementsThatItAdds) {
    const Json trace = traced({"--generated", std::string("array<") + kPins + ">", "--elements",
                               "2", "--direction", "out"});
    const std::vector<std::string> calls = callsOf(trace["translations"][0]);
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
    EXPECT_EQ(directions({"--direction", "in"}), (Counts{{"in", 14}}));
    EXPECT_EQ(directions({"--direction", "out"}), (Counts{{"out", 14}}));
}

TEST_F(TolvaneTrace, SumsUpWhatTheCallsAndTheRestTake) {
    const Json trace = traced({rig()});
    std::int64_t calls = 0, timeOfCalls = 0, outside = 0;
    std::size_t number = 0;
    for (const Json& translation : trace["translations"]) {
        EXPECT_GT(translation["ns"], 0);
        EXPECT_LE(translation["nsOutside"], translation["ns"]);
        outside += translation["nsOutside"].get<std::int64_t>();
        for (const Json& call : translation["calls"]) {
            EXPECT_EQ(call["number"], ++number);
            timeOfCalls += call["ns"].get<std::int64_t>();
        }
    }
    for (const Json& operation : trace["operations"]) {
        calls += operation["calls"].get<std::int64_t>();
        timeOfCalls -= operation["ns"].get<std::int64_t>();
    }
    EXPECT_EQ(calls, number);
    EXPECT_EQ(timeOfCalls, 0);
    EXPECT_EQ(trace["nsOutside"], outside);
    EXPECT_EQ(trace["ok"], true);
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
    std::istringstream lines(output);
    std::string line;
    // The path of the library is shown whole.
    std::getline(lines, line);
    while (std::getline(lines, line)) EXPECT_LE(Tolvane::Tools::columnsOf(line), 80U) << line;
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
    expectRefusal({"--generated", kPins, "--direction", "in", "--elements", "0", "--fail", "100"},
                  "--fail 100: there are only 9 calls");
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
