#include "tools/check/Case.h"
#include "tools/check/Passage.h"
#include "tools/check/Surroundings.h"
#include "tools/check/SystemCalls.h"
#include "tools/check/Trial.h"
#include "tools/check/Usage.h"
#include "tools/support/Error.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

// `take` is called before and after what is done with each type.
void expectSameWhileEvaluating(Trial& trial, Surroundings (*take)()) {
    trial.forEachCarried([&](const Pelmor::Type& type) {
        Passage passage(trial, type);
        passage.fillInput({trial.seed()});
        trial.doing("reading and writing " + nameOf(type));
        const Surroundings before = take();
        // What a library does once, it has done with the first.
        for (int i = 0; i < 2; ++i) {
            passage.evaluate();
            const std::string change = firstChange(before, take());
            trial.expect(change.empty(), "all as before the evaluation", change);
        }
    });
}

// `take` is called before the library is loaded, and after each thing that is done with it.
void expectSame(Trial& trial, Surroundings (*take)()) {
    const Surroundings before = take();
    const auto expectNoChange = [&] {
        const std::string change = firstChange(before, take());
        trial.expect(change.empty(), "all as before the library was loaded", change);
    };
    trial.translation();
    expectNoChange();
    trial.carried();
    expectNoChange();
    trial.forEachCarried([&](const Pelmor::Type& type) {
        trial.doing("adding ports of " + nameOf(type));
        Passage passage(trial, type);
        expectNoChange();
        passage.fillInput({trial.seed()});
        trial.doing("reading and writing " + nameOf(type));
        passage.evaluate();
        expectNoChange();
        // What a library does once, it has done.
        passage.evaluate();
        expectNoChange();
    });
}

// What a library sets as it is loaded, it sets before the host has threads that evaluate.
void environment(Trial& trial) { expectSameWhileEvaluating(trial, environmentVariables); }
void folder(Trial& trial) { expectSame(trial, currentFolderAndFileMask); }
void locale(Trial& trial) { expectSame(trial, localeSettings); }
void signals(Trial& trial) { expectSame(trial, signalSettings); }
void floatingPoint(Trial& trial) { expectSame(trial, floatingPointModes); }

// Nodes of all types, evaluated often enough that nothing is done for the first time.
std::vector<std::unique_ptr<Passage>> warmNodes(Trial& trial) {
    std::vector<std::unique_ptr<Passage>> nodes;
    trial.forEachCarried([&](const Pelmor::Type& type) {
        trial.doing("reading and writing " + nameOf(type));
        nodes.push_back(std::make_unique<Passage>(trial, type));
        nodes.back()->fillInput({trial.seed()});
        for (int i = 0; i < 3; ++i) nodes.back()->evaluate();
    });
    return nodes;
}

// `tell` is called with what is done, and the first of these system calls that it comes to.
template <typename Tell>
void watch(Trial& trial, const std::vector<SystemCall>& calls, const Tell& tell) {
    const auto nodes = warmNodes(trial);
    std::optional<SystemCallWatch> watched;
    try {
        watched.emplace(calls);
    } catch (const Error& error) {
        trial.skip(error.what());
    }
    for (const auto& node : nodes) {
        trial.doing("reading and writing " + nameOf(node->type()) + ", not for the first time");
        const auto call = watched->firstCallOf([&] { node->evaluate(); });
        if (call) tell("the system call " + *call);
    }
}

void expectNone(Trial& trial, const std::vector<SystemCall>& calls, const std::string& what) {
    watch(trial, calls, [&](const std::string& call) { trial.fail("that " + what, call); });
}

void files(Trial& trial) { expectNone(trial, callsForFiles(), "no file is touched"); }

void sockets(Trial& trial) {
    expectNone(trial, callsForSockets(), "nothing is sent to or asked of another process");
}

// A library may share its work among threads. It is only to know that a host counts its own.
void processes(Trial& trial) {
    const std::size_t before = threads();
    const auto nodes = warmNodes(trial);
    const std::size_t warm = threads();
    if (warm > before)
        trial.warn("once it has been used, " + std::to_string(warm - before) +
                   " more threads run than before, beside those that the host has planned with");
    watch(trial, callsForProcesses(), [&](const std::string& call) {
        trial.warn("it starts a process or thread while it evaluates: " + call);
    });
}

}  // namespace

std::vector<Case> hygieneCases() {
    return {
        {"hygiene/environment",
         "Other threads of the host read the environment, and crash where it is changed meanwhile.",
         environment},
        {"hygiene/files",
         "A file that is touched at each evaluation makes a scene as slow as the slowest disk.",
         files},
        {"hygiene/sockets",
         "A scene is evaluated on farms too, where nobody answers and nobody may call out.",
         sockets},
        {"hygiene/processes",
         "A process or thread takes longer to start than a value to carry, and hosts limit both.",
         processes},
        {"hygiene/folder",
         "Relative paths of the whole host, and the rights of files that it saves, depend on it.",
         folder},
        {"hygiene/locale",
         "In another locale the host's readers and writers of files take and make other numbers.",
         locale},
        {"hygiene/signals",
         "The host saves the scene in its own handlers, once something goes wrong.", signals},
        {"hygiene/floating-point",
         "In another mode every later computation of the host's thread gives other numbers.",
         floatingPoint},
    };
}

}  // namespace Tolvane::Tools
