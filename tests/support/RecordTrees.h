// The tree of each record that the plugin carries: the graph's name of it, and its members in
// order with their types, those that stay in the graph included. It is said here once for all
// tests, and apart from the product; attributes, leaves, calls, allocations and counts are worked
// out from it. There is no default: a record of the plugin's list that has no tree here does not
// compile.
#pragma once

#include "plugin/Records.h"

#include <Math/double4x4.h>
#include <Pelmor/Array.h>
#include <Pelmor/Ptr.h>
#include <Pelmor/String.h>
#include <Tavrik/Object.h>

#include <string>
#include <tuple>
#include <type_traits>

namespace TestSupport {

using namespace Rigging::Module;

template <typename Record, typename Type>
struct Member {
    Member() = delete;
    constexpr Member(const char* graphName, Type Record::*member)
        : name(graphName), pointer(member) {}

    const char* name;
    Type Record::*pointer;
};

// A member of that type: a record whose member has another one does not compile.
template <typename Type, typename Record>
constexpr Member<Record, Type> memberOf(const char* name, Type Record::*pointer) {
    return {name, pointer};
}

using Object = Pelmor::Ptr<Tavrik::Object>;

template <typename Record>
struct RecordTree;

template <>
struct RecordTree<Transform> {
    static constexpr const char* typeName = "Core::Transform::Transform";
    static constexpr std::tuple members{memberOf<Math::double4x4>("matrix0", &Transform::matrix0),
                                        memberOf<Math::double4x4>("matrix1", &Transform::matrix1),
                                        memberOf<Math::double4x4>("matrix2", &Transform::matrix2),
                                        memberOf<Math::double4x4>("matrix3", &Transform::matrix3),
                                        memberOf<Math::double4x4>("matrix4", &Transform::matrix4),
                                        memberOf<Math::double4x4>("matrix5", &Transform::matrix5),
                                        memberOf<Math::double4x4>("matrix6", &Transform::matrix6),
                                        memberOf<Math::double4x4>("matrix7", &Transform::matrix7)};
};

template <>
struct RecordTree<NamedTransforms> {
    static constexpr const char* typeName = "Rigging::Module::NamedTransforms";
    static constexpr std::tuple members{
        memberOf<Pelmor::SharedArray<Pelmor::String>>("names", &NamedTransforms::names),
        memberOf<Pelmor::SharedArray<Transform>>("transforms", &NamedTransforms::transforms)};
};

template <>
struct RecordTree<Pins> {
    static constexpr const char* typeName = "Rigging::Module::Pins";
    static constexpr std::tuple members{
        memberOf<Pelmor::SharedArray<Pelmor::String>>("names", &Pins::names),
        memberOf<Pelmor::SharedArray<Math::double4x4>>("matrices", &Pins::matrices)};
};

template <>
struct RecordTree<InputsJoints> {
    static constexpr const char* typeName = "Rigging::Module::InputsJoints";
    static constexpr std::tuple members{
        memberOf<Pelmor::SharedArray<Pelmor::String>>("names", &InputsJoints::names),
        memberOf<Pelmor::SharedArray<Math::double4x4>>("matrices", &InputsJoints::matrices),
        memberOf<NamedTransforms>("namedTransforms", &InputsJoints::namedTransforms)};
};

template <>
struct RecordTree<InputsControls> {
    static constexpr const char* typeName = "Rigging::Module::InputsControls";
    static constexpr std::tuple members{
        memberOf<Pelmor::SharedArray<Pelmor::String>>("names", &InputsControls::names),
        memberOf<Pelmor::SharedArray<Math::double4x4>>("matrices", &InputsControls::matrices),
        memberOf<Pelmor::SharedArray<double>>("weights", &InputsControls::weights),
        memberOf<NamedTransforms>("namedTransforms", &InputsControls::namedTransforms)};
};

template <>
struct RecordTree<Inputs> {
    static constexpr const char* typeName = "Rigging::Module::Inputs";
    static constexpr std::tuple members{memberOf<Pins>("pins", &Inputs::pins),
                                        memberOf<InputsJoints>("joints", &Inputs::joints),
                                        memberOf<InputsControls>("controls0", &Inputs::controls0),
                                        memberOf<InputsControls>("controls1", &Inputs::controls1),
                                        memberOf<Object>("object0", &Inputs::object0),
                                        memberOf<Object>("object1", &Inputs::object1)};
};

template <>
struct RecordTree<Outputs> {
    static constexpr const char* typeName = "Rigging::Module::Outputs";
    static constexpr std::tuple members{
        memberOf<Pelmor::String>("name", &Outputs::name),
        memberOf<Pins>("pins", &Outputs::pins),
        memberOf<NamedTransforms>("namedTransforms0", &Outputs::namedTransforms0),
        memberOf<NamedTransforms>("namedTransforms1", &Outputs::namedTransforms1),
        memberOf<NamedTransforms>("namedTransforms2", &Outputs::namedTransforms2),
        memberOf<Object>("object0", &Outputs::object0),
        memberOf<Object>("object1", &Outputs::object1)};
};

// What kind of member or element a type is.

template <typename T>
inline constexpr bool kIsObject = std::is_same_v<T, Object>;

template <typename T>
inline constexpr bool kIsArray = false;
template <typename Element>
inline constexpr bool kIsArray<Pelmor::SharedArray<Element>> = true;

template <typename T>
struct ElementOfType;
template <typename Element>
struct ElementOfType<Pelmor::SharedArray<Element>> {
    using Type = Element;
};
template <typename Array>
using ElementOf = typename ElementOfType<Array>::Type;

// A text, a matrix or a number. A type that is none of these, no array and no object is a record.
template <typename T>
inline constexpr bool kIsPlain = std::is_same_v<T, Pelmor::String> ||
                                 std::is_same_v<T, Math::double4x4> || std::is_same_v<T, double>;

template <typename T>
inline constexpr bool kIsStruct = !kIsPlain<T> && !kIsArray<T> && !kIsObject<T>;

template <typename Record>
inline constexpr std::size_t kMemberCount =
    std::tuple_size_v<std::remove_const_t<decltype(RecordTree<Record>::members)>>;

template <typename T>
struct TypeTag {
    using Type = T;
};

// Calls `visit` with the name and the TypeTag of each member, in order.
template <typename Record, typename Visit>
void eachMemberType(Visit&& visit) {
    const auto visitMember = [&](auto member) {
        using Type = std::remove_reference_t<decltype(Record().*member.pointer)>;
        visit(member.name, TypeTag<Type>());
    };
    std::apply([&](auto... members) { (visitMember(members), ...); }, RecordTree<Record>::members);
}

// The name of the host's attribute for a member of that name.
inline const char* childName(const char* member) {
    return std::string(member) == "weights" ? "weights_A" : member;
}

// Calls `visit` with the name and the value of each member of `record`, in order; `record` may be
// const.
template <typename Record, typename Visit>
void eachNamedMember(Record& record, Visit&& visit) {
    std::apply([&](const auto&... member) { (visit(member.name, record.*member.pointer), ...); },
               RecordTree<std::remove_const_t<Record>>::members);
}

template <typename Record, typename Visit>
void eachMemberAndObject(Record& record, Visit&& visit) {
    eachNamedMember(record, [&](const char*, auto& member) { visit(member); });
}

// The members that cross the boundary, which are all but the objects.
template <typename Record, typename Visit>
void eachMember(Record& record, Visit&& visit) {
    eachNamedMember(record, [&](const char*, auto& member) {
        if constexpr (!kIsObject<std::remove_const_t<std::remove_reference_t<decltype(member)>>>)
            visit(member);
    });
}

// The graph's name of a type that a holder, a member or an element can have.
template <typename T>
struct GraphName {
    static std::string get() { return RecordTree<T>::typeName; }
};
template <>
struct GraphName<Pelmor::String> {
    static std::string get() { return "string"; }
};
template <>
struct GraphName<Math::double4x4> {
    static std::string get() { return "Math::double4x4"; }
};
template <>
struct GraphName<double> {
    static std::string get() { return "double"; }
};
template <>
struct GraphName<Object> {
    static std::string get() { return "Object"; }
};
template <typename Element>
struct GraphName<Pelmor::SharedArray<Element>> {
    static std::string get() { return "array<" + GraphName<Element>::get() + ">"; }
};

template <typename T>
std::string graphName() {
    return GraphName<T>::get();
}

}  // namespace TestSupport
