#include "tests/check/FaultTable.h"

namespace {

constexpr const char* kNoOther = "^$";
// What is not loaded is tried with nothing.
constexpr const char* kAllOthers = "";
// Whatever adds ports on a host that fails.
const std::string kFailingPorts = "^failing-hosts/ports";
// Whatever writes again after a failure.
const std::string kWritingAgain = "^failing-hosts/(unnoticed-)?writing";
// Whatever compares values sees that they are wrong.
const std::string kComparing =
    "^(values|threads)/|^object/(release-beside-another|survives-another)$"
    "|^loading/(second-copy|silent)$|^failing-hosts/(unnoticed-)?(reading|writing)";

}  // namespace

const std::vector<FaultyLibrary>& faultyLibraries() {
    // The faulty library, with the fault of the case's name.
    const auto faulty = [](const std::string& tried, const std::string& also = kNoOther) {
        return FaultyLibrary{tried, FAULTY_LIBRARY, tried, "failed", also};
    };
    const auto untried = [](FaultyLibrary row, const std::string& others) {
        row.untried = others;
        return row;
    };
    const auto warned = [&](const std::string& tried, const std::string& says,
                            const std::string& also = kNoOther) {
        return FaultyLibrary{tried, FAULTY_LIBRARY, tried, "warning", also, says};
    };
    const auto variant = [](const std::string& tried, const std::string& which,
                            const std::string& also = kNoOther,
                            const std::string& verdict = "failed") {
        return FaultyLibrary{tried, FAULTY_LIBRARY, tried + ": " + which, verdict, also};
    };
    const auto unloadable = [](const std::string& tried, const std::string& library,
                               const std::string& also, const std::string& says) {
        return FaultyLibrary{tried, library, "", "failed", also, says, kAllOthers};
    };
    static const std::vector<FaultyLibrary> all{
        unloadable("loading/loads", LIBRARY_WITH_UNDEFINED_SYMBOL, kNoOther, "createElsewhere"),
        unloadable("loading/needs-what-is-there", LIBRARY_NEEDING_GONE, kNoOther,
                   "libcheck_gone.so"),
        unloadable("loading/factory", LIBRARY_WITHOUT_FACTORY, "^loading/exports-nothing-else$",
                   "none"),
        unloadable("loading/factory", LIBRARY_GIVING_NULL, kNoOther, "returned null"),
        untried(faulty("loading/factory"), kAllOthers),
        {"loading/exports-nothing-else", LIBRARY_EXPORTING_MORE, "", "warning", kNoOther,
         "anotherFunction"},
        variant("loading/again-and-again", "memory"),
        variant("loading/again-and-again", "file"),
        variant("loading/again-and-again", "thread", "^hygiene/processes$"),
        variant("loading/again-and-again", "use"),
        faulty("loading/silent"),
        variant("loading/silent", "refusal"),
        variant("loading/silent", "release"),
        variant("loading/silent", "unloading"),
        faulty("loading/second-copy"),
        warned("loading/quickly", " ms to load"),
        {"loading/quickly", STAYING_LIBRARY, "loading/quickly", "warning"},

        faulty("object/two-factories"),
        faulty("object/names-at-any-time", "^loading/second-copy$"),
        faulty("object/names-from-eight-threads"),
        faulty("object/names-replace"),
        faulty("object/names-once"),
        faulty("object/names-not-empty"),
        warned("object/names-known", "Absent::Type"),
        faulty("object/supported-types"),
        warned("object/has-a-name", "no name"),
        faulty("object/release-frees"),
        faulty("object/release-beside-another", "^object/survives-another$"),
        faulty("object/survives-another"),
        faulty("object/port-changes"),

        faulty("ports/one-attribute",
               "^ports/(again|any-name|children-beside-ports|five-hundred|long-name)$|" +
                   kFailingPorts),
        faulty("ports/shape", "^ports/(again|five-hundred|taken-name)$|" + kFailingPorts),
        faulty("ports/input-flags"),
        faulty("ports/output-flags"),
        faulty("ports/taken-name"),
        faulty("ports/empty-name"),
        faulty("ports/long-name"),
        faulty("ports/any-name"),
        faulty("ports/plain-types"),
        faulty("ports/array-of-arrays"),
        faulty("ports/foreign-type"),
        variant("ports/foreign-type", "enum"),
        faulty("ports/modifier-refuses", kFailingPorts),
        faulty("ports/modifier-fails", kFailingPorts),
        faulty("ports/again"),
        faulty("ports/five-hundred"),
        untried(faulty("ports/children-beside-ports"), "^(ports/taken-name|threads/sanitizer)$"),

        faulty("values/carried", kComparing),
        variant("values/carried", "beside a refused type", kComparing + "|^ports/one-attribute$"),
        variant("values/carried", "one count for all", "^values/(65537-elements|sparse-arrays)$"),
        faulty("values/empty-arrays"),
        faulty("values/one-element", kWritingAgain),
        faulty("values/many-elements", "^values/65537-elements$"),
        faulty("values/65537-elements"),
        faulty("values/sparse-arrays", "^values/input-untouched$"),
        variant("values/sparse-arrays", "output", kWritingAgain),
        faulty("values/growing", "^values/(long-texts|sparse-arrays)$|" + kWritingAgain),
        faulty("values/shrinking", "^values/sparse-arrays$|" + kWritingAgain),
        faulty("values/same-length",
               "^values/(empty-texts|readings-share-nothing|sparse-arrays)$"
               "|^failing-hosts/reading-pairs$|" +
                   kWritingAgain),
        faulty("values/not-numbers"),
        variant("values/not-numbers", "signalling"),
        faulty("values/extreme-numbers", "^values/not-numbers$"),
        variant("values/extreme-numbers", "denormal"),
        variant("values/extreme-numbers", "infinite"),
        faulty("values/empty-texts", "^failing-hosts/reading-pairs$"),
        faulty("values/long-texts"),
        faulty("values/blank-edged-texts", "^values/any-byte-texts$"),
        faulty("values/any-byte-texts"),
        faulty("values/input-untouched",
               "^(values/(copies-on-threads|holder-replaced)|threads/two-nodes)$"
               "|^failing-hosts/reading(-pairs)?$"),
        faulty("values/readings-share-nothing",
               "^(values/copies|threads/(first-use|two-nodes)|loading/again-and-again)$"),
        faulty("values/held-value-stays", "^values/(copies|readings-share-nothing)$"),
        faulty("values/holder-replaced", "^thrift/memory$"),
        faulty("values/empty-holder"),
        faulty("values/foreign-value"),
        faulty("values/wrong-port"),
        variant("values/wrong-port", "crash"),
        faulty("values/clean-after-success", kWritingAgain),
        faulty("values/copies", "^values/(copies-on-threads|held-value-stays)$|" + kWritingAgain),
        faulty("values/copies-on-threads"),
        faulty("values/type-known"),

        faulty("failing-hosts/reading",
               "^failing-hosts/(messages|no-leak|reading-pairs|unnoticed-reading)$"),
        variant("failing-hosts/reading", "parts of the former value",
                "^failing-hosts/(reading-pairs|unnoticed-reading)$"),
        faulty("failing-hosts/reading-pairs", "^failing-hosts/(messages|no-leak)$"),
        faulty("failing-hosts/writing",
               "^failing-hosts/"
               "(dirty-after-failure|messages|no-leak|unnoticed-writing|writing-pairs)$"),
        faulty("failing-hosts/writing-pairs", "^failing-hosts/(messages|no-leak)$"),
        faulty("failing-hosts/ports"),
        faulty("failing-hosts/ports-pairs"),
        variant("failing-hosts/ports-pairs", "output"),
        faulty("failing-hosts/dirty-after-failure"),
        faulty("failing-hosts/no-leak"),
        variant("failing-hosts/no-leak", "clean-up"),
        warned("failing-hosts/unnoticed-reading", "failure of VArrayDataHandle::elementCount "),
        variant("failing-hosts/unnoticed-reading", "the former value", kNoOther, "warning"),
        warned("failing-hosts/unnoticed-writing", "failure of VArrayDataHandle::set "),
        faulty("failing-hosts/messages"),
        variant("failing-hosts/messages", "twice", kNoOther, "warning"),

        faulty("threads/first-use"),
        faulty("threads/two-nodes", "^threads/first-use$"),
        {"threads/sanitizer", RACING_LIBRARY, "", "failed", "^threads/", "data race", kNoOther,
         "LD_PRELOAD=" SANITIZER_RUNTIME},

        faulty("thrift/memory",
               "^(values/(copies-on-threads|holder-replaced)|loading/again-and-again"
               "|failing-hosts/no-leak)$"),
        warned("thrift/allocations", " bytes allocated"),
        warned("thrift/host-calls", " host calls"),
        warned("thrift/names", " bytes more", "^object/release-frees$"),

        faulty("hygiene/environment"),
        faulty("hygiene/files"),
        variant("hygiene/files", "look"),
        variant("hygiene/files", "read"),
        faulty("hygiene/sockets"),
        variant("hygiene/sockets", "write"),
        warned("hygiene/processes", "starts a process or thread"),
        faulty("hygiene/folder"),
        faulty("hygiene/locale"),
        faulty("hygiene/signals"),
        faulty("hygiene/floating-point"),
    };
    return all;
}
