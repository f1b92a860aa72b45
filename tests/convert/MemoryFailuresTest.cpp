// What ends the process and what does not, where something throws that should not.
#include "tests/convert/HostPort.h"
#include "tests/convert/Translators.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/RecordLeaves.h"

#include <Pelmor/AnyValue.h>

#include <new>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

constexpr const char* kTermination = "terminate called";

TEST(ReadValueDeathTest, EndsTheProcessWithoutMemoryForTheRecord) {
    auto port = HostPort::ofRecord<Transform>();
    Pelmor::AnyValue value;
    readTransformValue(value, port.handle, port.plug);
    // A transform is read without memory: the first that is taken is for the record in the holder.
    EXPECT_DEATH(
        {
            const AllocationFailure failure;
            readTransformValue(value, port.handle, port.plug);
        },
        kTermination);
}

TEST(ReadArrayDeathTest, EndsTheProcessWithoutMemoryForTheArray) {
    for (const std::vector<unsigned>& indices : {std::vector<unsigned>{}, {0, 1, 2}}) {
        auto port = HostPort::ofArray<double>(indices);
        Pelmor::SharedArray<double> array;
        readDoubleArray(port.handle, port.plug, array);
        // The array and its control block, and room for elements if there are any.
        const unsigned allocations = indices.empty() ? 1 : 2;
        for (unsigned nth = 1; nth <= allocations; ++nth)
            EXPECT_DEATH(
                {
                    const AllocationFailure failure(nth);
                    readDoubleArray(port.handle, port.plug, array);
                },
                kTermination);
    }
}

TEST(ReadOutputs, LetsAWantOfMemoryForTheNamePass) {
    auto port = HostPort::ofRecord<Outputs>();
    port.childHandle(0).setString("a name of more than fifteen characters");
    Outputs record;
    record.name = "before";
    const AllocationFailure failure;
    EXPECT_THROW(readOutputs(port.handle, port.plug, record), std::bad_alloc);
    EXPECT_EQ(record.name, "before");
}

void throwWhenAsked(Pelmor::AnyValueRequest*) { throw 42; }

// Its holder is never destroyed, since that would be a request to its manager as well.
const Pelmor::AnyValue& valueThatThrows() {
    static auto* words = new Pelmor::Internal::HolderWords{{}, &throwWhenAsked};
    return *reinterpret_cast<const Pelmor::AnyValue*>(words);
}

TEST(WriteFromAnyDeathTest, EndsTheProcessWhereTheHeldValueCannotBeAskedFor) {
    auto port = HostPort::ofRecord<Pins>();
    EXPECT_DEATH(Translators<Pins>::writeValue(valueThatThrows(), port.handle, port.plug),
                 kTermination);
}

}  // namespace
