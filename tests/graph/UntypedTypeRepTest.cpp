#include "tests/graph/ElementEvents.h"
#include "tests/support/AllocationCount.h"

#include <Math/double4x4.h>
#include <Pelmor/Array.h>
#include <Pelmor/UntypedTypeRep.h>

#include <cstdint>
#include <cstring>
#include <new>

#include <gtest/gtest.h>

namespace {

using Pelmor::Internal::elementRepOf;
using Pelmor::Internal::UntypedTypeRep;
using TestSupport::AllocationCount;

template <typename Element>
void expectDescription(std::uint32_t alignmentAndKind,
                       Pelmor::ElementOperations operations = nullptr) {
    const UntypedTypeRep rep = elementRepOf<Element>();
    EXPECT_EQ(rep.elementSize, sizeof(Element));
    EXPECT_EQ(rep.alignmentAndKind, alignmentAndKind);
    EXPECT_EQ(rep.operations, operations);
}

TEST(UntypedTypeRep, DescriptionHasSizeAlignmentKindAndOperationsOfTheElement) {
    static_assert(sizeof(Math::double4x4) == 128 && sizeof(Pelmor::String) == 16);
    expectDescription<double>(0x00000008u);
    expectDescription<Math::double4x4>(0x00000008u);
    expectDescription<Pelmor::String>(0x00010008u);
    expectDescription<GraphTests::EnteredElement>(0x00080008u,
                                                  &GraphTests::EnteredElement::operations);
}

TEST(UntypedTypeRep, AlignmentIsTheLowHalfAndKindTheHighHalf) {
    const UntypedTypeRep rep{4, 0xabcd0010u, nullptr};
    EXPECT_EQ(rep.alignment(), 0x10u);
    EXPECT_EQ(rep.kindCode(), 0xabcdu);
}

TEST(UntypedTypeRep, AllocateGivesWritableStorageForAllElements) {
    const AllocationCount count;
    const UntypedTypeRep rep{24, 8, nullptr};
    void* buffer = rep.allocate(100);
    EXPECT_EQ(count.allocations(), 1u);
    std::memset(buffer, 0xff, 2400);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer) % 8, 0u);
    rep.deallocate(buffer, 100);
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(UntypedTypeRep, AllocateAlignsStorageAsDescribed) {
    for (const std::uint32_t alignment : {8u, 16u, 64u, 4096u}) {
        const UntypedTypeRep rep{64, alignment, nullptr};
        void* buffer = rep.allocate(3);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer) % alignment, 0u);
        rep.deallocate(buffer, 3);
    }
}

TEST(UntypedTypeRep, AllocateRefusesACountWhoseBytesCannotBeCounted) {
    const UntypedTypeRep rep = elementRepOf<Pelmor::String>();
    const AllocationCount count;
    // Sixteen times these is, in 64 bits, 0 and 16.
    EXPECT_THROW(rep.allocate(std::uint64_t{1} << 60), std::bad_alloc);
    EXPECT_THROW(rep.allocate((std::uint64_t{1} << 60) + 1), std::bad_alloc);
    EXPECT_THROW(rep.allocate(UINT64_MAX), std::bad_alloc);
    EXPECT_EQ(count.allocations(), 0u);
}

}  // namespace
