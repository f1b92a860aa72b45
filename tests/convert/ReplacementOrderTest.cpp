// In which order a value that is carried takes the place of the former one.
#include "tests/support/AllocationCount.h"
#include "tests/support/HostPort.h"

#include <OpenVornik/Testing/CallObserver.h>
#include <Tolvane/convert/Read.h>
#include <Tolvane/convert/Write.h>

#include <functional>
#include <tuple>

#include <gtest/gtest.h>

namespace {

// Tells when it is copied, moved or destroyed.
struct Watched {
    Watched() = default;
    Watched(const Watched& other) : tag(other.tag) { ++s_copies; }
    Watched(Watched&& other) noexcept : tag(other.tag) { ++s_moves; }
    Watched& operator=(const Watched&) = default;
    ~Watched() {
        if (s_destroyed) s_destroyed(tag);
    }

    int tag = 0;
    static int s_copies;
    static int s_moves;
    static std::function<void(int tag)> s_destroyed;
};
int Watched::s_copies = 0;
int Watched::s_moves = 0;
std::function<void(int)> Watched::s_destroyed;

// Too large for a holder's words, so that the holder keeps it on the heap.
struct Note {
    double number = 0;
    double more[4] = {};
    Watched watched;
};

}  // namespace

template <>
struct Tolvane::Page<Note> {
    [[maybe_unused]] static constexpr const char* typeName = "Note";
    static constexpr std::tuple members{&Note::number};
};

namespace {

using namespace TestSupport;
using Pelmor::AnyValue;

constexpr int kFormer = 7;

class ReplacementOrder : public testing::Test {
protected:
    ReplacementOrder() {
        Watched::s_copies = Watched::s_moves = 0;
        Watched::s_destroyed = nullptr;
    }
    ~ReplacementOrder() override { Watched::s_destroyed = nullptr; }

    static VObject note(bool isArray) {
        return compoundAttribute("value", {doubleAttribute("number")}, isArray);
    }
};

TEST_F(ReplacementOrder, ReadRecordIsCopiedOnceBeforeTheHoldersFormerContentGoes) {
    HostPort port(note(false));
    Note former;
    former.watched.tag = kFormer;
    AnyValue value = AnyValue::holding(former);
    int copiesBefore = -1;
    Watched::s_copies = Watched::s_moves = 0;
    Watched::s_destroyed = [&](int tag) {
        if (tag == kFormer) copiesBefore = Watched::s_copies;
    };
    Tolvane::Translators<Note>::readValue(value, port.handle, port.plug);
    Watched::s_destroyed = nullptr;
    EXPECT_EQ(copiesBefore, 1);
    EXPECT_EQ(Watched::s_copies, 1);
    EXPECT_EQ(Watched::s_moves, 0);
}

TEST_F(ReplacementOrder, ReadArrayIsInItsDestinationBeforeTheFormerArrayGoes) {
    HostPort port(note(true));
    setIndices(port.handle, {0, 1, 2});
    auto array = Pelmor::makePtr<Pelmor::Array<Note>>(1u);
    (*array)[0].watched.tag = kFormer;
    const void* former = array.get();
    const void* seen = nullptr;
    std::uint64_t sizeSeen = 0;
    Watched::s_destroyed = [&](int tag) {
        if (tag != kFormer) return;
        seen = array.get();
        sizeSeen = array ? array->size() : 0;
    };
    Tolvane::Translators<Note>::readArray(port.handle, port.plug, array);
    Watched::s_destroyed = nullptr;
    EXPECT_NE(seen, nullptr);
    EXPECT_NE(seen, former);
    EXPECT_EQ(seen, array.get());
    EXPECT_EQ(sizeSeen, 3u);
}

// Notes what the heap still has to get back when an array is marked clean.
class HeapWhenClean : public OpenVornik::Testing::CallObserver {
public:
    std::int64_t outstanding = -1;

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == "VArrayDataHandle::setAllClean") outstanding = m_count.outstanding();
        return VStatus::kSuccess;
    }

    const AllocationCount m_count;
};

TEST_F(ReplacementOrder, BuilderIsGoneBeforeTheArrayIsMarkedClean) {
    const auto array = Pelmor::makePtr<Pelmor::Array<double>>(1u);
    HostPort port(doubleAttribute("value", true));
    setIndices(port.handle, {0, 1, 2, 3});
    const AllocationCount count;
    const HeapWhenClean heap;
    Tolvane::writeDoubleArray(array, port.handle, port.plug);
    EXPECT_EQ(heap.outstanding, count.outstanding());
}

}  // namespace
