#include "tests/model/Trial.h"

#include "tests/model/Compare.h"
#include "tests/model/Generator.h"
#include "tests/model/ModelWorld.h"
#include "tests/model/ProductWorld.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ModelTests {
namespace {

constexpr unsigned kMostSeconds = 10;

Difference compareWorlds(const ProductWorld& product, const ModelWorld& model) {
    if (auto found = compareHosts(product, model)) return found;
    return compareHolders(product, model);
}

Difference disagreementIn(const Step& step, ProductWorld& product, ModelWorld& model) {
    const Outcome productOutcome = product.apply(step);
    const Outcome modelOutcome = model.apply(step);
    if (auto found = compareWorlds(product, model)) return found;
    return compareOutcomes(productOutcome, modelOutcome);
}

// What it finds goes into `result`.
[[noreturn]] void runAlone(const Bytes& choices, int result) {
    dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    for (const int signal : {SIGABRT, SIGSEGV, SIGBUS}) std::signal(signal, SIG_DFL);
    alarm(kMostSeconds);
    Choices source(choices);
    const std::string found = disagreement(makeSequence(source)).value_or("");
    const bool isTold = write(result, found.data(), found.size()) >= 0;
    _exit(found.empty() && isTold ? EXIT_SUCCESS : EXIT_FAILURE);
}

std::string readAll(int file) {
    std::string all;
    char piece[4096];
    for (ssize_t size = 0; (size = read(file, piece, sizeof piece)) > 0;)
        all.append(piece, static_cast<std::size_t>(size));
    return all;
}

}  // namespace

Difference disagreement(const Sequence& sequence) {
    ProductWorld product(sequence.ports);
    ModelWorld model(sequence.ports);
    Difference found = at("at the beginning, ", compareWorlds(product, model));
    for (std::size_t i = 0; i < sequence.steps.size() && !found; ++i)
        found = at("step " + std::to_string(i + 1) + ", ",
                   disagreementIn(sequence.steps[i], product, model));
    return found;
}

Difference disagreementApart(const Bytes& choices) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("there is no pipe to be had");
    const pid_t child = fork();
    if (child == 0) runAlone(choices, ends[1]);
    close(ends[1]);
    std::string found = readAll(ends[0]);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS) return {};
    if (found.empty())
        found = "a step does not return: the process ended with status " + std::to_string(status);
    return found;
}

}  // namespace ModelTests
