// Says on standard error what was under way when the process crashes. One at a time.
#pragma once

#include <string>

namespace ModelTests {

class CrashNote {
public:
    explicit CrashNote(const std::string& line);
    CrashNote(const CrashNote&) = delete;
    CrashNote& operator=(const CrashNote&) = delete;
    ~CrashNote();
};

}  // namespace ModelTests
