#include "tests/types/TransformNumbers.h"
#include "types/Transform.h"

#include <Pelmor/Array.h>

#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

namespace {

using Core::Transform::Transform;
using TypesTests::isAllZeros;
using TypesTests::numbered;
using TypesTests::sameNumbers;

TEST(Transform, IsAllZerosByDefault) {
    alignas(Transform) std::byte storage[sizeof(Transform)];
    std::memset(storage, 0xff, sizeof storage);
    EXPECT_TRUE(isAllZeros(*new (storage) Transform));
    EXPECT_TRUE(isAllZeros(Transform()));
}

TEST(Transform, IsAllZerosAsAnElementOfANewArray) {
    const Pelmor::Array<Transform> transforms(3);
    ASSERT_EQ(transforms.size(), 3u);
    for (const Transform& transform : transforms) EXPECT_TRUE(isAllZeros(transform));
}

TEST(Transform, IsCopiedNumberByNumber) {
    static_assert(std::is_trivially_copyable_v<Transform>);
    Transform original = numbered(1);
    const Transform copy(original);
    const Transform moved(std::move(original));
    Transform assigned;
    assigned = copy;
    EXPECT_TRUE(sameNumbers(copy, numbered(1)));
    EXPECT_TRUE(sameNumbers(moved, numbered(1)));
    EXPECT_TRUE(sameNumbers(assigned, numbered(1)));
}

}  // namespace
