// What a translation library says of itself, and what it makes of each type.
#pragma once

#include "tools/inspect/AttributeTree.h"

#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct TypeInspection {
    std::string name;
    // How many times the library names it, and whether the graph knows it. Of a type that the graph
    // does not know there is nothing more.
    std::size_t timesNamed;
    bool isKnown;
    // The attributes that ports get; nothing where they get none.
    std::optional<AttributeTree> input = {};
    std::optional<AttributeTree> output = {};
    // What the user was shown as the ports were added, each text once.
    std::vector<std::string> messages = {};
};

struct Inspection {
    std::string library;
    std::string name;
    // Nothing if the library does not tell its version.
    std::string version;
    std::vector<TypeInspection> types;

    // Whether each type that the library names gets its ports, as far as the graph knows it.
    bool ok() const { return failed() == 0; }
    // How many do not.
    std::size_t failed() const;
};

// Of these types or, if there are none, of all that the library names, in its order, each once.
// Throws Error
// if the graph does not know one of `types`.
std::vector<TypeInspection> inspectTypes(const TavrikGraph::Executor::TypeTranslation& translation,
                                         const Pelmor::Library& library,
                                         const std::vector<std::string>& types);

}  // namespace Tolvane::Tools
