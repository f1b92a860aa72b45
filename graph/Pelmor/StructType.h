// A view of a struct type: its members, in the order of the fields of the record that it describes.
// [any thread]
#pragma once

#include <Pelmor/Iterator.h>
#include <Pelmor/Type.h>

namespace Pelmor {

class PELMOR_API StructType : public Type {
public:
    class Member;
    using MemberIterator = BidirectionalIterator<Member, StructType, 2>;

    // Throws std::invalid_argument if `type` is no struct.
    explicit StructType(const Type& type);

    MemberIterator begin() const;
    MemberIterator end() const;
};

class PELMOR_API StructType::Member {
public:
    Member(const String& name, const Type& type) : m_name(name), m_type(type) {}

    String getName() const { return m_name; }
    // Valid while the struct type lives.
    const Type& getType() const noexcept { return m_type; }

private:
    String m_name;
    Type m_type;
};

}  // namespace Pelmor
