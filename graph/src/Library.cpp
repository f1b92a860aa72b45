#include "graph/src/TypeDescription.h"

#include <Pelmor/Library.h>

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace Pelmor {
namespace {

constexpr std::string_view kArrayOpening = "array<";
constexpr std::string_view kArrayClosing = ">";

// The name between "array<" and ">", or nothing where `name` has another form.
std::optional<String> elementName(std::string_view name) {
    if (name.size() <= kArrayOpening.size() + kArrayClosing.size()) return std::nullopt;
    if (name.substr(0, kArrayOpening.size()) != kArrayOpening) return std::nullopt;
    if (name.substr(name.size() - kArrayClosing.size()) != kArrayClosing) return std::nullopt;
    name.remove_prefix(kArrayOpening.size());
    name.remove_suffix(kArrayClosing.size());
    return String(name.data(), name.size());
}

template <typename Named>
void refuseRepeatedNames(const std::vector<Named>& entries) {
    std::set<std::string> seen;
    for (const Named& entry : entries) {
        const std::string name = entry.getName().c_str();
        if (!seen.insert(name).second) throw std::invalid_argument(name + " is there twice");
    }
}

}  // namespace

Library::Library() {
    defineBuiltIns();
    defineRecords();
}

std::optional<Type> Library::findType(const String& fullyQualifiedName) const {
    if (const auto found = m_types.find(fullyQualifiedName); found != m_types.end())
        return found->second;
    const auto element = elementName({fullyQualifiedName.c_str(), fullyQualifiedName.size()});
    if (!element) return std::nullopt;
    const auto elementType = findType(*element);
    if (!elementType) return std::nullopt;
    return arrayOf(*elementType);
}

Type Library::getType(const String& fullyQualifiedName) const {
    if (auto type = findType(fullyQualifiedName)) return *type;
    throw std::out_of_range(std::string("there is no type ") + fullyQualifiedName.c_str());
}

StructType Library::defineStruct(const String& name, std::vector<StructType::Member> members) {
    refuseRepeatedNames(members);
    Internal::TypeDescription description{name, TypeKind::Struct};
    description.members = std::move(members);
    return StructType(add(std::move(description)));
}

EnumType Library::defineEnum(const String& name, std::vector<EnumType::Enumeration> enumerations) {
    refuseRepeatedNames(enumerations);
    Internal::TypeDescription description{name, TypeKind::Enum};
    description.enumerations = std::move(enumerations);
    return EnumType(add(std::move(description)));
}

ArrayType Library::arrayOf(const Type& elementType) {
    const String name = String("array<") + elementType.getFullyQualifiedName().c_str() + ">";
    return ArrayType(
        Internal::TypeDescription::makeType({name, TypeKind::Array, elementType, {}, {}}));
}

Type Library::add(Internal::TypeDescription description) {
    const String name = description.name;
    if (name.empty()) throw std::invalid_argument("a type needs a name");
    if (findType(name)) throw std::invalid_argument(std::string(name.c_str()) + " is taken");
    return m_types.emplace(name, Internal::TypeDescription::makeType(std::move(description)))
        .first->second;
}

void Library::defineBuiltIns() {
    add({"bool", TypeKind::Bool});
    add({"int", TypeKind::Int});
    add({"double", TypeKind::Double});
    add({"float", TypeKind::Float});
    add({"string", TypeKind::String});
    add({"Math::double4x4", TypeKind::Matrix});
    add({"Object", TypeKind::Object});
}

void Library::defineRecords() {
    const Type string = getType("string");
    const Type object = getType("Object");
    const Type matrix = getType("Math::double4x4");
    const Type strings = arrayOf(string);
    const Type matrices = arrayOf(matrix);
    const Type doubles = arrayOf(getType("double"));

    const Type transform = defineStruct("Core::Transform::Transform", {{"matrix0", matrix},
                                                                       {"matrix1", matrix},
                                                                       {"matrix2", matrix},
                                                                       {"matrix3", matrix},
                                                                       {"matrix4", matrix},
                                                                       {"matrix5", matrix},
                                                                       {"matrix6", matrix},
                                                                       {"matrix7", matrix}});
    const Type namedTransforms =
        defineStruct("Rigging::Module::NamedTransforms",
                     {{"names", strings}, {"transforms", arrayOf(transform)}});
    const Type pins =
        defineStruct("Rigging::Module::Pins", {{"names", strings}, {"matrices", matrices}});
    const Type joints = defineStruct(
        "Rigging::Module::InputsJoints",
        {{"names", strings}, {"matrices", matrices}, {"namedTransforms", namedTransforms}});
    const Type controls =
        defineStruct("Rigging::Module::InputsControls", {{"names", strings},
                                                         {"matrices", matrices},
                                                         {"weights", doubles},
                                                         {"namedTransforms", namedTransforms}});
    defineStruct("Rigging::Module::Inputs", {{"pins", pins},
                                             {"joints", joints},
                                             {"controls0", controls},
                                             {"controls1", controls},
                                             {"object0", object},
                                             {"object1", object}});
    defineStruct("Rigging::Module::Outputs", {{"name", string},
                                              {"pins", pins},
                                              {"namedTransforms0", namedTransforms},
                                              {"namedTransforms1", namedTransforms},
                                              {"namedTransforms2", namedTransforms},
                                              {"object0", object},
                                              {"object1", object}});
}

}  // namespace Pelmor
