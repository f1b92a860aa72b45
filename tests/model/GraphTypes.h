// Goes from the name of a type that a holder may have to the C++ type, and through a record's
// members, the objects included.
#pragma once

#include "tests/support/RecordLeaves.h"
#include "types/Records.h"

#include <Pelmor/Array.h>
#include <Pelmor/String.h>

#include <stdexcept>
#include <string>
#include <type_traits>

namespace ModelTests {

template <typename T>
struct TypeTag {
    using Type = T;
};

template <typename Record, typename Visit>
bool visitIfNamed(const std::string& type, const std::string& record, Visit& visit) {
    if (type == record) visit(TypeTag<Record>());
    if (type == "array<" + record + ">") visit(TypeTag<Pelmor::SharedArray<Record>>());
    return type == record || type == "array<" + record + ">";
}

// Calls `visit` with the TypeTag of the type of that name.
template <typename Visit>
void visitType(const std::string& type, Visit visit) {
    using namespace Rigging::Module;
    if (type == "string") return visit(TypeTag<Pelmor::String>());
    const bool isKnown =
        visitIfNamed<Transform>(type, "Core::Transform::Transform", visit) ||
        visitIfNamed<NamedTransforms>(type, "Rigging::Module::NamedTransforms", visit) ||
        visitIfNamed<Pins>(type, "Rigging::Module::Pins", visit) ||
        visitIfNamed<InputsJoints>(type, "Rigging::Module::InputsJoints", visit) ||
        visitIfNamed<InputsControls>(type, "Rigging::Module::InputsControls", visit) ||
        visitIfNamed<Inputs>(type, "Rigging::Module::Inputs", visit) ||
        visitIfNamed<Outputs>(type, "Rigging::Module::Outputs", visit);
    if (!isKnown) throw std::out_of_range("no holder has " + type);
}

template <typename Record>
constexpr bool kHasObjects = std::is_same_v<Record, Rigging::Module::Inputs> ||
                             std::is_same_v<Record, Rigging::Module::Outputs>;

template <typename Record, typename Visit>
void eachMemberAndObject(Record& record, Visit visit) {
    TestSupport::eachMember(record, visit);
    if constexpr (kHasObjects<Record>) {
        visit(record.object0);
        visit(record.object1);
    }
}

}  // namespace ModelTests
