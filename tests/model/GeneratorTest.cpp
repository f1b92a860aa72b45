// What the sequences get to: a comparison says nothing of what no sequence does.
#include "tests/model/Generator.h"
#include "tests/model/ModelWorld.h"
#include "tests/model/Text.h"
#include "tests/support/CarriedTypes.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace ModelTests;
using Model::Walk;
using Names = std::set<std::string>;

const std::vector<std::string>& elementTypes() {
    static const auto types = TestSupport::graphNames(TestSupport::ElementTypes());
    return types;
}

std::string nameOf(Walk::Kind kind, const std::string& element) {
    static const char* const kKinds[] = {"read", "null", "in place", "grow", "remove"};
    return kKinds[kind] + (' ' + element);
}

struct Reached {
    // By the type that is read or written.
    std::map<std::string, Names> called;
    std::map<std::string, Names> failed;
    Names walks;
    Names longWalks;
    Names messages;
    std::map<std::string, long long> greatestIndex;
    // Whether an error's display failed.
    bool isErrorDropped = false;
    unsigned uncarried = 0;
    unsigned places = 0;

    void carryOut(const Sequence& sequence) {
        ModelWorld world(sequence.ports);
        for (const Step& step : sequence.steps) {
            const Outcome outcome = world.apply(step);
            for (const Walk& walk : world.walks()) note(walk);
            if (const auto* read = std::get_if<Read>(&step))
                note(outcome, "read " + read->type, read->place, world);
            const auto* write = std::get_if<Write>(&step);
            if (!write) continue;
            const Model::Holder& holder = world.holders()[write->holder];
            note(outcome, "write " + (holder ? holder->type : ""), write->place, world);
        }
    }

private:
    void note(const Outcome& outcome, const std::string& what, const Model::Place& place,
              const ModelWorld& world) {
        uncarried += !outcome.result;
        places += !place.path.empty();
        messages.insert(outcome.messages.begin(), outcome.messages.end());
        for (const Model::Call& call : outcome.calls) {
            long long& greatest = greatestIndex[std::string(call.operation)];
            greatest = std::max(greatest, call.index);
        }
        if (!outcome.result) return;
        for (const Model::Call& call : outcome.calls) called[what].emplace(call.operation);
        failed[what].insert(world.failed().begin(), world.failed().end());
        isErrorDropped = isErrorDropped || failed[what].count("VGlobal::displayError") == 1;
    }

    void note(const Walk& walk) {
        const std::string name = nameOf(walk.kind, walk.element->name);
        walks.insert(name + (walk.isSparse ? " sparse" : ""));
        walks.insert(name + " of " + std::to_string(walk.length));
        const bool isRecord = walk.element->kind == Model::Kind::Record;
        if (walk.length > 10)
            longWalks.insert(nameOf(walk.kind, isRecord ? "records" : "plain") + " of " +
                             std::to_string(walk.length));
        if (walk.length < 3 || !walk.failedAt) return;
        const std::size_t at = *walk.failedAt;
        walks.insert(name + (at == 0                 ? " ended at the first"
                             : at + 1 == walk.length ? " ended at the last"
                                                     : " ended in the middle"));
    }
};

const Reached& reached() {
    static const Reached all = [] {
        Reached some;
        for (std::uint64_t seed = 1; seed <= 4000; ++seed) {
            Choices choices(seed);
            some.carryOut(makeSequence(choices));
        }
        return some;
    }();
    return all;
}

Names missing(const Names& wanted, const Names& present) {
    Names some;
    std::set_difference(wanted.begin(), wanted.end(), present.begin(), present.end(),
                        std::inserter(some, some.end()));
    return some;
}

TEST(Generator, MakesEveryCallFailForEveryTypeReadOrWritten) {
    Names all;
    for (const std::string& type : Model::carriedTypes())
        for (const std::string& what : {"read " + type, "write " + type}) {
            const auto called = reached().called.find(what);
            ASSERT_NE(called, reached().called.end()) << what;
            all.insert(called->second.begin(), called->second.end());
            Names failed = reached().failed.at(what);
            // This one comes after the walk.
            failed.insert("VGlobal::displayError");
            EXPECT_EQ(missing(called->second, failed), Names()) << what;
        }
    EXPECT_EQ(all, Names(failingOperations().begin(), failingOperations().end()));
    EXPECT_TRUE(reached().isErrorDropped);
    EXPECT_EQ(reached().messages,
              (Names{"Cannot get handle on array element !", "Cannot remove element from array"}));
    EXPECT_GT(reached().uncarried, 0u);
    EXPECT_GT(reached().places, 0u);
}

TEST(Generator, WalksArraysOfEveryElementTypeInEveryWay) {
    Names wanted;
    for (const std::string& type : elementTypes()) {
        wanted.insert(nameOf(Walk::LeaveAsNull, type));
        for (const auto kind : {Walk::Read, Walk::WriteInPlace, Walk::Grow, Walk::Remove}) {
            const std::string name = nameOf(kind, type);
            for (const char* how : {"", " sparse", " of 1", " of 2"}) wanted.insert(name + how);
            if (kind == Walk::Read || kind == Walk::WriteInPlace) wanted.insert(name + " of 0");
            if (kind == Walk::Grow) continue;
            for (const char* where : {"at the first", "in the middle", "at the last"})
                wanted.insert(name + " ended " + where);
        }
    }
    EXPECT_EQ(missing(wanted, reached().walks), Names());
}

TEST(Generator, WalksArraysLongerThanNarrowCountersCount) {
    Reached some = reached();
    for (std::uint64_t seed = 1; seed <= 10000; ++seed) {
        Choices first(seed);
        if (longLength(first) == 0) continue;
        Choices choices(seed);
        some.carryOut(makeSequence(choices));
    }
    Names wanted;
    for (const auto kind : {Walk::Read, Walk::WriteInPlace, Walk::Grow}) {
        for (const char* element : {"plain of ", "records of "})
            for (const char* length : {"15", "16", "17", "255", "256", "257"})
                wanted.insert(nameOf(kind, element) + length);
        for (const char* length : {"65535", "65536", "65537"})
            wanted.insert(nameOf(kind, "plain of ") + length);
    }
    EXPECT_EQ(missing(wanted, some.longWalks), Names());
    EXPECT_EQ(some.greatestIndex["VPlug::elementByLogicalIndex"], 256);
    EXPECT_EQ(some.greatestIndex["VArrayDataBuilder::addElement"], 65536);
    EXPECT_EQ(some.greatestIndex["VArrayDataBuilder::removeElement"], 65536);
}

struct Contents {
    std::set<Model::Number> numbers;
    std::set<std::size_t> textLengths;
    std::set<char> bytes;
    bool hasBlankEdges = false;
    bool isDense = false;
    bool hasGreatestIndex = false;

    void operator()(std::monostate) {}
    void operator()(const Model::Object&) {}
    void operator()(Model::Number number) { numbers.insert(number); }
    void operator()(const Model::Matrix& matrix) { numbers.insert(matrix.begin(), matrix.end()); }
    void operator()(const std::string& text) {
        textLengths.insert(text.size());
        bytes.insert(text.begin(), text.end());
        hasBlankEdges = hasBlankEdges || (text.size() > 2 && text[0] == ' ' && text.back() == ' ');
    }
    void operator()(const Model::Array& array) {
        if (array) (*this)(*array);
    }
    template <typename Node>
    void operator()(const std::vector<Node>& nodes) {
        for (const Node& node : nodes) std::visit(*this, node.content);
    }
    void operator()(const Model::HostArray& elements) {
        for (const auto& element : elements) std::visit(*this, element.second.content);
        if (elements.empty()) return;
        const unsigned last = elements.rbegin()->first;
        isDense = isDense || last == elements.size() - 1;
        hasGreatestIndex = hasGreatestIndex || last == std::numeric_limits<unsigned>::max();
    }
};

TEST(Generator, MakesOddNumbersAndTextsForGraphAndHost) {
    Contents graph;
    Contents host;
    for (std::uint64_t seed = 1; seed <= 300; ++seed) {
        Choices choices(seed);
        for (const Step& step : makeSequence(choices).steps) {
            if (const auto* fill = std::get_if<Fill>(&step)) std::visit(host, fill->data.content);
            const auto* make = std::get_if<Make>(&step);
            if (make && make->value) std::visit(graph, make->value->value.content);
        }
    }
    using Limits = std::numeric_limits<double>;
    for (const Contents& some : {graph, host}) {
        for (const double odd : {-0.0, Limits::denorm_min(), Limits::max(), -Limits::infinity()})
            EXPECT_EQ(some.numbers.count(Model::numberOf(odd)), 1u) << odd;
        EXPECT_EQ(some.numbers.count(0x7ff8000000000abc), 1u) << "a NaN";
        for (const unsigned length :
             {0u, 1u, 15u, 16u, 63u, 64u, 65u, 127u, 128u, 255u, 256u, 257u, 300u})
            EXPECT_EQ(some.textLengths.count(length), 1u) << length;
        EXPECT_EQ(some.bytes.size(), 255u);
        EXPECT_EQ(some.bytes.count('\0'), 0u);
        EXPECT_TRUE(some.hasBlankEdges);
    }
    EXPECT_TRUE(host.isDense && host.hasGreatestIndex);
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
