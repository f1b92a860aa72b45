// How values of the graph lie in memory, told from their types alone, and whether a translation
// library lays them out in the same way.
#pragma once

#include <Pelmor/AnyValue.h>
#include <Pelmor/ElementTraits.h>
#include <Pelmor/Type.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// In bytes, as a C++ struct with the members of the type has it.
std::size_t sizeOf(const Pelmor::Type& type);

// Of an array of structs, what the graph takes an element to be. It is worked out once, because
// values of the type come by the thousand.
class ElementLayout {
public:
    explicit ElementLayout(const Pelmor::Type& type);

    // What is wrong if `value` is an array whose elements have another size than those of the type,
    // or, when they are new, null where the graph expects an array. Nothing also where that cannot
    // be told: a record that is held by itself says nothing of its size.
    std::optional<std::string> misfitOf(const Pelmor::AnyValue& value) const;

private:
    // An array in an element.
    struct Array {
        std::string path;
        std::size_t offset;
    };

    void findArrays(const Pelmor::Type& type, const std::string& path, std::size_t offset);
    // The path of the first; empty if there is none.
    std::string nullArrayOfNewElement(Pelmor::ElementOperations operations) const;

    // Empty of any other type.
    std::string m_elementName;
    std::size_t m_size = 0;
    std::vector<Array> m_arrays;
};

}  // namespace Tolvane::Tools
