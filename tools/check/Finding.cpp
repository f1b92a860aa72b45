#include "tools/check/Finding.h"

#include "tools/process/Message.h"
#include "tools/support/Error.h"

#include <cstdint>

namespace Tolvane::Tools {
namespace {

constexpr const char* kWords[] = {"passed", "warning", "failed", "skipped"};
constexpr std::size_t kMostRemarks = 1'000'000;

template <typename Message, typename AnyFinding>
void exchangeFinding(Message& message, AnyFinding& finding) {
    auto verdict = static_cast<std::uint8_t>(finding.verdict);
    message.number(verdict);
    message.text(finding.done);
    message.text(finding.expected);
    message.text(finding.came);
    message.list(finding.remarks, kMostRemarks, [&](auto& remark) { message.text(remark); });
    message.flag(finding.isUnloaded);
    if constexpr (Message::isRead) {
        if (verdict >= std::size(kWords)) throw BadMessage("there is no such verdict");
        finding.verdict = static_cast<Finding::Verdict>(verdict);
    }
}

}  // namespace

const char* wordFor(Finding::Verdict verdict) noexcept {
    return kWords[static_cast<std::size_t>(verdict)];
}

std::string messageOf(const Finding& finding) {
    MessageOut message;
    exchangeFinding(message, finding);
    return message.take();
}

Finding findingOf(std::string_view bytes) {
    try {
        Finding finding;
        MessageIn message(bytes);
        exchangeFinding(message, finding);
        message.end();
        return finding;
    } catch (const BadMessage&) {
        throw Error("the process of a case gave an answer that is no finding");
    }
}

}  // namespace Tolvane::Tools
