#include "tools/types/ReadTypes.h"

#include "tools/support/Error.h"
#include "tools/support/ReadableFile.h"
#include "tools/types/DefineTypes.h"
#include "tools/types/ParseTypes.h"

#include <fstream>
#include <iterator>

namespace Tolvane::Tools {

Pelmor::Library readTypes(const std::string& path) {
    refuseUnreadable(path);
    std::ifstream file(path, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    Pelmor::Library library;
    try {
        defineTypes(parseTypes(text), library);
    } catch (const Error& error) {
        throw Error(path + ": " + error.what());
    }
    return library;
}

}  // namespace Tolvane::Tools
