#include "tools/inspect/HostMirror.h"

#include "tools/node/LeafText.h"
#include "tools/support/OneLine.h"

#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>

#include <algorithm>
#include <charconv>
#include <functional>
#include <iterator>
#include <type_traits>

namespace Tolvane::Tools {
namespace {

using Call = ObservedCall;
using Mirror = HostMirror;
using Do = HostMirror::Do;
using Clock = std::chrono::steady_clock;
using Nanoseconds = std::chrono::nanoseconds;
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
std::string textOf(const VString& value) { return inQuotesWhole(value.asChar()); }
std::string textOf(const VDataHandle& handle) { return handle.isNull() ? "null" : "data"; }

unsigned indexOf(const Call& call) { return static_cast<unsigned>(call.index); }

// A plug is found again by its name.
std::string keep(const VPlug& plug) {
    if (plug.isNull()) return "null";
    const std::string name = plug.name().asChar();
    return name.substr(name.find('.') + 1);
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

// Makes a call ready that gives its answer and leaves something behind for later calls.
using Prepare = std::function<Mirror::Step(Mirror&, const Call&)>;
// What it leaves behind if it was not carried out.
using Fail = std::function<void(Mirror&, const Call&)>;

struct Operation {
    std::string_view name;
    Prepare prepare;
    Fail fail = {};
};

// What `work` returns is kept until it is told; of a reference, the place.
template <typename Work, typename Tell>
Mirror::Step giving(Work work, Tell tell) {
    using Result = decltype(work());
    if constexpr (std::is_reference_v<Result>)
        return [work, tell,
                result = static_cast<std::remove_reference_t<Result>*>(nullptr)](Do what) mutable {
            if (what == Do::Call) result = &work();
            return what == Do::Tell ? tell(*result) : std::string();
        };
    else
        return [work, tell, result = Result()](Do what) mutable {
            if (what == Do::Call) result = work();
            return what == Do::Tell ? tell(result) : std::string();
        };
}

template <typename Work>
Mirror::Step giving(Work work) {
    return giving(work, [](const auto& result) { return textOf(result); });
}

// What `work` returns is left behind in a slot.
template <typename Work>
Mirror::Step into(VDataHandle& slot, Work work) {
    return [&slot, work](Do what) mutable {
        if (what == Do::Call) slot = work();
        return what == Do::Tell ? textOf(slot) : std::string();
    };
}

template <typename Member>
Prepare ofPlug(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        return giving(
            [plug = mirror.plug(call.subject), member] { return (plug.*member)(nullptr); });
    };
}

template <typename Member>
Prepare plugOfPlug(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        return giving([plug = mirror.plug(call.subject), member,
                       index = indexOf(call)]() mutable { return (plug.*member)(index, nullptr); },
                      keep);
    };
}

template <typename Member>
Prepare objectOfPlug(Member member, const char* what) {
    return [member, what](Mirror& mirror, const Call& call) {
        return giving(
            [plug = mirror.plug(call.subject), member] { return (plug.*member)(nullptr); },
            [what](const VObject& object) { return std::string(object.isNull() ? "null" : what); });
    };
}

template <typename Member>
Operation ofBlock(std::string_view name, Member member) {
    return {name,
            [member](Mirror& mirror, const Call& call) {
                return into(mirror.handle(place(call)),
                            [&data = mirror.data(), plug = mirror.plug(call.argument), member] {
                                return (data.*member)(plug, nullptr);
                            });
            },
            [](Mirror& mirror, const Call& call) { mirror.handle(place(call)) = VDataHandle(); }};
}

template <typename Member>
Prepare markOfBlock(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        return giving([&data = mirror.data(), attribute = mirror.attribute(call.argument), member] {
            return (data.*member)(attribute);
        });
    };
}

template <typename Member>
Prepare valueOf(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        return giving([&handle = mirror.handle(call.subject),
                       member ]() -> auto& { return (handle.*member)(); });
    };
}

template <typename Member, typename Parse>
Prepare setValue(Member member, Parse parse) {
    return [member, parse](Mirror& mirror, const Call& call) -> Mirror::Step {
        return
            [&handle = mirror.handle(call.subject), member, value = parse(call.argument)](Do what) {
                if (what == Do::Call) (handle.*member)(value);
                return std::string();
            };
    };
}

template <typename Member>
Prepare ofArray(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        return giving(
            [&array = mirror.array(call.subject), member] { return (array.*member)(nullptr); });
    };
}

template <typename Member>
Operation elementOfArray(std::string_view name, Member member) {
    return {name,
            [member](Mirror& mirror, const Call& call) {
                return into(mirror.handle(element(call)),
                            [&array = mirror.array(call.subject), member] {
                                return (array.*member)(nullptr);
                            });
            },
            [](Mirror& mirror, const Call& call) { mirror.handle(element(call)) = VDataHandle(); }};
}

template <typename Member>
Prepare moveArray(Member member) {
    return [member](Mirror& mirror, const Call& call) {
        return giving([&array = mirror.array(call.subject), member, index = indexOf(call)] {
            return (array.*member)(index);
        });
    };
}

template <typename Work>
Nanoseconds durationOf(const Work& work) {
    const Clock::time_point begin = Clock::now();
    work();
    return Clock::now() - begin;
}

Nanoseconds durationOfAll(const std::vector<Mirror::Step>& steps, Do what) {
    return durationOf([&] {
        for (const Mirror::Step& step : steps) step(what);
    });
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
             return into(mirror.handle(place(call)),
                         [&handle = mirror.handle(call.subject),
                          plug = mirror.plug(call.argument)] { return handle.child(plug); });
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
             return giving(
                 [&array = mirror.array(call.subject), &handle = mirror.handle(call.subject)] {
                     VStatus status;
                     array = VArrayDataHandle(handle, &status);
                     return status;
                 });
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
             return giving([&array = mirror.array(call.subject)] { return array.next(); });
         }},
        {"VArrayDataHandle::jumpToElement", moveArray(&VArrayDataHandle::jumpToElement)},
        {"VArrayDataHandle::jumpToArrayElement", moveArray(&VArrayDataHandle::jumpToArrayElement)},
        {"VArrayDataHandle::builder",
         [](Mirror& mirror, const Call& call) {
             return giving(
                 [&builder = mirror.builder(call.subject), &array = mirror.array(call.subject)] {
                     VStatus status;
                     builder = array.builder(&status);
                     return status;
                 });
         },
         [](Mirror& mirror, const Call& call) {
             mirror.builder(call.subject) = VArrayDataBuilder();
         }},
        {"VArrayDataHandle::set",
         [](Mirror& mirror, const Call& call) {
             return giving(
                 [&array = mirror.array(call.subject), &builder = mirror.builder(call.argument)] {
                     return array.set(builder);
                 });
         }},
        {"VArrayDataHandle::setAllClean",
         [](Mirror& mirror, const Call& call) {
             return giving([&array = mirror.array(call.subject)] { return array.setAllClean(); });
         }},

        {"VArrayDataBuilder::addElement",
         [](Mirror& mirror, const Call& call) {
             return into(mirror.handle(element(call)),
                         [&builder = mirror.builder(call.subject), index = indexOf(call)] {
                             return builder.addElement(index);
                         });
         },
         [](Mirror& mirror, const Call& call) { mirror.handle(element(call)) = VDataHandle(); }},
        {"VArrayDataBuilder::removeElement",
         [](Mirror& mirror, const Call& call) {
             return giving([&builder = mirror.builder(call.subject), index = indexOf(call)] {
                 return builder.removeElement(index);
             });
         }},
        {"VArrayDataBuilder::elementCount",
         [](Mirror& mirror, const Call& call) {
             return giving(
                 [&builder = mirror.builder(call.subject)] { return builder.elementCount(); });
         }},
    };
    const auto* found = std::find_if(std::begin(all), std::end(all),
                                     [&](const Operation& each) { return each.name == name; });
    return found == std::end(all) ? nullptr : found;
}

}  // namespace

HostMirror::HostMirror(const VObject& node)
    : m_node(node), m_data(VFnDependencyNode(node).dataBlock()), m_overhead(Nanoseconds::max()) {
    const Step nothing = [](Do) { return std::string(); };
    for (int i = 0; i < 1'000; ++i)
        m_overhead = std::min(m_overhead, Tools::durationOf([&] { nothing(Do::Call); }));
}

std::optional<HostMirror::Answer> HostMirror::repeat(const ObservedCall& call) {
    const Step step = prepare(call);
    if (!step) return std::nullopt;
    const Nanoseconds duration = Tools::durationOf([&] { step(Do::Call); });
    return Answer{step(Do::Tell), std::max(duration - m_overhead, Nanoseconds::zero())};
}

HostMirror::Step HostMirror::prepare(const ObservedCall& call) {
    const Operation* operation = find(call.operation);
    return operation ? operation->prepare(*this, call) : Step();
}

// Without what it takes to go from step to step. That, and what is in the caches, is as in a
// library which has its way from call to call in its code: the copies are new, and have been gone
// through.
Nanoseconds HostMirror::durationOf(const std::vector<Step>& steps) {
    const std::vector<Step> copies(steps.begin(), steps.end());
    durationOfAll(copies, Do::Nothing);
    const Nanoseconds nothing = durationOfAll(copies, Do::Nothing);
    return std::max(durationOfAll(copies, Do::Call) - nothing, Nanoseconds::zero());
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
