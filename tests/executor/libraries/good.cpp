// A translation library as it should be.
#include "tests/executor/libraries/LibraryEvents.h"

#include <TavrikGraph/Executor/TypeTranslation.h>

namespace {

using namespace TavrikGraph::Executor;

const UnloadingNote g_unloadingNote;

class GoodTranslation : public TypeTranslation {
public:
    GoodTranslation() : TypeTranslation("Good") { noteLibraryEvent("created"); }

    void release() noexcept override {
        noteLibraryEvent("released");
        delete this;
    }
    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept override {
        Pelmor::Array<Pelmor::String> all;
        all.append("double");
        names.swap(all);
    }
    bool translateFromHost(const Pelmor::Type&, Pelmor::AnyValue&,
                           const HostContext&) const noexcept override {
        return false;
    }
    bool translateToHost(const Pelmor::AnyValue&, const HostContext&) const noexcept override {
        return false;
    }
    bool portAdded(const Pelmor::String&, PortDirection, const Pelmor::Type&, std::uint32_t,
                   std::uint32_t, NodeEditContext*) const noexcept override {
        return false;
    }
};

}  // namespace

extern "C" __attribute__((visibility("default"))) TypeTranslation* createTavrikTypeTranslation() {
    return new GoodTranslation;
}
