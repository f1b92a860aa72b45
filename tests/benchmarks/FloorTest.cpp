// The floor that the plugin is measured against makes the host calls that the plugin makes.
#include "benchmarks/Floor.h"
#include "benchmarks/Studio.h"
#include "tests/support/CallRecorder.h"

#include <Pelmor/AnyValue.h>

#include <cctype>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Benchmarks::HostPort;
using Benchmarks::Lengths;
using TestSupport::CallRecorder;

constexpr unsigned kLength = 3;

template <typename Value>
const char* typeName();

#define NAME_OF_TYPE(record, name)                       \
    template <>                                          \
    const char* typeName<Floor::record>() {              \
        return name;                                     \
    }                                                    \
    template <>                                          \
    const char* typeName<std::vector<Floor::record>>() { \
        return "array<" name ">";                        \
    }
NAME_OF_TYPE(Transform, "Core::Transform::Transform")
NAME_OF_TYPE(NamedTransforms, "Rigging::Module::NamedTransforms")
NAME_OF_TYPE(Pins, "Rigging::Module::Pins")
NAME_OF_TYPE(InputsJoints, "Rigging::Module::InputsJoints")
NAME_OF_TYPE(InputsControls, "Rigging::Module::InputsControls")
NAME_OF_TYPE(Inputs, "Rigging::Module::Inputs")
NAME_OF_TYPE(Outputs, "Rigging::Module::Outputs")
#undef NAME_OF_TYPE

using Values = testing::Types<
    Floor::Transform, Floor::NamedTransforms, Floor::Pins, Floor::InputsJoints,
    Floor::InputsControls, Floor::Inputs, Floor::Outputs, std::vector<Floor::Transform>,
    std::vector<Floor::NamedTransforms>, std::vector<Floor::Pins>, std::vector<Floor::InputsJoints>,
    std::vector<Floor::InputsControls>, std::vector<Floor::Inputs>, std::vector<Floor::Outputs>>;

struct NameOfValue {
    template <typename Value>
    static std::string GetName(int) {
        std::string name;
        for (const char* c = typeName<Value>(); *c; ++c)
            if (std::isalnum(static_cast<unsigned char>(*c))) name += *c;
        return name;
    }
};

// A port that holds a value of arrays of kLength, and that value in both forms.
template <typename Value>
class FloorCalls : public testing::Test {
protected:
    FloorCalls() : port(typeName<Value>()) {
        port.fill({kLength, kLength});
        value = port.read();
        floorValue = Floor::readPort<Value>(port.block, port.plug);
    }

    // The calls that writing to arrays of `formerLength` takes on either side.
    void compareWriting(unsigned formerLength) {
        const Lengths former{formerLength, formerLength};
        port.fill(former);
        CallRecorder calls;
        port.write(value);
        const CallRecorder::Lines ofThePlugin = calls.take();
        port.fill(former);
        calls.take();
        Floor::writePort(floorValue, port.block, port.plug);
        EXPECT_EQ(calls.lines(), ofThePlugin);
        EXPECT_GT(ofThePlugin.size(), 8u);
    }

    HostPort port;
    Pelmor::AnyValue value;
    Value floorValue;
};
TYPED_TEST_SUITE(FloorCalls, Values, NameOfValue);

TYPED_TEST(FloorCalls, AreThoseOfReading) {
    CallRecorder calls;
    this->port.read();
    const CallRecorder::Lines ofThePlugin = calls.take();
    Floor::readPort<TypeParam>(this->port.block, this->port.plug);
    EXPECT_EQ(calls.lines(), ofThePlugin);
    EXPECT_GT(ofThePlugin.size(), 8u);
}

TYPED_TEST(FloorCalls, AreThoseOfWritingInPlace) { this->compareWriting(kLength); }

TYPED_TEST(FloorCalls, AreThoseOfGrowing) { this->compareWriting(kLength - 2); }

TYPED_TEST(FloorCalls, AreThoseOfShrinking) { this->compareWriting(kLength + 2); }

}  // namespace
