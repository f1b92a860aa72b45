#include "tools/node/NamedTypes.h"

#include <Pelmor/Array.h>

#include <set>

namespace Tolvane::Tools {

using TavrikGraph::Executor::TypeTranslation;

std::vector<std::string> namesOf(const TypeTranslation& translation) {
    Pelmor::Array<Pelmor::String> list;
    translation.getSupportedTypeNames(list);
    std::vector<std::string> names;
    for (const Pelmor::String& name : list) names.emplace_back(name.c_str());
    return names;
}

std::vector<std::string> distinctNamesOf(const TypeTranslation& translation) {
    std::vector<std::string> names;
    std::set<std::string> seen;
    for (const std::string& name : namesOf(translation))
        if (seen.insert(name).second) names.push_back(name);
    return names;
}

std::vector<Pelmor::Type> carriedTypes(const TypeTranslation& translation,
                                       const Pelmor::Library& types) {
    std::vector<Pelmor::Type> carried;
    for (const std::string& name : distinctNamesOf(translation))
        if (const auto type = types.findType(name.c_str())) carried.push_back(*type);
    return carried;
}

}  // namespace Tolvane::Tools
