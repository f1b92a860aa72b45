// A type of the graph, as a port or a struct member has it. [any thread]
#pragma once

#include <Pelmor/NamedEntity.h>

#include <cstdint>

namespace Pelmor {

// Readers of types test the kind for arrays, structs and enums alone. All other types are told
// apart by their names.
enum class TypeKind : std::int32_t {
    Bool = 1,
    Int = 2,
    Double = 3,
    String = 4,
    Matrix = 5,
    Object = 6,
    Float = 7,
    Array = 14,
    Struct = 15,
    Enum = 16
};

class PELMOR_API Type : public NamedEntity {
public:
    TypeKind getTypeKind() const noexcept;

private:
    friend struct Internal::TypeDescription;

    using NamedEntity::NamedEntity;
};

}  // namespace Pelmor
