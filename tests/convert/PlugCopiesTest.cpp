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

    CountedPlug child(unsigned index, VStatus* status) { return VPlug::child(index, status); }
    CountedPlug elementByLogicalIndex(unsigned index, VStatus* status) {
        return VPlug::elementByLogicalIndex(index, status);
    }

    inline static int s_copies = 0;
};

}  // namespace

#define VPlug CountedPlug
#include <Tolvane/convert/PlainArrays.cpp>
#undef VPlug

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>
#include <Rigging/Transform.h>
#include <Tolvane/attributes/PortAttribute.h>

#include <tuple>

#include <gtest/gtest.h>

namespace {

struct Leg {
    double length = 0;
};
struct Body {
    Leg left, right;
    Pelmor::SharedArray<Core::Transform::Transform> poses = Tolvane::newArray;
};

}  // namespace

template <>
struct Tolvane::Page<Leg> {
    [[maybe_unused]] static constexpr const char* typeName = "Leg";
    static constexpr std::tuple members{&Leg::length};
};
template <>
struct Tolvane::Page<Body> {
    [[maybe_unused]] static constexpr const char* typeName = "Body";
    static constexpr std::tuple members{&Body::left, &Body::right, &Body::poses};
};

namespace {

VObject bodyAttribute(bool isArray) {
    Pelmor::Library library;
    const Pelmor::Type leg = library.defineStruct("Leg", {{"length", library.getType("double")}});
    const Pelmor::Type poses = library.getType("array<Core::Transform::Transform>");
    library.defineStruct("Body", {{"left", leg}, {"right", leg}, {"poses", poses}});
    return Tolvane::createPortAttribute(library.getType(isArray ? "array<Body>" : "Body"), "body",
                                        false);
}

using Bodies = Pelmor::SharedArray<Body>;

template <typename Held, void (*write)(const Held&, VDataHandle&, CountedPlug&)>
void expectOneCopy(Tolvane::HostReader read, const Held& held) {
    const VObject attribute = bodyAttribute(std::is_same_v<Held, Bodies>);
    const VObject node = VFnDependencyNode().create("node");
    VDGModifier modifier;
    modifier.addAttribute(node, attribute);
    modifier.doIt();
    const CountedPlug plug{VPlug(node, attribute)};
    VDataHandle handle = VFnDependencyNode(node).dataBlock().outputValue(plug);
    Pelmor::AnyValue value = Pelmor::AnyValue::holding(held);
    CountedPlug::s_copies = 0;
    // Growing, and then in place.
    for (int copies = 1; copies <= 2; ++copies) {
        Tolvane::writeFromAny<Held, write>(value, handle, plug);
        EXPECT_LE(CountedPlug::s_copies, copies);
    }
    CountedPlug::s_copies = 0;
    read(value, handle, plug);
    EXPECT_LE(CountedPlug::s_copies, 1);
}

TEST(PlugCopies, AreOneForEachValueThatIsWrittenOrRead) {
    using Carry = Tolvane::Translators<Body>;
    const auto bodies = Pelmor::makePtr<Pelmor::Array<Body>>(3u);
    for (Body& body : *bodies)
        body.poses = Pelmor::makePtr<Pelmor::Array<Core::Transform::Transform>>(2u);
    expectOneCopy<Body, Carry::write>(Carry::readValue, (*bodies)[0]);
    expectOneCopy<Bodies, Carry::writeArray>(Carry::readArrayValue, bodies);
}

}  // namespace
