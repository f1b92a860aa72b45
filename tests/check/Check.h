// What `tolvane check` says of a library, run as its users run it.
#pragma once

#include "tests/support/TolvaneProcess.h"

#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

// By the names of the cases.
using Verdicts = std::map<std::string, nlohmann::json>;

// `environment` is of the form NAME=VALUE.
inline Verdicts check(const std::string& library, const std::vector<std::string>& options,
                      const std::string& environment = "TOLVANE_TEST_FAULT=") {
    std::vector<std::string> arguments{"check", library, "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const TolvaneProcess process = runTolvane(arguments, environment, 600);
    Verdicts verdicts;
    EXPECT_EQ(process.errors, "");
    const auto report = nlohmann::json::parse(process.output, nullptr, false);
    if (report.is_discarded()) {
        ADD_FAILURE() << "no JSON, and status " << process.status << "\n" << process.output;
        return verdicts;
    }
    for (const auto& each : report["cases"]) verdicts[each["name"]] = each;
    EXPECT_EQ(process.status, report["failed"] == 0 ? 0 : 1);
    return verdicts;
}

// What a case says of what it found, without what it says of itself.
inline std::string toldBy(const nlohmann::json& result) {
    std::string told = result.value("came", "");
    for (const auto& remark : result.value("remarks", std::vector<std::string>()))
        told += "\n" + remark;
    return told;
}

// Whether it is skipped for the sake of the machine, and says nothing of the library.
inline bool isForbiddenHere(const nlohmann::json& result) {
    return result["verdict"] == "skipped" &&
           toldBy(result).find("the kernel does not let system calls be watched") !=
               std::string::npos;
}

// The cases that ended so, but for those that cannot be tried on this machine.
inline std::set<std::string> casesOf(const Verdicts& verdicts, const std::string& verdict) {
    std::set<std::string> names;
    for (const auto& [name, result] : verdicts)
        if (result["verdict"] == verdict && !isForbiddenHere(result)) names.insert(name);
    return names;
}

inline const std::vector<std::string> kPlainTypes{"--types", PLAIN_TYPES};

inline std::vector<std::string> only(const std::string& regex,
                                     std::vector<std::string> options = kPlainTypes) {
    options.insert(options.end(), {"--only", regex});
    return options;
}

// A regular expression of the cases that take long.
constexpr const char* kDearCases =
    "failing-hosts/|loading/again-and-again|thrift/(allocations|host-calls|memory)|"
    "values/65537-elements";
