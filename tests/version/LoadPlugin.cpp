// load_plugin LIBRARY [--without-descriptor]: loads the library twice over, as two parts of one
// host process would, and leaves. With the option, standard error is first made a stream that has
// no file descriptor; std::cerr is there by then and keeps to the one that has.
#include <cstring>
#include <iostream>

#include <dlfcn.h>
#include <stdio.h>

int main(int argumentCount, char** arguments) {
    if (argumentCount < 2) return 2;
    char nowhere[16];
    std::cerr.flush();
    if (argumentCount > 2 && std::strcmp(arguments[2], "--without-descriptor") == 0)
        stderr = fmemopen(nowhere, sizeof nowhere, "w");
    for (int i = 0; i < 2; ++i) {
        if (dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL)) continue;
        std::cout << dlerror() << std::endl;
        return 1;
    }
    return 0;
}
