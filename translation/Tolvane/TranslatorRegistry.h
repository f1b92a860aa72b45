// The table of what a translation can carry. Readers are found by the name of the port's type,
// which is all that is known before there is a value; writers by the identity of the value itself.
#pragma once

#include <Pelmor/Array.h>
#include <Pelmor/String.h>
#include <Pelmor/TypeInfo.h>
#include <Tolvane/convert/Translators.h>
#include <Tolvane/convert/Write.h>
#include <Tolvane/record/Page.h>
#include <Tolvane/record/RecordList.h>

#include <map>

namespace Tolvane {

class TranslatorRegistry {
public:
    struct NameLess {
        bool operator()(const Pelmor::String& a, const Pelmor::String& b) const noexcept {
            return a.compare(b) < 0;
        }
    };
    // By content: two records of one type are the same key.
    struct IdentityLess {
        bool operator()(const Pelmor::Internal::TypeInfo* a,
                        const Pelmor::Internal::TypeInfo* b) const noexcept {
            return Pelmor::Internal::typeInfoLess(*a, *b);
        }
    };
    using Readers = std::map<Pelmor::String, HostReader, NameLess>;
    using Writers = std::map<const Pelmor::Internal::TypeInfo*, HostWriter, IdentityLess>;

    // The one registry of a RecordList in this library. It is built by the first call, whichever
    // thread makes it, and never changed afterwards; it lives until the library is unloaded. A
    // first call that throws leaves it to the next. [any thread]
    template <typename Records>
    static const TranslatorRegistry& instance() {
        static const TranslatorRegistry s_instance{Records()};
        return s_instance;
    }

    TranslatorRegistry(const TranslatorRegistry&) = delete;
    TranslatorRegistry& operator=(const TranslatorRegistry&) = delete;

    const Readers& readers() const noexcept { return m_readers; }
    const Writers& writers() const noexcept { return m_writers; }

    // Null where there is none. [any thread]
    HostReader findReader(const Pelmor::String& typeName) const noexcept;
    HostWriter findWriter(const Pelmor::Internal::TypeInfo& identity) const noexcept;

private:
    template <typename... Records>
    explicit TranslatorRegistry(RecordList<Records...>) {
        (registerTranslators<Records>(), ...);
    }

    // What carries a record, and what carries the arrays of it. The name of the array type has the
    // form in which the graph library reports it, to the character.
    template <typename Record>
    void registerTranslators() {
        using Array = Pelmor::SharedArray<Record>;
        using Pelmor::Internal::HeldIdentity;
        using Carry = Translators<Record>;
        const char* name = Page<Record>::typeName;
        m_writers[&HeldIdentity<Record>::s_record] = writeFromAny<Record, Carry::write>;
        m_writers[&HeldIdentity<Array>::s_record] = writeFromAny<Array, Carry::writeArray>;
        m_readers[name] = Carry::readValue;
        m_readers[Pelmor::String("array<") + name + ">"] = Carry::readArrayValue;
    }

    // In this order: the writers are destroyed first.
    Readers m_readers;
    Writers m_writers;
};

}  // namespace Tolvane
