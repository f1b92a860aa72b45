// What can be told of a page while it is compiled: slips of its author that would otherwise show in
// the host as a port without values.
#pragma once

#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace Tolvane {

// Identifiers, joined by "::".
constexpr bool isGraphName(std::string_view name) {
    const auto isLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    bool begins = true;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (!begins && name.substr(i, 2) == "::") {
            begins = true;
            ++i;
        } else if (isLetter(name[i]) || (!begins && name[i] >= '0' && name[i] <= '9')) {
            begins = false;
        } else {
            return false;
        }
    }
    return !begins;
}

// Whether `function`, as a compiler writes it, is one for a struct of this name: it ends in
// "[with Struct = NAME; ...]" or "[Struct = NAME]".
constexpr bool isForStruct(std::string_view function, std::string_view name) {
    const std::string_view before = "Struct = ";
    const std::size_t begin = function.find(before) + before.size();
    if (function.substr(begin, name.size()) != name) return false;
    const char behind = function[begin + name.size()];
    return behind == ';' || behind == ']';
}

// Whether a struct has this name in C++, with its namespaces.
template <typename Struct>
constexpr bool isNameInCpp(std::string_view name) {
    return isForStruct(__PRETTY_FUNCTION__, name);
}

template <typename A, typename B>
constexpr bool isSame(A a, B b) {
    if constexpr (std::is_same_v<A, B>)
        return a == b;
    else
        return false;
}

// How often the member at `Place` stands again, behind it.
template <std::size_t Place, typename... Members, std::size_t... Others>
constexpr std::size_t repetitions(const std::tuple<Members...>& members,
                                  std::index_sequence<Others...>) {
    return (std::size_t{0} + ... +
            (std::size_t{Others > Place} *
             std::size_t{isSame(std::get<Place>(members), std::get<Others>(members))}));
}

template <typename... Members, std::size_t... Places>
constexpr bool areDistinct(const std::tuple<Members...>& members,
                           std::index_sequence<Places...> places) {
    return (std::size_t{0} + ... + repetitions<Places>(members, places)) == 0;
}

template <typename... Members>
constexpr bool areDistinct(const std::tuple<Members...>& members) {
    return areDistinct(members, std::index_sequence_for<Members...>());
}

}  // namespace Tolvane
