// A view of an array type. [any thread]
#pragma once

#include <Pelmor/Type.h>

namespace Pelmor {

class PELMOR_API ArrayType : public Type {
public:
    // Throws std::invalid_argument if `type` is no array.
    explicit ArrayType(const Type& type);

    // May be an array itself.
    Type getElementType() const;
};

}  // namespace Pelmor
