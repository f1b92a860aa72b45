#include "tools/inspect/HostMirror.h"

#include "tools/node/LeafText.h"
#include "tools/support/OneLine.h"

#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>

#include <algorithm>
#include <charconv>
#include <functional>
#include <iterator>

namespace Tolvane::Tools {
namespace {

using Call = ObservedCall;
using Mirror = HostMirror;
using Tools::textOf;

std::string textOf(const VStatus& status) {
    switch (status.statusCode()) {
        case VStatus::kSuccess:
            return "success";
        case VStatus::kFailure:
            return "failure";
        case VStatus::kInvalidParameter:
            return "invalid parameter";
        case VStatus::kNotFound:
            return "not found";
    }
    return "unknown status";
}

std::string textOf(bool value) { return value ? "true" : "false"; }
std::string textOf(unsigned value) { return std::to_string(value); }
std::string textOf(int value) { return std::to_string(value); }
std::string textOf(const VString& value) { return inQuotes(value.asChar()); }
std::string textOf(const VDataHandle& handle) { return handle.isNull() ? "null" : "data"; }

unsigned indexOf(const Call& call) { return static_cast<unsigned>(call.index); }

// A plug is found again by its name.
std::string keep(const VPlug& plug) {
    if (plug.isNull()) return "null";
    const std::string name = plug.name().asChar();
    return name.substr(name.find('.') + 1);
}

std::string keep(Mirror& mirror, const std::string& place, const VDataHandle& handle) {
    mirror.handle(place) = handle;
    return textOf(handle);
}

VMatrix matrixOf(const std::string& text) {
    VMatrix matrix;
    const char* at = text.data();
    for (unsigned i = 0; i < 16; ++i) {
        at = std::from_chars(at, text.data() + text.size(), matrix[i / 4][i % 4]).ptr;
        if (at != text.data() + text.size()) ++at;
    }
    return matrix;
}

double doubleOf(const std::string& text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

int intOf(const std::string& text) {
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string place(const Call& call) { return placeOf(call.argument); }
std::string element(const Call& call) { return call.subject + "[]"; }

// What a call gives, as text, and what it leaves behind for later calls.
using Repeat = std::function<std::string(Mirror&, const Call&)>;
// What it leaves behind if it was not carried out.
using Fail = std::function<void(Mirror&, const Call&)>;

struct Operation {
    std::string_view name;
    Repeat repeat;
    Fail fail = {};
};

template <typename Member>
Repeat ofPlug(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        VPlug plug = mirror.plug(call.subject);
        return textOf(mirror.timed([&] { return (plug.*member)(nullptr); }));
    };
}

template <typename Member>
Repeat plugOfPlug(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        VPlug plug = mirror.plug(call.subject);
        return keep(mirror.timed([&] { return (plug.*member)(indexOf(call), nullptr); }));
    };
}

template <typename Member>
Repeat objectOfPlug(Member member, const char* what) {
    return [member, what](Mirror& mirror, const Call& call) {
        const VPlug plug = mirror.plug(call.subject);
        const VObject object = mirror.timed([&] { return (plug.*member)(nullptr); });
        return std::string(object.isNull() ? "null" : what);
    };
}

template <typename Member>
Operation ofBlock(std::string_view name, Member member) {
    return {name,
            [member](Mirror& mirror, const Call& call) {
                const VPlug plug = mirror.plug(call.argument);
                return keep(mirror, place(call),
                            mirror.timed([&] { return (mirror.data().*member)(plug, nullptr); }));
            },
            [](Mirror& mirror, const Call& call) { mirror.handle(place(call)) = VDataHandle(); }};
}

template <typename Member>
Repeat markOfBlock(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        const VObject attribute = mirror.attribute(call.argument);
        return textOf(mirror.timed([&] { return (mirror.data().*member)(attribute); }));
    };
}

template <typename Member>
Repeat valueOf(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        const VDataHandle handle = mirror.handle(call.subject);
        return textOf(mirror.timed([&]() -> auto& { return (handle.*member)(); }));
    };
}

template <typename Member, typename Parse>
Repeat setValue(Member member, Parse parse) {
    return [member, parse](Mirror& mirror, const Call& call) {
        const auto value = parse(call.argument);
        VDataHandle handle = mirror.handle(call.subject);
        mirror.timed([&] { (handle.*member)(value); });
        return std::string();
    };
}

template <typename Member>
Repeat ofArray(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        VArrayDataHandle& array = mirror.array(call.subject);
        return textOf(mirror.timed([&] { return (array.*member)(nullptr); }));
    };
}

template <typename Member>
Operation elementOfArray(std::string_view name, Member member) {
    return {name,
            [member](Mirror& mirror, const Call& call) {
                VArrayDataHandle& array = mirror.array(call.subject);
                return keep(mirror, element(call),
                            mirror.timed([&] { return (array.*member)(nullptr); }));
            },
            [](Mirror& mirror, const Call& call) { mirror.handle(element(call)) = VDataHandle(); }};
}

template <typename Member>
Repeat moveArray(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        VArrayDataHandle& array = mirror.array(call.subject);
        return textOf(mirror.timed([&] { return (array.*member)(indexOf(call)); }));
    };
}

const Operation* find(const std::string& name) {
    static const Operation all[] = {
        ofBlock("VDataBlock::inputValue", &VDataBlock::inputValue),
        ofBlock("VDataBlock::outputValue", &VDataBlock::outputValue),
        {"VDataBlock::setClean", markOfBlock(&VDataBlock::setClean)},
        {"VDataBlock::setDirty", markOfBlock(&VDataBlock::setDirty)},
        {"VDataBlock::isClean", markOfBlock(&VDataBlock::isClean)},

        {"VPlug::child", plugOfPlug(&VPlug::child)},
        {"VPlug::elementByLogicalIndex", plugOfPlug(&VPlug::elementByLogicalIndex)},
        {"VPlug::numChildren", ofPlug(&VPlug::numChildren)},
        {"VPlug::logicalIndex", ofPlug(&VPlug::logicalIndex)},
        {"VPlug::isArray", ofPlug(&VPlug::isArray)},
        {"VPlug::isElement", ofPlug(&VPlug::isElement)},
        {"VPlug::isCompound", ofPlug(&VPlug::isCompound)},
        {"VPlug::name", ofPlug(&VPlug::name)},
        {"VPlug::attribute", objectOfPlug(&VPlug::attribute, "an attribute")},
        {"VPlug::node", objectOfPlug(&VPlug::node, "a node")},

        {"VDataHandle::child",
         [](Mirror& mirror, const Call& call) {
             const VDataHandle handle = mirror.handle(call.subject);
             const VPlug plug = mirror.plug(call.argument);
             return keep(mirror, place(call), mirror.timed([&] { return handle.child(plug); }));
         },
         [](Mirror& mirror, const Call& call) { mirror.handle(place(call)) = VDataHandle(); }},
        {"VDataHandle::asMatrix", valueOf(&VDataHandle::asMatrix)},
        {"VDataHandle::asString", valueOf(&VDataHandle::asString)},
        {"VDataHandle::asDouble", valueOf(&VDataHandle::asDouble)},
        {"VDataHandle::asBool", valueOf(&VDataHandle::asBool)},
        {"VDataHandle::asInt", valueOf(&VDataHandle::asInt)},
        {"VDataHandle::asShort", valueOf(&VDataHandle::asShort)},
        {"VDataHandle::setMatrix", setValue(&VDataHandle::setMatrix, matrixOf)},
        {"VDataHandle::setString",
         setValue(&VDataHandle::setString,
                  [](const std::string& text) { return VString(text.c_str()); })},
        {"VDataHandle::setDouble", setValue(&VDataHandle::setDouble, doubleOf)},
        {"VDataHandle::setBool",
         setValue(&VDataHandle::setBool, [](const std::string& text) { return text == "true"; })},
        {"VDataHandle::setInt", setValue(&VDataHandle::setInt, intOf)},
        {"VDataHandle::setShort",
         setValue(&VDataHandle::setShort,
                  [](const std::string& text) { return static_cast<short>(intOf(text)); })},

        {"VArrayDataHandle::VArrayDataHandle",
         [](Mirror& mirror, const Call& call) {
             const VDataHandle handle = mirror.handle(call.subject);
             VStatus status;
             mirror.array(call.subject) =
                 mirror.timed([&] { return VArrayDataHandle(handle, &status); });
             return textOf(status);
         },
         [](Mirror& mirror, const Call& call) {
             mirror.array(call.subject) = VArrayDataHandle(VDataHandle());
         }},
        {"VArrayDataHandle::elementCount", ofArray(&VArrayDataHandle::elementCount)},
        {"VArrayDataHandle::elementIndex", ofArray(&VArrayDataHandle::elementIndex)},
        elementOfArray("VArrayDataHandle::inputValue", &VArrayDataHandle::inputValue),
        elementOfArray("VArrayDataHandle::outputValue", &VArrayDataHandle::outputValue),
        {"VArrayDataHandle::next",
         [](Mirror& mirror, const Call& call) {
             VArrayDataHandle& array = mirror.array(call.subject);
             return textOf(mirror.timed([&] { return array.next(); }));
         }},
        {"VArrayDataHandle::jumpToElement", moveArray(&VArrayDataHandle::jumpToElement)},
        {"VArrayDataHandle::jumpToArrayElement", moveArray(&VArrayDataHandle::jumpToArrayElement)},
        {"VArrayDataHandle::builder",
         [](Mirror& mirror, const Call& call) {
             const VArrayDataHandle& array = mirror.array(call.subject);
             VStatus status;
             mirror.builder(call.subject) = mirror.timed([&] { return array.builder(&status); });
             return textOf(status);
         },
         [](Mirror& mirror, const Call& call) {
             mirror.builder(call.subject) = VArrayDataBuilder();
         }},
        {"VArrayDataHandle::set",
         [](Mirror& mirror, const Call& call) {
             VArrayDataHandle& array = mirror.array(call.subject);
             const VArrayDataBuilder& builder = mirror.builder(call.argument);
             return textOf(mirror.timed([&] { return array.set(builder); }));
         }},
        {"VArrayDataHandle::setAllClean",
         [](Mirror& mirror, const Call& call) {
             VArrayDataHandle& array = mirror.array(call.subject);
             return textOf(mirror.timed([&] { return array.setAllClean(); }));
         }},

        {"VArrayDataBuilder::addElement",
         [](Mirror& mirror, const Call& call) {
             VArrayDataBuilder& builder = mirror.builder(call.subject);
             return keep(mirror, element(call),
                         mirror.timed([&] { return builder.addElement(indexOf(call)); }));
         },
         [](Mirror& mirror, const Call& call) { mirror.handle(element(call)) = VDataHandle(); }},
        {"VArrayDataBuilder::removeElement",
         [](Mirror& mirror, const Call& call) {
             VArrayDataBuilder& builder = mirror.builder(call.subject);
             return textOf(mirror.timed([&] { return builder.removeElement(indexOf(call)); }));
         }},
        {"VArrayDataBuilder::elementCount",
         [](Mirror& mirror, const Call& call) {
             const VArrayDataBuilder& builder = mirror.builder(call.subject);
             return textOf(mirror.timed([&] { return builder.elementCount(); }));
         }},
    };
    const auto* found = std::find_if(std::begin(all), std::end(all),
                                     [&](const Operation& each) { return each.name == name; });
    return found == std::end(all) ? nullptr : found;
}

}  // namespace

HostMirror::HostMirror(const VObject& node)
    : m_node(node), m_data(VFnDependencyNode(node).dataBlock()) {
    m_overhead = std::chrono::nanoseconds::max();
    for (int i = 0; i < 1'000; ++i) {
        timed([] {});
        m_overhead = std::min(m_overhead, m_duration);
    }
}

std::optional<HostMirror::Answer> HostMirror::repeat(const ObservedCall& call) {
    const Operation* operation = find(call.operation);
    if (!operation) return std::nullopt;
    std::string result = operation->repeat(*this, call);
    return Answer{std::move(result),
                  std::max(m_duration - m_overhead, decltype(m_duration)::zero())};
}

void HostMirror::fail(const ObservedCall& call) {
    const Operation* operation = find(call.operation);
    if (operation && operation->fail) operation->fail(*this, call);
}

VPlug HostMirror::plug(const std::string& name) {
    const auto [entry, isNew] = m_plugs.try_emplace(name);
    if (isNew) entry->second = findPlug(name);
    return entry->second;
}

VArrayDataHandle& HostMirror::array(const std::string& place) {
    return m_arrays.try_emplace(place, VDataHandle()).first->second;
}

VObject HostMirror::attribute(const std::string& name) const {
    return VFnDependencyNode(m_node).attribute(name.c_str());
}

// Its last part is the name of a child, or an index in brackets.
VPlug HostMirror::findPlug(const std::string& name) const {
    if (!name.empty() && name.back() == ']') {
        const std::size_t bracket = name.rfind('[');
        VPlug array = findPlug(name.substr(0, bracket));
        return array.elementByLogicalIndex(static_cast<unsigned>(intOf(name.substr(bracket + 1))));
    }
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos) return VFnDependencyNode(m_node).findPlug(name.c_str());
    VPlug above = findPlug(name.substr(0, dot));
    for (unsigned i = 0; i < above.numChildren(); ++i) {
        const VPlug child = above.child(i);
        if (VFnAttribute(child.attribute()).name() == name.substr(dot + 1).c_str()) return child;
    }
    return {};
}

std::string placeOf(std::string_view plug) {
    std::string place;
    bool isIndex = false;
    for (const char character : plug) {
        if (character == ']') isIndex = false;
        if (!isIndex) place += character;
        if (character == '[') isIndex = true;
    }
    return place;
}

}  // namespace Tolvane::Tools
