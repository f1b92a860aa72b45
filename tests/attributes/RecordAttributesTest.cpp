// The trees that carry the plugin's records: member i is child i, which is how the values find
// their way.
#include "tests/support/AttributeTree.h"
#include "tests/support/CarriedTypes.h"

#include <Pelmor/Library.h>
#include <Tolvane/attributes/PortAttribute.h>

#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

// The kind of the attribute for a T.
template <typename T>
std::string kindFor() {
    if constexpr (kIsObject<T>)
        return "generic 0";
    else if constexpr (std::is_same_v<T, Pelmor::String>)
        return "typed 4";
    else if constexpr (std::is_same_v<T, Math::double4x4>)
        return "matrix 1";
    else if constexpr (std::is_same_v<T, double>)
        return "numeric 14 of 0.000000";
    else
        return "compound";
}

// Appends the line of an attribute for a T, whose flags end in `end`, and those below it. Compounds
// have the flags that fit the direction of the port, leaves the host's defaults.
template <typename T>
void appendTree(AttributeLines& lines, const std::string& name, bool isInput, const char* end) {
    const bool isLeaf = !kIsStruct<T>;
    const char* flags = isLeaf ? "rw-" : isInput ? "-wk" : "r--";
    lines.push_back(name + ": " + kindFor<T>() + ' ' + flags + end);
    if constexpr (kIsStruct<T>) {
        const std::string indent = name.substr(0, name.find_first_not_of(' ')) + "  ";
        eachMemberType<T>([&](const char* member, auto tag) {
            using Type = typename decltype(tag)::Type;
            const std::string child = indent + childName(member);
            if constexpr (kIsArray<Type>)
                appendTree<ElementOf<Type>>(lines, child, isInput, "a-");
            else
                appendTree<Type>(lines, child, isInput, "--");
        });
    }
}

template <typename Record>
class AttributeOfRecord : public testing::Test {
protected:
    template <typename T>
    static AttributeLines created(bool isInput) {
        const Pelmor::Type type = Pelmor::Library().getType(graphName<T>().c_str());
        return treeOf(Tolvane::createPortAttribute(type, "port", isInput));
    }
    static AttributeLines expected(bool isInput, const char* end) {
        AttributeLines lines;
        appendTree<Record>(lines, "port", isInput, end);
        return lines;
    }
};
TYPED_TEST_SUITE(AttributeOfRecord, RecordTypes, NameOfType);

TYPED_TEST(AttributeOfRecord, HasAChildForEachMember) {
    for (const bool isInput : {true, false})
        EXPECT_EQ(this->template created<TypeParam>(isInput), this->expected(isInput, "-u"));
}

TYPED_TEST(AttributeOfRecord, IsAnArrayForAnArrayOfTheRecord) {
    using Array = Pelmor::SharedArray<TypeParam>;
    for (const bool isInput : {true, false})
        EXPECT_EQ(this->template created<Array>(isInput), this->expected(isInput, "au"));
}

}  // namespace
