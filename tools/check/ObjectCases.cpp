#include "tools/check/Case.h"
#include "tools/check/Passage.h"
#include "tools/check/Together.h"
#include "tools/check/Trial.h"
#include "tools/check/Usage.h"
#include "tools/node/NamedTypes.h"
#include "tools/support/OneLine.h"

#include <OpenVornik/VErrorListener.h>
#include <Pelmor/EntityIndexedList.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

using TavrikGraph::Executor::TranslationLibrary;
using TavrikGraph::Executor::TypeTranslation;
using Names = std::vector<std::string>;

std::string inWords(const Names& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + inQuotes(oneLine(name));
    return std::to_string(names.size()) + " names" + (text.empty() ? "" : ": " + text);
}

void expectNames(Trial& trial, const Names& expected, const Names& came) {
    trial.expect(came == expected, inWords(expected), inWords(came));
}

// Another object of the same library: it is loaded already.
std::unique_ptr<TranslationLibrary> another(Trial& trial) {
    trial.translation();
    trial.doing("asking for another object");
    return std::make_unique<TranslationLibrary>(trial.path());
}

void twoFactories(Trial& trial) {
    const auto second = another(trial);
    trial.expect(&second->translation() != &trial.translation(), "two objects",
                 "the same object twice, which would be released twice");
}

void namesAtAnyTime(Trial& trial) {
    TypeTranslation& translation = trial.translation();
    trial.doing("asking for the names first");
    const Names first = namesOf(translation);
    trial.doing("asking for the names again");
    expectNames(trial, first, namesOf(translation));
    trial.forEachCarried([&](const Pelmor::Type& type) {
        const std::string name = nameOf(type);
        Passage passage(trial, type);
        trial.doing("asking for the names after ports of " + name);
        expectNames(trial, first, namesOf(translation));
        passage.fillInput({});
        passage.evaluate();
        trial.doing("asking for the names after values of " + name);
        expectNames(trial, first, namesOf(translation));
    });
}

void namesFromEightThreads(Trial& trial) {
    TypeTranslation& translation = trial.translation();
    std::vector<Names> names(kThreads);
    trial.doing("asking for the names from eight threads, as the first use");
    runTogether(kThreads, [&](std::size_t i) { names[i] = namesOf(translation); });
    const Names later = namesOf(translation);
    for (const Names& each : names) expectNames(trial, later, each);
}

void namesReplace(Trial& trial) {
    const Names alone = namesOf(trial.translation());
    Pelmor::Array<Pelmor::String> names;
    for (int i = 0; i < 40; ++i) names.append("left over");
    trial.doing("asking for the names with an array that holds others");
    trial.translation().getSupportedTypeNames(names);
    Names came;
    for (const Pelmor::String& name : names) came.emplace_back(name.c_str());
    expectNames(trial, alone, came);
}

void namesOnce(Trial& trial) {
    std::set<std::string> seen;
    trial.doing("asking for the names");
    for (const std::string& name : namesOf(trial.translation()))
        trial.expect(seen.insert(name).second, "each name once",
                     inQuotes(oneLine(name)) + " twice");
}

void namesNotEmpty(Trial& trial) {
    trial.doing("asking for the names");
    const Names names = namesOf(trial.translation());
    const auto empty = std::find(names.begin(), names.end(), "");
    trial.expect(empty == names.end(), "names",
                 "an empty one as number " + std::to_string(empty - names.begin() + 1));
}

void namesKnown(Trial& trial) {
    for (const std::string& name : namesOf(trial.translation()))
        if (!name.empty() && !trial.types().findType(name.c_str()))
            trial.warn("the graph does not know " + inQuotes(oneLine(name)) +
                       ", so that nothing else was tried with it (see --types)");
}

void supportedTypes(Trial& trial) {
    Names expected;
    for (const Pelmor::Type& type : trial.carried()) expected.push_back(nameOf(type));
    Pelmor::EntityIndexedList<Pelmor::Type> types;
    trial.doing("asking for the types among those that the graph knows");
    trial.translation().getSupportedTypes(trial.types(), types);
    Names came;
    for (std::size_t i = 0; i < types.size(); ++i) came.push_back(nameOf(types[i]));
    std::sort(expected.begin(), expected.end());
    std::sort(came.begin(), came.end());
    expectNames(trial, expected, came);
}

void hasAName(Trial& trial) {
    const std::string name = trial.translation().name().c_str();
    if (oneLine(name).empty()) trial.warn("it has no name to be shown to people");
}

void releaseFrees(Trial& trial) {
    constexpr std::size_t kObjects = 200;
    const auto makeAll = [&] {
        for (std::size_t i = 0; i < kObjects; ++i)
            namesOf(TranslationLibrary(trial.path()).translation());
    };
    trial.translation();
    trial.doing("making and releasing 200 objects, again and again");
    const std::ptrdiff_t growth = growthOf(makeAll);
    // An object takes at least the table of its operations.
    trial.expect(growth < static_cast<std::ptrdiff_t>(kObjects * sizeof(void*)),
                 "no more memory after each further round", std::to_string(growth) + " bytes more");
}

void releaseBesideAnother(Trial& trial) {
    trial.forEachCarried([&](const Pelmor::Type& type) {
        Passage passage(trial, type);
        passage.fillInput({});
        const Pelmor::AnyValue value = passage.mustRead();
        auto second = another(trial);
        namesOf(second->translation());
        trial.doing("releasing another object");
        second.reset();
        trial.doing("writing a value of " + nameOf(type) +
                    " that was read before another object was released");
        passage.mustWrite(value);
        passage.expectOutput({});
    });
}

void survivesAnother(Trial& trial) {
    const Names names = namesOf(trial.translation());
    auto second = another(trial);
    namesOf(second->translation());
    trial.doing("releasing another object");
    second.reset();
    trial.doing("asking for the names after another object was released");
    expectNames(trial, names, namesOf(trial.translation()));
    // It says itself what it is at.
    trial.forEachCarried([&](const Pelmor::Type& type) { Passage(trial, type).carry({}); });
}

void portChanges(Trial& trial) {
    const TypeTranslation& translation = trial.translation();
    const Passage passage(trial, passable(trial).front());
    trial.doing("telling it that a port was renamed");
    trial.expect(translation.portRenamed("node", Passage::kInput, "renamed"), "true", "false");
    trial.doing("telling it that a port was removed");
    trial.expect(translation.portRemoved("node", "renamed"), "true", "false");
    trial.expect(translation.portRemoved("node", Passage::kOutput), "true", "false");
    trial.doing("telling it of ports that it was never given");
    translation.portRenamed("no node", "no port", "no other");
    translation.portRemoved("no node", "no port");
}

}  // namespace

std::vector<Case> objectCases() {
    return {
        {"object/two-factories",
         "Each object that the factory gives is released by whoever asked for it.", twoFactories},
        {"object/names-at-any-time",
         "The framework asks for the names when it needs them, and goes by the last list.",
         namesAtAnyTime},
        {"object/names-from-eight-threads",
         "A host that evaluates nodes in parallel may ask from any of its threads first.",
         namesFromEightThreads},
        {"object/names-replace",
         "The framework uses one list for several libraries, and would take one's names for"
         " another's.",
         namesReplace},
        {"object/names-once", "A type that is named twice is listed and tried twice.", namesOnce},
        {"object/names-not-empty", "An empty name is that of no type.", namesNotEmpty},
        {"object/names-known",
         "A name that the graph does not know is never asked for: it is misspelt, or its type is"
         " missing.",
         namesKnown},
        {"object/supported-types",
         "The framework may ask for types instead of names, and expects the same answer.",
         supportedTypes},
        {"object/has-a-name", "People see the name where several libraries carry a type.",
         hasAName},
        {"object/release-frees", "Whatever an object keeps is gone for the rest of the session.",
         releaseFrees},
        {"object/release-beside-another",
         "A value outlives the object that read it, as long as the library stays.",
         releaseBesideAnother},
        {"object/survives-another",
         "Objects come and go with the graphs of a scene, and know nothing of each other.",
         survivesAnother},
        {"object/port-changes",
         "The framework renames and removes attributes itself, and takes a refusal for an error.",
         portChanges},
    };
}

}  // namespace Tolvane::Tools
