#include "tools/process/ErrorMessage.h"

#include "tools/process/Message.h"

namespace Tolvane::Tools {
namespace {

struct Parts {
    std::uint32_t stage = 0;
    std::string file;
    std::string line;
    std::int32_t status = 2;
};

template <typename Message, typename AnyParts>
void exchange(Message& message, AnyParts& parts) {
    message.number(parts.stage);
    message.text(parts.file);
    message.text(parts.line);
    message.number(parts.status);
}

}  // namespace

std::string messageOf(const Error& error) {
    const Parts parts{static_cast<std::uint32_t>(error.stage()), error.file(), error.what(),
                      error.status()};
    MessageOut message;
    exchange(message, parts);
    return message.take();
}

Error errorOf(std::string_view bytes) {
    Parts parts;
    MessageIn message(bytes);
    exchange(message, parts);
    message.end();
    if (parts.stage > static_cast<std::uint32_t>(Stage::Other))
        throw BadMessage("there is no such stage");
    if (parts.status != 1 && parts.status != 2) throw BadMessage("there is no such status");
    return {static_cast<Stage>(parts.stage), parts.file, parts.line, parts.status};
}

}  // namespace Tolvane::Tools
