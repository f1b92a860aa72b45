// A view of an enum type: its enumerations, in declaration order. [any thread]
#pragma once

#include <Pelmor/Iterator.h>
#include <Pelmor/Type.h>

#include <cstdint>

namespace Pelmor {

class PELMOR_API EnumType : public Type {
public:
    class Enumeration;
    using EnumerationIterator = BidirectionalIterator<const Enumeration, EnumType, 2>;

    // Throws std::invalid_argument if `type` is no enum.
    explicit EnumType(const Type& type);

    EnumerationIterator begin() const;
    EnumerationIterator end() const;
};

class PELMOR_API EnumType::Enumeration {
public:
    Enumeration(const String& name, std::int32_t value) : m_name(name), m_value(value) {}

    const String& getName() const noexcept { return m_name; }
    std::int32_t getValue() const noexcept { return m_value; }

private:
    String m_name;
    std::int32_t m_value;
};

}  // namespace Pelmor
