#include "tools/commands/RunMany.h"

#include "tools/commands/RunRig.h"
#include "tools/process/Child.h"
#include "tools/process/Interruption.h"
#include "tools/process/Message.h"
#include "tools/report/ProgressBar.h"
#include "tools/report/Report.h"
#include "tools/report/StandardOutput.h"
#include "tools/rig/RigFiles.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <thread>
#include <vector>

namespace Tolvane::Tools {
namespace {

// The run of one rig, ready to be printed.
struct Row {
    std::int32_t status = 2;
    // For standard output and, if it is not empty, for standard error.
    std::string text;
    std::string error;
    // As a Rig has it.
    bool hasSkeleton = true;
    // As an Evaluation has it.
    std::string printed = {};
};

constexpr auto exchangeRow = [](auto& message, auto& row) {
    message.number(row.status);
    message.text(row.text);
    message.text(row.error);
    message.flag(row.hasSkeleton);
    message.text(row.printed);
};

std::string jsonOf(const Error& error) {
    std::ostringstream text;
    printJson(text, error);
    return text.str();
}

// Names the rig too where the library is at fault.
std::string lineOf(const RunArguments& arguments, const std::string& what) {
    const bool namesRig = what.compare(0, arguments.file.size(), arguments.file) == 0;
    return oneLine(namesRig ? what : arguments.file + ": " + what);
}

Row rowOfError(const RunArguments& arguments, const Error& error) {
    return {error.status(),
            arguments.json ? jsonLine(arguments.file, jsonOf(error))
                           : rowOf(arguments.file, error, arguments.verbose) + "\n",
            lineOf(arguments, error.what())};
}

Row rowOfRun(const RunArguments& arguments, ChildSide& self) {
    try {
        const Evaluation evaluation = carryOut(
            arguments, [&self](const Child& child) { self.progress(child.done(), child.total()); });
        return {
            evaluation.ok ? 0 : 1,
            arguments.json ? jsonLine(arguments.file, evaluation.report) : evaluation.row + "\n",
            evaluation.misdeed ? lineOf(arguments, *evaluation.misdeed) : "",
            evaluation.hasSkeleton, evaluation.printed};
    } catch (const Error& error) {
        return rowOfError(arguments, error);
    }
}

// The limits are those of the processes that it has in turn.
Limits limitsOfRun() {
    Limits limits;
    limits.memory = 0;
    limits.processorTime = 0;
    return limits;
}

std::optional<Row> rowOfMessage(const std::string& bytes) {
    try {
        const Row row = unpacked<Row>(bytes, exchangeRow);
        if (row.status >= 0 && row.status <= 2) return row;
    } catch (const BadMessage&) {
        // As if there were none.
    }
    return std::nullopt;
}

Row rowOfOutcome(const RunArguments& arguments, const Outcome& outcome) {
    if (outcome.end == Outcome::End::Answered)
        if (const auto row = rowOfMessage(outcome.answer)) return *row;
    return rowOfError(arguments, Error(Stage::Other, arguments.file,
                                       arguments.file + ": its process " + inWords(outcome)));
}

class Runs {
public:
    Runs(const RunArguments& arguments, std::vector<FoundRig> rigs)
        : m_arguments(arguments), m_rigs(std::move(rigs)) {}

    // Returns the exit status.
    int toTheEnd();

private:
    struct Run {
        RunArguments arguments;
        std::unique_ptr<Child> child;
    };

    void startUpTo(std::size_t jobs);
    bool startNext();
    void waitForAny();
    std::vector<Row> takeThoseThatEnded();
    void showProgress();
    void printRows(const std::vector<Row>& rows);

    const RunArguments& m_arguments;
    std::vector<FoundRig> m_rigs;
    std::size_t m_started = 0;
    std::vector<Run> m_running;
    // How many ended with the status 0, 1 and 2.
    std::size_t m_ended[3] = {};
    // Whether a row was printed that has the mark of a rig without a skeleton.
    bool m_hasMarked = false;
    std::optional<InterruptionGuard> m_guard;
    std::optional<ProgressBar> m_progress;
};

int Runs::toTheEnd() {
    const std::size_t jobs =
        m_arguments.jobs.value_or(std::max(1U, std::thread::hardware_concurrency()));
    if (!m_arguments.json && !m_arguments.quiet) print(headOfRows() + "\n");
    m_guard.emplace();
    for (startUpTo(jobs); !m_running.empty(); startUpTo(jobs)) {
        waitForAny();
        const std::vector<Row> rows = takeThoseThatEnded();
        if (!rows.empty()) printRows(rows);
        showProgress();
    }
    m_progress.reset();
    m_guard.reset();
    const bool isWorthTelling = !m_arguments.quiet || m_ended[1] + m_ended[2] != 0;
    if (!m_arguments.json && isWorthTelling)
        print("\n" + sumOf(m_ended[0], m_ended[1], m_ended[2]) + "\n" +
              (m_hasMarked ? noteOnSkeletons() + "\n" : ""));
    return m_ended[2] != 0 ? 2 : m_ended[1] != 0 ? 1 : 0;
}

void Runs::startUpTo(std::size_t jobs) {
    while (m_started < m_rigs.size() && m_running.size() < jobs && startNext()) ++m_started;
}

// False where there is no room for its process beside those that run: there will be later.
bool Runs::startNext() {
    const FoundRig& rig = m_rigs[m_started];
    Run run{m_arguments, nullptr};
    run.arguments.file = rig.path;
    if (rig.failure) {
        printRows({rowOfError(run.arguments, *rig.failure)});
        return true;
    }
    const auto work = [&](ChildSide& self) {
        const InterruptionGuard guard;
        return packed(rowOfRun(run.arguments, self), exchangeRow);
    };
    try {
        run.child = std::make_unique<Child>(work, limitsOfRun());
        m_running.push_back(std::move(run));
    } catch (const Error& error) {
        if (!m_running.empty()) return false;
        printRows({rowOfError(run.arguments, error)});
    }
    return true;
}

void Runs::waitForAny() {
    std::vector<Child*> children;
    for (const Run& run : m_running) children.push_back(run.child.get());
    Child::wait(children);
}

std::vector<Row> Runs::takeThoseThatEnded() {
    std::vector<Row> rows;
    const auto hasEnded = [&](const Run& run) {
        if (!run.child->advance()) return false;
        rows.push_back(rowOfOutcome(run.arguments, run.child->outcome()));
        return true;
    };
    m_running.erase(std::remove_if(m_running.begin(), m_running.end(), hasEnded), m_running.end());
    return rows;
}

// A rig counts for a thousand.
void Runs::showProgress() {
    constexpr std::size_t kWhole = 1000;
    if (m_arguments.quiet) return;
    std::size_t done = (m_ended[0] + m_ended[1] + m_ended[2]) * kWhole;
    for (const Run& run : m_running)
        if (run.child->total() != 0) done += kWhole * run.child->done() / run.child->total();
    if (!m_progress) m_progress.emplace();
    m_progress->show(done, m_rigs.size() * kWhole);
}

// The bar makes room for the rows, and nobody who interrupts has to wait for them to be printed.
void Runs::printRows(const std::vector<Row>& rows) {
    m_progress.reset();
    m_guard.reset();
    for (const Row& row : rows) {
        ++m_ended[row.status];
        std::cerr << row.printed;
        if (m_arguments.json || !m_arguments.quiet || row.status != 0) {
            print(row.text);
            m_hasMarked = m_hasMarked || !row.hasSkeleton;
        }
        if (!row.error.empty()) std::cerr << "tolvane: " << row.error << "\n";
    }
    m_guard.emplace();
}

std::vector<FoundRig> rigsOf(const RunArguments& arguments) {
    std::vector<FoundRig> rigs;
    for (const std::string& file : arguments.files) {
        std::error_code ignored;
        if (!std::filesystem::is_directory(file, ignored)) {
            rigs.push_back({file, {}});
            continue;
        }
        const std::vector<FoundRig> inFolder = rigsIn(file);
        rigs.insert(rigs.end(), inFolder.begin(), inFolder.end());
    }
    return rigs;
}

}  // namespace

bool isAboutMany(const RunArguments& arguments) {
    std::error_code ignored;
    return arguments.jobs || arguments.files.size() > 1 ||
           std::filesystem::is_directory(arguments.files.front(), ignored);
}

int runMany(const RunArguments& arguments) {
    refuseSenseless(arguments);
    if (arguments.picture || arguments.page)
        throw Error(Stage::Usage, "", "--svg and --html are for one rig, and several may be meant");
    return Runs(arguments, rigsOf(arguments)).toTheEnd();
}

}  // namespace Tolvane::Tools
