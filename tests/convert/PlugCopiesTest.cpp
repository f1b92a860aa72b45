// How often a plug is copied on the way of a value: once for what a port is given to read only, and
// never below. The walks are compiled here with a plug that counts its copies.
#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

namespace {

class CountedPlug : public VPlug {
public:
    CountedPlug(const VPlug& plug) : VPlug(plug) {}
    CountedPlug(const CountedPlug& other) : VPlug(other) { ++s_copies; }
    CountedPlug(CountedPlug&&) = default;
    CountedPlug& operator=(const CountedPlug& other) {
        ++s_copies;
        VPlug::operator=(other);
        return *this;
    }
    CountedPlug& operator=(CountedPlug&&) = default;

    CountedPlug child(unsigned index) { return VPlug::child(index); }
    CountedPlug elementByLogicalIndex(unsigned index) {
        return VPlug::elementByLogicalIndex(index);
    }

    static int s_copies;
};
int CountedPlug::s_copies = 0;

}  // namespace

#define VPlug CountedPlug
#include "convert/PlainArrays.cpp"
#undef VPlug

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnNumericAttribute.h>

#include <tuple>

#include <gtest/gtest.h>

namespace {

struct Leg {
    double length = 0, angle = 0;
};
struct Body {
    Leg left, right;
    Pelmor::SharedArray<Leg> others = Tolvane::newArray;
};

}  // namespace

template <>
struct Tolvane::Page<Leg> {
    static constexpr const char* typeName = "Leg";
    static constexpr std::tuple members{&Leg::length, &Leg::angle};
};
template <>
struct Tolvane::Page<Body> {
    static constexpr const char* typeName = "Body";
    static constexpr std::tuple members{&Body::left, &Body::right, &Body::others};
};

namespace {

VObject numberAttribute(const char* name) {
    return VFnNumericAttribute().create(name, name, VFnNumericData::kDouble);
}

VObject compound(const char* name, bool isArray, std::initializer_list<VObject> children) {
    VFnCompoundAttribute functions;
    const VObject object = functions.create(name, name);
    functions.setArray(isArray);
    for (const VObject& child : children) {
        VFnAttribute(child).setEnforcingUniqueName(false);
        functions.addChild(child);
    }
    return object;
}

VObject leg(const char* name, bool isArray) {
    return compound(name, isArray, {numberAttribute("length"), numberAttribute("angle")});
}

VObject body(bool isArray) {
    return compound("body", isArray,
                    {leg("left", false), leg("right", false), leg("others", true)});
}

class PlugCopies : public testing::TestWithParam<bool> {
protected:
    PlugCopies() {
        VDGModifier modifier;
        modifier.addAttribute(m_node, m_attribute);
        modifier.doIt();
    }

    // Of three bodies with two other legs each, or of one.
    static Pelmor::SharedArray<Body> bodies() {
        auto array = Pelmor::makePtr<Pelmor::Array<Body>>(3u);
        for (Body& element : *array) element.others = Pelmor::makePtr<Pelmor::Array<Leg>>(2u);
        return array;
    }

    const VObject m_node = VFnDependencyNode().create("node");
    const VObject m_attribute = body(GetParam());
};
INSTANTIATE_TEST_SUITE_P(IsArray, PlugCopies, testing::Bool());

TEST_P(PlugCopies, AreOneForEachValueThatIsWrittenOrRead) {
    const CountedPlug port{VPlug(m_node, m_attribute)};
    VDataHandle handle = VFnDependencyNode(m_node).dataBlock().outputValue(port);
    using Array = Pelmor::SharedArray<Body>;
    using Carry = Tolvane::Translators<Body>;
    const auto array = bodies();
    // Growing, and then in place.
    for (int i = 0; i < 2; ++i) {
        CountedPlug::s_copies = 0;
        if (GetParam())
            Tolvane::writeFromAny<Array, Carry::writeArray>(Pelmor::AnyValue::holding(array),
                                                            handle, port);
        else
            Tolvane::writeFromAny<Body, Carry::write>(Pelmor::AnyValue::holding((*array)[0]),
                                                      handle, port);
        EXPECT_LE(CountedPlug::s_copies, 1);
    }
    Pelmor::AnyValue value;
    CountedPlug::s_copies = 0;
    (GetParam() ? Carry::readArrayValue : Carry::readValue)(value, handle, port);
    EXPECT_LE(CountedPlug::s_copies, 1);
    const Body* read = GetParam() ? value.getIf<Array>()->get()->begin() : value.getIf<Body>();
    EXPECT_EQ(read->others->size(), 2u);
}

}  // namespace
