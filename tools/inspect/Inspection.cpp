#include "tools/inspect/Inspection.h"

#include "tools/inspect/TypedNode.h"
#include "tools/node/NamedTypes.h"

#include <algorithm>
#include <set>

namespace Tolvane::Tools {
namespace {

void addMessages(TypeInspection& inspection, const TypedNode::Port& port) {
    auto& all = inspection.messages;
    for (const std::string& message : port.messages)
        if (std::find(all.begin(), all.end(), message) == all.end()) all.push_back(message);
}

void addPorts(TypeInspection& inspection, const TavrikGraph::Executor::TypeTranslation& translation,
              const Pelmor::Type& type) {
    const TypedNode node(translation, type);
    if (node.input().shape) inspection.input = treeOf(*node.input().shape);
    if (node.output().shape) inspection.output = treeOf(*node.output().shape);
    addMessages(inspection, node.input());
    addMessages(inspection, node.output());
}

}  // namespace

std::size_t Inspection::failed() const {
    return static_cast<std::size_t>(
        std::count_if(types.begin(), types.end(), [](const TypeInspection& type) {
            return type.timesNamed > 0 && type.isKnown && !(type.input && type.output);
        }));
}

std::vector<TypeInspection> inspectTypes(const TavrikGraph::Executor::TypeTranslation& translation,
                                         const Pelmor::Library& library,
                                         const std::vector<std::string>& types) {
    const std::vector<std::string> named = namesOf(translation);
    for (const std::string& name : types) typeNamed(name, library);
    std::vector<TypeInspection> inspections;
    std::set<std::string> seen;
    for (const std::string& name : types.empty() ? named : types) {
        if (!seen.insert(name).second) continue;
        const auto type = library.findType(name.c_str());
        const auto times = std::count(named.begin(), named.end(), name);
        TypeInspection inspection{name, static_cast<std::size_t>(times), type.has_value()};
        if (type) addPorts(inspection, translation, *type);
        inspections.push_back(std::move(inspection));
    }
    return inspections;
}

}  // namespace Tolvane::Tools
