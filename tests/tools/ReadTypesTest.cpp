// Files that describe types, and how those that do not are refused.

#include "tests/support/TemporaryFolder.h"
#include "tools/support/Error.h"
#include "tools/types/ReadTypes.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;

// In the texts here, single quotes stand for double ones.
class ReadTypes : public testing::Test {
protected:
    Pelmor::Library typesOf(std::string text) const {
        std::replace(text.begin(), text.end(), '\'', '"');
        return readTypes(folder.write("types.json", text)).library;
    }

    struct Refusal {
        std::string text;
        std::string cause;
    };
    void expectRefusals(std::vector<Refusal> refusals) const {
        for (auto& [text, cause] : refusals) {
            std::replace(cause.begin(), cause.end(), '\'', '"');
            const auto read = [this, &text = text] { typesOf(text); };
            EXPECT_THAT(read,
                        testing::ThrowsMessage<Error>(folder.path("types.json") + ": " + cause))
                << text.substr(0, 300);
        }
    }

    TemporaryFolder folder;
};

// A file with these structs; and a struct, of members that are written as NAME TYPE NAME TYPE ...
std::string file(const std::string& structs) { return "{'structs': [" + structs + "]}"; }
std::string aStruct(const std::string& name, const std::string& members = "") {
    std::string list, member, type;
    for (std::istringstream words(members); words >> member >> type;)
        list += std::string(list.empty() ? "" : ",") + "{'name': '" + member + "', 'type': '" +
                type + "'}";
    return "{'name': '" + name + "', 'members': [" + list + "]}";
}
std::string anEnum(const std::string& fields) {
    return "{'enums': [{'name': 'E', 'fields': [" + fields + "]}]}";
}

TEST_F(ReadTypes, DefinesStructsWithTheirMembersInOrderHoweverTheyReferToEachOther) {
    const Pelmor::Library library = typesOf(R"({
        'structs': [{'name': 'Studio::Face', 'members': [
                        {'name': 'parts', 'type': 'array<Studio::Part>'},
                        {'name': 'a', 'type': 'array<array<double>>'},
                        {'name': 'pins', 'type': 'Rigging::Module::Pins'},
                        {'name': 'mode', 'type': 'Mode'}]},
                    {'members': [], 'name': 'Studio::Part'}],
        'enums': [{'name': 'Mode', 'fields': [{'name': 'on', 'value': 2147483647},
                                              {'value': -2147483648, 'name': 'off'}]}]})");
    const Pelmor::StructType face(library.getType("Studio::Face"));
    std::string members;
    for (auto member = face.begin(); member != face.end(); ++member)
        members += std::string(member->getName().c_str()) + " " +
                   member->getType().getFullyQualifiedName().c_str() + " ";
    EXPECT_EQ(members,
              "parts array<Studio::Part> a array<array<double>> "
              "pins Rigging::Module::Pins mode Mode ");
    const Pelmor::EnumType mode(library.getType("Mode"));
    std::vector<std::int32_t> values;
    for (auto field = mode.begin(); field != mode.end(); ++field)
        values.push_back(field->getValue());
    EXPECT_THAT(values, ElementsAre(2147483647, -2147483647 - 1));
    EXPECT_TRUE(typesOf("\xef\xbb\xbf{}").findType("double"));
}

TEST_F(ReadTypes, RefusesWhatIsNotJson) {
    expectRefusals(
        {{"", "is empty"},
         {" ",
          "line 1, column 2: is not JSON: unexpected end of input; expected '[', "
          "'{', or a literal"},
         {"{'structs': [\n\n  oops]}", "line 3, column 3: is not JSON: invalid literal"},
         {"{} {}", "line 1, column 4: is not JSON: unexpected '{'; expected end of input"},
         {"{'structs': [],}",
          "line 1, column 16: is not JSON: unexpected '}'; expected string literal"},
         {"{'\xff': 0}", "line 1, column 3: is not JSON in UTF-8"},
         {"\xff\xfe{", "line 1, column 1: is not JSON in UTF-8"},
         {"{'enums': 1e999}", "has a number that is too big to read"},
         {std::string(1'000'000, '['), "nests too deep to describe types"}});
}

TEST_F(ReadTypes, RefusesWhatDescribesNoTypes) {
    expectRefusals({{"[]", "is not an object"},
                    {"{'struct': []}", "has the unknown key 'struct'"},
                    {"{'enums': [], 'enums': []}", "has the key 'enums' twice in one object"},
                    {"{'structs': {}}", "structs: is not an array"},
                    {file("3"), "structs[0]: is not an object"},
                    {file("{'name': 'A'}"), "structs[0]: has no 'members'"},
                    {file(aStruct("A") + ", {'name': 'B', 'members': [{'name': 'a'}]}"),
                     "structs[1].members[0]: has no 'type'"},
                    {anEnum("{'name': 1}"), "enums[0].fields[0].name: is not a string"},
                    {anEnum("{'values': 1}"), "enums[0].fields[0]: has the unknown key 'values'"}});
    for (const char* value : {"2147483648", "-2147483649", "1.0", "'1'", "99999999999999999999"})
        expectRefusals({{anEnum("{'name': 'f', 'value': " + std::string(value) + "}"),
                         "enums[0].fields[0].value: is not a whole number of 32 bits"}});
}

TEST_F(ReadTypes, RefusesNamesThatAreNoneOrThereTwice) {
    const std::string none = " is no name for a type: identifiers, joined by '::'";
    for (const std::string name : {"", "a b", "1a", "::A", "A::", "A:B", "\xc3\xa9", "array<A>"})
        expectRefusals({{file(aStruct(name)), "structs[0].name: '" + name + "'" + none}});
    const std::string twice = "{'name': 'f', 'value': 1}, {'name': 'f', 'value': 2}";
    expectRefusals(
        {{file(aStruct(std::string(100'000, ':'))),
          "structs[0].name: '" + std::string(80, ':') + "...'" + none},
         {file(aStruct("A", "b::c int")), "structs[0].members[0].name: 'b::c' is no identifier"},
         {file(aStruct("A") + "," + aStruct("A")), "A: is described twice"},
         {"{'structs': [" + aStruct("E") + "], 'enums': [{'name': 'E', 'fields': []}]}",
          "E: is described twice"},
         {file(aStruct("double")), "double: is a type that the graph has already"},
         {file(aStruct("A", "a int a int")), "A: its member a is there twice"},
         {anEnum(twice), "E: its field f is there twice"}});
}

TEST_F(ReadTypes, RefusesMembersOfUnknownTypes) {
    for (const std::string type : {"strnig", "array<>", "array<int", "array<Int>"})
        expectRefusals({{file(aStruct("A", "a " + type)),
                         "A: its member a is of the unknown type '" + type + "'"}});
}

// For the graph, they would end there.
TEST_F(ReadTypes, RefusesNamesWithANul) {
    const std::string nul = "\\u0000";
    expectRefusals(
        {{file(aStruct("A" + nul)), "structs[0].name: has a NUL in it"},
         {file(aStruct("A", "a" + nul + " int")), "structs[0].members[0].name: has a NUL in it"},
         {file(aStruct("A", "a double" + nul)), "structs[0].members[0].type: has a NUL in it"}});
}

TEST_F(ReadTypes, RefusesAStructThatContainsItself) {
    expectRefusals({{file(aStruct("A", "a A")), "A: contains itself"},
                    {file(aStruct("A", "a array<array<A>>")), "A: contains itself"},
                    {file(aStruct("A", "b B") + "," + aStruct("B", "n int c C") + "," +
                          aStruct("C", "b array<B>")),
                     "B: contains itself, by way of C"}});
}

// Struct S0 has S1 as each of its members, which has S2 as each of its members, and so on.
std::string chain(int length, int memberCount, bool fromTheEnd) {
    std::string structs;
    for (int i = 0; i < length; ++i) {
        const int number = fromTheEnd ? length - 1 - i : i;
        std::string members;
        for (int j = 0; j < memberCount && number + 1 < length; ++j)
            members += "m" + std::to_string(j) + " S" + std::to_string(number + 1) + " ";
        structs += (i > 0 ? "," : "") + aStruct("S" + std::to_string(number), members);
    }
    return file(structs);
}

TEST_F(ReadTypes, RefusesStructsThatAreTooMuchForAttributes) {
    for (const bool fromTheEnd : {false, true}) {
        EXPECT_NO_THROW(typesOf(chain(32, 1, fromTheEnd)));
        expectRefusals({{chain(10'000, 1, fromTheEnd), "S9967: nests more than 32 levels deep"},
                        {chain(30, 10, fromTheEnd), "S25: takes more than 10000 attributes"}});
    }
    expectRefusals(
        {{file(
              aStruct("A", "a array<array<array<array<array<array<array<array<array<int>>>>>>>>>")),
          "A: its member a has arrays in too many arrays"}});
}

}  // namespace
