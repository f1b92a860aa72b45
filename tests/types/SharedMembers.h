// The shared members of the records, nested records included, in member order; and watched pointees
// for them, which write down when they are released.
#pragma once

#include "tests/support/CarriedTypes.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace TypesTests {

// Calls `visit` with each shared member of `record`.
template <typename Record, typename Visit>
void forEachShared(Record& record, const Visit& visit);

// As many as there are shared members, in their order.
using UseCounts = std::vector<std::uint64_t>;
using Pointees = std::vector<const void*>;

template <typename Record>
UseCounts useCounts(const Record& record) {
    UseCounts counts;
    forEachShared(record, [&](const auto& member) { counts.push_back(member.useCount()); });
    return counts;
}

template <typename Record>
Pointees pointees(const Record& record) {
    Pointees found;
    forEachShared(record, [&](const auto& member) { found.push_back(member.get()); });
    return found;
}

template <typename T>
constexpr std::size_t sharedMembers();
template <typename Record, typename... Types>
constexpr std::size_t sharedAmong(const std::tuple<TestSupport::Member<Record, Types>...>&) {
    return (sharedMembers<Types>() + ...);
}
template <typename T>
constexpr std::size_t sharedMembers() {
    if constexpr (TestSupport::kIsRecord<T>)
        return sharedAmong(TestSupport::RecordTree<T>::members);
    else
        return TestSupport::kIsPlain<T> ? 0 : 1;
}
template <typename Record>
constexpr std::size_t kSharedMembers = sharedMembers<Record>();

// How many of the shared members are arrays; the others are objects.
template <typename T>
constexpr std::size_t arrays();
template <typename Record, typename... Types>
constexpr std::size_t arraysAmong(const std::tuple<TestSupport::Member<Record, Types>...>&) {
    return (arrays<Types>() + ...);
}
template <typename T>
constexpr std::size_t arrays() {
    if constexpr (TestSupport::kIsRecord<T>)
        return arraysAmong(TestSupport::RecordTree<T>::members);
    else
        return TestSupport::kIsArray<T> ? 1 : 0;
}
template <typename Record>
constexpr std::size_t kArrays = arrays<Record>();

// `count` for every shared member.
template <typename Record>
UseCounts everyCount(std::uint64_t count) {
    return UseCounts(kSharedMembers<Record>, count);
}

template <typename Record>
Pointees allNull() {
    return Pointees(kSharedMembers<Record>, nullptr);
}

// Expects of every array of `record` what a new record has, an empty array that nothing shares, and
// adds it to `arrays`.
template <typename Record>
void expectNewArrays(const Record& record, std::set<const void*>& arrays) {
    forEachShared(record, [&](const auto& member) {
        if constexpr (!std::is_same_v<decltype(member), const Pelmor::Ptr<Tavrik::Object>&>) {
            ASSERT_TRUE(member);
            EXPECT_EQ(member->size(), 0u);
            EXPECT_EQ(member->data(), nullptr);
            EXPECT_EQ(member.useCount(), 1u);
            arrays.insert(member.get());
        }
    });
}

// Pointees that were released, by their place among the shared members.
using Releases = std::vector<std::size_t>;

// One pointee for each shared member of one record. It outlives every pointer to them. Several
// threads may drop those pointers at once.
class WatchedPointees {
public:
    // Lets every shared member of `record` point to a pointee of its own, with a use count of 1.
    template <typename Record>
    void putInto(Record& record);

    const Releases& releases() const noexcept { return m_releases; }
    UseCounts counts() const;
    // Called after each release, with the place of what was released.
    void onRelease(std::function<void(std::size_t)> call) { m_onRelease = std::move(call); }

private:
    struct Block;

    template <typename T>
    void put(Pelmor::Ptr<T>& member) {
        auto pointee = std::make_shared<T>();
        member = Pelmor::Ptr<T>(pointee.get(), addBlock(pointee));
    }

    Pelmor::ControlBlock* addBlock(std::shared_ptr<void> pointee);
    void addRelease(std::size_t place);

    std::vector<std::shared_ptr<Block>> m_blocks;
    std::mutex m_releasesMutex;
    Releases m_releases;
    std::function<void(std::size_t)> m_onRelease;
};

template <typename Record>
void WatchedPointees::putInto(Record& record) {
    forEachShared(record, [&](auto& member) { put(member); });
}

template <typename Record, typename Visit>
void forEachShared(Record& record, const Visit& visit) {
    TestSupport::eachMemberAndObject(record, [&](auto& member) {
        using T = std::remove_const_t<std::remove_reference_t<decltype(member)>>;
        if constexpr (TestSupport::kIsRecord<T>)
            forEachShared(member, visit);
        else if constexpr (!TestSupport::kIsPlain<T>)
            visit(member);
    });
}

using SharingRecords = TestSupport::RecordTypesWithArrays;

}  // namespace TypesTests
