#include <TavrikGraph/Executor/TypeTranslation.h>

#include <utility>

namespace TavrikGraph::Executor {

TypeTranslation::TypeTranslation(Pelmor::String name) noexcept : m_name(std::move(name)) {}

TypeTranslation::~TypeTranslation() = default;

void TypeTranslation::getSupportedTypes(
    const Pelmor::Library& library, Pelmor::EntityIndexedList<Pelmor::Type>& types) const noexcept {
    Pelmor::Array<Pelmor::String> names;
    getSupportedTypeNames(names);
    for (const Pelmor::String& name : names)
        if (const auto type = library.findType(name)) types.add(*type);
}

bool TypeTranslation::portRemoved(const Pelmor::String&, const Pelmor::String&) const noexcept {
    return true;
}

bool TypeTranslation::portRenamed(const Pelmor::String&, const Pelmor::String&,
                                  const Pelmor::String&) const noexcept {
    return true;
}

bool TypeTranslation::registerHostPlugins(const PluginHostData*) const noexcept { return true; }

bool TypeTranslation::unregisterHostPlugins(const PluginHostData*) const noexcept { return true; }

}  // namespace TavrikGraph::Executor
