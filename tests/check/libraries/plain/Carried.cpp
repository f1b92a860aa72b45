#include "tests/check/libraries/plain/Carried.h"

#include "tests/check/libraries/plain/Holder.h"
#include "tests/check/libraries/plain/Read.h"
#include "tests/check/libraries/plain/Write.h"

#include <cstdlib>
#include <new>
#include <utility>
#include <vector>

namespace Plain {
namespace {

template <typename T>
struct Shape {
    static constexpr bool isArray = false;
    static constexpr unsigned members = kMemberCount<T>;
};

template <typename T>
struct Shape<std::vector<T>> {
    static constexpr bool isArray = true;
    static constexpr unsigned members = kMemberCount<T>;
};

// By what tells the carried types apart: whether they are arrays, and how many members they have.
template <typename T>
bool isPortOf(const VPlug& plug) {
    VStatus status;
    const bool isArray = plug.isArray(&status);
    require(status, "asking whether the port is an array");
    const unsigned children = plug.numChildren(&status) - (fault("ports/shape") ? 1 : 0);
    require(status, "counting the port's children");
    return isArray == Shape<T>::isArray && children == Shape<T>::members;
}

template <typename T>
void readHeld(const VDataHandle& place, VPlug& plug, Pelmor::AnyValue& value) {
    T newest;
    const T* former = heldIn<T>(value);
    try {
        if (fault("failing-hosts/reading: parts of the former value") && former) newest = *former;
        read(place, plug, newest);
    } catch (const Failure&) {
        if (fault("failing-hosts/unnoticed-reading: the former value") && former) return;
        if (!fault("failing-hosts/reading: parts of the former value") || !former) throw;
    }
    Pelmor::AnyValue held = hold(std::move(newest));
    if (fault("values/holder-replaced")) new (&value) Pelmor::AnyValue();
    value = std::move(held);
}

template <typename T>
void writeHeld(const Pelmor::AnyValue& value, VDataHandle& place, VPlug& plug) {
    const bool isOfPort = isPortOf<T>(plug);
    if (!isOfPort && fault("values/wrong-port: crash")) std::abort();
    if (!isOfPort && !fault("values/wrong-port"))
        throw Failure("the value is of another type than the port");
    write(place, plug, *heldIn<T>(value));
}

template <typename T>
constexpr CarriedType carried(const char* name) {
    return {name, &readHeld<T>,
            [](const Pelmor::AnyValue& value) { return heldIn<T>(value) != nullptr; },
            &writeHeld<T>};
}

}  // namespace

const std::array<CarriedType, 4> kCarriedTypes = {carried<Mark>("Plain::Mark"),
                                                  carried<Pose>("Plain::Pose"),
                                                  carried<std::vector<Mark>>("array<Plain::Mark>"),
                                                  carried<std::vector<Pose>>("array<Plain::Pose>")};

const CarriedType* findCarried(const Pelmor::Type& type) {
    const Pelmor::String name = type.getFullyQualifiedName();
    for (const CarriedType& each : kCarriedTypes)
        if (name == each.name) return &each;
    return nullptr;
}

}  // namespace Plain
