// A transformation as the rigging nodes exchange it: eight matrices, all zeros by default.
#pragma once

#include <Tolvane/record/Record.h>

#include <type_traits>

namespace Core::Transform {

struct Transform {
    Math::double4x4 matrix0 = {};
    Math::double4x4 matrix1 = {};
    Math::double4x4 matrix2 = {};
    Math::double4x4 matrix3 = {};
    Math::double4x4 matrix4 = {};
    Math::double4x4 matrix5 = {};
    Math::double4x4 matrix6 = {};
    Math::double4x4 matrix7 = {};
};

static_assert(sizeof(Transform) == 8 * sizeof(Math::double4x4));
static_assert(std::is_trivially_copyable_v<Transform>);

}  // namespace Core::Transform

template <>
struct Tolvane::Page<Core::Transform::Transform> {
    using Record = Core::Transform::Transform;
    static constexpr const char* typeName = "Core::Transform::Transform";
    static constexpr std::tuple members{&Record::matrix0, &Record::matrix1, &Record::matrix2,
                                        &Record::matrix3, &Record::matrix4, &Record::matrix5,
                                        &Record::matrix6, &Record::matrix7};
};
