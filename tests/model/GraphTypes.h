// Goes from the name of a type that a holder may have to the C++ type, and through a record's
// members, the objects included.
#pragma once

#include "tests/support/CarriedTypes.h"

#include <Pelmor/Array.h>
#include <Pelmor/String.h>

#include <stdexcept>
#include <string>
#include <type_traits>

namespace ModelTests {

using TestSupport::eachMemberAndObject;
using TestSupport::TypeTag;

template <typename Visit, typename... Types>
bool visitIfNamed(const std::string& type, Visit& visit, testing::Types<Types...>) {
    return ((type == TestSupport::graphName<Types>() && (visit(TypeTag<Types>()), true)) || ...);
}

// Calls `visit` with the TypeTag of the type of that name.
template <typename Visit>
void visitType(const std::string& type, Visit visit) {
    if (type == "string") return visit(TypeTag<Pelmor::String>());
    if (!visitIfNamed(type, visit, TestSupport::HeldTypes()))
        throw std::out_of_range("no holder has " + type);
}

}  // namespace ModelTests
