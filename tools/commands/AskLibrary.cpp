#include "tools/commands/AskLibrary.h"

#include "tools/node/LibraryFile.h"
#include "tools/node/LoadedLibrary.h"
#include "tools/process/Child.h"
#include "tools/process/Interruption.h"
#include "tools/process/Message.h"
#include "tools/support/OneLine.h"

#include <iostream>
#include <optional>

namespace Tolvane::Tools {
namespace {

struct Reply {
    LibraryAnswer answer;
    // What the library printed and somebody asked for.
    std::string printed;
    // What it did that it should not, as one line.
    std::optional<std::string> misdeed;
};

template <typename Message, typename AnyReply>
void exchangeReply(Message& message, AnyReply& reply) {
    message.flag(reply.answer.ok);
    message.text(reply.answer.text);
    message.text(reply.printed);
    message.optional(reply.misdeed, [&](auto& line) { message.text(line); });
}

std::string askInChild(const std::string& path, const LibraryQuestion& question, ChildSide& self) {
    Reply reply;
    {
        const LoadedLibrary library(path, self);
        self.enter(Stage::Evaluating);
        reply.answer = question(library.translation(), self);
    }
    reply.printed = self.allowedPrints();
    if (const auto& print = self.firstPrint())
        reply.misdeed =
            path + ": prints " + inQuotes(oneLine(print->text)) + " " + inWords(print->place);
    MessageOut message;
    exchangeReply(message, reply);
    return message.take();
}

Reply replyOf(const std::string& path, const Limits& limits, const LibraryQuestion& question) {
    const InterruptionGuard guard;
    refuseNoLibrary(path);
    const Outcome outcome =
        runInChild([&](ChildSide& self) { return askInChild(path, question, self); }, limits);
    if (outcome.end == Outcome::End::Failed) throw Error(*outcome.error);
    if (outcome.end != Outcome::End::Answered) throw downfall(path, outcome, limits);
    Reply reply;
    MessageIn message(outcome.answer);
    exchangeReply(message, reply);
    message.end();
    return reply;
}

}  // namespace

bool askLibrary(const std::string& path, const Limits& limits, const LibraryQuestion& question) {
    const Reply reply = replyOf(path, limits, question);
    std::cerr << reply.printed;
    std::cout << reply.answer.text;
    if (!std::cout.flush())
        throw Error(Stage::Writing, "standard output", "standard output: cannot be written to");
    if (reply.misdeed) std::cerr << "tolvane: " << oneLine(*reply.misdeed) << "\n";
    return reply.answer.ok && !reply.misdeed;
}

Error downfall(const std::string& path, const Outcome& outcome, const Limits& limits) {
    return {outcome.place.stage, path,
            path + ": " + inWords(outcome, limits) + " " + inWords(outcome.place),
            outcome.place.stage == Stage::Loading ? 2 : 1};
}

}  // namespace Tolvane::Tools
