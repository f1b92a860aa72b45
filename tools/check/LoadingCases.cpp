#include "tools/check/Case.h"
#include "tools/check/Content.h"
#include "tools/check/EditedNode.h"
#include "tools/check/ElfFile.h"
#include "tools/check/Passage.h"
#include "tools/check/Trial.h"
#include "tools/check/Usage.h"
#include "tools/node/NamedTypes.h"
#include "tools/process/Child.h"
#include "tools/process/FileDescriptor.h"
#include "tools/process/Interruption.h"
#include "tools/support/OneLine.h"

#include <TavrikGraph/Executor/LoadError.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>

namespace Tolvane::Tools {
namespace {

using TavrikGraph::Executor::LoadError;
using TavrikGraph::Executor::TranslationLibrary;

constexpr const char* kFactory = "createTavrikTypeTranslation";
constexpr std::string_view kMissingLibrary = "cannot open shared object file";

struct Unload {
    void operator()(void* library) const noexcept { dlclose(library); }
};
using Handle = std::unique_ptr<void, Unload>;

Handle open(const std::string& path) { return Handle(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)); }

std::string loaderMessage() {
    const char* message = dlerror();
    return message ? oneLine(message) : "the loader does not say why";
}

Handle openOrSkip(Trial& trial) {
    trial.skipUnlessLoadable();
    Handle library = open(trial.path());
    if (!library) Trial::skipUnloaded();
    return library;
}

void loads(Trial& trial) {
    trial.skipUnlessLoadable();
    trial.doing("loading the library");
    if (open(trial.path())) return;
    const std::string message = loaderMessage();
    if (message.find(kMissingLibrary) != std::string::npos)
        Trial::skipUnloaded("a library that it needs is not there");
    trial.fail("that it loads, with every symbol resolved", message);
}

void needsWhatIsThere(Trial& trial) {
    trial.skipUnlessLoadable();
    trial.doing("loading the libraries that it needs");
    if (open(trial.path())) return;
    const std::string message = loaderMessage();
    trial.expect(message.find(kMissingLibrary) == std::string::npos, "that all are found", message);
    Trial::skipUnloaded();
}

void hasFactory(Trial& trial) {
    const Handle library = openOrSkip(trial);
    trial.doing(std::string("looking for ") + kFactory);
    trial.expect(dlsym(library.get(), kFactory) != nullptr,
                 "a function of this name, with C linkage", "none");
    trial.doing(std::string("calling ") + kFactory);
    try {
        const TranslationLibrary loaded(trial.path());
    } catch (const LoadError& error) {
        trial.fail("a translation object", oneLine(error.what()));
    }
}

void exportsNothingElse(Trial& trial) {
    trial.doing("listing what it exports");
    std::string others;
    std::size_t count = 0;
    for (const std::string& name : readElf(trial.path()).exported) {
        if (name == kFactory) continue;
        if (++count <= 10) others += (count == 1 ? "" : ", ") + oneLine(name);
    }
    if (count == 0) return;
    trial.warn("it exports " + std::to_string(count) +
               " more than its factory, which may stand in" +
               " for the same names of other libraries: " + others + (count > 10 ? ", ..." : ""));
}

// A first port and value of each type, and the end of all of them.
void useOnce(Trial& trial) {
    trial.forEachCarried([&](const Pelmor::Type& type) { Passage(trial, type).carry({}); });
}

void noteIfStillLoaded(Trial& trial) {
    const Handle still(dlopen(trial.path().c_str(), RTLD_NOW | RTLD_NOLOAD));
    if (still)
        trial.note(
            "it stays loaded, so that to load it again is no new beginning, nor gives a newer"
            " version of it");
}

void againAndAgain(Trial& trial) {
    constexpr int kTimes = 50;
    constexpr int kRound = 10;
    openOrSkip(trial);
    std::vector<std::size_t> memory;
    std::size_t files = 0;
    std::size_t running = 0;
    const auto loadOnce = [&] {
        const TranslationLibrary library(trial.path());
        trial.forEachCarried([&](const Pelmor::Type& type) {
            Passage passage(trial, type);
            passage.fillInput({});
            passage.evaluate();
        });
        trial.unload();
    };
    for (int i = 0; i < kTimes; ++i) {
        try {
            loadOnce();
        } catch (const std::exception& error) {
            if (i == 0) trial.skip("the library cannot be loaded");
            trial.fail("that it loads each time", oneLine(error.what()));
        }
        if ((i + 1) % kRound != 0) continue;
        memory.push_back(allocatedBytes());
        if (memory.size() > 1) continue;
        files = openFiles();
        running = threads();
    }
    trial.doing("loading, using and unloading it " + std::to_string(kTimes) + " times");
    noteIfStillLoaded(trial);
    const auto noMore = [&](const char* what, std::size_t before, std::size_t after) {
        trial.expect(after <= before, std::string("no more ") + what + " than after ten",
                     std::to_string(after) + " instead of " + std::to_string(before));
    };
    noMore("open files", files, openFiles());
    noMore("threads", running, threads());
    // What the allocator keeps at hand grows for some rounds. Less than a hundred bytes each time
    // may be the loader's own.
    std::ptrdiff_t least = std::numeric_limits<std::ptrdiff_t>::max();
    for (std::size_t i = 1; i < memory.size(); ++i)
        least = std::min(least, static_cast<std::ptrdiff_t>(memory[i] - memory[i - 1]));
    trial.expect(least <= std::ptrdiff_t{kRound} * 100, "no more memory with each ten times",
                 std::to_string(least) + " bytes more");
}

void silent(Trial& trial) {
    trial.process().allowPrints();
    // The host shows them elsewhere.
    const ShownMessages unimportant;
    const auto expectNothing = [&] {
        trial.process().noticePrints();
        const auto& print = trial.process().firstPrint();
        if (print)
            trial.fail("nothing on standard output and standard error",
                       inQuotes(oneLine(print->text)));
    };
    trial.translation();
    expectNothing();
    const std::vector<Pelmor::Type> types = trial.carried();
    expectNothing();
    trial.forEach(types, [&](const Pelmor::Type& type) {
        EditedNode(trial).add("port", EditedNode::Direction::Input,
                              Pelmor::Library::arrayOf(Pelmor::Library::arrayOf(type)));
        expectNothing();
        trial.doing("adding ports of " + nameOf(type));
        Passage passage(trial, type);
        expectNothing();
        passage.carry({});
        expectNothing();
    });
    trial.doing("releasing its object and unloading it");
    trial.unload();
    expectNothing();
}

// The same bytes under another identity, as a second installation of a library is.
std::string copyInMemory(Trial& trial, FileDescriptor& copy) {
    const FileDescriptor original(::open(trial.path().c_str(), O_RDONLY | O_CLOEXEC));
    copy = FileDescriptor(memfd_create("second copy", MFD_CLOEXEC));
    struct stat status {};
    if (fstat(original.number(), &status) != 0) trial.skip("the library cannot be copied");
    for (off_t left = status.st_size; left > 0;) {
        const ssize_t sent =
            sendfile(copy.number(), original.number(), nullptr, static_cast<std::size_t>(left));
        if (sent <= 0) trial.skip("the library cannot be copied");
        left -= sent;
    }
    return "/proc/self/fd/" + std::to_string(copy.number());
}

void secondCopy(Trial& trial) {
    const auto names = namesOf(trial.translation());
    FileDescriptor file;
    const std::string path = copyInMemory(trial, file);
    trial.doing("loading a copy of the library beside it");
    try {
        const TranslationLibrary copy(path);
        trial.expect(namesOf(copy.translation()) == names, "the names of the first", "others");
        trial.expect(namesOf(trial.translation()) == names, "its names as before", "others");
        trial.doing("using the library beside its copy");
        useOnce(trial);
    } catch (const LoadError& error) {
        trial.fail("that the copy loads too", oneLine(error.what()));
    }
    trial.doing("using the library after its copy was unloaded");
    trial.expect(namesOf(trial.translation()) == names, "its names as before", "others");
    useOnce(trial);
}

// In seconds, of a process that has not loaded it before: some libraries stay once they are loaded.
// Negative if it cannot be loaded.
double timeOfFirstLoad(Trial& trial) {
    using std::chrono::steady_clock;
    const auto load = [&trial](ChildSide&) {
        const auto begin = steady_clock::now();
        const TranslationLibrary library(trial.path());
        return std::to_string(std::chrono::duration<double>(steady_clock::now() - begin).count());
    };
    const InterruptionGuard guard;
    const Outcome outcome = runInChild(load, trial.limits());
    return outcome.end == Outcome::End::Answered ? std::stod(outcome.answer) : -1;
}

void loadsQuickly(Trial& trial) {
    constexpr double kBearable = 0.1;
    trial.skipUnlessLoadable();
    std::vector<double> seconds;
    trial.doing("loading the library in five processes, one after the other");
    for (int i = 0; i < 5; ++i) {
        seconds.push_back(timeOfFirstLoad(trial));
        if (seconds.back() < 0) Trial::skipUnloaded();
        trial.doing("loading the library once more");
    }
    std::sort(seconds.begin(), seconds.end());
    if (seconds[2] <= kBearable) return;
    trial.warn("it takes " + std::to_string(static_cast<int>(1000 * seconds[2])) +
               " ms to load, which people wait for whenever the host starts");
}

}  // namespace

std::vector<Case> loadingCases() {
    return {
        {"loading/loads",
         "A host resolves every symbol as it loads a library, and shows artists what is missing.",
         loads},
        {"loading/needs-what-is-there",
         "A library that needs another one which a machine lacks does not load there.",
         needsWhatIsThere},
        {"loading/factory",
         "The framework knows a library by its factory alone, and calls it once.", hasFactory},
        {"loading/exports-nothing-else",
         "What a library exports besides may stand in for the same names of other libraries, or"
         " they for it.",
         exportsNothingElse},
        {"loading/again-and-again",
         "Hosts unload plug-ins and load them again, within one session of many hours.",
         againAndAgain},
        {"loading/silent",
         "What a library prints lands among the output of programs that others read.", silent},
        {"loading/second-copy",
         "Two installations of one library meet in one host sooner or later.", secondCopy},
        {"loading/quickly", "Whoever starts the host waits until it has loaded every library.",
         loadsQuickly},
    };
}

}  // namespace Tolvane::Tools
