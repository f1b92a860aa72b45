#include "tools/check/Finding.h"

#include "tools/support/Error.h"

#include <nlohmann/json.hpp>

namespace Tolvane::Tools {
namespace {

using Json = nlohmann::json;

constexpr const char* kWords[] = {"passed", "warning", "failed", "skipped"};

Finding::Verdict verdictFor(const std::string& word) {
    for (std::size_t i = 0; i < std::size(kWords); ++i)
        if (word == kWords[i]) return static_cast<Finding::Verdict>(i);
    throw Error("there is no verdict " + word);
}

}  // namespace

const char* wordFor(Finding::Verdict verdict) noexcept {
    return kWords[static_cast<std::size_t>(verdict)];
}

// A library's texts need not be UTF-8, which JSON is.
std::string messageOf(const Finding& finding) {
    const Json message{{"verdict", wordFor(finding.verdict)},
                       {"done", finding.done},
                       {"expected", finding.expected},
                       {"came", finding.came},
                       {"remarks", finding.remarks}};
    return message.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Finding findingOf(std::string_view message) {
    try {
        const Json parsed = Json::parse(message);
        return {verdictFor(parsed.at("verdict")), parsed.at("done"), parsed.at("expected"),
                parsed.at("came"), parsed.at("remarks")};
    } catch (const Json::exception&) {
        throw Error("the process of a case gave an answer that is no finding");
    }
}

}  // namespace Tolvane::Tools
