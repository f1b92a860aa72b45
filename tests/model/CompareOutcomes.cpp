#include "tests/model/Compare.h"

#include <algorithm>

namespace ModelTests {
namespace {

std::string textOf(const std::vector<std::string>& messages) {
    std::string text = std::to_string(messages.size()) + " messages";
    for (const std::string& message : messages) text += " \"" + message + '"';
    return text;
}

std::string callAt(const std::vector<Model::Call>& calls, std::size_t position) {
    if (position == calls.size()) return "no more";
    const Model::Call& call = calls[position];
    std::string text(call.operation);
    if (call.index >= 0) text += ' ' + std::to_string(call.index);
    if (call.statusRequested) text += " with status";
    return text;
}

Difference compareCalls(const std::vector<Model::Call>& product,
                        const std::vector<Model::Call>& model) {
    const auto differing =
        std::mismatch(product.begin(), product.end(), model.begin(), model.end()).first;
    const auto position = static_cast<std::size_t>(differing - product.begin());
    if (position == product.size() && position == model.size()) return {};
    const Difference difference = differ(callAt(product, position), callAt(model, position));
    return at("call " + std::to_string(position + 1), difference);
}

}  // namespace

Difference compareOutcomes(const Outcome& product, const Outcome& model) {
    if (product.result != model.result)
        return at("result",
                  differ(product.result ? "true" : "false", model.result ? "true" : "false"));
    if (product.messages != model.messages)
        return at("display", differ(textOf(product.messages), textOf(model.messages)));
    return compareCalls(product.calls, model.calls);
}

}  // namespace ModelTests
