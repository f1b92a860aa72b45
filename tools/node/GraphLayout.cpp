#include "tools/node/GraphLayout.h"

#include <Math/double4x4.h>
#include <Pelmor/Array.h>
#include <Pelmor/ArrayType.h>
#include <Pelmor/StructType.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

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

Layout layoutOfStruct(const Pelmor::StructType& type) {
    Layout whole{0, 1};
    for (auto member = type.begin(); member != type.end(); ++member) {
        const Layout layout = layoutOf(member->getType());
        whole.size = roundedUp(whole.size, layout.alignment) + layout.size;
        whole.alignment = std::max(whole.alignment, layout.alignment);
    }
    // Even a struct without members takes a byte.
    return {roundedUp(std::max<std::size_t>(whole.size, 1), whole.alignment), whole.alignment};
}

Layout layoutOf(const Pelmor::Type& type) {
    switch (type.getTypeKind()) {
        case Pelmor::TypeKind::Struct:
            return layoutOfStruct(Pelmor::StructType(type));
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
std::optional<std::size_t> elementSizeOf(const Pelmor::AnyValue& value) {
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
    return array.elementRep.elementSize;
}

}  // namespace

std::size_t sizeOf(const Pelmor::Type& type) { return layoutOf(type).size; }

ElementLayout::ElementLayout(const Pelmor::Type& type) {
    if (type.getTypeKind() != Pelmor::TypeKind::Array) return;
    const Pelmor::Type element = Pelmor::ArrayType(type).getElementType();
    if (element.getTypeKind() != Pelmor::TypeKind::Struct) return;
    m_elementName = element.getFullyQualifiedName().c_str();
    m_size = sizeOf(element);
}

std::optional<std::string> ElementLayout::misfitOf(const Pelmor::AnyValue& value) const {
    if (m_elementName.empty()) return std::nullopt;
    const auto actual = elementSizeOf(value);
    if (!actual || *actual == m_size) return std::nullopt;
    return "an element has " + std::to_string(*actual) + " bytes, and the graph's " +
           m_elementName + " has " + std::to_string(m_size) +
           ": is the struct declared as the graph has it?";
}

}  // namespace Tolvane::Tools
