#include "tests/model/Report.h"

#include "tests/model/Generator.h"
#include "tests/model/Shrink.h"
#include "tests/model/Text.h"
#include "tests/model/Trial.h"

#include <charconv>
#include <chrono>
#include <filesystem>
#include <stdexcept>

namespace ModelTests {
namespace {

std::vector<std::size_t> partsOf(const Bytes& choices) {
    Choices source(choices);
    makeSequence(source);
    std::vector<std::size_t> parts = source.parts();
    parts.push_back(source.taken().size());
    return parts;
}

std::string commandWith(const std::string& argument) {
    return std::filesystem::read_symlink("/proc/self/exe").string() + ' ' + argument;
}

}  // namespace

std::string report(const Bytes& choices) {
    // Sequences with very long arrays take a second each.
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    const auto fails = [end](const Bytes& some) {
        return std::chrono::steady_clock::now() < end && disagreementApart(some).has_value();
    };
    const Bytes shrunk = shrink(choices, {fails, partsOf});
    Choices source(shrunk);
    return "Product and model disagree:\n" + textOf(makeSequence(source)) +
           disagreementApart(shrunk).value_or("no more, though they did") +
           "\nRun it again with: " + commandWith("--choices=" + hexOf(shrunk)) + '\n';
}

std::string commandFor(std::uint64_t seed) { return commandWith("--seed=" + std::to_string(seed)); }

std::string hexOf(const Bytes& choices) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : choices) {
        text += kDigits[byte / 16];
        text += kDigits[byte % 16];
    }
    return text;
}

Bytes bytesOf(const std::string& text) {
    Bytes bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const char* begin = text.data() + i;
        std::uint8_t byte = 0;
        if (i + 2 > text.size() || std::from_chars(begin, begin + 2, byte, 16).ptr != begin + 2)
            throw std::invalid_argument(text + " are no choices");
        bytes.push_back(byte);
    }
    return bytes;
}

}  // namespace ModelTests
