#include "tests/host/Attributes.h"

#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VFnGenericAttribute.h>

#include <gtest/gtest.h>

namespace {

template <typename FunctionSet>
bool refuses(const VObject& attribute) {
    return fails([&](VStatus* s) { return FunctionSet(attribute, s).object().isNull(); });
}

}  // namespace

TEST(Attribute, NewAttributeIsReadableWritableAndEnforcesItsName) {
    const VFnAttribute attribute(makeDouble("weight"));
    EXPECT_TRUE(attribute.isReadable());
    EXPECT_TRUE(attribute.isWritable());
    EXPECT_TRUE(attribute.isEnforcingUniqueName());
    EXPECT_FALSE(attribute.isKeyable());
    EXPECT_FALSE(attribute.isArray());
    EXPECT_TRUE(attribute.parent().isNull());
}

TEST(Attribute, FlagsAreKept) {
    VFnAttribute attribute(makeDouble("weight"));
    EXPECT_EQ(attribute.setReadable(false), VStatus::kSuccess);
    EXPECT_EQ(attribute.setWritable(false), VStatus::kSuccess);
    EXPECT_EQ(attribute.setKeyable(true), VStatus::kSuccess);
    EXPECT_EQ(attribute.setArray(true), VStatus::kSuccess);
    EXPECT_EQ(attribute.setEnforcingUniqueName(false), VStatus::kSuccess);

    const VFnAttribute same(attribute.object());
    EXPECT_FALSE(same.isReadable());
    EXPECT_FALSE(same.isWritable());
    EXPECT_TRUE(same.isKeyable());
    EXPECT_TRUE(same.isArray());
    EXPECT_FALSE(same.isEnforcingUniqueName());
}

TEST(Attribute, AttributeHasALongAndAShortName) {
    VFnNumericAttribute attribute;
    attribute.create("weight", "w", VFnNumericData::kDouble);
    EXPECT_EQ(attribute.name(), "weight");
    EXPECT_EQ(attribute.shortName(), "w");
}

TEST(Attribute, EmptyNamesAreRefused) {
    VFnCompoundAttribute compound;
    EXPECT_TRUE(fails([&](VStatus* s) { return compound.create("", "c", s).isNull(); }));
    EXPECT_TRUE(
        fails([&](VStatus* s) { return compound.create("compound", nullptr, s).isNull(); }));
}

TEST(Attribute, AttributeTellsItsKind) {
    EXPECT_EQ(VFnAttribute(makeDouble("a")).kind(), VFnAttribute::kNumeric);
    EXPECT_EQ(VFnAttribute(makeText("a")).kind(), VFnAttribute::kTyped);
    EXPECT_EQ(VFnAttribute(makeMatrix("a")).kind(), VFnAttribute::kMatrix);
    EXPECT_EQ(VFnAttribute(makeCompound("a", {})).kind(), VFnAttribute::kCompound);
    EXPECT_EQ(VFnAttribute(VFnEnumAttribute().create("a", "a")).kind(), VFnAttribute::kEnum);
    EXPECT_EQ(VFnAttribute(VFnGenericAttribute().create("a", "a")).kind(), VFnAttribute::kGeneric);
}

TEST(Attribute, FunctionSetOnNoAttributeFails) {
    EXPECT_TRUE(refuses<VFnAttribute>(VObject::kNullObj));
    EXPECT_TRUE(refuses<VFnAttribute>(makeNode("walk")));
    VFnAttribute none(VObject::kNullObj);
    EXPECT_TRUE(fails([&](VStatus* s) { return none.name(s) == ""; }));
    EXPECT_EQ(none.setWritable(true), VStatus::kInvalidParameter);
    EXPECT_EQ(none.setArray(true), VStatus::kInvalidParameter);
}

TEST(Attribute, FunctionSetOnAnAttributeOfAnotherKindFails) {
    const VObject number = makeDouble("weight");
    EXPECT_TRUE(refuses<VFnTypedAttribute>(number));
    EXPECT_TRUE(refuses<VFnMatrixAttribute>(number));
    EXPECT_TRUE(refuses<VFnEnumAttribute>(number));
    EXPECT_TRUE(refuses<VFnGenericAttribute>(number));
    EXPECT_TRUE(refuses<VFnCompoundAttribute>(number));
    EXPECT_TRUE(refuses<VFnNumericAttribute>(makeText("name")));
    VStatus status = VStatus::kFailure;
    EXPECT_EQ(VFnNumericAttribute(number, &status).object(), number);
    EXPECT_EQ(status, VStatus::kSuccess);
}

TEST(NumericAttribute, NumericAttributeTellsItsTypeAndDefault) {
    VFnNumericAttribute attribute;
    attribute.create("count", "count", VFnNumericData::kInt, 7.0);
    EXPECT_EQ(attribute.unitType(), VFnNumericData::kInt);
    EXPECT_EQ(attribute.defaultValue(), 7.0);
    attribute.create("on", "on", VFnNumericData::kBoolean);
    EXPECT_EQ(attribute.unitType(), VFnNumericData::kBoolean);
    attribute.create("weight", "weight", VFnNumericData::kDouble);
    EXPECT_EQ(attribute.unitType(), VFnNumericData::kDouble);
}

TEST(NumericAttribute, TypesAndDefaultsThatCannotBeStoredAreRefused) {
    const auto isRefused = [](VFnNumericData::Type type, double value) {
        return fails([=](VStatus* status) {
            return VFnNumericAttribute().create("a", "a", type, value, status).isNull();
        });
    };
    EXPECT_TRUE(isRefused(VFnNumericData::kInvalid, 0.0));
    EXPECT_TRUE(isRefused(VFnNumericData::kInt, 1e10));
}

TEST(TypedAttribute, TypedAttributeTakesTextWithTheDefaultOfItsType) {
    VStatus status;
    VFnTypedAttribute attribute;
    attribute.create("name", "name", VFnData::kString, VObject::kNullObj, &status);
    EXPECT_EQ(status, VStatus::kSuccess);
    EXPECT_EQ(attribute.attrType(), VFnData::kString);
    EXPECT_TRUE(attribute.create("name", "name", VFnData::kInvalid).isNull());
    EXPECT_TRUE(attribute.create("name", "name", VFnData::kString, makeNode("walk")).isNull());
}

TEST(MatrixAttribute, MatrixAttributeStoresDoublesOnly) {
    VStatus status;
    VFnMatrixAttribute attribute;
    attribute.create("m", "m", VFnMatrixAttribute::kDouble, &status);
    EXPECT_EQ(status, VStatus::kSuccess);
    EXPECT_EQ(attribute.matrixType(), VFnMatrixAttribute::kDouble);
    EXPECT_TRUE(attribute.create("m", "m", VFnMatrixAttribute::kFloat, &status).isNull());
    EXPECT_EQ(status, VStatus::kInvalidParameter);
}

TEST(EnumAttribute, FieldsKeepTheirOrder) {
    VFnEnumAttribute attribute;
    attribute.create("mode", "mode", 3);
    EXPECT_EQ(attribute.addField("slow", 9), VStatus::kSuccess);
    EXPECT_EQ(attribute.addField("fast", -2), VStatus::kSuccess);
    EXPECT_EQ(attribute.addField("also slow", 9), VStatus::kSuccess);
    EXPECT_EQ(attribute.defaultValue(), 3);
    ASSERT_EQ(attribute.numFields(), 3U);
    EXPECT_EQ(attribute.fieldName(0), "slow");
    EXPECT_EQ(attribute.fieldValue(0), 9);
    EXPECT_EQ(attribute.fieldName(1), "fast");
    EXPECT_EQ(attribute.fieldValue(1), -2);
    EXPECT_EQ(attribute.fieldName(2), "also slow");
}

TEST(EnumAttribute, TakenFieldNamesAndIndicesPastTheLastAreRefused) {
    VFnEnumAttribute attribute;
    attribute.create("mode", "mode");
    attribute.addField("slow", 1);
    EXPECT_EQ(attribute.addField("slow", 2), VStatus::kFailure);
    EXPECT_EQ(attribute.numFields(), 1U);
    EXPECT_TRUE(fails([&](VStatus* s) { return attribute.fieldName(1, s) == ""; }));
    EXPECT_TRUE(fails([&](VStatus* s) { return attribute.fieldValue(1, s) == 0; }));
}

TEST(GenericAttribute, GenericAttributeAcceptsTheTypesThatItIsTold) {
    VFnGenericAttribute attribute;
    attribute.create("object", "object");
    EXPECT_EQ(attribute.numAcceptedTypes(), 0U);
    EXPECT_EQ(attribute.addDataAccept(VFnData::kString), VStatus::kSuccess);
    EXPECT_EQ(attribute.addDataAccept(VFnData::kString), VStatus::kSuccess);
    EXPECT_EQ(attribute.numAcceptedTypes(), 1U);
    EXPECT_EQ(attribute.addDataAccept(VFnData::kInvalid), VStatus::kInvalidParameter);
}

TEST(CompoundAttribute, ChildrenKeepTheirOrder) {
    const VObject first = makeDouble("z");
    const VObject second = makeText("a");
    const VFnCompoundAttribute compound(makeCompound("limb", {first, second}));
    ASSERT_EQ(compound.numChildren(), 2U);
    EXPECT_EQ(compound.child(0), first);
    EXPECT_EQ(compound.child(1), second);
    EXPECT_EQ(VFnAttribute(first).parent(), compound.object());
    EXPECT_TRUE(fails([&](VStatus* s) { return compound.child(2, s).isNull(); }));
}

TEST(CompoundAttribute, ChildThatIsNoAttributeIsRefused) {
    VFnCompoundAttribute compound(makeCompound("limb", {}));
    EXPECT_EQ(compound.addChild(VObject::kNullObj), VStatus::kInvalidParameter);
    EXPECT_EQ(compound.addChild(makeNode("walk")), VStatus::kInvalidParameter);
    EXPECT_EQ(VFnCompoundAttribute().addChild(makeDouble("a")), VStatus::kInvalidParameter);
    EXPECT_EQ(compound.numChildren(), 0U);
}

TEST(CompoundAttribute, ChildThatHasAParentOrANodeIsRefused) {
    const VObject taken = makeDouble("a");
    const VObject first = makeCompound("first", {taken});
    const VObject owned = makeDouble("b");
    const VObject node = makeNode("walk", {owned});
    VFnCompoundAttribute second(makeCompound("second", {}));
    EXPECT_TRUE(second.addChild(taken).error());
    EXPECT_TRUE(second.addChild(owned).error());
    EXPECT_EQ(second.numChildren(), 0U);
    EXPECT_EQ(VFnAttribute(taken).parent(), first);
}

TEST(CompoundAttribute, CompoundInsideItselfIsRefused) {
    const VObject inner = makeCompound("inner", {});
    const VObject outer = makeCompound("outer", {inner});
    EXPECT_TRUE(VFnCompoundAttribute(inner).addChild(inner).error());
    EXPECT_TRUE(VFnCompoundAttribute(inner).addChild(outer).error());
    EXPECT_EQ(VFnCompoundAttribute(inner).numChildren(), 0U);
}

TEST(CompoundAttribute, ChildOfATakenNameLongOrShortIsRefused) {
    VFnCompoundAttribute compound(makeCompound("limb", {}));
    VFnNumericAttribute numeric;
    compound.addChild(numeric.create("weight", "w", VFnNumericData::kDouble));
    EXPECT_TRUE(compound.addChild(makeDouble("weight")).error());
    EXPECT_TRUE(compound.addChild(makeDouble("w")).error());
    EXPECT_EQ(compound.addChild(makeDouble("limb")), VStatus::kSuccess);
    EXPECT_EQ(compound.numChildren(), 2U);
}

TEST(CompoundAttribute, ShapeIsFixedOnceANodeHasTheCompound) {
    const VObject child = makeDouble("a");
    const VObject generic = VFnGenericAttribute().create("g", "g");
    const VObject compound = makeCompound("limb", {child, generic});
    const VObject node = makeNode("walk", {compound});
    EXPECT_TRUE(VFnCompoundAttribute(compound).addChild(makeDouble("b")).error());
    EXPECT_TRUE(VFnAttribute(child).setArray(true).error());
    EXPECT_TRUE(VFnGenericAttribute(generic).addDataAccept(VFnData::kString).error());
    EXPECT_FALSE(VFnAttribute(child).isArray());
    EXPECT_EQ(VFnAttribute(child).setKeyable(true), VStatus::kSuccess);
}

TEST(CompoundAttribute, ChildThatOutlivesItsParentHasNone) {
    const VObject child = makeDouble("a");
    { const VObject compound = makeCompound("limb", {child}); }
    EXPECT_TRUE(VFnAttribute(child).parent().isNull());
    EXPECT_EQ(VFnCompoundAttribute(makeCompound("other", {})).addChild(child), VStatus::kSuccess);
}
