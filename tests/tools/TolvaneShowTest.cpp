// `tolvane show` from outside.
#include "tests/tools/FittingLines.h"
#include "tests/tools/TolvaneRun.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing::HasSubstr;
using Json = nlohmann::ordered_json;

constexpr const char* kPins = "Rigging::Module::Pins";
constexpr const char* kPinsArray = "array<Rigging::Module::Pins>";

class TolvaneShow : public TolvaneRun {
protected:
    Json shown(const std::string& type, const std::string& path,
               const std::string& frame = "0") const {
        const TolvaneProcess process =
            runTolvane({"show", rig(), "--port", type, "--frame", frame, path, "--json"});
        EXPECT_EQ(process.status, 0);
        EXPECT_EQ(process.errors, "");
        return Json::parse(process.output)["value"];
    }
    void expectRefusal(const std::string& path, const std::string& why,
                       const char* type = kPinsArray) const {
        const TolvaneProcess process = runTolvane({"show", rig(), "--port", type, path});
        EXPECT_EQ(process.status, 2);
        EXPECT_EQ(process.output, "");
        EXPECT_EQ(process.errors, "tolvane: path \"" + path + "\": " + why + "\n");
    }
};

TEST_F(TolvaneShow, ShowsWhatCameBackOfAFrame) {
    const Json pins = shown(kPins, "");
    ASSERT_EQ(pins["names"].size(), 5U);
    EXPECT_EQ(pins["names"][0], Json::parse(R"({"index": 0, "value": "Hips"})"));
    EXPECT_EQ(pins["matrices"].size(), 5U);
}

// The hips move along x by one each frame, from (0, 10, 0) on.
TEST_F(TolvaneShow, TakesTheFrameThatIsAskedFor) {
    const char* type = "Core::Transform::Transform";
    EXPECT_EQ(shown(type, "matrix0", "0")[3], Json::parse("[0.0, 10.0, 0.0, 1.0]"));
    EXPECT_EQ(shown(type, "matrix0", "2")[3], Json::parse("[2.0, 10.0, 0.0, 1.0]"));
}

TEST_F(TolvaneShow, PicksAPart) {
    EXPECT_EQ(shown(kPins, "names[0]"), "Hips");
    EXPECT_EQ(shown(kPinsArray, "[1].names")[0]["value"], shown(kPinsArray, "[1].names[0]"));
    EXPECT_TRUE(shown(kPinsArray, "[1]").contains("matrices"));
    EXPECT_TRUE(shown("Rigging::Module::Outputs", "pins.names[4]").is_string());
}

TEST_F(TolvaneShow, PrintsATree) {
    const TolvaneProcess process = runTolvane({"show", rig(), "--port", kPins});
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.errors, "");
    EXPECT_THAT(process.output, HasSubstr("\nport\n  names  5 elements\n    [0]  \"Hips\"\n"));
    EXPECT_THAT(process.output, HasSubstr("\n  matrices  5 elements\n    [0]\n"));
    EXPECT_EQ(process.output.find("... and"), std::string::npos);
    EXPECT_THAT(runTolvane({"show", WALK, "--port", kPins}).output,
                HasSubstr("\n    ... and 23 more\n"));
}

// Two matrices that a run tells apart look different here too.
TEST_F(TolvaneShow, PrintsNumbersWithAllTheirDigitsInLinesThatFit) {
    for (const char* type : {"Core::Transform::Transform", "Rigging::Module::Outputs"})
        expectLinesThatFit(runTolvane({"show", WALK, "--port", type, "--frame", "7"}).output);
    const std::vector<std::string> arguments{
        "show", WALK, "--port", "Core::Transform::Transform", "--frame", "7", "matrix0"};
    std::vector<std::string> further = arguments;
    further.emplace_back("--json");
    const Json matrix = Json::parse(runTolvane(further).output)["value"];
    std::istringstream text(runTolvane(arguments).output);
    std::string word;
    while (text >> word && word != "matrix0") continue;
    for (const Json& numbers : matrix)
        for (const Json& number : numbers) {
            double printed = 0;
            text >> printed;
            EXPECT_EQ(printed, number.get<double>());
        }
}

TEST_F(TolvaneShow, SaysWhatThereIsInsteadOfAPartThatIsNotThere) {
    expectRefusal("names", "the port is an array; name an element: [0]");
    expectRefusal("[4]", "the port has 4 elements, and none at 4");
    expectRefusal("[0].name", "[0] has no child \"name\": it has names, matrices");
    expectRefusal("[0].names[0].x", "[0].names[0] has no child \"x\"");
    expectRefusal("[0][0]", "[0] is no array");
    expectRefusal("[first]", "a number in brackets is wanted at \"[first]\"");
    expectRefusal("[0", "a number in brackets is wanted at \"[0\"");
    expectRefusal("names[]", "a number in brackets is wanted at \"[]\"", kPins);
}

TEST_F(TolvaneShow, RefusesFramesAndTypesThatAreNotThere) {
    const TolvaneProcess frame = runTolvane({"show", rig(), "--port", kPins, "--frame", "4"});
    EXPECT_EQ(frame.status, 2);
    EXPECT_THAT(frame.errors, HasSubstr("has frames 0:3 only"));
    EXPECT_EQ(runTolvane({"show", rig()}).status, 2);
    EXPECT_EQ(runTolvane({"show", rig(), "--port", "Nothing"}).status, 2);
}

// The plugin gives a port of any struct an attribute, but carries records alone.
TEST_F(TolvaneShow, FailsIfTheValueIsNotCarried) {
    const std::string types = folder.write("types.json", R"({"structs": [{"name": "Odd", "members":
        [{"name": "number", "type": "double"}]}]})");
    const TolvaneProcess process = runTolvane({"show", rig(), "--port", "Odd", "--types", types});
    EXPECT_EQ(process.status, 1);
    EXPECT_EQ(process.errors, "");
    EXPECT_THAT(process.output, HasSubstr("\nFAILED: the value was not read.\n"));
}

}  // namespace
