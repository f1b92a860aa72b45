#include "tools/process/ErrorMessage.h"

#include "tools/process/Message.h"

namespace Tolvane::Tools {
namespace {

struct Parts {
    Stage stage = Stage::Other;
    std::string file;
    std::string line;
    std::int32_t status = 2;
};

constexpr auto exchangeParts = [](auto& message, auto& parts) {
    message.choice(parts.stage, static_cast<std::size_t>(Stage::Other) + 1);
    message.text(parts.file);
    message.text(parts.line);
    message.number(parts.status);
};

}  // namespace

std::string messageOf(const Error& error) {
    const Parts parts{error.stage(), error.file(), error.what(), error.status()};
    return packed(parts, exchangeParts);
}

Error errorOf(std::string_view bytes) {
    const auto parts = unpacked<Parts>(bytes, exchangeParts);
    if (parts.status != 1 && parts.status != 2) throw BadMessage("there is no such status");
    return {parts.stage, parts.file, parts.line, parts.status};
}

}  // namespace Tolvane::Tools
