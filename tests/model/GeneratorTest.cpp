// What the sequences get to: a comparison says nothing of what no sequence does.
#include "tests/model/Generator.h"
#include "tests/model/ModelWorld.h"
#include "tests/model/Text.h"

#include <algorithm>
#include <limits>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace ModelTests;

struct Reached {
    std::set<std::string> typesRead;
    std::set<std::string> typesWritten;
    std::set<std::string> messages;
    std::set<std::string_view> failedOperations;
    std::set<std::string_view> calledOperations;
    unsigned uncarried = 0;
    unsigned places = 0;
};

void note(Reached& reached, const Outcome& outcome, const std::string& type,
          std::set<std::string>& types, const Model::Place& place) {
    if (outcome.result) types.insert(type);
    reached.uncarried += !outcome.result;
    reached.places += !place.path.empty();
    reached.messages.insert(outcome.messages.begin(), outcome.messages.end());
    for (const Model::Call& call : outcome.calls) reached.calledOperations.insert(call.operation);
}

Reached reachedBy(std::uint64_t sequences) {
    Reached reached;
    for (std::uint64_t seed = 1; seed <= sequences; ++seed) {
        Choices choices(seed);
        const Sequence sequence = makeSequence(choices);
        ModelWorld world(sequence.ports);
        for (const Step& step : sequence.steps) {
            const Outcome outcome = world.apply(step);
            if (const auto* read = std::get_if<Read>(&step))
                note(reached, outcome, read->type, reached.typesRead, read->place);
            if (const auto* write = std::get_if<Write>(&step)) {
                const Model::Holder& holder = world.holders()[write->holder];
                note(reached, outcome, holder ? holder->type : "", reached.typesWritten,
                     write->place);
            }
            reached.failedOperations.insert(world.failed().begin(), world.failed().end());
        }
    }
    return reached;
}

TEST(Generator, ReadsAndWritesEveryTypeAndMakesEveryCallFail) {
    const Reached reached = reachedBy(2000);
    const auto& types = Model::carriedTypes();
    EXPECT_EQ(reached.typesRead, std::set<std::string>(types.begin(), types.end()));
    EXPECT_EQ(reached.typesWritten, reached.typesRead);
    const auto& operations = failingOperations();
    const std::set<std::string_view> all(operations.begin(), operations.end());
    EXPECT_EQ(reached.failedOperations, all);
    EXPECT_EQ(reached.calledOperations, all);
    EXPECT_EQ(reached.messages, (std::set<std::string>{"Cannot get handle on array element !",
                                                       "Cannot remove element from array"}));
    EXPECT_GT(reached.uncarried, 0u);
    EXPECT_GT(reached.places, 0u);
}

struct Arrays {
    std::set<std::size_t> lengths;
    bool hasNull = false;
    bool isDense = false;
    bool isSparse = false;
    bool hasGreatestIndex = false;

    void note(const Model::GraphValue& value) {
        if (const auto* members = std::get_if<Model::Record>(&value.content))
            for (const Model::GraphValue& member : *members) note(member);
        if (const auto* array = std::get_if<Model::Array>(&value.content)) {
            hasNull = hasNull || !*array;
            if (*array) lengths.insert((*array)->size());
        }
    }

    void note(const Model::HostNode& node) {
        if (const auto* children = std::get_if<Model::Compound>(&node.content))
            for (const Model::HostNode& child : *children) note(child);
        const auto* elements = std::get_if<Model::HostArray>(&node.content);
        if (!elements || elements->empty()) return;
        const unsigned last = elements->rbegin()->first;
        hasGreatestIndex = hasGreatestIndex || last == std::numeric_limits<unsigned>::max();
        (last == elements->size() - 1 ? isDense : isSparse) = true;
    }
};

TEST(Generator, MakesArraysOfEveryKind) {
    Arrays graph;
    Arrays host;
    for (std::uint64_t seed = 1; seed <= 300; ++seed) {
        Choices choices(seed);
        for (const Step& step : makeSequence(choices).steps) {
            if (const auto* fill = std::get_if<Fill>(&step)) host.note(fill->data);
            const auto* make = std::get_if<Make>(&step);
            if (make && make->value) graph.note(make->value->value);
        }
    }
    EXPECT_TRUE(graph.hasNull);
    EXPECT_EQ(graph.lengths.count(0), 1u);
    EXPECT_GT(*graph.lengths.rbegin(), 50u);
    EXPECT_TRUE(host.isDense && host.isSparse && host.hasGreatestIndex);
}

TEST(Generator, MakesTheSameOfTheSameChoices) {
    Choices seeded(7);
    const std::string made = textOf(makeSequence(seeded));
    Choices again(seeded.taken());
    EXPECT_EQ(textOf(makeSequence(again)), made);
}

TEST(Generator, ComesToAnEndWhereThereAreNoMoreChoices) {
    Choices none{Bytes()};
    const Sequence sequence = makeSequence(none);
    EXPECT_EQ(sequence.ports.size(), 1u);
    EXPECT_TRUE(sequence.steps.empty());
}

}  // namespace
