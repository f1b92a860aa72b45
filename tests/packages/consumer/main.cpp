// Loads the installed plugin, adds a port while the host's calls are watched, and lets the host
// refuse the next one.
#include <OpenVornik/Testing/CallObserver.h>
#include <OpenVornik/VErrorListener.h>
#include <Pelmor/Library.h>
#include <Rigging/Pins.h>
#include <TavrikGraph/Executor/GraphNode.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>
#include <Tolvane/Translation.h>

namespace {

using TavrikGraph::Executor::PortDirection;

class RefuseModifiers : public OpenVornik::Testing::CallObserver {
public:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        return call.operation == "VDGModifier::doIt" ? VStatus::kFailure : VStatus::kSuccess;
    }
};

}  // namespace

int main() {
    const TavrikGraph::Executor::TranslationLibrary library(PLUGIN);
    TavrikGraph::Executor::GraphNode node(library.translation(), "node",
                                          [](const auto&, const auto&) {});
    const auto type = Pelmor::Library().getType(Tolvane::Page<Rigging::Module::Pins>::typeName);
    if (!node.addPort("pins", PortDirection::Input, type)) return 1;
    int messages = 0;
    const VErrorListener listener([&](const VString&) { ++messages; });
    const RefuseModifiers observer;
    if (node.addPort("others", PortDirection::Input, type)) return 2;
    return messages == 1 ? 0 : 3;
}
