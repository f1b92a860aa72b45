#include "tools/check/CheckLibrary.h"

#include "tools/check/EditedNode.h"
#include "tools/check/Passage.h"
#include "tools/process/Child.h"
#include "tools/process/Message.h"
#include "tools/support/Error.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>

namespace Tolvane::Tools {
namespace {

using Clock = std::chrono::steady_clock;

class RunningCase {
public:
    RunningCase(const CheckSetting& setting, const Survey& survey, const Case& tried)
        : m_tried(tried),
          m_child(
              [&setting, &survey, run = tried.run](ChildSide& process) {
                  process.enter(Stage::Evaluating);
                  return messageOf(Trial(setting, process, survey).finding(run));
              },
              setting.limits) {}

    Child& child() noexcept { return m_child; }

    // Whether the case has ended, and so has a result.
    bool advance() {
        if (m_result) return true;
        if (!m_child.advance()) return false;
        const std::chrono::duration<double> taken = Clock::now() - m_begin;
        m_result = CaseResult{m_tried, findingOfChild(), taken.count()};
        return true;
    }

    bool hasEnded() const noexcept { return m_result.has_value(); }
    const CaseResult& result() const { return *m_result; }

private:
    Finding findingOfChild() const {
        const Outcome& outcome = m_child.outcome();
        const std::string& place = outcome.place.port;
        const std::string doing = place.empty() ? "loading the library" : place;
        try {
            if (outcome.end == Outcome::End::Answered) return findingOf(outcome.answer);
        } catch (const Error& error) {
            return {Finding::Verdict::Failed, doing, "a finding", error.what(), {}};
        }
        return {
            Finding::Verdict::Failed, doing, "the process goes on", "it " + inWords(outcome), {}};
    }

    Case m_tried;
    Clock::time_point m_begin = Clock::now();
    Child m_child;
    std::optional<CaseResult> m_result;
};

// Whether values of the type are read, and are none that the library writes: it says so without a
// message, which a failure has.
bool isOnlyRead(Trial& trial, const Pelmor::Type& type) {
    Passage passage(trial, type);
    passage.fillInput({});
    Pelmor::AnyValue value;
    const ShownMessages messages;
    return passage.read(value) && value.hasValue() && !passage.write(value) &&
           messages.all().empty() && !passage.isOutputClean();
}

constexpr auto exchangeSurvey = [](auto& message, auto& survey) {
    constexpr std::size_t kMostTypes = 1'000'000;
    message.list(survey.carried, kMostTypes, [&](auto& each) {
        message.text(each.name);
        message.flag(each.isOnlyRead);
    });
};

std::string surveyInMessage(Trial& trial) {
    Survey survey;
    for (const Pelmor::Type& type : trial.carried()) {
        Survey::Carried& each = survey.carried.emplace_back();
        each.name = nameOf(type);
        trial.isTried([&] { each.isOnlyRead = isOnlyRead(trial, type); });
    }
    return packed(survey, exchangeSurvey);
}

Survey surveyOf(const CheckSetting& setting) {
    const Outcome outcome = runInChild(
        [&setting](ChildSide& process) {
            Trial trial(setting, process);
            return surveyInMessage(trial);
        },
        setting.limits);
    if (outcome.end != Outcome::End::Answered) return {};
    try {
        return unpacked<Survey>(outcome.answer, exchangeSurvey);
    } catch (const BadMessage&) {
        // As if the process had not survived.
        return {};
    }
}

// Nothing where there is no room for its process beside `others` that run: there will be later.
std::unique_ptr<RunningCase> begin(const CheckSetting& setting, const Survey& survey,
                                   const Case& tried, bool others) {
    try {
        return std::make_unique<RunningCase>(setting, survey, tried);
    } catch (const Error&) {
        if (!others) throw;
        return nullptr;
    }
}

}  // namespace

void checkLibrary(const CheckSetting& setting, const std::vector<Case>& cases, std::size_t jobs,
                  const std::function<void(const CaseResult&)>& tell,
                  const std::function<void(std::size_t ended)>& wait) {
    const Survey survey = surveyOf(setting);
    std::vector<std::unique_ptr<RunningCase>> begun;
    std::size_t told = 0;
    std::size_t ended = 0;
    while (told < cases.size()) {
        while (begun.size() < cases.size() && begun.size() - ended < jobs) {
            auto next = begin(setting, survey, cases[begun.size()], begun.size() > ended);
            if (!next) break;
            begun.push_back(std::move(next));
        }

        std::vector<Child*> running;
        for (std::size_t i = told; i < begun.size(); ++i)
            if (!begun[i]->hasEnded()) running.push_back(&begun[i]->child());
        if (!running.empty()) Child::wait(running);
        for (std::size_t i = told; i < begun.size(); ++i)
            if (!begun[i]->hasEnded() && begun[i]->advance()) ++ended;
        for (; told < begun.size() && begun[told]->hasEnded(); ++told) {
            tell(begun[told]->result());
            begun[told].reset();
        }
        if (wait) wait(ended);
    }
}

}  // namespace Tolvane::Tools
