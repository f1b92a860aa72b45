// A translation library that passes everything on to the plugin, except for the one mistake that
// TOLVANE_TEST_FAULT in the environment names.
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VGlobal.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

namespace {

using namespace TavrikGraph::Executor;

constexpr std::string_view kFaultyOutput = "outPins";

class FaultyTranslation : public TypeTranslation {
public:
    FaultyTranslation() : TypeTranslation("Faulty") {}

    void release() noexcept override { delete this; }

    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept override {
        plugin().getSupportedTypeNames(names);
        if (hasFault("names a type twice")) names.append("Rigging::Module::Pins");
        if (hasFault("names a type later") && m_hasWritten) names.append("Late::Type");
    }

    bool translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                           const HostContext& context) const noexcept override {
        if (hasFault("reads nothing") && isPort(context, "inPins")) return false;
        if (hasFault("empties what it reads") && isPort(context, "inPins")) emptyNames(context);
        if (hasFault("blanks what it reads") && isPort(context, "inPins")) blankPins(context);
        return plugin().translateFromHost(type, value, context);
    }

    bool translateToHost(const Pelmor::AnyValue& value,
                         const HostContext& context) const noexcept override {
        if (hasFault("writes nothing anywhere")) return true;
        if (hasFault("moves a joint for a while") && isPort(context, "outNamedTransforms")) {
            const bool moved = plugin().translateToHost(value, context);
            const unsigned frame = m_framesWritten++;
            if (frame >= 10 && frame < 20) transformMatrix(context, 12)[3][0] += 30;
            return moved;
        }
        if (!isPort(context, kFaultyOutput)) return plugin().translateToHost(value, context);
        if (hasFault("writes nothing")) return true;
        if (hasFault("refuses to write")) return false;
        if (hasFault("writes only once") && m_hasWritten) return true;
        m_hasWritten = true;
        const bool translated = plugin().translateToHost(value, context);
        if (hasFault("writes a wrong name")) firstName(context).setString("wrong");
        if (hasFault("writes a wrong number")) firstMatrix(context)[3][1] += 0.25;
        if (hasFault("writes a NaN"))
            firstMatrix(context)[0][2] = -std::numeric_limits<double>::quiet_NaN();
        if (hasFault("shows a message")) VGlobal::displayError("Something is\nwrong");
        return translated;
    }

    bool portAdded(const Pelmor::String& name, PortDirection direction, const Pelmor::Type& type,
                   std::uint32_t index, std::uint32_t flags,
                   NodeEditContext* context) const noexcept override {
        if (hasFault("adds no port anywhere")) return false;
        if (hasFault("adds no port") && name == kFaultyOutput.data()) return false;
        return plugin().portAdded(name, direction, type, index, flags, context);
    }

private:
    static bool hasFault(std::string_view fault) {
        const char* asked = std::getenv("TOLVANE_TEST_FAULT");
        return asked && asked == fault;
    }

    static bool isPort(const HostContext& context, std::string_view port) {
        const std::string name = context.plug->name().asChar();
        return name.substr(name.rfind('.') + 1) == port;
    }

    static VDataHandle firstName(const HostContext& context) {
        const VDataHandle pins = context.dataBlock->outputValue(*context.plug);
        return VArrayDataHandle(pins.child(context.plug->child(0))).outputValue();
    }

    static VMatrix& firstMatrix(const HostContext& context) {
        const VDataHandle pins = context.dataBlock->outputValue(*context.plug);
        return VArrayDataHandle(pins.child(context.plug->child(1))).outputValue().asMatrix();
    }

    // Where the joint of this index came back.
    static VMatrix& transformMatrix(const HostContext& context, unsigned joint) {
        VPlug transforms = context.plug->child(1);
        VArrayDataHandle array(context.dataBlock->outputValue(*context.plug).child(transforms));
        array.jumpToElement(joint);
        return array.outputValue().child(transforms.elementByLogicalIndex(0).child(0)).asMatrix();
    }

    static void emptyNames(const HostContext& context) {
        const VDataHandle pins = context.dataBlock->outputValue(*context.plug);
        VArrayDataHandle names(pins.child(context.plug->child(0)));
        VArrayDataBuilder builder = names.builder();
        for (unsigned i = 0; i < names.elementCount(); ++i) builder.removeElement(i);
        names.set(builder);
    }

    static void blankPins(const HostContext& context) {
        const VDataHandle pins = context.dataBlock->outputValue(*context.plug);
        VArrayDataHandle names(pins.child(context.plug->child(0)));
        VArrayDataHandle matrices(pins.child(context.plug->child(1)));
        for (unsigned i = names.elementCount(); i > 0; --i, names.next(), matrices.next()) {
            names.outputValue().setString("");
            matrices.outputValue().asMatrix() = VMatrix();
        }
    }

    TypeTranslation& plugin() const { return m_library.translation(); }

    TranslationLibrary m_library{PLUGIN};
    mutable bool m_hasWritten = false;
    mutable unsigned m_framesWritten = 0;
};

}  // namespace

extern "C" __attribute__((visibility("default"))) TypeTranslation* createTavrikTypeTranslation() {
    return new FaultyTranslation;
}
