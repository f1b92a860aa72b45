#include "tools/report/TraceReport.h"

#include "tools/report/Json.h"
#include "tools/report/Table.h"
#include "tools/report/Words.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <ostream>

namespace Tolvane::Tools {
namespace {

using Nanoseconds = std::chrono::nanoseconds;

constexpr std::size_t kNumberColumns = 7;
constexpr std::size_t kTimeColumns = 10;
constexpr const char* kOutside = "outside host calls";
// Members that lie deeper are not indented any further, so that every operation fits its line.
constexpr std::size_t kDeepest = 10;
// To which values and names are cut at most.
constexpr std::size_t kLeastColumns = 10;

std::string percentOf(Nanoseconds part, Nanoseconds whole) {
    if (whole.count() == 0) return "";
    return withDigits(
               100.0 * static_cast<double>(part.count()) / static_cast<double>(whole.count()), 1) +
           " %";
}

std::string toTheRight(const std::string& text, std::size_t columns) {
    const std::size_t taken = columnsOf(text);
    return std::string(columns > taken ? columns - taken : 0, ' ') + text;
}

// "VPlug::child(0) on in = in.names". Only what stands behind the operation is ever cut.
struct CallText {
    std::string operation;
    std::string given = {};
    std::string subject = {};
    std::string sign = {};
    std::string value = {};

    std::string whole() const {
        return operation + (given.empty() ? "" : "(" + given + ")") +
               (subject.empty() ? "" : " on " + subject) + sign + value;
    }
};

CallText callTextOf(const TracedCall& traced) {
    const ObservedCall& call = traced.call;
    CallText text{call.operation};
    if (call.index >= 0) text.given = std::to_string(call.index);
    if (!call.argument.empty())
        text.given += (text.given.empty() ? "" : ", ") + oneLine(call.argument);
    text.subject = oneLine(call.subject);
    if (traced.wasMadeToFail) {
        text.sign = " MADE TO FAIL";
    } else if (traced.written) {
        text.sign = " <- ";
        text.value = oneLine(*traced.written);
    } else if (traced.answer && !traced.answer->result.empty()) {
        text.sign = " = ";
        text.value = oneLine(traced.answer->result);
    }
    return text;
}

// Values go first, names last.
std::string fitted(CallText text, std::size_t columns) {
    for (std::string* part : {&text.value, &text.given, &text.subject}) {
        const std::size_t all = columnsOf(text.whole()), own = columnsOf(*part);
        if (all <= columns) break;
        const std::size_t tooMany = std::min(all - columns, own);
        *part = shortened(*part, std::max(own - tooMany, kLeastColumns));
    }
    return text.whole();
}

void printCall(std::ostream& out, const TracedCall& traced, std::size_t number, bool verbose) {
    const std::string time = traced.answer ? inWords(traced.answer->duration) : "-";
    const std::size_t indent =
        kNumberColumns + kTimeColumns + 2 + 2 * std::min(traced.depth, kDeepest);
    const CallText text = callTextOf(traced);
    const std::string line = verbose ? text.whole() : fitted(text, kLineColumns - indent);
    const bool fits = columnsOf(line) <= kLineColumns - indent;
    out << toTheRight(grouped(number), kNumberColumns) << toTheRight(time, kTimeColumns)
        << std::string(indent - kNumberColumns - kTimeColumns, ' ')
        << (fits ? line : hanging(line, indent).substr(indent)) << "\n";
}

std::string outcomeOf(const TracedTranslation& translation) {
    std::string text = translation.wasTranslated ? "carried" : "NOT CARRIED";
    if (translation.isInput && translation.wasTranslated != translation.hasValue)
        text += translation.hasValue ? ", but with a value" : ", but WITHOUT A VALUE";
    text += ", " + grouped(translation.calls.size()) + " host calls";
    if (translation.duration)
        text +=
            ", " + inWords(*translation.duration) +
            (translation.durationOutside
                 ? ", of which " + percentOf(*translation.durationOutside, *translation.duration) +
                       " " + kOutside
                 : std::string(", of which it is not known how much ") + kOutside);
    return text;
}

// All of one operation.
struct Sum {
    std::string operation;
    std::size_t calls = 0;
    Nanoseconds time{};
    // In those translations of which it is known how much is outside the calls.
    Nanoseconds timeInKnown{};
};

// Those that take most come first.
std::vector<Sum> sumsOf(const TraceReport& report) {
    std::vector<Sum> sums;
    for (const TracedTranslation& translation : report.translations)
        for (const TracedCall& traced : translation.calls) {
            auto sum = std::find_if(sums.begin(), sums.end(), [&](const Sum& each) {
                return each.operation == traced.call.operation;
            });
            if (sum == sums.end()) sum = sums.insert(sum, {traced.call.operation});
            ++sum->calls;
            if (!traced.answer) continue;
            sum->time += traced.answer->duration;
            if (translation.durationOutside) sum->timeInKnown += traced.answer->duration;
        }
    std::stable_sort(sums.begin(), sums.end(),
                     [](const Sum& a, const Sum& b) { return a.time > b.time; });
    return sums;
}

// Of those translations of which it is known how much is outside the calls: what is not known would
// count for nothing beside calls that count.
struct Totals {
    Nanoseconds calls{};
    Nanoseconds outside{};
    std::size_t translations = 0;

    Nanoseconds whole() const { return calls + outside; }
};

Totals totalsOf(const TraceReport& report) {
    Totals totals;
    for (const TracedTranslation& translation : report.translations) {
        if (!translation.durationOutside) continue;
        ++totals.translations;
        totals.calls += translation.durationOfCalls();
        totals.outside += *translation.durationOutside;
    }
    return totals;
}

void printSums(std::ostream& out, const TraceReport& report) {
    const Totals totals = totalsOf(report);
    Table table({"Operation", "Calls", "Time", "Mean", "Share"});
    for (const Sum& sum : sumsOf(report))
        table.addRow({sum.operation, grouped(sum.calls), inWords(sum.time),
                      inWords(sum.time / static_cast<Nanoseconds::rep>(sum.calls)),
                      percentOf(sum.timeInKnown, totals.whole())});
    if (totals.translations > 0)
        table.addRow(
            {kOutside, "", inWords(totals.outside), "", percentOf(totals.outside, totals.whole())});
    out << "\n";
    table.print(out);
    const std::size_t all = report.translations.size();
    if (totals.translations > 0 && totals.translations < all)
        out << "Shares, and what is outside, are of the " << grouped(totals.translations) << " of "
            << counted(all, "value", "values") << " where it is known.\n";
}

const char* directionOf(const TracedTranslation& translation) {
    return translation.isInput ? "in" : "out";
}

Json jsonOf(const std::optional<Nanoseconds>& time) { return time ? Json(time->count()) : Json(); }

Json jsonOf(const TracedCall& traced, std::size_t number) {
    const auto& answer = traced.answer;
    return {{"number", number},
            {"operation", traced.call.operation},
            {"subject", traced.call.subject},
            {"index", traced.call.index < 0 ? Json() : Json(traced.call.index)},
            {"argument", traced.call.argument},
            {"depth", traced.depth},
            {"result", answer ? Json(answer->result) : Json()},
            {"written", traced.written ? Json(*traced.written) : Json()},
            {"ns", answer ? Json(answer->duration.count()) : Json()},
            {"madeToFail", traced.wasMadeToFail}};
}

double microseconds(double nanoseconds) { return nanoseconds / 1e3; }

Json eventOf(const std::string& name, const char* category, double begin, double duration,
             const Json& arguments) {
    return {{"name", name},
            {"cat", category},
            {"ph", "X"},
            {"ts", microseconds(begin)},
            {"dur", microseconds(duration)},
            {"pid", 1},
            {"tid", 1},
            {"args", arguments}};
}

// Both in nanoseconds from the beginning of the trace.
void addEvents(Json& events, const TracedTranslation& translation, double& time,
               std::size_t& number) {
    const double begin = time;
    const double outside =
        static_cast<double>(translation.durationOutside.value_or(Nanoseconds()).count());
    const double gap = outside / static_cast<double>(translation.calls.size() + 1);
    Json calls = Json::array();
    for (const TracedCall& traced : translation.calls) {
        time += gap;
        const double duration =
            traced.answer ? static_cast<double>(traced.answer->duration.count()) : 0;
        calls.push_back(
            eventOf(traced.call.operation, "host", time, duration, jsonOf(traced, ++number)));
        time += duration;
    }
    time += gap;
    events.push_back(eventOf(std::string(directionOf(translation)) + " " + translation.typeName,
                             "translation", begin, time - begin,
                             {{"translated", translation.wasTranslated}}));
    for (Json& call : calls) events.push_back(std::move(call));
}

}  // namespace

std::size_t TraceReport::failed() const {
    return static_cast<std::size_t>(
        std::count_if(translations.begin(), translations.end(),
                      [](const TracedTranslation& each) { return !each.wasTranslated; }));
}

void printTrace(std::ostream& out, const TraceReport& report, bool verbose) {
    printFact(out, "Library", report.library, verbose);
    printFact(out, "Data", report.data, verbose);
    std::size_t number = 0;
    for (const TracedTranslation& translation : report.translations) {
        out << "\n"
            << wrapped((translation.isInput ? "In: " : "Out: ") + oneLine(translation.typeName) +
                           ": " + outcomeOf(translation),
                       0)
            << "\n";
        for (const TracedCall& call : translation.calls) printCall(out, call, ++number, verbose);
        for (const std::string& message : translation.messages)
            out << wrapped("The host displayed: " + oneLine(message), 2) << "\n";
    }
    printSums(out, report);
    out << "\n"
        << wrapped(
               "Each call was repeated on another node of the same shape, which gave its result;"
               " \"<-\" is what was written to a place that it gave, \"-\" is not known. What is"
               " outside is the time of evaluations that nobody watched, less that of the same"
               " calls in a row without the library, which is divided among them as they take by"
               " themselves.",
               0)
        << "\n";
}

std::string verdictOf(const TraceReport& report) {
    if (report.ok()) return {};
    return "FAILED: " + counted(report.failed(), "value was", "values were") + " not carried.\n";
}

void printTraceAsJson(std::ostream& out, const TraceReport& report) {
    Json translations = Json::array();
    std::size_t number = 0;
    for (const TracedTranslation& translation : report.translations) {
        Json calls = Json::array();
        for (const TracedCall& call : translation.calls) calls.push_back(jsonOf(call, ++number));
        translations.push_back({{"type", translation.typeName},
                                {"direction", directionOf(translation)},
                                {"translated", translation.wasTranslated},
                                {"hasValue", translation.hasValue},
                                {"hostMessages", Json(translation.messages)},
                                {"ns", jsonOf(translation.duration)},
                                {"nsOutside", jsonOf(translation.durationOutside)},
                                {"calls", calls}});
    }
    Json operations = Json::array();
    for (const Sum& sum : sumsOf(report))
        operations.push_back(
            {{"operation", sum.operation}, {"calls", sum.calls}, {"ns", sum.time.count()}});
    const Totals totals = totalsOf(report);
    const bool isKnown = totals.translations > 0;
    out << printed({{"library", report.library},
                    {"data", report.data},
                    {"translations", translations},
                    {"operations", operations},
                    {"nsOfCalls", isKnown ? Json(totals.calls.count()) : Json()},
                    {"nsOutside", isKnown ? Json(totals.outside.count()) : Json()},
                    {"ok", report.ok()}});
}

void printTraceEvents(std::ostream& out, const TraceReport& report) {
    Json events = Json::array();
    double time = 0;
    std::size_t number = 0;
    for (const TracedTranslation& translation : report.translations)
        addEvents(events, translation, time, number);
    out << printed({{"traceEvents", events},
                    {"displayTimeUnit", "ns"},
                    {"otherData", {{"library", report.library}, {"data", report.data}}}});
}

}  // namespace Tolvane::Tools
