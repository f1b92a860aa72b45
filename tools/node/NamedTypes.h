// What a translation says that it carries.
#pragma once

#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <string>
#include <vector>

namespace Tolvane::Tools {

// As it says it.
std::vector<std::string> namesOf(const TavrikGraph::Executor::TypeTranslation& translation);
// Each once, in its order.
std::vector<std::string> distinctNamesOf(const TavrikGraph::Executor::TypeTranslation& translation);
// Of these, the types that the graph knows.
std::vector<Pelmor::Type> carriedTypes(const TavrikGraph::Executor::TypeTranslation& translation,
                                       const Pelmor::Library& types);

}  // namespace Tolvane::Tools
