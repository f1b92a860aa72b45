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

void evaluate(Passage& passage) {
    Pelmor::AnyValue value;
    if (passage.read(value)) passage.write(value);
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
    const std::vector<Pelmor::Type>& types = trial.carried();
    expectNoChange();
    for (const Pelmor::Type& type : types) {
        trial.doing("adding ports of " + nameOf(type));
        Passage passage(trial, type);
        expectNoChange();
        passage.fillInput({trial.seed()});
        trial.doing("reading and writing " + nameOf(type));
        evaluate(passage);
        expectNoChange();
        // What a library does once, it has done.
        evaluate(passage);
        expectNoChange();
    }
}

void environment(Trial& trial) { expectSame(trial, environmentVariables); }
void folder(Trial& trial) { expectSame(trial, currentFolderAndFileMask); }
void locale(Trial& trial) { expectSame(trial, localeSettings); }
void signals(Trial& trial) { expectSame(trial, signalSettings); }
void floatingPoint(Trial& trial) { expectSame(trial, floatingPointModes); }

// Nodes of all types, evaluated often enough that nothing is done for the first time.
std::vector<std::unique_ptr<Passage>> warmNodes(Trial& trial) {
    std::vector<std::unique_ptr<Passage>> nodes;
    for (const Pelmor::Type& type : trial.carried()) {
        trial.doing("reading and writing " + nameOf(type));
        nodes.push_back(std::make_unique<Passage>(trial, type));
        nodes.back()->fillInput({trial.seed()});
        for (int i = 0; i < 3; ++i) evaluate(*nodes.back());
    }
    return nodes;
}

void expectNone(Trial& trial, const std::vector<SystemCall>& calls, const std::string& what) {
    const auto nodes = warmNodes(trial);
    std::optional<SystemCallWatch> watch;
    try {
        watch.emplace(calls);
    } catch (const Error& error) {
        trial.skip(error.what());
    }
    for (const auto& node : nodes) {
        trial.doing("reading and writing " + nameOf(node->type()) + ", not for the first time");
        const auto call = watch->firstCallOf([&] { evaluate(*node); });
        if (call) trial.fail("that " + what, "the system call " + *call);
    }
}

void files(Trial& trial) {
    expectNone(trial, callsForFiles(), "no file is opened, made or removed");
}

void sockets(Trial& trial) {
    expectNone(trial, callsForSockets(), "nothing is sent to or asked of another process");
}

// A library may keep threads to share its work among. It is only to know that a host counts its
// own.
void processes(Trial& trial) {
    const std::size_t before = threads();
    const auto nodes = warmNodes(trial);
    const std::size_t warm = threads();
    if (warm > before)
        trial.warn("once it has been used, " + std::to_string(warm - before) +
                   " more threads run than before, beside those that the host has planned with");
    expectNone(trial, callsForProcesses(), "no process and no thread is started");
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
