// Whatever the type library knows by name. An entity is a handle on an immutable description that
// all its copies share. [any thread]
#pragma once

#include <Pelmor/Export.h>
#include <Pelmor/String.h>

#include <memory>
#include <utility>

namespace Pelmor {

namespace Internal {
struct TypeDescription;
}

class PELMOR_API NamedEntity {
public:
    // With its namespace, such as "Rigging::Module::Pins".
    String getFullyQualifiedName() const;

protected:
    explicit NamedEntity(std::shared_ptr<Internal::TypeDescription> description) noexcept
        : m_description(std::move(description)) {}

    std::shared_ptr<Internal::TypeDescription> m_description;
};

}  // namespace Pelmor
