#include <Pelmor/DefaultClass.h>

namespace Tavrik {

Object::~Object() = default;

}  // namespace Tavrik

namespace Pelmor::Internal {

template <>
const Ptr<Tavrik::Object>& getDefaultClass<Tavrik::Object>() {
    static const Ptr<Tavrik::Object> s_object = makePtr<Tavrik::Object>();
    return s_object;
}

}  // namespace Pelmor::Internal
