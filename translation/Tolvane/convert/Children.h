// The one walk over the children of a record's compound, for both directions.
#pragma once

#include <Math/double4x4.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/Array.h>
#include <Pelmor/String.h>
#include <Tolvane/record/CheckPage.h>
#include <Tolvane/record/Page.h>

#include <string_view>
#include <tuple>
#include <type_traits>

namespace Tolvane {

// Whether a member of this type can cross the boundary.
template <typename T>
inline constexpr bool kCrosses = kIsRecord<T> || std::is_same_v<T, Math::double4x4> ||
                                 std::is_same_v<T, Pelmor::String> || std::is_same_v<T, double>;

// A member that is an array gets an array attribute only if its elements are plain or transforms.
template <typename Element, typename = void>
inline constexpr bool kCrossesInArray = kCrosses<Element>;
template <typename Element>
inline constexpr bool kCrossesInArray<Element, std::enable_if_t<kIsRecord<Element>>> =
    std::string_view(Page<Element>::typeName) == "Core::Transform::Transform";
template <typename Element>
inline constexpr bool kCrosses<Pelmor::SharedArray<Element>> = kCrossesInArray<Element>;

template <typename MemberList>
inline constexpr bool kAllCross = false;
template <typename Record, typename... Types>
inline constexpr bool kAllCross<const std::tuple<Types Record::*...>> = (kCrosses<Types> && ...);

// Calls `visit(member, childHandle, childPlug)` for each listed member of the record, in order:
// member i has child i. One plug and one handle serve all children, one after the other. Both steps
// are inlined by force: a call for each child costs writing a tenth of its time.
template <typename Record, typename Visit>
void forEachChild(VDataHandle& handle, VPlug& plug, const Visit& visit) {
    static_assert(kAllCross<decltype(Page<Record>::members)>,
                  "each member that crosses is a Math::double4x4, a Pelmor::String, a double, a "
                  "record with a Tolvane::Page, or a shared array of transforms or plain values");
    static_assert(areDistinct(Page<Record>::members), "a page lists a member twice");
    static_assert(isGraphName(Page<Record>::typeName),
                  "the typeName of a page is the graph's: identifiers, joined by \"::\"");
    std::apply(
        [&](auto first, auto... others) {
            VPlug childPlug = plug.child(0, nullptr);
            VDataHandle childHandle = handle.child(childPlug);
            visit(first, childHandle, childPlug);
            unsigned index = 0;
            [[maybe_unused]] const auto visitNext = [&](auto member)
                __attribute__((always_inline)) {
                childPlug = plug.child(++index, nullptr);
                childHandle = handle.child(childPlug);
                visit(member, childHandle, childPlug);
            };
            (visitNext(others), ...);
        },
        Page<Record>::members);
}

}  // namespace Tolvane
