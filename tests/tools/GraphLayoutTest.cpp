#include "tools/node/GraphLayout.h"

#include <Pelmor/Library.h>
#include <Rigging/Inputs.h>
#include <Rigging/Outputs.h>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using namespace Rigging::Module;
using Core::Transform::Transform;

TEST(GraphLayout, GivesEachRecordTheSizeOfItsStruct) {
    const Pelmor::Library library;
    const auto size = [&](const std::string& name) {
        return sizeOf(library.getType(name.c_str()));
    };
    EXPECT_EQ(size("Core::Transform::Transform"), sizeof(Transform));
    EXPECT_EQ(size("Rigging::Module::NamedTransforms"), sizeof(NamedTransforms));
    EXPECT_EQ(size("Rigging::Module::Pins"), sizeof(Pins));
    EXPECT_EQ(size("Rigging::Module::InputsJoints"), sizeof(InputsJoints));
    EXPECT_EQ(size("Rigging::Module::InputsControls"), sizeof(InputsControls));
    EXPECT_EQ(size("Rigging::Module::Inputs"), sizeof(Inputs));
    EXPECT_EQ(size("Rigging::Module::Outputs"), sizeof(Outputs));
}

TEST(GraphLayout, PadsMembersAsTheCompilerDoes) {
    Pelmor::Library library;
    library.defineEnum("choice", {});
    const auto define = [&](const char* name, const std::vector<const char*>& memberTypes) {
        std::vector<Pelmor::StructType::Member> members;
        for (const char* type : memberTypes)
            members.emplace_back(std::to_string(members.size()).c_str(), library.getType(type));
        return sizeOf(library.defineStruct(name, members));
    };
    enum Choice : std::int32_t {};
    struct None {};
    struct Flags {
        bool a, b, c;
    };
    struct Small {
        Flags a;
        float b;
        bool c;
        Choice d;
        None e;
    };
    struct Large {
        bool a;
        double b;
        Small c;
        bool d;
        Pelmor::String e;
        int f;
        Pelmor::SharedArray<double> g;
        Flags h;
        Math::double4x4 i;
        bool j;
        Pelmor::Ptr<Tavrik::Object> k;
        Small l;
    };
    EXPECT_EQ(define("None", {}), sizeof(None));
    EXPECT_EQ(define("Flags", {"bool", "bool", "bool"}), sizeof(Flags));
    EXPECT_EQ(define("Small", {"Flags", "float", "bool", "choice", "None"}), sizeof(Small));
    EXPECT_EQ(
        define("Large", {"bool", "double", "Small", "bool", "string", "int", "array<array<bool>>",
                         "Flags", "Math::double4x4", "bool", "Object", "Small"}),
        sizeof(Large));
}

TEST(GraphLayout, FindsElementsOfAnotherSize) {
    const auto check = [](const Pelmor::AnyValue& value, const char* typeName) {
        return wrongElementSize(value, Pelmor::Library().getType(typeName)).value_or("");
    };
    const auto pins = Pelmor::AnyValue::holding(Pelmor::makePtr<Pelmor::Array<Pins>>());
    EXPECT_EQ(check(pins, "array<Rigging::Module::NamedTransforms>"), "") << "as large";
    EXPECT_EQ(check(pins, "array<Rigging::Module::InputsJoints>"),
              "an element has 32 bytes, and the graph's Rigging::Module::InputsJoints has 64: "
              "is the struct declared as the graph has it?");
    const auto outputs = Pelmor::AnyValue::holding(Pelmor::makePtr<Pelmor::Array<Outputs>>(2U));
    EXPECT_NE(check(outputs, "array<Rigging::Module::Pins>"), "");
    for (const char* type : {"Rigging::Module::Pins", "array<double>"})
        EXPECT_EQ(check(outputs, type), "") << type;
    using Pelmor::AnyValue;
    for (const AnyValue& value :
         {AnyValue(), AnyValue::holding(Pins()), AnyValue::holding(Pelmor::SharedArray<Pins>())})
        EXPECT_EQ(check(value, "array<Rigging::Module::Outputs>"), "");
}

}  // namespace
