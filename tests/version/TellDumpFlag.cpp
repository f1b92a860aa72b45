#include "version/BuildInfo.h"

#include <cstdio>

int main() {
    std::puts(Rigging::Module::versionDumpEnabled ? "on" : "off");
    return 0;
}
