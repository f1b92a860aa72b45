// The sequences of the tests, with their choices made by a fuzzer.
#include "tests/model/Generator.h"
#include "tests/model/Text.h"
#include "tests/model/Trial.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ModelTests;
    Choices choices(Bytes(data, data + size));
    const Sequence sequence = makeSequence(choices);
    if (const Difference difference = disagreement(sequence)) {
        std::fprintf(stderr, "Product and model disagree:\n%s%s\n", textOf(sequence).c_str(),
                     difference->c_str());
        std::abort();
    }
    return 0;
}
