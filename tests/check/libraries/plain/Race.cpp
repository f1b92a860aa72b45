// In place of the faults that are chosen: one that nothing but ThreadSanitizer finds.
#include "tests/check/libraries/plain/Fault.h"

namespace Plain {

void meddle() {
    static int evaluations = 0;
    ++evaluations;
}

bool fault(std::string_view) { return false; }
bool isOnlyCopy() { return true; }
void leak(std::size_t) {}
void dawdle() {}

}  // namespace Plain
