#include "tests/tools/DrawnRig.h"
#include "tools/view/Page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace Tolvane::Tools;
using testing::HasSubstr;
using Json = nlohmann::ordered_json;

class Page : public testing::Test, protected DrawnRig {
protected:
    Page() {
        rig.file = "folder/walk.bvh";
        addBody();
        result.recording.emplace();
        result.recording->evaluations = 1;
        RecordedFrame frame{0, 0, Positions(12, 1), {}, {}};
        result.recording->frames.push_back(frame);
    }

    std::string page() const { return makePage(rig, "Some translation", result); }

    Json data() const {
        const std::string text = page();
        const std::string begin = "<script type=\"application/json\" id=\"data\">";
        const std::size_t from = text.find(begin) + begin.size();
        return Json::parse(text.substr(from, text.find("</script>", from) - from));
    }

    RunResult result;
};

TEST_F(Page, IsWholeAndAsksForNothing) {
    const std::string text = page();
    EXPECT_THAT(text, testing::StartsWith("<!doctype html>"));
    EXPECT_THAT(text, testing::EndsWith("</html>\n"));
    EXPECT_THAT(text, HasSubstr("<title>walk.bvh</title>"));
    for (const char* elsewhere : {"{{", "http://", "https://", "@import", "src=", "folder"})
        EXPECT_EQ(text.find(elsewhere), std::string::npos) << elsewhere;
}

TEST_F(Page, HasNamesThatAreMarkupOrNoTextAsData) {
    const std::string script = "</script><script>alert(1)</script>";
    rig.joints[0].name = script;
    rig.joints[1].name = "\xff";
    rig.joints[2].name = "\u202e腕\"'\\";
    rig.animation = "<!--{{player}}";
    rig.file = "<i>{{data}}.bvh";
    const std::size_t scripts = 2;
    std::size_t found = 0;
    const std::string text = page();
    for (auto at = text.find("<script"); at != std::string::npos; at = text.find("<script", at + 1))
        ++found;
    EXPECT_EQ(found, scripts);
    EXPECT_EQ(data()["joints"], Json({script, "\ufffd", "\u202e腕\"'\\", ""}));
    EXPECT_EQ(data()["animation"], "<!--{{player}}");
    EXPECT_EQ(data()["file"], "<i>{{data}}.bvh");
    EXPECT_THAT(text, HasSubstr("<title>&lt;i&gt;{{data}}.bvh</title>"));
}

TEST_F(Page, HasWhatDiffersInRunsOfJoints) {
    result.recording->frames[0].differing = {0, 1, 3};
    result.recording->differences.push_back({});
    result.recording->differences.back().joint = 3;
    result.recording->differences.back().evaluations = 1;
    result.recording->differences.back().rows = {{7, 9}};
    result.recording->differences.back().first = {"out", "a[3]", {3}, "differs", "1", "2", "1"};
    EXPECT_EQ(data()["differing"], Json::parse("[[0, 0, 1, 3, 3]]"));
    const Json difference = data()["differences"][0];
    EXPECT_EQ(difference["joint"], 3);
    EXPECT_EQ(difference["rows"], Json::parse(R"([{"first": 7, "last": 9}])"));
    EXPECT_EQ(difference["place"], "out.a[3]");
    EXPECT_EQ(difference["actual"], "2");
    EXPECT_EQ(data()["moreDiffering"], 0);
}

TEST_F(Page, ListsNoMoreJointsThanAnyoneReads) {
    result.recording->differences.resize(20'000);
    EXPECT_EQ(data()["differences"].size(), 500U);
    EXPECT_EQ(data()["moreDiffering"], 19'500);
}

TEST_F(Page, SaysWhatTheTableCannot) {
    result.notTried.push_back({"Absent::Face", "the graph does not know it", true});
    result.notCarried.emplace_back("Studio::Spare");
    result.hostMessages.add("wrong", 2);
    result.recording->hasCameBack = true;
    EXPECT_EQ(data()["remarks"], Json({"Not tried, for the graph does not know it: Absent::Face",
                                       "Described, but not carried by the library: Studio::Spare",
                                       "The host displayed, 2 times: wrong"}));
}

TEST_F(Page, HasAGridInTheUnitsOfTheFile) {
    result.recording->frames[0].wentIn = {0, 0, 0, 100, 0, 0, -100, 0, 0, 0, 100, 0};
    EXPECT_EQ(data()["gridLabel"], "50 units");
    rig.metresPerUnit = 0.01;
    EXPECT_EQ(data()["gridLabel"], "50 cm");
}

}  // namespace
