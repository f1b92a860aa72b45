// The process-wide table of what the plugin can carry. Readers are found by the name of the port's
// type, which is all that is known before there is a value; writers by the identity of the value
// itself.
#pragma once

#include "plugin/Translators.h"

#include <Pelmor/String.h>
#include <Pelmor/TypeInfo.h>

#include <map>

namespace Rigging::Module {

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

    // Built by the first call, whichever thread makes it, and never changed afterwards; it lives
    // until the library is unloaded. A first call that throws leaves it to the next. [any thread]
    static const TranslatorRegistry& instance();

    TranslatorRegistry(const TranslatorRegistry&) = delete;
    TranslatorRegistry& operator=(const TranslatorRegistry&) = delete;

    const Readers& readers() const noexcept { return m_readers; }
    const Writers& writers() const noexcept { return m_writers; }

    // Null where there is none. [any thread]
    HostReader findReader(const Pelmor::String& typeName) const noexcept;
    HostWriter findWriter(const Pelmor::Internal::TypeInfo& identity) const noexcept;

private:
    TranslatorRegistry();
    // What carries a record type of this name, and what carries the arrays of it.
    template <typename Record, auto write, auto writeArray>
    void registerTranslators(const char* typeName, HostReader read, HostReader readArray);

    // In this order: the writers are destroyed first.
    Readers m_readers;
    Writers m_writers;
};

}  // namespace Rigging::Module
