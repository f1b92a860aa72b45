#include "tools/check/Case.h"
#include "tools/check/EditedNode.h"
#include "tools/check/MemberAttributes.h"
#include "tools/check/Trial.h"
#include "tools/check/WatchedHost.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <Pelmor/EnumType.h>
#include <Pelmor/StructType.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tolvane::Tools {
namespace {

using Direction = EditedNode::Direction;
using Pelmor::Library;
using Pelmor::Type;

// Calls `work(type, direction)` for every carried type, with a direction each.
template <typename Work>
void forEachPort(Trial& trial, const Work& work) {
    trial.forEachCarried([&](const Type& type) {
        for (const Direction direction : kBothDirections) work(type, direction);
    });
}

void oneAttribute(Trial& trial) {
    forEachPort(trial, [&](const Type& type, Direction direction) {
        EditedNode node(trial);
        for (const char* name : {kPort, "another"})
            trial.expect(node.addOrBeRefused(name, direction, type), "true", "false");
    });
}

void shape(Trial& trial) {
    forEachPort(trial, [&](const Type& type, Direction direction) {
        EditedNode node(trial);
        node.addForSure(kPort, direction, type);
        node.expectFit(kPort, type);
    });
}

std::string flags(bool readable, bool writable) {
    return std::string(readable ? "readable" : "not readable") + " and " +
           (writable ? "writable" : "not writable");
}

void expectFlags(Trial& trial, Direction direction) {
    const bool isInput = direction == Direction::Input;
    trial.forEachCarried([&](const Type& type) {
        EditedNode node(trial);
        const VFnAttribute attribute(node.addForSure(kPort, direction, type).attribute());
        const bool readable = attribute.isReadable();
        const bool writable = attribute.isWritable();
        trial.expect(writable == isInput && readable != isInput, flags(!isInput, isInput),
                     flags(readable, writable));
    });
}

void inputFlags(Trial& trial) { expectFlags(trial, Direction::Input); }

void outputFlags(Trial& trial) { expectFlags(trial, Direction::Output); }

// As any other tool of the host gives a node attributes.
void addNumber(const VObject& node, const char* name, const char* shortName) {
    VFnNumericAttribute number;
    number.create(name, shortName, VFnNumericData::kDouble);
    VDGModifier modifier;
    modifier.addAttribute(node, number.object());
    modifier.doIt();
}

void takenName(Trial& trial) {
    forEachPort(trial, [&](const Type& type, Direction direction) {
        EditedNode node(trial);
        addNumber(node.node(), "a number", "number");
        node.addForSure(kPort, Direction::Input, type);
        for (const char* taken : {kPort, "a number", "number"})
            node.beRefused(taken, direction, type);
        node.expectFit(kPort, type);
    });
}

void expectNames(Trial& trial, const std::vector<std::string>& names) {
    forEachPort(trial, [&](const Type& type, Direction direction) {
        EditedNode node(trial);
        for (const std::string& name : names) node.addOrBeRefused(name, direction, type);
    });
}

void emptyName(Trial& trial) { expectNames(trial, {""}); }

void longName(Trial& trial) {
    expectNames(trial, {std::string(300, 'a'), std::string(299, 'a') + "b"});
}

void anyName(Trial& trial) {
    expectNames(trial, {"gr\u00f6\u00dfe", "\xe9\xaa\xa8\xe6\xa0\xbc", "two words", " ", "left.arm",
                        "arm[3]", "1st", "back\\slash", "tab\there", "\x80\xff\xfe", "^1s",
                        "a/b:c|d", "class"});
}

bool isCarried(Trial& trial, const Type& type) {
    const auto& carried = trial.carried();
    return std::any_of(carried.begin(), carried.end(),
                       [&](const Type& each) { return nameOf(each) == nameOf(type); });
}

// Of a type that the library need not know.
void addOrBeRefusedAlone(Trial& trial, const Type& type) {
    for (const Direction direction : kBothDirections) {
        EditedNode node(trial);
        if (node.addOrBeRefused(kPort, direction, type)) node.expectFit(kPort, type);
    }
}

void plainTypes(Trial& trial) {
    for (const char* name : {"double", "string", "Math::double4x4", "bool", "int", "Object"}) {
        const Type type = trial.types().getType(name);
        for (const Type& each : {type, Type(Library::arrayOf(type))})
            if (!isCarried(trial, each)) addOrBeRefusedAlone(trial, each);
    }
}

void arrayOfArrays(Trial& trial) {
    std::set<std::pair<std::string, Direction>> tried;
    forEachPort(trial, [&](const Type& type, Direction direction) {
        const Type element = elementOf(type);
        if (!tried.emplace(nameOf(element), direction).second) return;
        const Type arrays = Library::arrayOf(Library::arrayOf(element));
        EditedNode node(trial);
        node.beRefused(kPort, direction, arrays);
        node.beRefused(kPort, direction, Library::arrayOf(arrays));
    });
}

void foreignType(Trial& trial) {
    constexpr const char* kForeign = "Foreign::Of::The::Library";
    constexpr const char* kForeignEnum = "Foreign::Of::The::Library::Mode";
    Library types = trial.types();
    for (const char* name : {kForeign, kForeignEnum})
        if (types.findType(name))
            trial.skip(std::string("the graph knows a type with the name ") + name);
    const Type mode = types.defineEnum(kForeignEnum, {{"off", 0}, {"on", 7}, {"never", -1}});
    std::vector<Pelmor::StructType::Member> members;
    for (const char* name : {"string", "array<double>", "Math::double4x4", "int", "array<string>",
                             "Object", "bool", "double", "array<Math::double4x4>", kForeignEnum})
        members.emplace_back(("member" + std::to_string(members.size())).c_str(),
                             types.getType(name));
    for (const Type& type : {Type(types.defineStruct(kForeign, members)), mode}) {
        addOrBeRefusedAlone(trial, type);
        addOrBeRefusedAlone(trial, Library::arrayOf(type));
    }
}

// With a modifier of which each call of this operation fails.
void expectRefusalWithout(Trial& trial, std::string_view operation) {
    skipUnlessWatched(trial);
    forEachPort(trial, [&](const Type& type, Direction direction) {
        EditedNode(trial).addForSure(kPort, direction, type);
        EditedNode node(trial);
        node.fail([&](std::size_t, std::string_view called) { return called == operation; },
                  ", with each " + std::string(operation) + " failing");
        node.beRefused(kPort, direction, type);
    });
}

void modifierRefuses(Trial& trial) { expectRefusalWithout(trial, "VDGModifier::addAttribute"); }

void modifierFails(Trial& trial) { expectRefusalWithout(trial, "VDGModifier::doIt"); }

void again(Trial& trial) {
    forEachPort(trial, [&](const Type& type, Direction direction) {
        EditedNode(trial).addForSure(kPort, direction, type);
        EditedNode second(trial);
        trial.expect(second.addOrBeRefused(kPort, direction, type), "true", "false");
        second.expectFit(kPort, type);
        trial.doing("telling it that the port was removed");
        trial.translation().portRemoved("node", kPort);
        EditedNode third(trial);
        trial.expect(third.addOrBeRefused(kPort, direction, type), "true", "false");
        third.expectFit(kPort, type);
    });
}

void fiveHundred(Trial& trial) {
    constexpr std::size_t kPorts = 500;
    std::vector<Type> types;
    forEachPort(trial, [&](const Type& type, Direction direction) {
        EditedNode(trial).addForSure(kPort, direction, type);
        if (direction == Direction::Output) types.push_back(type);
    });
    EditedNode node(trial);
    EditedNode::Names names;
    for (std::size_t i = 0; i < kPorts; ++i) {
        names.push_back(kPort + std::to_string(i));
        const Direction direction = kBothDirections[i / types.size() % 2];
        const ShownMessages unimportant;
        trial.expect(node.add(names[i], direction, types[i % types.size()]), "true", "false");
    }
    const EditedNode::Names attributes = node.attributes();
    trial.expect(attributes == names, "500 attributes, one for each port",
                 std::to_string(attributes.size()) + " attributes");
    for (std::size_t i = 0; i < kPorts; ++i) node.expectFit(names[i], types[i % types.size()]);
}

void collectNames(const DataShape& shape, EditedNode::Names& names) {
    for (const DataShape& child : shape.children) {
        if (std::find(names.begin(), names.end(), child.name) == names.end())
            names.push_back(child.name);
        collectNames(child, names);
    }
}

void childrenBesidePorts(Trial& trial) {
    forEachPort(trial, [&](const Type& type, Direction direction) {
        EditedNode first(trial);
        EditedNode::Names names{kPort};
        collectNames(shapeOf(first.addForSure(kPort, direction, type)), names);
        EditedNode inOrder(trial);
        for (const std::string& name : names)
            trial.expect(inOrder.addOrBeRefused(name, direction, type), "true", "false");
        std::reverse(names.begin(), names.end());
        EditedNode reversed(trial);
        for (const std::string& name : names)
            trial.expect(reversed.addOrBeRefused(name, direction, type), "true", "false");
    });
}

}  // namespace

std::vector<Case> portCases() {
    return {
        {"ports/one-attribute",
         "The framework finds a port's attribute by its name, and nobody removes others.",
         oneAttribute},
        {"ports/shape",
         "Values are read from and written to attributes by their order and kind; other tools of"
         " the host see them too.",
         shape},
        {"ports/input-flags",
         "An input that is not writable takes no values, and one that is readable offers them to"
         " others.",
         inputFlags},
        {"ports/output-flags",
         "The host evaluates a node for what is not writable, and others read what is readable.",
         outputFlags},
        {"ports/taken-name",
         "A port without an attribute of its own would share another's values, unnoticed.",
         takenName},
        {"ports/empty-name", "Whoever clears the field of a name has to be told what is wrong.",
         emptyName},
        {"ports/long-name",
         "A name that is cut is another name, under which the framework finds nothing.", longName},
        {"ports/any-name",
         "People name ports in their own language, and the framework finds attributes by just that"
         " name.",
         anyName},
        {"ports/plain-types",
         "The framework offers every port to every library, which must refuse what is not its own.",
         plainTypes},
        {"ports/array-of-arrays",
         "The host has no arrays of arrays, so people have to be told that such a port gets no"
         " values.",
         arrayOfArrays},
        {"ports/foreign-type",
         "Other libraries' types are offered as well; half an attribute for one is worse than"
         " none.",
         foreignType},
        {"ports/modifier-refuses",
         "A port that seems to have an attribute and has none is found much later.",
         modifierRefuses},
        {"ports/modifier-fails",
         "A port that seems to have an attribute and has none is found much later.", modifierFails},
        {"ports/again", "Ports are removed and added again under the same name, and so are nodes.",
         again},
        {"ports/five-hundred", "Graphs of whole characters have hundreds of ports.", fiveHundred},
        {"ports/children-beside-ports",
         "Names such as \"names\" are everywhere, so a child must not keep a port from its name.",
         childrenBesidePorts},
    };
}

}  // namespace Tolvane::Tools
