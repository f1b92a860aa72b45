#include "tools/node/GraphLayout.h"

#include <Pelmor/Library.h>
#include <Rigging/Inputs.h>
#include <Rigging/Outputs.h>

#include <gtest/gtest.h>

namespace GraphLayoutTests {

struct Forgetful {
    bool flag = false;
    Rigging::Module::Pins pins;
    Pelmor::SharedArray<double> weights;
};
struct Nesting {
    Pelmor::SharedArray<double> numbers = Tolvane::newArray;
    Forgetful inner;
};

}  // namespace GraphLayoutTests

template <>
struct Tolvane::Page<GraphLayoutTests::Forgetful> {
    static constexpr std::tuple members{&GraphLayoutTests::Forgetful::weights};
};
template <>
struct Tolvane::Page<GraphLayoutTests::Nesting> {
    static constexpr std::tuple members{&GraphLayoutTests::Nesting::inner};
};

namespace {

using namespace GraphLayoutTests;
using namespace Tolvane::Tools;
using namespace Rigging::Module;

TEST(GraphLayout, GivesEachRecordTheSizeOfItsStruct) {
    const std::pair<const char*, std::size_t> records[] = {
        {"Core::Transform::Transform", sizeof(Core::Transform::Transform)},
        {"Rigging::Module::NamedTransforms", sizeof(NamedTransforms)},
        {"Rigging::Module::Pins", sizeof(Pins)},
        {"Rigging::Module::InputsJoints", sizeof(InputsJoints)},
        {"Rigging::Module::InputsControls", sizeof(InputsControls)},
        {"Rigging::Module::Inputs", sizeof(Inputs)},
        {"Rigging::Module::Outputs", sizeof(Outputs)}};
    for (const auto& [name, size] : records)
        EXPECT_EQ(sizeOf(Pelmor::Library().getType(name)), size) << name;
}

TEST(GraphLayout, PadsMembersAsTheCompilerDoes) {
    Pelmor::Library library;
    library.defineEnum("choice", {});
    const auto define = [&](const char* name, const std::vector<const char*>& memberTypes) {
        std::vector<Pelmor::StructType::Member> members;
        members.reserve(memberTypes.size());
        for (const char* type : memberTypes)
            members.emplace_back(std::to_string(members.size()).c_str(), library.getType(type));
        return sizeOf(library.defineStruct(name, members));
    };
    enum Choice : std::int32_t {};
    struct None {};
    struct Small {
        bool a;
        float b;
        bool c, d;
        Choice e;
        None f;
    };
    struct Large {
        bool a;
        Pelmor::String b;
        None c;
        Small d;
        double e;
        bool f;
    };
    EXPECT_EQ(define("None", {}), sizeof(None));
    EXPECT_EQ(define("Small", {"bool", "float", "bool", "bool", "choice", "None"}), sizeof(Small));
    EXPECT_EQ(define("Large", {"bool", "string", "None", "Small", "double", "bool"}),
              sizeof(Large));
}

template <typename Held>
std::string check(const Held& held, const char* typeName, const Pelmor::Library& library = {}) {
    const auto value = Pelmor::AnyValue::holding(held);
    return ElementLayout(library.getType(typeName)).misfitOf(value).value_or("");
}

TEST(GraphLayout, FindsElementsOfAnotherSize) {
    const auto pins = Pelmor::makePtr<Pelmor::Array<Pins>>();
    EXPECT_EQ(check(pins, "array<Rigging::Module::NamedTransforms>"), "") << "as large";
    EXPECT_EQ(check(pins, "array<Rigging::Module::InputsJoints>"),
              "an element has 32 bytes, and the graph's Rigging::Module::InputsJoints has 64: "
              "is the struct declared as the graph has it?");
    const auto outputs = Pelmor::makePtr<Pelmor::Array<Outputs>>(2U);
    EXPECT_NE(check(outputs, "array<Rigging::Module::Pins>"), "");
    EXPECT_EQ(check(outputs, "Rigging::Module::Pins"), "");
    EXPECT_EQ(check(outputs, "array<double>"), "");
}

TEST(GraphLayout, FindsArraysThatNewElementsLack) {
    Pelmor::Library library;
    const auto numbers = library.getType("array<double>");
    library.defineStruct("Forgetful", {{"flag", library.getType("bool")},
                                       {"pins", library.getType("Rigging::Module::Pins")},
                                       {"weights", numbers}});
    library.defineStruct("Nesting",
                         {{"numbers", numbers}, {"inner", library.getType("Forgetful")}});
    EXPECT_EQ(check(Pelmor::makePtr<Pelmor::Array<Forgetful>>(), "array<Forgetful>", library),
              "a new element has no array in weights: is it initialised with Tolvane::newArray?");
    EXPECT_EQ(check(Pelmor::makePtr<Pelmor::Array<Nesting>>(1U), "array<Nesting>", library),
              "a new element has no array in inner.weights: is it initialised with "
              "Tolvane::newArray?");
}

TEST(GraphLayout, TakesNothingForAnArrayThatIsNone) {
    const char* type = "array<Rigging::Module::Outputs>";
    EXPECT_EQ(check(Pins(), type), "");
    EXPECT_EQ(check(Pelmor::SharedArray<Pins>(), type), "");
    EXPECT_FALSE(ElementLayout(Pelmor::Library().getType(type)).misfitOf(Pelmor::AnyValue()));
}

}  // namespace
