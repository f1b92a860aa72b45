// One case being tried, in a process of its own: what it has to work with, and how it says what it
// finds. A case returns if the library keeps its rule.
#pragma once

#include "tools/check/Finding.h"
#include "tools/process/ChildSide.h"
#include "tools/process/Limits.h"

#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// "array<Studio::Face>"
std::string nameOf(const Pelmor::Type& type);

// What a case may take, unless somebody says otherwise.
Limits caseLimits();

// What all cases of a check have in common.
struct CheckSetting {
    // The path of the translation library.
    std::string library;
    // The types that the graph knows.
    Pelmor::Library types = {};
    // All generated data follows from it.
    std::uint64_t seed = 1;
    // Of each case, and of what it does in processes of their own.
    Limits limits = caseLimits();
};

// What a use of the library in a process of its own has told beforehand; nothing if it did not
// survive that.
struct Survey {
    struct Carried {
        std::string name;
        // Whether it reads the values and does not offer to write them.
        bool isOnlyRead = false;
    };

    // The types that it carries and the graph knows.
    std::vector<Carried> carried = {};
};

class Trial {
public:
    Trial(const CheckSetting& setting, ChildSide& process, const Survey& survey = {})
        : m_setting(setting), m_process(process), m_survey(survey) {}

    const std::string& path() const noexcept { return m_setting.library; }
    const Pelmor::Library& types() const noexcept { return m_setting.types; }
    std::uint64_t seed() const noexcept { return m_setting.seed; }
    const Limits& limits() const noexcept { return m_setting.limits; }
    const Survey& survey() const noexcept { return m_survey; }
    // The process that the case runs in.
    ChildSide& process() noexcept { return m_process; }

    // The library's translation object; the library is loaded when it is first asked for, and
    // stays until `unload`. Skips the case if it cannot be loaded, which a case of its own tells.
    TavrikGraph::Executor::TypeTranslation& translation();
    void unload() { m_library.reset(); }
    // What the library says that it carries, in its order, without repetitions: the types that the
    // graph knows. Skips the case if there is none.
    const std::vector<Pelmor::Type>& carried();

    // What is done from here on, such as "reading array<Studio::Face> of 17 elements". It is part
    // of a failure, and known even if the process does not survive it.
    void doing(const std::string& what);

    // Each ends the case, and says so by a throw that the case must let pass.
    [[noreturn]] void fail(const std::string& expected, const std::string& came) const;
    [[noreturn]] void skip(const std::string& reason) const;
    [[noreturn]] static void skipUnloaded(
        const std::string& reason = "the library cannot be loaded");
    // Skips the case if the library is not to be loaded by this process.
    void skipUnlessLoadable() const;
    void expect(bool holds, const std::string& expected, const std::string& came) const {
        if (!holds) fail(expected, came);
    }
    // Both go on, and the same remark counts once. A note is worth telling, and no warning.
    void warn(const std::string& remark);
    void note(const std::string& remark);

    // Calls `work(type)` for each type. Where it skips, the reason is noted and the next type is
    // tried; only if it skips for all, the case is skipped.
    template <typename Work>
    void forEach(const std::vector<Pelmor::Type>& types, const Work& work) {
        std::size_t tried = 0;
        for (const Pelmor::Type& type : types) tried += isTried([&] { work(type); }) ? 1 : 0;
        skipUnless(tried > 0);
    }
    template <typename Work>
    void forEachCarried(const Work& work) {
        forEach(carried(), work);
    }

    // Whether `work` did not skip; else the reason is noted.
    bool isTried(const std::function<void()>& work);

    // Runs the case.
    Finding finding(void (*run)(Trial& trial));

private:
    struct End {
        Finding finding;
    };

    void skipUnless(bool isAnyTried) const;

    const CheckSetting& m_setting;
    ChildSide& m_process;
    Survey m_survey;
    std::string m_doing = "loading the library";
    std::vector<std::string> m_remarks;
    bool m_warned = false;
    std::unique_ptr<TavrikGraph::Executor::TranslationLibrary> m_library;
    std::vector<Pelmor::Type> m_carried;
};

}  // namespace Tolvane::Tools
