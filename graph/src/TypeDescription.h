// What all handles on one type share. Only the lists that belong to the kind are filled.
#pragma once

#include <Pelmor/EnumType.h>
#include <Pelmor/StructType.h>

#include <optional>
#include <vector>

namespace Pelmor::Internal {

struct TypeDescription {
    String name;
    TypeKind kind;
    std::optional<Type> elementType = std::nullopt;
    std::vector<StructType::Member> members = {};
    std::vector<EnumType::Enumeration> enumerations = {};

    static Type makeType(TypeDescription description) {
        return Type(std::make_shared<TypeDescription>(std::move(description)));
    }
};

}  // namespace Pelmor::Internal
