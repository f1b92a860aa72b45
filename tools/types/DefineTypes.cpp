#include "tools/types/DefineTypes.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <Pelmor/ArrayType.h>
#include <Pelmor/StructType.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace Tolvane::Tools {
namespace {

// Far above what anybody wants of an attribute, and far below what a program can bear.
constexpr std::size_t kMostArrayLevels = 8;
constexpr std::size_t kMostLevels = 32;
constexpr std::size_t kMostAttributes = 10'000;

// The attributes that a value of a type takes: how many, and how deep they nest.
struct Extent {
    std::size_t attributes = 1;
    std::size_t levels = 1;
};

// The name of a type without the arrays around it.
struct ElementName {
    std::string name;
    std::size_t arrayLevels = 0;
};

ElementName elementOf(std::string_view typeName) {
    constexpr std::string_view kOpening = "array<";
    std::size_t levels = 0;
    while (typeName.substr(0, kOpening.size()) == kOpening && typeName.back() == '>') {
        typeName = typeName.substr(kOpening.size(), typeName.size() - kOpening.size() - 1);
        ++levels;
    }
    return {std::string(typeName), levels};
}

class Definer {
public:
    explicit Definer(Pelmor::Library& library) : m_library(library) {}

    void define(const TypeDescriptions& types) {
        for (const EnumDescription& each : types.enums) claimName(each.name);
        for (const StructDescription& each : types.structs) claimName(each.name);
        for (const StructDescription& each : types.structs) refuseImpossibleMembers(each);
        for (const EnumDescription& each : types.enums) defineEnum(each);
        defineStructs(types.structs);
    }

private:
    void claimName(const std::string& name) {
        if (m_library.findType(name.c_str()))
            throw Error(name + ": is a type that the graph has already");
        if (!m_names.insert(name).second) throw Error(name + ": is described twice");
    }

    void refuseImpossibleMembers(const StructDescription& description) const {
        std::set<std::string> seen;
        for (const MemberDescription& member : description.members) {
            const auto refuse = [&](const std::string& cause) {
                throw Error(description.name + ": its member " + member.name + " " + cause);
            };
            const ElementName element = elementOf(member.typeName);
            if (!seen.insert(member.name).second) refuse("is there twice");
            if (element.arrayLevels > kMostArrayLevels) refuse("has arrays in too many arrays");
            if (m_names.count(element.name) == 0 && !m_library.findType(element.name.c_str()))
                refuse("is of the unknown type " + inQuotes(member.typeName));
        }
    }

    void defineEnum(const EnumDescription& description) {
        std::set<std::string> seen;
        for (const auto& field : description.fields)
            if (!seen.insert(field.getName().c_str()).second)
                throw Error(description.name + ": its field " + field.getName().c_str() +
                            " is there twice");
        m_library.defineEnum(description.name.c_str(), description.fields);
    }

    // Each once the types of all its members are known.
    void defineStructs(const std::vector<StructDescription>& structs) {
        std::map<std::string, std::vector<const StructDescription*>> waitingFor;
        std::map<const StructDescription*, std::size_t> unknownMembers;
        std::vector<const StructDescription*> ready;
        for (const StructDescription& each : structs) {
            const std::vector<std::string> unknown = unknownTypes(each);
            for (const std::string& name : unknown) waitingFor[name].push_back(&each);
            unknownMembers[&each] = unknown.size();
            if (unknown.empty()) ready.push_back(&each);
        }
        for (std::size_t i = 0; i < ready.size(); ++i) {
            defineStruct(*ready[i]);
            for (const StructDescription* each : waitingFor[ready[i]->name])
                if (--unknownMembers[each] == 0) ready.push_back(each);
        }
        if (ready.size() < structs.size()) refuseCycle(structs);
    }

    void defineStruct(const StructDescription& description) {
        std::vector<Pelmor::StructType::Member> members;
        Extent extent;
        for (const MemberDescription& member : description.members) {
            const ElementName element = elementOf(member.typeName);
            Pelmor::Type type = m_library.getType(element.name.c_str());
            const Extent inner = extentOf(type);
            extent.attributes += inner.attributes;
            extent.levels = std::max(extent.levels, inner.levels + 1);
            for (std::size_t i = 0; i < element.arrayLevels; ++i)
                type = Pelmor::Library::arrayOf(type);
            members.emplace_back(member.name.c_str(), type);
        }
        if (extent.levels > kMostLevels)
            throw Error(description.name + ": nests more than " + std::to_string(kMostLevels) +
                        " levels deep");
        if (extent.attributes > kMostAttributes)
            throw Error(description.name + ": takes more than " + std::to_string(kMostAttributes) +
                        " attributes");
        m_library.defineStruct(description.name.c_str(), std::move(members));
        m_extents[description.name] = extent;
    }

    // The graph's own structs are small enough to be walked each time.
    Extent extentOf(const Pelmor::Type& type) const {
        if (type.getTypeKind() == Pelmor::TypeKind::Array)
            return extentOf(Pelmor::ArrayType(type).getElementType());
        if (type.getTypeKind() != Pelmor::TypeKind::Struct) return {};
        const auto known = m_extents.find(type.getFullyQualifiedName().c_str());
        if (known != m_extents.end()) return known->second;
        Extent extent;
        const Pelmor::StructType structType(type);
        for (auto member = structType.begin(); member != structType.end(); ++member) {
            const Extent inner = extentOf(member->getType());
            extent.attributes += inner.attributes;
            extent.levels = std::max(extent.levels, inner.levels + 1);
        }
        return extent;
    }

    // The types that members refer to and that are not defined yet, in the order of the members.
    std::vector<std::string> unknownTypes(const StructDescription& description) const {
        std::vector<std::string> unknown;
        for (const MemberDescription& member : description.members) {
            std::string name = elementOf(member.typeName).name;
            if (!m_library.findType(name.c_str())) unknown.push_back(std::move(name));
        }
        return unknown;
    }

    // Each that is not defined yet waits for another such, so whoever follows them comes round.
    [[noreturn]] void refuseCycle(const std::vector<StructDescription>& structs) const {
        std::map<std::string, std::string> waitsFor;
        std::string name;
        for (const StructDescription& each : structs) {
            const std::vector<std::string> unknown = unknownTypes(each);
            if (unknown.empty()) continue;
            waitsFor[each.name] = unknown.front();
            if (name.empty()) name = each.name;
        }
        for (std::set<std::string> seen; seen.insert(name).second;) name = waitsFor[name];
        const std::string& next = waitsFor[name];
        throw Error(name + ": contains itself" + (next == name ? "" : ", by way of " + next));
    }

    Pelmor::Library& m_library;
    std::set<std::string> m_names;
    std::map<std::string, Extent> m_extents;
};

}  // namespace

void defineTypes(const TypeDescriptions& types, Pelmor::Library& library) {
    Definer(library).define(types);
}

}  // namespace Tolvane::Tools
