// Named entities in the order in which they were added, each name once. [any thread]
#pragma once

#include <Pelmor/String.h>

#include <cstddef>
#include <vector>

namespace Pelmor {

template <typename Entity>
class EntityIndexedList {
public:
    // False, and nothing is added, if the list has an entity of that name.
    bool add(const Entity& entity) {
        if (find(entity.getFullyQualifiedName())) return false;
        m_entities.push_back(entity);
        return true;
    }

    // Null if there is none. Valid until the next `add`.
    const Entity* find(const String& fullyQualifiedName) const {
        for (const Entity& entity : m_entities)
            if (entity.getFullyQualifiedName() == fullyQualifiedName) return &entity;
        return nullptr;
    }

    std::size_t size() const noexcept { return m_entities.size(); }
    const Entity& operator[](std::size_t index) const noexcept { return m_entities[index]; }

private:
    std::vector<Entity> m_entities;
};

}  // namespace Pelmor
