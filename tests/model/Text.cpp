#include "tests/model/Text.h"

#include <charconv>
#include <cmath>

namespace ModelTests {
namespace {

using namespace Model;

std::string textOf(const GraphValue& value);
std::string textOf(const HostNode& node);

std::string textOf(const HostArray::value_type& element) {
    return std::to_string(element.first) + ": " + textOf(element.second);
}

template <typename Values>
std::string listOf(const Values& values) {
    constexpr std::size_t kMost = 300;
    std::string list;
    std::size_t told = 0;
    for (const auto& value : values) {
        if (told++ == kMost) return list + ", ... " + std::to_string(values.size()) + " in all";
        list += (list.empty() ? "" : ", ") + textOf(value);
    }
    return list;
}

struct Telling {
    std::string operator()(std::monostate) const { return "nothing"; }
    std::string operator()(Number number) const { return ModelTests::textOf(number); }
    std::string operator()(const std::string& text) const { return ModelTests::textOf(text); }
    std::string operator()(const Matrix& matrix) const { return ModelTests::textOf(matrix); }
    std::string operator()(const Object& object) const {
        return object == defaultObject() ? "default object" : "object";
    }
    std::string operator()(const Record& members) const { return "{" + listOf(members) + "}"; }
    std::string operator()(const Array& array) const {
        return array ? "[" + listOf(*array) + "]" : "null";
    }
    std::string operator()(const Compound& children) const { return "{" + listOf(children) + "}"; }
    std::string operator()(const HostArray& elements) const { return "[" + listOf(elements) + "]"; }
};

std::string textOf(const GraphValue& value) { return std::visit(Telling(), value.content); }
std::string textOf(const HostNode& node) { return std::visit(Telling(), node.content); }

std::string textOf(const Place& place) {
    std::string text = "port " + std::to_string(place.port);
    for (const unsigned part : place.path) text += "/" + std::to_string(part);
    return text;
}

std::string textOf(const std::vector<Failure>& failures) {
    std::string text;
    for (const Failure& failure : failures)
        text += "; " + std::string(failure.operation) + " #" + std::to_string(failure.nth) +
                " fails with " + std::to_string(failure.status);
    return text;
}

std::string holder(std::size_t index) { return "holder " + std::to_string(index); }

struct TellingOfSteps {
    std::string operator()(const Read& step) const {
        return "read " + textOf(step.place) + " as " + step.type + " into " + holder(step.holder) +
               textOf(step.failures);
    }
    std::string operator()(const Write& step) const {
        return "write " + holder(step.holder) + " to " + textOf(step.place) + textOf(step.failures);
    }
    std::string operator()(const Fill& step) const {
        return "fill port " + std::to_string(step.port) + " with " + textOf(step.data);
    }
    std::string operator()(const Make& step) const {
        if (!step.value) return "empty " + holder(step.holder);
        return "put into " + holder(step.holder) + " " + step.value->type + " " +
               textOf(step.value->value);
    }
    std::string operator()(const Copy& step) const {
        return "copy " + holder(step.from) + " to " + holder(step.to);
    }
    std::string operator()(const Dirty& step) const { return "make dirty " + textOf(step.place); }
};

}  // namespace

std::string textOf(Number number) {
    char text[40] = {};
    const double value = valueOf(number);
    if (std::isnan(value))
        std::to_chars(text, text + sizeof text - 1, number, 16);
    else
        std::to_chars(text, text + sizeof text - 1, value);
    return std::isnan(value) ? std::string("nan ") + text : text;
}

std::string textOf(const std::string& text) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string quoted = "\"";
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code >= ' ' && code < 0x7f)
            quoted += character;
        else
            quoted += {'\\', 'x', kDigits[code / 16], kDigits[code % 16]};
    }
    return quoted + '"';
}

std::string textOf(const Matrix& matrix) {
    std::string text = "(";
    for (const Number number : matrix) text += (text.size() > 1 ? " " : "") + textOf(number);
    return text + ")";
}

std::string textOf(const Sequence& sequence) {
    std::string text;
    for (std::size_t i = 0; i < sequence.ports.size(); ++i) {
        const PlannedPort& port = sequence.ports[i];
        text += "  port " + std::to_string(i) + ": " + (port.isInput ? "input " : "output ") +
                port.type + '\n';
    }
    for (std::size_t i = 0; i < sequence.steps.size(); ++i)
        text += "  step " + std::to_string(i + 1) + ": " +
                std::visit(TellingOfSteps(), sequence.steps[i]) + '\n';
    return text;
}

}  // namespace ModelTests
