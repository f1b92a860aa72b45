#include <Tolvane/TranslatorRegistry.h>

namespace Tolvane {

HostReader TranslatorRegistry::findReader(const Pelmor::String& typeName) const noexcept {
    const auto found = m_readers.find(typeName);
    return found == m_readers.end() ? nullptr : found->second;
}

HostWriter TranslatorRegistry::findWriter(
    const Pelmor::Internal::TypeInfo& identity) const noexcept {
    const auto found = m_writers.find(&identity);
    return found == m_writers.end() ? nullptr : found->second;
}

}  // namespace Tolvane
