#include <Pelmor/TypeInfo.h>

namespace Pelmor::Internal {

const TypeInfo TypeInfo::s_void{typeid(void*).name(), 0};

}  // namespace Pelmor::Internal
