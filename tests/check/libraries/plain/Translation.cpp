// The translation object, and the factory that makes it.
#include "tests/check/libraries/plain/Carried.h"
#include "tests/check/libraries/plain/Failure.h"
#include "tests/check/libraries/plain/Fault.h"
#include "tests/check/libraries/plain/Ports.h"

#include <OpenVornik/VGlobal.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

namespace Plain {
namespace {

using TavrikGraph::Executor::HostContext;
using TavrikGraph::Executor::NodeEditContext;
using TavrikGraph::Executor::PortDirection;
using TavrikGraph::Executor::TypeTranslation;

using Names = Pelmor::Array<Pelmor::String>;

// Whether it could be done; if it could not, the user is told. `what` gives what is done to what.
template <typename What, typename Work>
bool attempt(What what, Work work) noexcept {
    try {
        work();
        return true;
    } catch (const std::exception& failure) {
        if (fault("failing-hosts/no-leak")) leak(64);
        const std::string message = "Plain: " + what() + ": " + failure.what() + ".";
        VGlobal::displayError(message.c_str());
        if (fault("failing-hosts/messages: twice")) VGlobal::displayError(message.c_str());
        return false;
    }
}

template <typename Work>
bool attemptSilently(Work work) noexcept {
    try {
        work();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

std::string nameOf(const HostContext& context) { return context.plug->name().asChar(); }

// The faults of a list that is made when it is first needed, without care for other threads.
std::size_t countListed() {
    static std::atomic<bool> isBegun{false};
    static std::atomic<std::size_t> listed{0};
    // For so long that another thread comes in between, however busy the machine is.
    if (!isBegun.exchange(true))
        for (std::size_t i = 0; i < kCarriedTypes.size(); ++i, ++listed)
            for (int time = 0; time < 25; ++time) dawdle();
    return listed;
}

// The faults of what objects share and one of them takes away.
std::atomic<bool> isAnyReleased{false};

// The fault of a list that grows.
std::atomic<bool> isAnyRead{false};

// The fault of a value that is read when it is needed.
struct LateReading {
    Pelmor::Type type;
    VObject node;
    VPlug plug;
    VDataBlock data;
};
thread_local std::optional<LateReading> lateReading;

// The fault of a library that does not expect to fail while it cleans up after a failure.
struct TidyUp {
    const VPlug& plug;
    int exceptions = std::uncaught_exceptions();

    ~TidyUp() {
        if (!fault("failing-hosts/no-leak: clean-up")) return;
        if (std::uncaught_exceptions() == exceptions) return;
        VStatus status;
        plug.attribute(&status);
        if (status.error()) leak(64);
    }
};

class Translation : public TypeTranslation {
public:
    Translation() : TypeTranslation(fault("object/has-a-name") ? "" : "Plain") {}

    void release() noexcept override {
        isAnyReleased = true;
        if (fault("loading/silent: release")) std::puts("Plain is released");
        if (!fault("object/two-factories") && !fault("object/release-frees")) delete this;
    }

    void getSupportedTypes(const Pelmor::Library& library,
                           Pelmor::EntityIndexedList<Pelmor::Type>& types) const noexcept override {
        if (!fault("object/supported-types")) TypeTranslation::getSupportedTypes(library, types);
    }

    void getSupportedTypeNames(Names& names) const noexcept override {
        if (!fault("object/names-replace")) names.clear();
        std::size_t count = kCarriedTypes.size();
        if (fault("object/names-from-eight-threads")) count = countListed();
        if (fault("object/survives-another") && isAnyReleased) count = 0;
        for (std::size_t i = 0; i < count; ++i) names.append(kCarriedTypes[i].name);
        if (fault("object/names-once")) names.append(kCarriedTypes[0].name);
        if (fault("object/names-not-empty")) names.append("");
        if (fault("object/names-known")) names.append("Absent::Type");
        if (fault("object/names-at-any-time") && isAnyRead) names.append("string");
        if (fault("thrift/names")) leak(64);
    }

    bool translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                           const HostContext& context) const noexcept override {
        const CarriedType* carried = findCarried(type);
        if (!carried || !hasTable()) return false;
        meddle();
        isAnyRead = true;
        const auto what = [&] { return "reading " + nameOf(context); };
        const bool isRead = attempt(what, [&] {
            VStatus status;
            VPlug plug = *context.plug;
            const VDataHandle place = context.dataBlock->inputValue(plug, &status);
            require(status, "finding the data of the port");
            carried->read(place, plug, value);
            if (fault("values/held-value-stays"))
                lateReading = LateReading{type, plug.node(), plug, *context.dataBlock};
        });
        // A value of an earlier evaluation is none of this one.
        if (!isRead) value.reset();
        if (!isRead && fault("failing-hosts/messages")) VGlobal::displayError("");
        return isRead;
    }

    bool translateToHost(const Pelmor::AnyValue& value,
                         const HostContext& context) const noexcept override {
        if (!value.hasValue()) return fault("values/empty-holder");
        if (!hasTable()) return false;
        if (fault("reads marks only") && kCarriedTypes[0].isHeldIn(value)) return false;
        for (const CarriedType& type : kCarriedTypes)
            if (type.isHeldIn(value)) return write(type, value, context);
        if (fault("values/foreign-value")) writeDefault(context);
        return false;
    }

    bool portAdded(const Pelmor::String& name, PortDirection direction, const Pelmor::Type& type,
                   std::uint32_t, std::uint32_t, NodeEditContext* context) const noexcept override {
        if (fault("ports/plain-types") && type.getTypeKind() < Pelmor::TypeKind::Array)
            return false;
        const bool isInput = direction == PortDirection::Input;
        const auto what = [&] { return std::string("adding port ") + name.c_str(); };
        if (fault("loading/silent: refusal") && !isCarried(type)) std::puts("Plain says no");
        return attempt(what, [&] { addPort(name.c_str(), isInput, type, *context); });
    }

    bool portRemoved(const Pelmor::String&, const Pelmor::String& port) const noexcept override {
        if (fault("ports/again")) rememberRemoved(port.c_str());
        while (fault("hangs")) pause();
        return !fault("object/port-changes");
    }

private:
    static bool hasTable() {
        if (fault("object/release-beside-another") && isAnyReleased) return false;
        return !fault("threads/first-use") || countListed() == kCarriedTypes.size();
    }

    static bool write(const CarriedType& type, const Pelmor::AnyValue& value,
                      const HostContext& context) noexcept {
        const auto what = [&] { return "writing " + nameOf(context); };
        const auto work = [&] {
            VStatus status;
            VPlug plug = *context.plug;
            VDataHandle place = context.dataBlock->outputValue(plug, &status);
            require(status, "finding the data of the port");
            const TidyUp tidyUp{*context.plug};
            type.write(isLate(type) ? readLate(type) : value, place, plug);
            const VObject attribute = plug.attribute(&status);
            require(status, "finding the attribute of the port");
            if (fault("values/clean-after-success")) return;
            require(context.dataBlock->setClean(attribute), "marking the port clean");
        };
        const bool isWritten =
            fault("values/wrong-port") ? attemptSilently(work) : attempt(what, work);
        if (fault("failing-hosts/dirty-after-failure"))
            context.dataBlock->setClean(context.plug->attribute());
        return isWritten;
    }

    static void writeDefault(const HostContext& context) {
        VPlug plug = *context.plug;
        context.dataBlock->outputValue(plug).child(plug.child(0)).setString("");
    }

    static bool isLate(const CarriedType& type) {
        return fault("values/held-value-stays") && lateReading &&
               findCarried(lateReading->type) == &type;
    }

    static Pelmor::AnyValue readLate(const CarriedType& type) {
        Pelmor::AnyValue value;
        type.read(lateReading->data.inputValue(lateReading->plug), lateReading->plug, value);
        return value;
    }
};

}  // namespace
}  // namespace Plain

extern "C" __attribute__((visibility("default"))) TavrikGraph::Executor::TypeTranslation*
createTavrikTypeTranslation() {
    using namespace Plain;
    if (fault("loading/factory")) throw std::runtime_error("there is no translation today");
    if (fault("loading/second-copy") && !isOnlyCopy()) return nullptr;
    if (fault("object/two-factories")) {
        static Translation only;
        return &only;
    }
    return new Translation;
}
