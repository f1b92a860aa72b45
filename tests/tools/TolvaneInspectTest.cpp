// `tolvane inspect` from outside.
#include "tests/support/TolvaneProcess.h"
#include "tests/tools/FittingLines.h"

#include <filesystem>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using Json = nlohmann::ordered_json;

Json inspected(std::vector<std::string> arguments, int status = 0) {
    arguments.insert(arguments.begin(), {"inspect", "--json"});
    const TolvaneProcess process = runTolvane(arguments);
    EXPECT_EQ(process.status, status);
    EXPECT_EQ(process.errors, "");
    return Json::parse(process.output);
}

// The kinds of the children, in order, with "[]" behind those of arrays.
std::string kindsIn(const Json& tree) {
    std::string kinds;
    for (const Json& child : tree["children"])
        kinds += child["name"].get<std::string>() + ":" + child["kind"].get<std::string>() +
                 (child["array"] ? "[] " : " ");
    return kinds;
}

TEST(TolvaneInspect, SaysWhatTheLibrarySaysOfItself) {
    const Json inspection = inspected({PLUGIN});
    EXPECT_EQ(inspection["library"], PLUGIN);
    EXPECT_EQ(inspection["name"], "Rigging Translation Table");
    EXPECT_THAT(inspection["version"], testing::StartsWith("TolvanePlugin: "));
    EXPECT_THAT(inspection["types"], SizeIs(14));
    EXPECT_EQ(inspection["ok"], true);
}

TEST(TolvaneInspect, DoesWithoutAVersion) {
    EXPECT_EQ(inspected({FAULTY_LIBRARY, "Rigging::Module::Pins"})["name"], "Faulty");
    EXPECT_EQ(inspected({STUDIO_LIBRARY})["version"], "");
    EXPECT_THAT(runTolvane({"inspect", STUDIO_LIBRARY}).output, HasSubstr("it does not tell"));
}

TEST(TolvaneInspect, ShowsTheAttributesOfBothDirections) {
    const Json type = inspected({PLUGIN, "array<Rigging::Module::InputsControls>"})["types"][0];
    EXPECT_EQ(kindsIn(type["input"]),
              "names:string[] matrices:matrix[] weights_A:double[] namedTransforms:compound ");
    EXPECT_EQ(kindsIn(type["input"]), kindsIn(type["output"]));
    EXPECT_EQ(type["input"]["array"], true);
    for (const char* direction : {"input", "output"}) {
        EXPECT_EQ(type[direction]["writable"], direction == std::string("input"));
        EXPECT_EQ(type[direction]["keyable"], direction == std::string("input"));
        EXPECT_EQ(type[direction]["readable"], direction == std::string("output"));
        EXPECT_EQ(type[direction]["enforcesUniqueName"], true);
    }
}

TEST(TolvaneInspect, DrawsATreeWithFlagsSideBySideWhereTheyDiffer) {
    const std::string output = runTolvane({"inspect", PLUGIN, "Rigging::Module::Pins"}).output;
    std::vector<std::string> rows;
    std::istringstream lines(output.substr(output.find("\nRigging::Module::Pins\n") + 1));
    for (std::string line; std::getline(lines, line);) rows.push_back(line);
    ASSERT_THAT(rows, SizeIs(4));
    EXPECT_THAT(rows[1], testing::MatchesRegex("  port +compound +-wku \\| r--u"));
    EXPECT_THAT(rows[2], testing::MatchesRegex("  ├─ names +string\\[\\] +rw--"));
    EXPECT_THAT(rows[3], testing::MatchesRegex("  └─ matrices +matrix\\[\\] +rw--"));
}

TEST(TolvaneInspect, SaysOfArraysThatTheyAreThoseOfTheirElements) {
    EXPECT_THAT(runTolvane({"inspect"}).output,
                HasSubstr("\narray<Rigging::Module::Pins>\n"
                          "  An array of the attributes of Rigging::Module::Pins.\n"));
}

TEST(TolvaneInspect, ShowsWhyAPortGetsNoAttribute) {
    const Json type = inspected({PLUGIN, "double"})["types"][0];
    EXPECT_EQ(type["named"], false);
    EXPECT_EQ(type["input"], Json());
    EXPECT_EQ(type["output"], Json());
    EXPECT_THAT(type["hostMessages"], SizeIs(2));
}

TEST(TolvaneInspect, ShowsFieldsOfEnums) {
    const TemporaryFolder folder;
    const std::string types = folder.write("types.json", R"({"enums": [{"name": "Mode", "fields":
        [{"name": "off", "value": 0}, {"name": "on", "value": 7}]}]})");
    const Json fields =
        inspected({PLUGIN, "Mode", "--types", types})["types"][0]["input"]["fields"];
    EXPECT_EQ(fields, Json::parse(R"([{"name": "off", "value": 0}, {"name": "on", "value": 7}])"));
    EXPECT_THAT(runTolvane({"inspect", PLUGIN, "Mode", "--types", types}).output,
                HasSubstr("off 0, on 7"));
}

TEST(TolvaneInspect, SaysWhichTypesTheGraphDoesNotKnow) {
    const Json types = inspected({STUDIO_LIBRARY})["types"];
    ASSERT_THAT(types, SizeIs(3));
    for (const Json& type : types) EXPECT_EQ(type["known"], false) << type["name"];
    const TolvaneProcess process = runTolvane({"inspect", PLUGIN, "Nothing"});
    EXPECT_EQ(process.status, 2);
    EXPECT_EQ(process.output, "");
    EXPECT_EQ(process.errors,
              "tolvane: the graph does not know the type \"Nothing\" (see --types)\n");
}

TEST(TolvaneInspect, FitsAScreenOf80Columns) {
    const TemporaryFolder folder;
    const std::string longName(120, 'a'), wide = "左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕";
    const std::string library = folder.path(wide + wide + ".so");
    std::filesystem::copy_file(PLUGIN, library);
    const std::string types = folder.write("types.json", R"({"structs": [{"name": ")" + longName +
                                                             R"(", "members": [{"name": ")" +
                                                             longName + R"(", "type": "int"}]}]})");
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"inspect", library},
          {"inspect", library, longName, "--types", types}}) {
        const std::string output = runTolvane(arguments).output;
        expectLinesThatFit(output);
        EXPECT_THAT(output.substr(0, output.find('\n')), testing::EndsWith("左腕.so"));
    }
}

TEST(TolvaneInspect, TellsLibraryAndTypesApart) {
    const std::string pins = "Rigging::Module::Pins", inputs = "Rigging::Module::Inputs";
    const auto seen = [](const std::vector<std::string>& arguments) {
        const Json inspection = inspected(arguments);
        std::vector<std::string> names{inspection["name"]};
        for (const Json& type : inspection["types"]) names.push_back(type["name"]);
        return names;
    };
    const std::string plugin = "Rigging Translation Table", faulty = "Faulty";
    EXPECT_THAT(seen({pins}), ElementsAre(plugin, pins));
    EXPECT_THAT(seen({inputs, pins, inputs}), ElementsAre(plugin, inputs, pins));
    EXPECT_THAT(seen({FAULTY_LIBRARY, pins}), ElementsAre(faulty, pins));
    EXPECT_THAT(seen({"--plugin", FAULTY_LIBRARY, pins, inputs}),
                ElementsAre(faulty, pins, inputs));
    EXPECT_THAT(seen({pins, "--plugin", FAULTY_LIBRARY}), ElementsAre(faulty, pins));
}

TEST(TolvaneInspect, ShowsATypeOnceThatIsNamedTwice) {
    const std::vector<std::string> arguments{"inspect", FAULTY_LIBRARY};
    const std::string fault = "TOLVANE_TEST_FAULT=names a type twice";
    const std::string output = runTolvane(arguments, fault).output;
    EXPECT_THAT(output, HasSubstr("\nTypes    14\n"));
    const std::size_t found = output.find("\nRigging::Module::Pins, named twice\n");
    EXPECT_NE(found, std::string::npos);
    EXPECT_EQ(output.find("\nRigging::Module::Pins"), found);
    EXPECT_EQ(output.find("\nRigging::Module::Pins", found + 1), std::string::npos);
    const Json types =
        Json::parse(runTolvane({"inspect", FAULTY_LIBRARY, "--json"}, fault).output)["types"];
    ASSERT_THAT(types, SizeIs(14));
    for (const Json& type : types)
        EXPECT_EQ(type["timesNamed"], type["name"] == "Rigging::Module::Pins" ? 2 : 1);
}

}  // namespace
