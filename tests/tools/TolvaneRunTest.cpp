// `tolvane run` from outside, with the built plugin.

#include "tests/tools/FittingLines.h"
#include "tests/tools/TolvaneRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using Json = nlohmann::ordered_json;

std::vector<std::string> keysOf(const Json& object) {
    std::vector<std::string> keys;
    for (const auto& item : object.items()) keys.push_back(item.key());
    return keys;
}

Json jsonOf(std::vector<std::string> arguments, int status = 0, const std::string& fault = "") {
    arguments.insert(arguments.begin(), "run");
    arguments.push_back("--json");
    const TolvaneProcess process = runTolvane(arguments, "TOLVANE_TEST_FAULT=" + fault);
    EXPECT_EQ(process.status, status);
    EXPECT_EQ(process.errors, "");
    return Json::parse(process.output);
}

Json result(const Json& report, const std::string& typeName) {
    for (const Json& type : report["types"])
        if (type["name"] == typeName) return type;
    return {};
}

TEST_F(TolvaneRun, RunsTheBundledExampleIfNoFileIsNamed) {
    const TolvaneProcess process = runTolvane({"run"});
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.errors, "");
    EXPECT_THAT(process.output, HasSubstr("walk.bvh"));
    EXPECT_THAT(process.output, HasSubstr("31 joints in 13 limbs, 60 frames at 30 per second"));
    EXPECT_THAT(process.output, HasSubstr("60 evaluations"));
    EXPECT_THAT(process.output, HasSubstr("all came back as they went in."));
}

TEST_F(TolvaneRun, PrintsJsonWithTheseKeysAndNoOthers) {
    const Json report = jsonOf({rig()});
    EXPECT_THAT(keysOf(report), ElementsAre("plugin", "rig", "types", "notTried", "notCarried",
                                            "hostMessages", "otherHostMessages", "evaluated",
                                            "mismatches", "firstMismatches", "ok"));
    EXPECT_THAT(keysOf(report["plugin"]), ElementsAre("path", "name", "types"));
    EXPECT_THAT(keysOf(report["rig"]),
                ElementsAre("file", "joints", "limbs", "hasSkeleton", "animation", "frames", "fps",
                            "upAxis", "metresPerUnit"));
    ASSERT_THAT(report["types"], SizeIs(report["plugin"]["types"].size()));
    for (const Json& type : report["types"])
        EXPECT_THAT(keysOf(type), ElementsAre("name", "attributes", "leavesCompared", "mismatches",
                                              "firstMismatch", "medianProcessorNs"));
}

TEST_F(TolvaneRun, PrintsWhatWasLoadedAndFoundAsJson) {
    const Json report = jsonOf({rig(), "--frames", "1:2"});
    EXPECT_EQ(report["plugin"]["name"], "Rigging Translation Table");
    EXPECT_THAT(report["plugin"]["types"], testing::Contains("array<Rigging::Module::Pins>"));
    EXPECT_EQ(report["rig"]["file"], rig());
    EXPECT_EQ(report["rig"]["joints"], 5);
    EXPECT_EQ(report["rig"]["limbs"], 4);
    EXPECT_EQ(report["rig"]["frames"], 4);
    EXPECT_EQ(report["rig"]["fps"], 10);
    EXPECT_EQ(report["notTried"], Json::array());
    EXPECT_EQ(report["hostMessages"], Json::array());
    EXPECT_EQ(report["otherHostMessages"], 0);
    EXPECT_EQ(report["evaluated"], 2);
    EXPECT_EQ(report["mismatches"], 0);
    EXPECT_EQ(report["ok"], true);
}

// Five joints in four limbs, evaluated once. The counts of attributes and leaves follow from the
// members of the records.
TEST_F(TolvaneRun, ComparesEveryLeafOfEveryType) {
    const Json report = jsonOf({rig(), "--frames", "0:0"});
    const auto expect = [&](const std::string& name, int attributes, int leaves, int arrayLeaves) {
        EXPECT_EQ(result(report, name)["attributes"], attributes) << name;
        EXPECT_EQ(result(report, name)["leavesCompared"], leaves) << name;
        EXPECT_EQ(result(report, "array<" + name + ">")["leavesCompared"], arrayLeaves) << name;
        EXPECT_GT(result(report, name)["medianProcessorNs"]["fromHost"], 0) << name;
        EXPECT_GT(result(report, name)["medianProcessorNs"]["toHost"], 0) << name;
    };
    const auto named = [](int count) { return count * (1 + 8); };
    const int pins = 5 * 2;
    const int joints = pins + named(5);
    const int controls = joints + 5;
    expect("Core::Transform::Transform", 1 + 8, 8, 4 * 8);
    expect("Rigging::Module::NamedTransforms", 1 + 1 + 9, named(5), named(5));
    expect("Rigging::Module::Pins", 1 + 2, pins, pins);
    expect("Rigging::Module::InputsJoints", 1 + 2 + 11, joints, joints);
    expect("Rigging::Module::InputsControls", 1 + 3 + 11, controls, controls);
    // Of the records in a record, some have every other joint. The limbs have 1, 2, 1 and 1 joints,
    // and every other joint of one is that one.
    expect("Rigging::Module::Inputs", 1 + 3 + 14 + 2 * 15 + 2,
           pins + 2 * 3 + named(2) + 3 * 5 + named(5) + 3 * 3 + named(2),
           pins + 2 * 4 + named(4) + 3 * 5 + named(5) + 3 * 4 + named(4));
    expect("Rigging::Module::Outputs", 1 + 1 + 3 + 3 * 11 + 2, 1 + pins + named(3 + 2 + 5),
           4 + pins + named(4 + 4 + 5));
}

TEST_F(TolvaneRun, GoesThroughAllSharesUnderChurnHoweverFewFramesThereAre) {
    const std::string still = folder.write("still.bvh", stillBvh());
    EXPECT_EQ(jsonOf({still})["evaluated"], 1);
    const Json report = jsonOf({still, "--churn"});
    EXPECT_EQ(report["evaluated"], 4);
    EXPECT_EQ(report["ok"], true);
    // The four shares of five joints.
    EXPECT_EQ(result(report, "Rigging::Module::Pins")["leavesCompared"], 2 * (5 + 0 + 2 + 3));
}

TEST_F(TolvaneRun, SamplesAtTheRateOfTheFpsOption) {
    const Json report = jsonOf({rig(), "--fps", "20"});
    EXPECT_EQ(report["rig"]["fps"], 20);
    EXPECT_EQ(report["rig"]["frames"], 7);
    EXPECT_EQ(report["evaluated"], 7);
}

TEST_F(TolvaneRun, ReadsGltf) {
    const Json report = jsonOf({folder.write("rig.gltf", sampleGltf())});
    EXPECT_EQ(report["rig"]["joints"], 2);
    EXPECT_EQ(report["evaluated"], 31);
    EXPECT_EQ(report["ok"], true);
}

TEST_F(TolvaneRun, SaysThatAFileWithoutASkeletonHasNone) {
    const std::string file = folder.write("point.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    const TolvaneProcess process = runTolvane({"run", file});
    EXPECT_EQ(process.status, 0);
    EXPECT_THAT(process.output, HasSubstr("no skeleton: every node taken for a joint\n"));
    EXPECT_EQ(jsonOf({file})["rig"]["hasSkeleton"], false);
    EXPECT_THAT(runTolvane({"run", rig()}).output, testing::Not(HasSubstr("no skeleton")));
    EXPECT_EQ(jsonOf({rig()})["rig"]["hasSkeleton"], true);
}

TEST_F(TolvaneRun, TakesTheSubtreeOfTheRootOption) {
    EXPECT_EQ(jsonOf({rig(), "--root", "Spine"})["rig"]["joints"], 2);
    const TolvaneProcess process = runTolvane({"run", rig(), "--root", "Tail"});
    EXPECT_EQ(process.status, 2);
    EXPECT_EQ(process.errors, "tolvane: " + rig() + ": has no node \"Tail\" for --root\n");
}

TEST_F(TolvaneRun, PrintsATableWithARowForEachType) {
    const std::string output = runTolvane({"run", rig()}).output;
    std::istringstream lines(output.substr(output.find("Graph type")));
    std::string head, rule, row;
    std::getline(lines, head);
    EXPECT_THAT(head, AllOf(HasSubstr("Values"), HasSubstr("From host"), HasSubstr("To host"),
                            HasSubstr("Wrong")));
    std::getline(lines, rule);
    std::size_t rows = 0;
    while (std::getline(lines, row) && row.find("Times are processor time") != 0) {
        EXPECT_THAT(row, AllOf(HasSubstr("::"), testing::ContainsRegex(" (ns|µs|ms) "),
                               testing::EndsWith(" 0")));
        ++rows;
    }
    EXPECT_EQ(rows, jsonOf({rig()})["plugin"]["types"].size());
}

TEST_F(TolvaneRun, ShowsNoProgressWhereThereIsNoTerminal) {
    const TolvaneProcess process = runTolvane({"run", rig()});
    EXPECT_EQ(process.errors, "");
    EXPECT_EQ(process.output.find('\r'), std::string::npos);
}

TEST_F(TolvaneRun, WritesAPictureBesideTheReport) {
    const std::string picture = folder.path("out.svg");
    const std::string file = rig();
    EXPECT_EQ(jsonOf({file, "--svg", picture})["ok"], true);
    EXPECT_THAT(readFile(picture), testing::StartsWith("<svg "));
    EXPECT_EQ(folder.fileCount(), 2U);
}

TEST_F(TolvaneRun, WritesAPageOfTheRun) {
    const std::string page = folder.path("out.html");
    EXPECT_EQ(jsonOf({rig(), "--html", page})["ok"], true);
    EXPECT_THAT(readFile(page), AllOf(testing::StartsWith("<!doctype html>"),
                                      HasSubstr(R"("joints":["Hips","Spine","Chest",)"),
                                      HasSubstr(R"("hasCameBack":true)")));
}

// Every joint of which a value is wrong, in the frames in which it is.
TEST_F(TolvaneRun, WritesAPageOfARunThatFails) {
    const std::string page = folder.path("out.html");
    jsonOf({rig(), "--plugin", FAULTY_LIBRARY, "--html", page}, 1, "writes only once");
    const std::string text = readFile(page);
    EXPECT_THAT(text, HasSubstr(R"("differing":[[1,0,4],[2,0,4],[3,0,4]])"));
    EXPECT_THAT(text, HasSubstr(R"("differences":[{"joint":0,"evaluations":3,)"));
}

TEST_F(TolvaneRun, WritesAPageOfWhatWentInWhereNoSkeletonComesBack) {
    const std::string page = folder.path("out.html");
    runTolvane({"run", rig(), "--plugin", STUDIO_LIBRARY, "--html", page});
    EXPECT_THAT(readFile(page), HasSubstr(R"("hasCameBack":false)"));
    EXPECT_THAT(readFile(page), HasSubstr("shown is the skeleton that went in"));
}

TEST_F(TolvaneRun, DoesWithoutStandardStreams) {
    const std::string picture = folder.path("out.svg");
    const std::string command =
        quoted(TOLVANE) + " run " + quoted(rig()) + " --svg " + quoted(picture) + " <&- >&- 2>&-";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2) << "the report cannot be written";
    EXPECT_THAT(readFile(picture), testing::StartsWith("<svg "));
}

// ---- Libraries that translate wrongly ----

class TolvaneRunWithFaultyLibrary : public TolvaneRun,
                                    public testing::WithParamInterface<const char*> {};

TEST_P(TolvaneRunWithFaultyLibrary, ReportsMismatchesAndFails) {
    const std::vector<std::string> arguments{rig(), "--plugin", FAULTY_LIBRARY};
    const Json report = jsonOf(arguments, 1, GetParam());
    EXPECT_EQ(report["ok"], false);
    EXPECT_GT(report["mismatches"], 0);
    EXPECT_GT(result(report, "Rigging::Module::Pins")["mismatches"], 0);
    EXPECT_EQ(result(report, "Rigging::Module::Inputs")["mismatches"], 0);

    const TolvaneProcess process = runTolvane({"run", rig(), "--plugin", FAULTY_LIBRARY},
                                              std::string("TOLVANE_TEST_FAULT=") + GetParam());
    EXPECT_EQ(process.status, 1);
    EXPECT_THAT(process.output, HasSubstr("FAILED"));
    EXPECT_THAT(process.output, HasSubstr("\n  Rigging::Module::Pins\n    "));
    expectLinesThatFit(process.output);
}

INSTANTIATE_TEST_SUITE_P(EachFault, TolvaneRunWithFaultyLibrary,
                         testing::Values("writes a wrong name", "writes nothing",
                                         "writes only once", "refuses to write", "reads nothing",
                                         "adds no port", "empties what it reads",
                                         "blanks what it reads"));

TEST_F(TolvaneRun, FindsOutputsThatAreRightOnlyBecauseAnEarlierFrameWroteThem) {
    const std::string waiting = folder.write("rig.bvh", waitingBvh());
    const Json report = jsonOf({waiting, "--plugin", FAULTY_LIBRARY}, 1, "writes only once");
    // In the second frame, every name and matrix of five pins.
    EXPECT_EQ(report["evaluated"], 2);
    EXPECT_EQ(report["mismatches"], 5 * 2);
}

TEST_F(TolvaneRun, GivesTheFirstMismatchesAsJson) {
    const std::vector<std::string> arguments{rig(), "--plugin", FAULTY_LIBRARY, "--frames", "1:2"};
    const Json number = jsonOf(arguments, 1, "writes a wrong number");
    EXPECT_EQ(number["mismatches"], 2);
    ASSERT_THAT(number["firstMismatches"], SizeIs(2));
    EXPECT_EQ(number["firstMismatches"][0], Json::parse(R"({"type": "Rigging::Module::Pins",
        "port": "outPins", "path": "matrices[0]", "indices": [0], "frame": 1,
        "what": "differs in row 3, column 1", "element": {"row": 3, "column": 1},
        "expected": 10.0, "actual": 10.25, "difference": 0.25})"));
    EXPECT_EQ(number["firstMismatches"][1]["frame"], 2);

    const Json nan = jsonOf(arguments, 1, "writes a NaN")["firstMismatches"][0];
    EXPECT_EQ(nan["expected"], 0);
    EXPECT_EQ(nan["actual"], "nan 0xfff8000000000000");
    const Json text = jsonOf(arguments, 1, "writes a wrong name")["firstMismatches"][0];
    EXPECT_EQ(text["expected"], "Hips");
    EXPECT_EQ(text["actual"], "wrong");
    EXPECT_EQ(text["element"], nullptr);
    const Json count = jsonOf(arguments, 1, "writes nothing")["firstMismatches"][0];
    EXPECT_EQ(count["expected"], 5);
    EXPECT_EQ(count["difference"], -5);
    const Json matrix = jsonOf({rig(), "--plugin", FAULTY_LIBRARY, "--frames", "0:1"}, 1,
                               "writes only once")["firstMismatches"][5];
    EXPECT_EQ(matrix["path"], "matrices[0]");
    EXPECT_EQ(matrix["expected"],
              Json::parse("[[1.0, 0.0, 0.0, 0.0], [0.0, 1.0, 0.0, 0.0], [0.0, 0.0, 1.0, 0.0], "
                          "[1.0, 10.0, 0.0, 1.0]]"));
    EXPECT_EQ(matrix["actual"], nullptr);
    const Json port = jsonOf(arguments, 1, "adds no port")["firstMismatches"][0];
    EXPECT_EQ(port["frame"], nullptr);
    EXPECT_EQ(port["expected"], nullptr);
    const Json many = jsonOf({rig(), "--plugin", FAULTY_LIBRARY}, 1, "writes only once");
    EXPECT_EQ(many["mismatches"], 30);
    EXPECT_THAT(many["firstMismatches"], SizeIs(10));
}

// What comes back is as empty as what is left of the input, and equal to it.
TEST_F(TolvaneRun, FindsInputsThatDoNotHoldWhatTheyWereFilledWith) {
    const Json report =
        jsonOf({rig(), "--plugin", FAULTY_LIBRARY, "--churn"}, 1, "empties what it reads");
    // Under churn nothing is to be filled in one of four frames.
    EXPECT_EQ(report["mismatches"], 3);
    EXPECT_EQ(
        result(report, "Rigging::Module::Pins")["firstMismatch"],
        "inPins.names: does not hold as many elements as were put in: 5 went in, 0 came back");
    const Json blank = jsonOf({rig(), "--plugin", FAULTY_LIBRARY}, 1, "blanks what it reads");
    EXPECT_EQ(blank["mismatches"], 4) << "one in each frame";
    EXPECT_EQ(result(blank, "Rigging::Module::Pins")["firstMismatch"],
              "inPins.names[0]: does not hold what it was filled with: \"Hips\" went in, \"\" came "
              "back");
}

TEST_F(TolvaneRun, TakesAFaultlessLibraryOfAnotherName) {
    const Json report = jsonOf({rig(), "--plugin", FAULTY_LIBRARY});
    EXPECT_EQ(report["plugin"]["name"], "Faulty");
    EXPECT_EQ(report["plugin"]["path"], FAULTY_LIBRARY);
    EXPECT_EQ(report["ok"], true);
}

// ---- Libraries that carry other types ----

class TolvaneRunWithStudioLibrary : public TolvaneRun {
protected:
    // Describes Studio::Face, with `further` members and types behind it.
    std::string types(const std::string& furtherMember = "", const std::string& furtherType = "") {
        return folder.write("types.json", R"({"structs": [{"name": "Studio::Face", "members": [
            {"name": "label", "type": "string"}, {"name": "weights", "type": "array<double>"},
            {"name": "pins", "type": "Rigging::Module::Pins"},
            {"name": "transforms", "type": "array<Core::Transform::Transform>"})" +
                                              furtherMember + "]}" + furtherType + "]}");
    }
    static Json absentFace() {
        return Json::array(
            {{{"name", "Absent::Face"}, {"reason", "the graph does not know it (see --types)"}}});
    }
    std::vector<std::string> arguments() { return {rig(), "--plugin", STUDIO_LIBRARY}; }
    std::vector<std::string> arguments(const std::string& typesFile) {
        return {rig(), "--plugin", STUDIO_LIBRARY, "--types", typesFile};
    }
};

TEST_F(TolvaneRunWithStudioLibrary, CarriesWhatTheLibraryNamesAndTheTypesFileDescribes) {
    const Json report = jsonOf(arguments(types()));
    ASSERT_THAT(report["types"], SizeIs(2)) << "once each, arrays last";
    EXPECT_EQ(report["types"][0]["name"], "Studio::Face");
    EXPECT_EQ(report["types"][1]["name"], "array<Studio::Face>");
    EXPECT_EQ(report["types"][0]["leavesCompared"], 4 * (1 + 5 + 2 * 5 + 8 * 5));
    EXPECT_EQ(report["notTried"], absentFace());
    EXPECT_EQ(report["ok"], true);

    std::vector<std::string> churned = arguments(types());
    churned.insert(churned.end(), {"--churn", "--svg", folder.path("out.svg")});
    EXPECT_EQ(jsonOf(churned)["ok"], true);
    EXPECT_THAT(readFile(folder.path("out.svg")), testing::StartsWith("<svg "));
    const std::string output =
        runTolvane({"run", rig(), "--plugin", STUDIO_LIBRARY, "--types", types()}).output;
    EXPECT_THAT(
        output,
        HasSubstr("\nNot tried, for the graph does not know it (see --types): Absent::Face\n"));
    EXPECT_THAT(output, testing::EndsWith(" as they went in. 1 type not\ntried.\n"));
}

TEST_F(TolvaneRunWithStudioLibrary, FindsAMemberThatIsLostOnTheWay) {
    const Json report = jsonOf(arguments(types(R"(, {"name": "count", "type": "int"})")), 1);
    EXPECT_EQ(result(report, "Studio::Face")["mismatches"], 4);
    EXPECT_THAT(result(report, "Studio::Face")["firstMismatch"],
                testing::MatchesRegex("outFace.count: was not written: -?[0-9]+ went in"));
}

// Nothing is lost on the way, for an object has no data in the host.
TEST_F(TolvaneRunWithStudioLibrary, FindsThatItsStructLacksTheLastMember) {
    const Json report = jsonOf(arguments(types(R"(, {"name": "owner", "type": "Object"})")), 1);
    EXPECT_EQ(result(report, "Studio::Face")["mismatches"], 0);
    EXPECT_EQ(result(report, "array<Studio::Face>")["mismatches"], 4);
    EXPECT_EQ(result(report, "array<Studio::Face>")["firstMismatch"],
              "inFaceArray: an element has 80 bytes, and the graph's Studio::Face has 96: is the "
              "struct declared as the graph has it?");
}

// A type of a member counts as carried; that its values are not is another matter.
TEST_F(TolvaneRunWithStudioLibrary, FailsForDescribedStructsThatTheLibraryCarriesNowhere) {
    const std::string spare = types("", R"(, {"name": "Studio::Spare", "members": []})");
    const Json report = jsonOf(arguments(spare), 1);
    EXPECT_EQ(report["mismatches"], 0);
    EXPECT_EQ(report["notCarried"], Json::array({"Studio::Spare"}));

    const std::string file = types(R"(, {"name": "parts", "type": "array<Studio::Part>"})",
                                   R"(, {"name": "Studio::Spare", "members": []},
                                        {"name": "Studio::Part", "members": []})");
    EXPECT_EQ(jsonOf(arguments(file), 1)["notCarried"], Json::array({"Studio::Spare"}));
    const std::string output =
        runTolvane({"run", rig(), "--plugin", STUDIO_LIBRARY, "--types", file}).output;
    EXPECT_THAT(output, HasSubstr("\nDescribed, but not carried by the library: Studio::Spare\n"));
}

TEST_F(TolvaneRunWithStudioLibrary, SaysOnceWhichMemberHasNoFittingAttribute) {
    const std::string file = types(R"(, {"name": "modes", "type": "array<int>"})");
    const TolvaneProcess process =
        runTolvane({"run", rig(), "--plugin", STUDIO_LIBRARY, "--types", file});
    EXPECT_EQ(process.status, 1);
    EXPECT_THAT(process.output, HasSubstr("\n2 mismatches:\n  Studio::Face\n    inFace.modes is an "
                                          "int, not array<int>\n\nFAILED: 4 evaluations, "));
}

// The port of its type has a number behind its name, which another type has taken.
TEST_F(TolvaneRunWithStudioLibrary, FailsForATypeThatGetsNoValueOrNoFittingAttribute) {
    for (const char* type : {"double", "float"}) {
        const std::string file = types("", R"(, {"name": "Absent::Face", "members": [
            {"name": "a", "type": ")" + std::string(type) +
                                               R"("}]})");
        const Json report = jsonOf(arguments(file), 1);
        EXPECT_GT(result(report, "Absent::Face")["mismatches"], 0) << type;
        EXPECT_EQ(result(report, "Studio::Face")["mismatches"], 0) << type;
        EXPECT_EQ(report["notTried"], Json::array());
        const std::string output =
            runTolvane({"run", rig(), "--plugin", STUDIO_LIBRARY, "--types", file, "--verbose"})
                .output;
        EXPECT_THAT(output, AllOf(HasSubstr("inFace, "), HasSubstr("inFace2, outFace2, ")));
    }
}

TEST_F(TolvaneRunWithStudioLibrary, FailsIfNoTypeCouldBeTried) {
    const std::string fault = "names nothing known";
    const Json report = jsonOf(arguments(types()), 1, fault);
    EXPECT_EQ(report["types"], Json::array());
    EXPECT_EQ(report["notTried"], absentFace());
    EXPECT_EQ(report["ok"], false);
    const TolvaneProcess process =
        runTolvane({"run", rig(), "--plugin", STUDIO_LIBRARY}, "TOLVANE_TEST_FAULT=" + fault);
    EXPECT_EQ(process.status, 1);
    EXPECT_THAT(process.output, testing::EndsWith("FAILED: no type was tried. The graph knows "
                                                  "none that the library names.\n"));
}

TEST_F(TolvaneRun, ReportsMessagesOfTheHostAndFails) {
    const std::string fault = "shows a message";
    const Json report = jsonOf({rig(), "--plugin", FAULTY_LIBRARY}, 1, fault);
    EXPECT_EQ(report["mismatches"], 0);
    EXPECT_EQ(report["ok"], false);
    EXPECT_EQ(report["hostMessages"],
              (Json::array({{{"text", "Something is\nwrong"}, {"times", 4}}})));

    const TolvaneProcess process =
        runTolvane({"run", rig(), "--plugin", FAULTY_LIBRARY}, "TOLVANE_TEST_FAULT=" + fault);
    EXPECT_EQ(process.status, 1);
    EXPECT_THAT(process.output, HasSubstr("The host displayed, 4 times: Something is wrong\n"));
}

}  // namespace
