#include "tools/node/GraphLayout.h"

#include <Math/double4x4.h>
#include <Pelmor/Array.h>
#include <Pelmor/ArrayType.h>
#include <Pelmor/StructType.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>

namespace Tolvane::Tools {
namespace {

// In bytes.
struct Layout {
    std::size_t size;
    std::size_t alignment;
};

template <typename T>
constexpr Layout kLayoutOf{sizeof(T), alignof(T)};

Layout layoutOf(const Pelmor::Type& type);

std::size_t roundedUp(std::size_t size, std::size_t alignment) {
    return (size + alignment - 1) / alignment * alignment;
}

// Calls `visit(member, offset)` for each member.
template <typename Visit>
Layout walkMembers(const Pelmor::StructType& type, const Visit& visit) {
    Layout whole{0, 1};
    for (auto member = type.begin(); member != type.end(); ++member) {
        const Layout layout = layoutOf(member->getType());
        const std::size_t offset = roundedUp(whole.size, layout.alignment);
        visit(*member, offset);
        whole.size = offset + layout.size;
        whole.alignment = std::max(whole.alignment, layout.alignment);
    }
    // Even a struct without members takes a byte.
    return {roundedUp(std::max<std::size_t>(whole.size, 1), whole.alignment), whole.alignment};
}

Layout layoutOf(const Pelmor::Type& type) {
    switch (type.getTypeKind()) {
        case Pelmor::TypeKind::Struct:
            return walkMembers(Pelmor::StructType(type), [](const auto&, std::size_t) {});
        case Pelmor::TypeKind::Matrix:
            return kLayoutOf<Math::double4x4>;
        case Pelmor::TypeKind::String:
            return kLayoutOf<Pelmor::String>;
        case Pelmor::TypeKind::Double:
            return kLayoutOf<double>;
        case Pelmor::TypeKind::Float:
            return kLayoutOf<float>;
        case Pelmor::TypeKind::Bool:
            return kLayoutOf<bool>;
        case Pelmor::TypeKind::Int:
        case Pelmor::TypeKind::Enum:
            return kLayoutOf<std::int32_t>;
        case Pelmor::TypeKind::Object:
        case Pelmor::TypeKind::Array:
            break;
    }
    return kLayoutOf<Pelmor::SharedArray<double>>;
}

// The words of an array, which are the same whatever its elements are.
struct ArrayWords {
    void* data;
    std::uint64_t size;
    std::uint64_t capacity;
    Pelmor::Internal::UntypedTypeRep elementRep;
};
static_assert(sizeof(ArrayWords) == sizeof(Pelmor::Array<double>));

// The library's own identity of the array cannot be known here, but it need not: the holder gives
// the address of a shared pointer, whose first word points to the array.
std::optional<Pelmor::Internal::UntypedTypeRep> elementRepIn(const Pelmor::AnyValue& value) {
    if (!value.hasValue() || value.type().arrayDepth != 1) return std::nullopt;
    Pelmor::AnyValueRequest request{Pelmor::AnyValueOp::Get,
                                    const_cast<Pelmor::AnyValueWords*>(&value.words()), nullptr,
                                    nullptr};
    value.words().manager(&request);
    const void* address = nullptr;
    if (request.operand2) std::memcpy(&address, request.operand2, sizeof address);
    if (!address) return std::nullopt;
    ArrayWords array;
    std::memcpy(&array, address, sizeof array);
    return array.elementRep;
}

}  // namespace

std::size_t sizeOf(const Pelmor::Type& type) { return layoutOf(type).size; }

ElementLayout::ElementLayout(const Pelmor::Type& type) {
    if (type.getTypeKind() != Pelmor::TypeKind::Array) return;
    const Pelmor::Type element = Pelmor::ArrayType(type).getElementType();
    if (element.getTypeKind() != Pelmor::TypeKind::Struct) return;
    m_elementName = element.getFullyQualifiedName().c_str();
    m_size = sizeOf(element);
    findArrays(element, "", 0);
}

void ElementLayout::findArrays(const Pelmor::Type& type, const std::string& path,
                               std::size_t offset) {
    if (type.getTypeKind() == Pelmor::TypeKind::Array) m_arrays.push_back({path, offset});
    if (type.getTypeKind() != Pelmor::TypeKind::Struct) return;
    walkMembers(Pelmor::StructType(type), [&](const auto& member, std::size_t offsetInStruct) {
        findArrays(member.getType(), path + (path.empty() ? "" : ".") + member.getName().c_str(),
                   offset + offsetInStruct);
    });
}

std::optional<std::string> ElementLayout::misfitOf(const Pelmor::AnyValue& value) const {
    if (m_elementName.empty()) return std::nullopt;
    const auto actual = elementRepIn(value);
    if (!actual) return std::nullopt;
    if (actual->elementSize != m_size)
        return "an element has " + std::to_string(actual->elementSize) +
               " bytes, and the graph's " + m_elementName + " has " + std::to_string(m_size) +
               ": is the struct declared as the graph has it?";
    if (!actual->operations) return std::nullopt;
    const std::string null = nullArrayOfNewElement(actual->operations);
    if (null.empty()) return std::nullopt;
    return "a new element has no array in " + null + ": is it initialised with Tolvane::newArray?";
}

std::string ElementLayout::nullArrayOfNewElement(Pelmor::ElementOperations operations) const {
    const auto element = std::make_unique<std::byte[]>(m_size);
    operations(Pelmor::ElementOperation::DefaultConstruct, element.get(), nullptr, 1);
    const auto null = std::find_if(m_arrays.begin(), m_arrays.end(), [&](const Array& array) {
        const void* address;
        std::memcpy(&address, element.get() + array.offset, sizeof address);
        return !address;
    });
    std::string path = null == m_arrays.end() ? "" : null->path;
    operations(Pelmor::ElementOperation::Destroy, element.get(), nullptr, 1);
    return path;
}

}  // namespace Tolvane::Tools
