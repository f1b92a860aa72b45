#include "tools/check/Case.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <iterator>
#include <regex>

namespace Tolvane::Tools {

std::vector<Case> allCases() {
    std::vector<Case> all;
    for (const auto group : {loadingCases, objectCases, portCases, valueCases, heldValueCases,
                             failingReadCases, failingWriteCases, failingPortCases,
                             failingHostCases, threadCases, thriftCases, hygieneCases})
        for (const Case& each : group()) all.push_back(each);
    return all;
}

std::vector<Case> chooseCases(const std::string& regex) {
    std::vector<Case> chosen;
    try {
        const std::regex wanted(regex);
        for (const Case& each : allCases())
            if (std::regex_search(each.name, wanted)) chosen.push_back(each);
    } catch (const std::regex_error&) {
        throw Error(Stage::Usage, "",
                    "--only " + inQuotes(regex) + ": is not a regular expression");
    }
    if (chosen.empty())
        throw Error(Stage::Usage, "",
                    "--only " + inQuotes(regex) + ": matches the name of no case");
    return chosen;
}

}  // namespace Tolvane::Tools
