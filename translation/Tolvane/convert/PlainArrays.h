// The readers and writers of arrays of plain values, by name. They are what the walk itself calls
// for such members; none of them uses the plug.
#pragma once

#include <Math/double4x4.h>
#include <Pelmor/String.h>
#include <Tolvane/convert/Translators.h>

namespace Tolvane {

using Strings = Pelmor::SharedArray<Pelmor::String>;
using Matrices = Pelmor::SharedArray<Math::double4x4>;
using Doubles = Pelmor::SharedArray<double>;

// clang-format off
extern template void Translators<Pelmor::String>::readArray(VDataHandle&, VPlug&, Strings&);
extern template void Translators<Math::double4x4>::readArray(VDataHandle&, VPlug&, Matrices&);
extern template void Translators<double>::readArray(VDataHandle&, VPlug&, Doubles&);
extern template void Translators<Pelmor::String>::writeArray(const Strings&, VDataHandle&, VPlug&);
extern template void Translators<Math::double4x4>::writeArray(const Matrices&, VDataHandle&, VPlug&);
extern template void Translators<double>::writeArray(const Doubles&, VDataHandle&, VPlug&);
// clang-format on

inline constexpr auto& readStringArray = Translators<Pelmor::String>::readArray;
inline constexpr auto& readMatrixArray = Translators<Math::double4x4>::readArray;
inline constexpr auto& readDoubleArray = Translators<double>::readArray;
inline constexpr auto& writeStringArray = Translators<Pelmor::String>::writeArray;
inline constexpr auto& writeMatrixArray = Translators<Math::double4x4>::writeArray;
inline constexpr auto& writeDoubleArray = Translators<double>::writeArray;

}  // namespace Tolvane
