#include "tools/check/Finding.h"

#include "tools/process/Message.h"
#include "tools/support/Error.h"

#include <cstddef>
#include <iterator>

namespace Tolvane::Tools {
namespace {

constexpr const char* kWords[] = {"passed", "warning", "failed", "skipped"};
constexpr std::size_t kMostRemarks = 1'000'000;

constexpr auto exchangeFinding = [](auto& message, auto& finding) {
    message.choice(finding.verdict, std::size(kWords));
    message.text(finding.done);
    message.text(finding.expected);
    message.text(finding.came);
    message.list(finding.remarks, kMostRemarks, [&](auto& remark) { message.text(remark); });
    message.flag(finding.isUnloaded);
};

}  // namespace

const char* wordFor(Finding::Verdict verdict) noexcept {
    return kWords[static_cast<std::size_t>(verdict)];
}

std::string messageOf(const Finding& finding) { return packed(finding, exchangeFinding); }

Finding findingOf(std::string_view bytes) {
    try {
        return unpacked<Finding>(bytes, exchangeFinding);
    } catch (const BadMessage&) {
        throw Error("the process of a case gave an answer that is no finding");
    }
}

}  // namespace Tolvane::Tools
