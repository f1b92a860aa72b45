#include "tools/check/Trial.h"

#include "tools/check/ElfFile.h"
#include "tools/node/NamedTypes.h"

#include <algorithm>
#include <exception>

namespace Tolvane::Tools {

using Verdict = Finding::Verdict;

std::string nameOf(const Pelmor::Type& type) { return type.getFullyQualifiedName().c_str(); }

Limits caseLimits() {
    Limits limits;
    limits.processorTime = 120;
    limits.silence = 30;
    limits.answer = std::size_t{1} << 20;
    return limits;
}

TavrikGraph::Executor::TypeTranslation& Trial::translation() {
    if (m_library) return m_library->translation();
    const std::string next = m_doing;
    doing("loading the library");
    skipUnlessLoadable();
    try {
        m_library = std::make_unique<TavrikGraph::Executor::TranslationLibrary>(path());
    } catch (const std::exception&) {
        // Also one of the factory's own.
        skipUnloaded();
    }
    doing(next);
    return m_library->translation();
}

const std::vector<Pelmor::Type>& Trial::carried() {
    if (!m_carried.empty()) return m_carried;
    doing("asking for the names of the types");
    m_carried = carriedTypes(translation(), types());
    if (m_carried.empty()) skip("it names no type that the graph knows (see --types)");
    return m_carried;
}

void Trial::doing(const std::string& what) {
    m_doing = what;
    m_process.atPort(what);
}

void Trial::fail(const std::string& expected, const std::string& came) const {
    throw End{{Verdict::Failed, m_doing, expected, came, m_remarks}};
}

void Trial::skip(const std::string& reason) const {
    std::vector<std::string> remarks = m_remarks;
    remarks.push_back(reason);
    throw End{{Verdict::Skipped, "", "", "", remarks}};
}

void Trial::skipUnloaded(const std::string& reason) {
    throw End{{Verdict::Skipped, "", "", "", {reason}, true}};
}

void Trial::skipUnlessLoadable() const {
    const auto missing = missingRuntime(readElf(path()));
    if (missing) skipUnloaded(*missing);
}

bool Trial::isTried(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const End& end) {
        if (end.finding.verdict != Verdict::Skipped || end.finding.isUnloaded) throw;
        note(end.finding.remarks.back());
        return false;
    }
}

void Trial::skipUnless(bool isAnyTried) const {
    if (!isAnyTried) throw End{{Verdict::Skipped, "", "", "", m_remarks}};
}

void Trial::warn(const std::string& remark) {
    m_warned = true;
    note(remark);
}

void Trial::note(const std::string& remark) {
    if (std::find(m_remarks.begin(), m_remarks.end(), remark) == m_remarks.end())
        m_remarks.push_back(remark);
}

Finding Trial::finding(void (*run)(Trial& trial)) {
    try {
        run(*this);
    } catch (const End& end) {
        return end.finding;
    } catch (const std::exception& exception) {
        return {Verdict::Failed, m_doing, "no exception", exception.what(), m_remarks};
    }
    return {m_warned ? Verdict::Warning : Verdict::Passed, "", "", "", m_remarks};
}

}  // namespace Tolvane::Tools
