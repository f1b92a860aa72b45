#include "tools/commands/AskLibrary.h"

#include "tools/node/LibraryFile.h"
#include "tools/node/LoadedLibrary.h"
#include "tools/process/Child.h"
#include "tools/process/Interruption.h"
#include "tools/process/Message.h"
#include "tools/report/Report.h"
#include "tools/report/StandardOutput.h"
#include "tools/support/OneLine.h"

#include <iostream>

namespace Tolvane::Tools {
namespace {

struct Reply {
    LibraryAnswer answer;
    // What the library printed and somebody asked for.
    std::string printed;
    // What it did that it should not, as one line.
    std::optional<std::string> misdeed;
};

constexpr auto exchangeReply = [](auto& message, auto& reply) {
    message.flag(reply.answer.ok);
    message.flag(reply.answer.isJson);
    message.text(reply.answer.text);
    message.text(reply.printed);
    message.optional(reply.misdeed, [&](auto& line) { message.text(line); });
};

std::string askInChild(const std::string& path, const LibraryQuestion& question, ChildSide& self) {
    Reply reply;
    {
        const LoadedLibrary library(path, self);
        self.enter(Stage::Evaluating);
        reply.answer = question(library.translation(), self);
    }
    self.enter(Stage::Reporting);
    reply.printed = self.allowedPrints();
    if (const auto misdeed = misdeedOf(path, self)) {
        reply.misdeed = misdeed->what();
        if (reply.answer.isJson) reply.answer.text = withError(reply.answer.text, *misdeed);
    }
    return packed(reply, exchangeReply);
}

Reply replyOf(const std::string& path, Limits limits, const LibraryQuestion& question) {
    // What makes a large answer takes its time; what counts is that it goes on.
    limits.processorTime = 0;
    const InterruptionGuard guard;
    refuseNoLibrary(path);
    const Outcome outcome =
        runInChild([&](ChildSide& self) { return askInChild(path, question, self); }, limits);
    if (outcome.end == Outcome::End::Failed) throw Error(*outcome.error);
    if (outcome.end != Outcome::End::Answered) throw downfall(path, outcome);
    return unpacked<Reply>(outcome.answer, exchangeReply);
}

}  // namespace

bool askLibrary(const std::string& path, const Limits& limits, const LibraryQuestion& question) {
    const Reply reply = replyOf(path, limits, question);
    std::cerr << reply.printed;
    print(reply.answer.text);
    if (reply.misdeed) std::cerr << "tolvane: " << oneLine(*reply.misdeed) << "\n";
    return reply.answer.ok && !reply.misdeed;
}

Error downfall(const std::string& path, const Outcome& outcome) {
    const Stage stage = outcome.place.stage;
    const std::string how = inWords(outcome);
    using End = Outcome::End;
    const bool isTooMuch = outcome.end == End::OutOfMemory || outcome.end == End::OutOfTime ||
                           outcome.end == End::Silent || outcome.end == End::AnsweredTooMuch;
    if (isTooMuch && stage == Stage::Usage) return {stage, "", "what is asked for " + how};
    if (isTooMuch && stage == Stage::Reporting) return {stage, "", "the report " + how};
    return {stage, path, path + ": " + how + " " + inWords(outcome.place),
            stage == Stage::Loading ? 2 : 1};
}

std::optional<Error> misdeedOf(const std::string& path, const ChildSide& self) {
    const auto& print = self.firstPrint();
    if (!print) return std::nullopt;
    return Error(print->place.stage, path,
                 path + ": prints " + inQuotes(oneLine(print->text)) + " " + inWords(print->place),
                 1);
}

}  // namespace Tolvane::Tools
