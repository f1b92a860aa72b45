// A place in a node's data: a compound, a leaf, a whole array, or one element of an array. A handle
// is a value that copies without allocating. It is valid until the array that it is in, if any, is
// replaced, or until its node is destroyed.
//
// The accessors hand out the stored value itself. On a null handle, or on data of another kind,
// they hand out a spare value with the kind's default that belongs to the calling thread, so that
// what is written there is lost and harms nothing. [evaluation thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VMatrix.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VString.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

class OPENVORNIK_API VDataHandle {
public:
    // A null handle.
    VDataHandle() noexcept = default;

    bool isNull() const noexcept { return m_place == nullptr; }

    // The data of a child of this compound. Of the plug only the attribute counts, not the element
    // that it is in. A null handle if this compound has no such child.
    VDataHandle child(const VPlug& plug) const;

    VMatrix& asMatrix() const;
    VString& asString() const;
    double& asDouble() const;
    bool& asBool() const;
    int& asInt() const;
    // Enum attributes.
    short& asShort() const;

    // Overwrite the stored value; they do nothing if the data is of another kind.
    void setMatrix(const VMatrix& value);
    void setString(const VString& value);
    void setDouble(double value);
    void setBool(bool value);
    void setInt(int value);
    void setShort(short value);

private:
    friend class VDataBlock;
    friend class VArrayDataHandle;
    friend class VArrayDataBuilder;

    VDataHandle(const OpenVornik::Internal::Attribute* attribute, std::byte* storage,
                bool isElement) noexcept
        : m_attribute(attribute), m_place(storage + (isElement ? 1 : 0)) {}

    template <typename T>
    T& as(std::string_view operation) const;
    template <typename T>
    void set(std::string_view operation, const T& value);
    // Null if the data is no T.
    template <typename T>
    T* find() const noexcept;
    // One element of the array attribute, rather than all there is of the attribute.
    bool isElement() const noexcept { return reinterpret_cast<std::uintptr_t>(m_place) % 2 == 1; }
    std::byte* storage() const noexcept { return m_place - (isElement() ? 1 : 0); }
    // One value, rather than a whole array or nothing.
    bool holdsValue() const noexcept;

    // No more than two words, so that handles are passed in registers. Values lie at even
    // addresses; the handle of an element points to the second byte of its value.
    const OpenVornik::Internal::Attribute* m_attribute = nullptr;
    std::byte* m_place = nullptr;
};
