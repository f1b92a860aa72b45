// A translation library that passes everything on to the plugin, except for what
// TOLVANE_TEST_FAULT in the environment names: "HOW STAGE", such as "crashes loading".
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

using namespace TavrikGraph::Executor;

void fail(const std::string& how) {
    if (how == "crashes") std::raise(SIGSEGV);
    if (how == "computes")
        for (volatile bool forever = true; forever;) continue;
    // That one goes by itself where nobody ends it.
    if (how == "starts-another-and-sleeps" && fork() == 0) {
        sleep(60);
        _exit(0);
    }
    if (how == "sleeps" || how == "starts-another-and-sleeps")
        while (true) sleep(1000);
    if (how == "throws") throw std::runtime_error("so much for that");
    if (how == "throws-a-number") throw 7;
    if (how == "terminates") std::terminate();
    if (how == "aborts") std::abort();
    if (how == "exits") std::exit(0);
    if (how == "exits-at-once") _exit(3);
    if (how == "kills-itself") std::raise(SIGKILL);
    if (how == "prints") std::printf("Hello\n");
    if (how == "prints-an-error")
        std::cerr << "Hello "
                  << "again" << std::endl;
    if (how == "prints-a-zero") std::fwrite("\0zero", 1, 5, stdout);
    if (how == "writes-a-line") [[maybe_unused]]
        const auto ignored = write(1, "Hello", 5);
    if (how == "prints-for-ever")
        while (true) std::puts("a line that is printed again and again, and then again");
    if (how == "eats-memory")
        for (std::vector<char*> all;; all.push_back(new char[1 << 24]))
            std::memset(all.empty() ? new char[1] : all.back(), 1, 1);
}

void failAt(const char* stage) {
    const char* asked = std::getenv("TOLVANE_TEST_FAULT");
    const std::string fault = asked ? asked : "";
    const std::size_t blank = fault.find(' ');
    if (blank != std::string::npos && fault.substr(blank + 1) == stage)
        fail(fault.substr(0, blank));
}

// Fails where a host node's second frame is evaluated, and where nodes have ports that are called
// "in" and "out", in the first.
class MisbehavingTranslation : public TypeTranslation {
public:
    MisbehavingTranslation() : TypeTranslation("Misbehaving") {}

    void release() noexcept override {
        failAt("releasing");
        delete this;
    }

    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept override {
        failAt("names");
        plugin().getSupportedTypeNames(names);
    }

    bool translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                           const HostContext& context) const noexcept override {
        if (isPort(context, "in") || (isPort(context, "inPins") && m_reads++ == 1))
            failAt("reading");
        return plugin().translateFromHost(type, value, context);
    }

    bool translateToHost(const Pelmor::AnyValue& value,
                         const HostContext& context) const noexcept override {
        if (isPort(context, "out") || (isPort(context, "outPins") && m_writes++ == 1))
            failAt("writing");
        return plugin().translateToHost(value, context);
    }

    bool portAdded(const Pelmor::String& name, PortDirection direction, const Pelmor::Type& type,
                   std::uint32_t index, std::uint32_t flags,
                   NodeEditContext* context) const noexcept override {
        if (name == "outPins" || name == "out") failAt("ports");
        return plugin().portAdded(name, direction, type, index, flags, context);
    }

private:
    static bool isPort(const HostContext& context, const std::string& port) {
        const std::string name = context.plug->name().asChar();
        return name.substr(name.rfind('.') + 1) == port;
    }

    TypeTranslation& plugin() const { return m_library.translation(); }

    TranslationLibrary m_library{PLUGIN};
    mutable int m_reads = 0;
    mutable int m_writes = 0;
};

__attribute__((constructor)) void isLoaded() { failAt("loading"); }
__attribute__((destructor)) void isUnloaded() { failAt("unloading"); }

}  // namespace

extern "C" __attribute__((visibility("default"))) TypeTranslation* createTavrikTypeTranslation() {
    failAt("creating");
    return new MisbehavingTranslation;
}
