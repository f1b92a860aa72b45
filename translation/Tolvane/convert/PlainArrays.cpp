#include <Tolvane/convert/PlainArrays.h>
#include <Tolvane/convert/Read.h>
#include <Tolvane/convert/Write.h>

namespace Tolvane {

template void Translators<Pelmor::String>::readArray(VDataHandle&, VPlug&, Strings&);
template void Translators<Math::double4x4>::readArray(VDataHandle&, VPlug&, Matrices&);
template void Translators<double>::readArray(VDataHandle&, VPlug&, Doubles&);
template void Translators<Pelmor::String>::writeArray(const Strings&, VDataHandle&, VPlug&);
template void Translators<Math::double4x4>::writeArray(const Matrices&, VDataHandle&, VPlug&);
template void Translators<double>::writeArray(const Doubles&, VDataHandle&, VPlug&);

}  // namespace Tolvane
