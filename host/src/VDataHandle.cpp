#include "host/src/Attribute.h"
#include "host/src/Observe.h"
#include "host/src/PlugAccess.h"
#include "host/src/Storage.h"

#include <OpenVornik/VDataHandle.h>

#include <type_traits>

using namespace OpenVornik::Internal;

static_assert(std::is_trivially_copyable_v<VDataHandle>);

namespace {

template <typename T>
constexpr Value kValueOf = Value::kNothing;
template <>
constexpr Value kValueOf<VMatrix> = Value::kMatrix;
template <>
constexpr Value kValueOf<VString> = Value::kText;
template <>
constexpr Value kValueOf<double> = Value::kDouble;
template <>
constexpr Value kValueOf<bool> = Value::kBoolean;
template <>
constexpr Value kValueOf<int> = Value::kInteger;
template <>
constexpr Value kValueOf<short> = Value::kEnum;

// What an access that finds no data gives. It is reset each time, so that what was written there is
// never read back.
template <typename T>
T& spare() {
    thread_local T value;
    value = T();
    return value;
}

}  // namespace

VDataHandle VDataHandle::child(const VPlug& plug) const {
    if (refusal("VDataHandle::child", DataPlace{m_attribute, isElement()}, plug).error()) return {};
    const Attribute* attribute = PlugAccess::attribute(plug);
    if (!holdsValue() || !attribute || attribute->parent() != m_attribute) return {};
    return VDataHandle(attribute, storage() + attribute->offset(), false);
}

VMatrix& VDataHandle::asMatrix() const { return as<VMatrix>("VDataHandle::asMatrix"); }
VString& VDataHandle::asString() const { return as<VString>("VDataHandle::asString"); }
double& VDataHandle::asDouble() const { return as<double>("VDataHandle::asDouble"); }
bool& VDataHandle::asBool() const { return as<bool>("VDataHandle::asBool"); }
int& VDataHandle::asInt() const { return as<int>("VDataHandle::asInt"); }
short& VDataHandle::asShort() const { return as<short>("VDataHandle::asShort"); }

void VDataHandle::setMatrix(const VMatrix& value) { set("VDataHandle::setMatrix", value); }
void VDataHandle::setString(const VString& value) { set("VDataHandle::setString", value); }
void VDataHandle::setDouble(double value) { set("VDataHandle::setDouble", value); }
void VDataHandle::setBool(bool value) { set("VDataHandle::setBool", value); }
void VDataHandle::setInt(int value) { set("VDataHandle::setInt", value); }
void VDataHandle::setShort(short value) { set("VDataHandle::setShort", value); }

template <typename T>
T& VDataHandle::as(std::string_view operation) const {
    if (refusal(operation, DataPlace{m_attribute, isElement()}).error()) return spare<T>();
    T* value = find<T>();
    return value ? *value : spare<T>();
}

template <typename T>
void VDataHandle::set(std::string_view operation, const T& value) {
    if (refusal(operation, DataPlace{m_attribute, isElement()}, value).error()) return;
    if (T* present = find<T>()) *present = value;
}

template <typename T>
T* VDataHandle::find() const noexcept {
    const bool isOfKind = holdsValue() && m_attribute->value() == kValueOf<T>;
    return isOfKind ? &stored<T>(storage()) : nullptr;
}

bool VDataHandle::holdsValue() const noexcept {
    return !isNull() && (isElement() || !m_attribute->isArray());
}
