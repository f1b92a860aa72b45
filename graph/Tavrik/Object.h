// The base of the graph framework's generic objects, which records carry by shared pointer.
#pragma once

#include <Pelmor/Export.h>

namespace Tavrik {

class PELMOR_API Object {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();
};

}  // namespace Tavrik
