// A value of each held type, with the use counts of all that it shares.
#pragma once

#include "tests/types/SharedMembers.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace TypesTests {

// A record.
template <typename Held>
struct SharedValue {
    static constexpr bool isArray = false;
    // How many arrays and objects the record, or the elements of the array, share.
    static constexpr std::size_t pointees = kSharedMembers<Held>;
    // The counts where the value has so many copies, itself among them.
    static UseCounts countsOf(std::uint64_t copies) { return everyCount<Held>(copies); }

    SharedValue() { m_watched.putInto(value); }
    void drop() { value = Held{}; }

    UseCounts counts() const { return m_watched.counts(); }
    UseCounts countsOfPointees() const { return m_watched.counts(); }
    std::size_t releases() const { return m_watched.releases().size(); }
    void onRelease(const std::function<void()>& call) {
        m_watched.onRelease([call](std::size_t) { call(); });
    }

private:
    WatchedPointees m_watched;

public:
    Held value{};
};

// A shared array of two records. Copies share the array, whose count stands before those of what
// its elements share, which no copy changes.
template <typename Record>
struct SharedValue<Pelmor::SharedArray<Record>> {
    static constexpr bool isArray = true;
    static constexpr std::size_t pointees = 2 * kSharedMembers<Record>;
    static UseCounts countsOf(std::uint64_t copies) {
        UseCounts counts(1 + pointees, 1);
        counts.front() = copies;
        return counts;
    }

    SharedValue() {
        m_first.putInto((*value)[0]);
        m_second.putInto((*value)[1]);
    }
    void drop() { value = nullptr; }

    // For as long as the value is not dropped.
    UseCounts counts() const {
        UseCounts counts = countsOfPointees();
        counts.insert(counts.begin(), value.useCount());
        return counts;
    }
    UseCounts countsOfPointees() const {
        UseCounts counts = m_first.counts();
        for (const std::uint64_t count : m_second.counts()) counts.push_back(count);
        return counts;
    }
    std::size_t releases() const { return m_first.releases().size() + m_second.releases().size(); }
    void onRelease(const std::function<void()>& call) {
        m_first.onRelease([call](std::size_t) { call(); });
        m_second.onRelease([call](std::size_t) { call(); });
    }

private:
    WatchedPointees m_first;
    WatchedPointees m_second;

public:
    Pelmor::SharedArray<Record> value = Pelmor::makePtr<Pelmor::Array<Record>>(2u);
};

using HeldTypes = testing::Types<
    Rigging::Module::Transform, Rigging::Module::NamedTransforms, Rigging::Module::Pins,
    Rigging::Module::InputsJoints, Rigging::Module::InputsControls, Rigging::Module::Inputs,
    Rigging::Module::Outputs, Pelmor::SharedArray<Rigging::Module::Transform>,
    Pelmor::SharedArray<Rigging::Module::NamedTransforms>,
    Pelmor::SharedArray<Rigging::Module::Pins>, Pelmor::SharedArray<Rigging::Module::InputsJoints>,
    Pelmor::SharedArray<Rigging::Module::InputsControls>,
    Pelmor::SharedArray<Rigging::Module::Inputs>, Pelmor::SharedArray<Rigging::Module::Outputs>>;

}  // namespace TypesTests
