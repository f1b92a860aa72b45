// tell_dump_flag [--without-descriptor]: says what was decided before main began. With the option,
// standard error is a stream that has no file descriptor by then.
#include "version/BuildInfo.h"

#include <stdio.h>

// Runs before all other initialisation.
__attribute__((constructor(101))) static void prepare(int argumentCount, char**) {
    static char nowhere[16];
    if (argumentCount > 1) stderr = fmemopen(nowhere, sizeof nowhere, "w");
}

int main() {
    puts(Rigging::Module::versionDumpEnabled ? "on" : "off");
    return 0;
}
