#include "tools/types/ReadTypes.h"

#include "tools/support/Error.h"
#include "tools/support/ReadableFile.h"
#include "tools/types/DefineTypes.h"
#include "tools/types/ParseTypes.h"

#include <fstream>
#include <iterator>

namespace Tolvane::Tools {

TypesOfFile readTypes(const std::string& path) {
    refuseUnreadable(path);
    std::ifstream file(path, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    TypesOfFile types;
    try {
        const TypeDescriptions descriptions = parseTypes(text);
        defineTypes(descriptions, types.library);
        for (const auto& each : descriptions.structs) types.structNames.push_back(each.name);
    } catch (const Error& error) {
        throw Error(path + ": " + error.what());
    }
    return types;
}

}  // namespace Tolvane::Tools
