// The types that the plugin carries, for tests that are run for each: as C++ types and as names in
// the graph. They are those of the plugin's one list.
#pragma once

#include "tests/support/RecordTrees.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace TestSupport {

template <typename... Lists>
struct Joined;
template <typename... Types>
struct Joined<testing::Types<Types...>> {
    using Type = testing::Types<Types...>;
};
template <typename... First, typename... Second, typename... Others>
struct Joined<testing::Types<First...>, testing::Types<Second...>, Others...>
    : Joined<testing::Types<First..., Second...>, Others...> {};

template <typename List>
struct TypesOfList;
template <typename... Records>
struct TypesOfList<Tolvane::RecordList<Records...>> {
    using Single = testing::Types<Records...>;
    using Arrays = testing::Types<Pelmor::SharedArray<Records>...>;
    template <template <typename> class Condition>
    using Where =
        typename Joined<testing::Types<>,
                        std::conditional_t<Condition<Records>::value, testing::Types<Records>,
                                           testing::Types<>>...>::Type;
};
using TypesOfRecords = TypesOfList<Records>;

// Whether a record has an array, or an object, among its members or those of its nested records.
template <typename Record>
bool constexpr hasArray();
template <typename Record>
bool constexpr hasObject();

template <typename T>
constexpr bool isOrHasArray() {
    if constexpr (kIsStruct<T>) return hasArray<T>();
    return kIsArray<T>;
}
template <typename T>
constexpr bool isOrHasObject() {
    if constexpr (kIsStruct<T>) return hasObject<T>();
    return kIsObject<T>;
}
template <typename Record, typename... Types>
constexpr bool anyArray(const std::tuple<Member<Record, Types>...>&) {
    return (isOrHasArray<Types>() || ...);
}
template <typename Record, typename... Types>
constexpr bool anyObject(const std::tuple<Member<Record, Types>...>&) {
    return (isOrHasObject<Types>() || ...);
}
template <typename Record>
constexpr bool hasArray() {
    return anyArray(RecordTree<Record>::members);
}
template <typename Record>
constexpr bool hasObject() {
    return anyObject(RecordTree<Record>::members);
}

template <typename Record>
struct HasArray : std::bool_constant<hasArray<Record>()> {};
template <typename Record>
struct HasObject : std::bool_constant<hasObject<Record>()> {};

using RecordTypes = TypesOfRecords::Single;
using RecordTypesWithArrays = TypesOfRecords::Where<HasArray>;
using TypesWithObjects = TypesOfRecords::Where<HasObject>;
// What a holder can hold: a record, or a shared array of records.
using HeldTypes = Joined<RecordTypes, TypesOfRecords::Arrays>::Type;
// What arrays can hold.
using ElementTypes =
    Joined<testing::Types<Pelmor::String, Math::double4x4, double>, RecordTypes>::Type;

template <typename... Types>
std::vector<std::string> graphNames(testing::Types<Types...>) {
    return {graphName<Types>()...};
}

// In the order in which the plugin names them, which is that of the characters.
inline const std::vector<std::string>& carriedTypes() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all = graphNames(HeldTypes());
        std::sort(all.begin(), all.end());
        return all;
    }();
    return names;
}

// A graph type's name as part of the name of a test.
inline std::string asTestName(const std::string& typeName) {
    std::string name;
    for (const char c : typeName)
        if (std::isalnum(static_cast<unsigned char>(c))) name += c;
    return name;
}

inline std::string nameOfTest(const testing::TestParamInfo<std::string>& info) {
    return asTestName(info.param);
}

struct NameOfType {
    template <typename T>
    static std::string GetName(int) {
        return asTestName(graphName<T>());
    }
};

}  // namespace TestSupport
