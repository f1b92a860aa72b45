#include "plugin/Records.h"

#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace Rigging::Module;
using Math::double4x4;
using Pelmor::SharedArray;
using Pelmor::String;

// Where a member lies in its record, in bytes, and its type: the graph knows members by nothing
// else.
template <typename Member, typename Record, typename Declared>
std::size_t placeOf(Declared Record::*member) {
    static_assert(std::is_same_v<Declared, Member>);
    const Record record{};
    return static_cast<std::size_t>(reinterpret_cast<const char*>(&(record.*member)) -
                                    reinterpret_cast<const char*>(&record));
}

TEST(RecordLayout, TransformIsEightMatricesInOrder) {
    double4x4 Transform::*const members[] = {
        &Transform::matrix0, &Transform::matrix1, &Transform::matrix2, &Transform::matrix3,
        &Transform::matrix4, &Transform::matrix5, &Transform::matrix6, &Transform::matrix7};
    for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(placeOf<double4x4>(members[i]), 128 * i);
    EXPECT_EQ(sizeof(Transform), 1024u);
}

TEST(RecordLayout, NamedTransformsIsNamesAndTransforms) {
    EXPECT_EQ(placeOf<SharedArray<String>>(&NamedTransforms::names), 0u);
    EXPECT_EQ(placeOf<SharedArray<Transform>>(&NamedTransforms::transforms), 16u);
    EXPECT_EQ(sizeof(NamedTransforms), 32u);
}

TEST(RecordLayout, PinsIsNamesAndMatrices) {
    EXPECT_EQ(placeOf<SharedArray<String>>(&Pins::names), 0u);
    EXPECT_EQ(placeOf<SharedArray<double4x4>>(&Pins::matrices), 16u);
    EXPECT_EQ(sizeof(Pins), 32u);
}

TEST(RecordLayout, InputsJointsEndsInItsNamedTransforms) {
    EXPECT_EQ(placeOf<SharedArray<String>>(&InputsJoints::names), 0u);
    EXPECT_EQ(placeOf<SharedArray<double4x4>>(&InputsJoints::matrices), 16u);
    EXPECT_EQ(placeOf<NamedTransforms>(&InputsJoints::namedTransforms), 32u);
    EXPECT_EQ(sizeof(InputsJoints), 64u);
}

TEST(RecordLayout, InputsControlsHasWeightsBeforeItsNamedTransforms) {
    EXPECT_EQ(placeOf<SharedArray<String>>(&InputsControls::names), 0u);
    EXPECT_EQ(placeOf<SharedArray<double4x4>>(&InputsControls::matrices), 16u);
    EXPECT_EQ(placeOf<SharedArray<double>>(&InputsControls::weights), 32u);
    EXPECT_EQ(placeOf<NamedTransforms>(&InputsControls::namedTransforms), 48u);
    EXPECT_EQ(sizeof(InputsControls), 80u);
}

TEST(RecordLayout, InputsHoldsItsRecordsInPlaceAndThenItsObjects) {
    EXPECT_EQ(placeOf<Pins>(&Inputs::pins), 0u);
    EXPECT_EQ(placeOf<InputsJoints>(&Inputs::joints), 32u);
    EXPECT_EQ(placeOf<InputsControls>(&Inputs::controls0), 96u);
    EXPECT_EQ(placeOf<InputsControls>(&Inputs::controls1), 176u);
    EXPECT_EQ(placeOf<Pelmor::Ptr<Tavrik::Object>>(&Inputs::object0), 256u);
    EXPECT_EQ(placeOf<Pelmor::Ptr<Tavrik::Object>>(&Inputs::object1), 272u);
    EXPECT_EQ(sizeof(Inputs), 288u);
}

TEST(RecordLayout, OutputsBeginsWithItsNameAndEndsInItsObjects) {
    EXPECT_EQ(placeOf<String>(&Outputs::name), 0u);
    EXPECT_EQ(placeOf<Pins>(&Outputs::pins), 16u);
    EXPECT_EQ(placeOf<NamedTransforms>(&Outputs::namedTransforms0), 48u);
    EXPECT_EQ(placeOf<NamedTransforms>(&Outputs::namedTransforms1), 80u);
    EXPECT_EQ(placeOf<NamedTransforms>(&Outputs::namedTransforms2), 112u);
    EXPECT_EQ(placeOf<Pelmor::Ptr<Tavrik::Object>>(&Outputs::object0), 144u);
    EXPECT_EQ(placeOf<Pelmor::Ptr<Tavrik::Object>>(&Outputs::object1), 160u);
    EXPECT_EQ(sizeof(Outputs), 176u);
}

}  // namespace
