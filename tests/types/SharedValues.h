// A value of each held type, with the use counts of all that it shares.
#pragma once

#include "tests/support/RecordLeaves.h"
#include "tests/types/SharedMembers.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace TypesTests {

// A record.
template <typename Held>
struct SharedValue {
    // How many arrays and objects the record, or the elements of the array, share.
    static std::size_t pointees() { return sharedMembers<Held>(); }
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
    Held value = TestSupport::numbered<Held>();
};

// A shared array of two records. Copies share the array, whose count stands before those of what
// its elements share, which no copy changes.
template <typename Record>
struct SharedValue<Pelmor::SharedArray<Record>> {
    static std::size_t pointees() { return 2 * sharedMembers<Record>(); }
    static UseCounts countsOf(std::uint64_t copies) {
        UseCounts counts(1 + pointees(), 1);
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
    Pelmor::SharedArray<Record> value = TestSupport::numberedElements<Record>(2);
};

}  // namespace TypesTests
