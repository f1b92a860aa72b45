// The tests, or one sequence again: model_tests --seed=NUMBER or model_tests --choices=BYTES
#include "tests/model/Generator.h"
#include "tests/model/Report.h"
#include "tests/model/Text.h"
#include "tests/model/Trial.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace ModelTests;

std::optional<std::string> valueOf(const std::string& argument, const std::string& option) {
    if (argument.compare(0, option.size(), option) != 0) return {};
    return argument.substr(option.size());
}

Bytes choicesOfSeed(const std::string& seed) {
    Choices choices(std::stoull(seed));
    makeSequence(choices);
    return choices.taken();
}

int runAgain(const Bytes& choices) {
    if (disagreementApart(choices)) {
        std::fputs(report(choices).c_str(), stderr);
        return EXIT_FAILURE;
    }
    Choices source(choices);
    std::printf("Product and model agree:\n%s", textOf(makeSequence(source)).c_str());
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const std::string argument = argc > 1 ? argv[1] : "";
    if (const auto seed = valueOf(argument, "--seed=")) return runAgain(choicesOfSeed(*seed));
    if (const auto choices = valueOf(argument, "--choices=")) return runAgain(bytesOf(*choices));
    return RUN_ALL_TESTS();
}
