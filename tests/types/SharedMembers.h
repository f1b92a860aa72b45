// The shared members of the records, which are their arrays and objects and those of their nested
// records, in member order; and watched pointees for them, which write down when they are released.
#pragma once

#include "tests/support/CarriedTypes.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <type_traits>
#include <utility>
#include <vector>

namespace TypesTests {

// How many arrays a `T` has, nested records included, and how many objects.
template <typename T>
std::size_t arraysOf() {
    if constexpr (!TestSupport::kIsStruct<T>) return TestSupport::kIsArray<T> ? 1 : 0;
    std::size_t arrays = 0;
    if constexpr (TestSupport::kIsStruct<T>)
        TestSupport::eachMemberType<T>(
            [&](auto, auto tag) { arrays += arraysOf<typename decltype(tag)::Type>(); });
    return arrays;
}
template <typename T>
std::size_t objectsOf() {
    if constexpr (!TestSupport::kIsStruct<T>) return TestSupport::kIsObject<T> ? 1 : 0;
    std::size_t objects = 0;
    if constexpr (TestSupport::kIsStruct<T>)
        TestSupport::eachMemberType<T>(
            [&](auto, auto tag) { objects += objectsOf<typename decltype(tag)::Type>(); });
    return objects;
}
template <typename Record>
std::size_t sharedMembers() {
    return arraysOf<Record>() + objectsOf<Record>();
}

// Calls `visit` with each shared member of `record`, which may be const.
template <typename Record, typename Visit>
void eachShared(Record& record, const Visit& visit) {
    TestSupport::eachMemberAndObject(record, [&](auto& member) {
        using T = std::remove_const_t<std::remove_reference_t<decltype(member)>>;
        if constexpr (TestSupport::kIsStruct<T>)
            eachShared(member, visit);
        else if constexpr (!TestSupport::kIsPlain<T>)
            visit(member);
    });
}

// As many as there are shared members, in their order.
using UseCounts = std::vector<std::uint64_t>;
using Pointees = std::vector<const void*>;

template <typename Record>
UseCounts useCounts(const Record& record) {
    UseCounts counts;
    eachShared(record, [&](const auto& member) { counts.push_back(member.useCount()); });
    return counts;
}

template <typename Record>
Pointees pointees(const Record& record) {
    Pointees found;
    eachShared(record, [&](const auto& member) { found.push_back(member.get()); });
    return found;
}

// `count` for every shared member.
template <typename Record>
UseCounts everyCount(std::uint64_t count) {
    return UseCounts(sharedMembers<Record>(), count);
}

template <typename Record>
Pointees allNull() {
    return Pointees(sharedMembers<Record>(), nullptr);
}

// Pointees that were released, by their place among the shared members.
using Releases = std::vector<std::size_t>;

// One pointee for each shared member of one record. It outlives every pointer to them. Several
// threads may drop those pointers at once.
class WatchedPointees {
public:
    // Lets every shared member of `record` point to a pointee of its own, with a use count of 1.
    template <typename Record>
    void putInto(Record& record) {
        eachShared(record, [&](auto& member) {
            auto pointee = std::make_shared<std::decay_t<decltype(*member)>>();
            put(member, pointee.get(), pointee);
        });
    }
    // Lets every shared member of `record` point to what it points to, but through a control block
    // of its own, with a use count of 1.
    template <typename Record>
    void putOtherBlocksInto(Record& record) {
        eachShared(record, [&](auto& member) { put(member, member.get(), nullptr); });
    }

    const Releases& releases() const noexcept { return m_releases; }
    UseCounts counts() const;
    // Called after each release, with the place of what was released.
    void onRelease(std::function<void(std::size_t)> call) { m_onRelease = std::move(call); }

private:
    struct Block;

    template <typename T>
    void put(Pelmor::Ptr<T>& member, T* pointee, std::shared_ptr<void> owner) {
        member = Pelmor::Ptr<T>(pointee, addBlock(std::move(owner)));
    }

    Pelmor::ControlBlock* addBlock(std::shared_ptr<void> pointee);
    void addRelease(std::size_t place);

    std::vector<std::shared_ptr<Block>> m_blocks;
    std::mutex m_releasesMutex;
    Releases m_releases;
    std::function<void(std::size_t)> m_onRelease;
};

}  // namespace TypesTests
