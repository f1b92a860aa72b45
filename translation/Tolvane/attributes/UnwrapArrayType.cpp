#include <Pelmor/ArrayType.h>
#include <Tolvane/attributes/UnwrapArrayType.h>

namespace Tolvane {

UnwrappedType unwrapArrayType(const Pelmor::Type& type) {
    UnwrappedType unwrapped{type, 0};
    while (unwrapped.innermost.getTypeKind() == Pelmor::TypeKind::Array) {
        unwrapped.innermost = Pelmor::ArrayType(unwrapped.innermost).getElementType();
        ++unwrapped.arrayLevels;
    }
    return unwrapped;
}

}  // namespace Tolvane
