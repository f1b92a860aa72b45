// The types that a graph can use: the built-in ones, the rigging records, and whatever structs and
// enums are defined in addition. [any thread]
#pragma once

#include <Pelmor/ArrayType.h>
#include <Pelmor/EnumType.h>
#include <Pelmor/Export.h>
#include <Pelmor/StructType.h>

#include <map>
#include <optional>
#include <vector>

namespace Pelmor {

class PELMOR_API Library {
public:
    // Has "bool", "int", "double", "float", "string", "Math::double4x4", "Object" and the records.
    Library();

    // The type of that name, "array<" + name + ">" at any depth included; nothing if there is
    // none. The form is exact: no blanks, no other case.
    std::optional<Type> findType(const String& fullyQualifiedName) const;
    // The same for a type that is known to be there: throws std::out_of_range if it is not.
    Type getType(const String& fullyQualifiedName) const;

    // Both throw std::invalid_argument, and define nothing, if the name is empty or taken, or if
    // two members or two enumerations have one name.
    StructType defineStruct(const String& name, std::vector<StructType::Member> members);
    EnumType defineEnum(const String& name, std::vector<EnumType::Enumeration> enumerations);

    static ArrayType arrayOf(const Type& elementType);

private:
    struct Less {
        bool operator()(const String& a, const String& b) const noexcept {
            return a.compare(b) < 0;
        }
    };

    Type add(Internal::TypeDescription description);
    void defineBuiltIns();
    void defineRecords();

    std::map<String, Type, Less> m_types;
};

}  // namespace Pelmor
