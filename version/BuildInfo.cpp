#include "version/BuildInfo.h"

#include "version/BuildRecord.h"

#include <cstdio>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace Rigging::Module {
namespace {

constexpr const char* kPluginName = "TolvanePlugin";
constexpr const char* kProductName = "Tavrik Plugin";
constexpr const char* kBuildNumber = "86";
constexpr const char* kBranch = "release";
constexpr int kPluginNameWidth = 16;
constexpr int kShortCommitLength = 7;

bool hasStandardError() { return fileno(stderr) >= 0; }

}  // namespace

const bool versionDumpEnabled = dumpVersionIfRequested() != 0;

int dumpVersionIfRequested() {
    const bool requested = environmentFlag("QUELMAR_DUMP_VERSION_INFO");
    if (!hasStandardError() || !requested) return 0;
    std::cerr << std::setw(kPluginNameWidth) << kPluginName << ": " << buildVersionString()
              << std::endl;
    return 1;
}

bool environmentFlag(const char* variable) {
    const char* value = std::getenv(variable);
    return value && std::atoi(value) != 0;
}

std::string buildVersionString() {
    std::ostringstream text;
    text << productName() << " version " << versionNumberString() << " (" << buildDateStamp()
         << ", build " << std::atoi(kBuildNumber) << ", commit " << std::setw(kShortCommitLength)
         << std::string(commitText(), kShortCommitLength) << ", branch " << branchName() << ")";
    return text.str();
}

std::string versionNumberString() {
    std::ostringstream text;
    const char* separator = "";
    for (const char* part : BuildRecord::kVersionParts) {
        text << separator << std::atoi(part);
        separator = ".";
    }
    return text.str();
}

const char* productName() { return kProductName; }
const char* branchName() { return kBranch; }
const char* commitText() { return BuildRecord::kCommit; }
const char* buildDateStamp() { return BuildRecord::kDateStamp; }

}  // namespace Rigging::Module
