// The trees that carry the seven records: member i is child i, which is how the values find their
// way.
#include "attributes/PortAttribute.h"
#include "tests/support/AttributeTree.h"

#include <Pelmor/Library.h>

#include <string>

#include <gtest/gtest.h>

namespace {

using Lines = TestSupport::AttributeLines;

// The flags of the compounds of an input port, but for the array flag and that of unique names.
constexpr const char* kInput = "-wk";
constexpr const char* kOutput = "r--";

Lines indented(const Lines& lines) {
    Lines result;
    for (const std::string& line : lines) result.push_back("  " + line);
    return result;
}

// A compound's own line and then those of its children.
Lines compound(const std::string& line, const std::vector<Lines>& children) {
    Lines lines{line};
    for (const Lines& child : children)
        for (const std::string& childLine : indented(child)) lines.push_back(childLine);
    return lines;
}

Lines strings() { return {"names: typed 4 rw-a-"}; }
Lines matrices() { return {"matrices: matrix 1 rw-a-"}; }
Lines objects() { return {"object0: generic 0 rw---", "object1: generic 0 rw---"}; }

// A compound's line: `end` has the array flag and that of unique names.
std::string compoundLine(const std::string& name, const std::string& flags, const char* end) {
    return name + ": compound " + flags + end;
}

Lines transform(const std::string& name, const std::string& flags, const char* end) {
    return compound(compoundLine(name, flags, end), {{"matrix0: matrix 1 rw---"},
                                                     {"matrix1: matrix 1 rw---"},
                                                     {"matrix2: matrix 1 rw---"},
                                                     {"matrix3: matrix 1 rw---"},
                                                     {"matrix4: matrix 1 rw---"},
                                                     {"matrix5: matrix 1 rw---"},
                                                     {"matrix6: matrix 1 rw---"},
                                                     {"matrix7: matrix 1 rw---"}});
}

Lines namedTransforms(const std::string& name, const std::string& flags, const char* end) {
    return compound(compoundLine(name, flags, end),
                    {strings(), transform("transforms", flags, "a-")});
}

Lines pins(const std::string& name, const std::string& flags, const char* end) {
    return compound(compoundLine(name, flags, end), {strings(), matrices()});
}

Lines joints(const std::string& name, const std::string& flags, const char* end) {
    return compound(compoundLine(name, flags, end),
                    {strings(), matrices(), namedTransforms("namedTransforms", flags, "--")});
}

Lines controls(const std::string& name, const std::string& flags, const char* end) {
    return compound(compoundLine(name, flags, end),
                    {strings(),
                     matrices(),
                     {"weights_A: numeric 14 of 0.000000 rw-a-"},
                     namedTransforms("namedTransforms", flags, "--")});
}

Lines inputs(const std::string& name, const std::string& flags, const char* end) {
    return compound(
        compoundLine(name, flags, end),
        {pins("pins", flags, "--"), joints("joints", flags, "--"),
         controls("controls0", flags, "--"), controls("controls1", flags, "--"), objects()});
}

Lines outputs(const std::string& name, const std::string& flags, const char* end) {
    return compound(compoundLine(name, flags, end),
                    {{"name: typed 4 rw---"},
                     pins("pins", flags, "--"),
                     namedTransforms("namedTransforms0", flags, "--"),
                     namedTransforms("namedTransforms1", flags, "--"),
                     namedTransforms("namedTransforms2", flags, "--"),
                     objects()});
}

using Expected = Lines (*)(const std::string& name, const std::string& flags, const char* end);

struct RecordCase {
    const char* type;
    Expected tree;
};

class RecordAttribute : public testing::TestWithParam<RecordCase> {
protected:
    static Lines created(const std::string& type, bool isInput) {
        const Pelmor::Type portType = Pelmor::Library().getType(type.c_str());
        return TestSupport::treeOf(Tolvane::createPortAttribute(portType, "port", isInput));
    }
    static std::string arrayOf(const char* type) { return std::string("array<") + type + ">"; }
};

TEST_P(RecordAttribute, OfAnInputPortIsWritableAndKeyable) {
    EXPECT_EQ(created(GetParam().type, true), GetParam().tree("port", kInput, "-u"));
}

TEST_P(RecordAttribute, OfAnOutputPortIsReadable) {
    EXPECT_EQ(created(GetParam().type, false), GetParam().tree("port", kOutput, "-u"));
}

TEST_P(RecordAttribute, OfAnArrayIsTheSameButAnArray) {
    EXPECT_EQ(created(arrayOf(GetParam().type), true), GetParam().tree("port", kInput, "au"));
    EXPECT_EQ(created(arrayOf(GetParam().type), false), GetParam().tree("port", kOutput, "au"));
}

INSTANTIATE_TEST_SUITE_P(All, RecordAttribute,
                         testing::Values(RecordCase{"Core::Transform::Transform", transform},
                                         RecordCase{"Rigging::Module::NamedTransforms",
                                                    namedTransforms},
                                         RecordCase{"Rigging::Module::Pins", pins},
                                         RecordCase{"Rigging::Module::InputsJoints", joints},
                                         RecordCase{"Rigging::Module::InputsControls", controls},
                                         RecordCase{"Rigging::Module::Inputs", inputs},
                                         RecordCase{"Rigging::Module::Outputs", outputs}),
                         [](const auto& instance) {
                             const std::string type = instance.param.type;
                             return type.substr(type.rfind(':') + 1);
                         });

}  // namespace
