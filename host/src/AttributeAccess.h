// What all attribute function sets do alike: make an attribute, take one of their kind, read and
// change the one that they work on.
#pragma once

#include "host/src/Answer.h"
#include "host/src/Attribute.h"
#include "host/src/Observe.h"

#include <OpenVornik/VFnAttribute.h>

#include <utility>

namespace OpenVornik::Internal {

// The new attribute, which `works` is made to name. Fails if a name is empty.
inline VObject make(VObject& works, Attribute::Definition definition, VStatus* status) {
    if (definition.longName.length() == 0 || definition.shortName.length() == 0) {
        return fail(status, VStatus::kInvalidParameter);
    }
    works = handleTo(new Attribute(std::move(definition)));
    return succeed(status, works);
}

// `attribute`, or the null object if it is of another kind.
inline VObject ofKind(const VObject& attribute, VFnAttribute::Kind kind, VStatus* status) {
    const Attribute* given = attributeOf(attribute);
    if (!given || given->definition().kind != kind) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, attribute);
}

// What `get` reads from the attribute.
template <typename Get>
auto read(std::string_view operation, const VObject& object, VStatus* status, Get get)
    -> decltype(get(std::declval<const Attribute&>())) {
    if (refused(status, operation, object)) return {};
    const Attribute* attribute = attributeOf(object);
    if (!attribute) return fail(status, VStatus::kInvalidParameter);
    return succeed(status, get(*attribute));
}

// The same from what `list` of the attribute has at `index`; fails past its end.
template <typename List, typename Get>
auto readAt(std::string_view operation, const VObject& object, unsigned index, VStatus* status,
            List list, Get get) {
    using Result = decltype(get(list(std::declval<const Attribute&>())[index]));
    if (refused(status, operation, object, index)) return Result();
    const Attribute* attribute = attributeOf(object);
    if (!attribute || index >= list(*attribute).size()) {
        return Result(fail(status, VStatus::kInvalidParameter));
    }
    return succeed(status, get(list(*attribute)[index]));
}

}  // namespace OpenVornik::Internal
