// How the graph library is told of the elements of an array, and what the operations that it is
// given do: shown with records of the tests' own, which have a page like any other.
#include "tests/support/CarriedTypes.h"

#include <Pelmor/Array.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

namespace TypesTests {

enum class Did { Default, Copy, Move, CopyAssign, MoveAssign, Destroy };

// Writes down what is done to each, and by which other one.
struct NotedRecord {
    struct Note {
        Did what;
        const NotedRecord* element;
        const NotedRecord* source;
        bool operator==(const Note& other) const {
            return what == other.what && element == other.element && source == other.source;
        }
    };

    NotedRecord() { noteCreation(Did::Default, nullptr); }
    NotedRecord(const NotedRecord& other) { noteCreation(Did::Copy, &other); }
    NotedRecord(NotedRecord&& other) noexcept { noteCreation(Did::Move, &other); }
    NotedRecord& operator=(const NotedRecord& other) {
        s_notes.push_back({Did::CopyAssign, this, &other});
        return *this;
    }
    NotedRecord& operator=(NotedRecord&& other) noexcept {
        s_notes.push_back({Did::MoveAssign, this, &other});
        return *this;
    }
    ~NotedRecord() { s_notes.push_back({Did::Destroy, this, nullptr}); }

    double number = 0;

    static inline std::vector<Note> s_notes;
    // The element that refuses to be created.
    static inline const NotedRecord* s_refused = nullptr;

private:
    void noteCreation(Did what, const NotedRecord* source) {
        if (this == s_refused) throw std::runtime_error("refused");
        s_notes.push_back({what, this, source});
    }
};

// Leaves the gap behind its letter, and a number, as it finds them.
struct RecordWithGaps {
    RecordWithGaps() {}
    ~RecordWithGaps() {}
    char letter = 'x';
    double number;
};

struct TrivialRecord {
    double first = 0;
    double second = 2.5;
};
static_assert(std::is_trivially_copyable_v<TrivialRecord>);

}  // namespace TypesTests

template <>
struct Tolvane::Page<TypesTests::NotedRecord> {
    using Record = TypesTests::NotedRecord;
    static constexpr const char* typeName = "Tests::NotedRecord";
    static constexpr std::tuple members{&Record::number};
};
template <>
struct Tolvane::Page<TypesTests::RecordWithGaps> {
    using Record = TypesTests::RecordWithGaps;
    static constexpr const char* typeName = "Tests::RecordWithGaps";
    static constexpr std::tuple members{&Record::number};
};
template <>
struct Tolvane::Page<TypesTests::TrivialRecord> {
    using Record = TypesTests::TrivialRecord;
    static constexpr const char* typeName = "Tests::TrivialRecord";
    static constexpr std::tuple members{&Record::first};
};

namespace {

using namespace TestSupport;
using namespace TypesTests;
using Pelmor::ElementOperation;
using Pelmor::ElementOperations;
using Pelmor::Internal::UntypedTypeRep;
using Notes = std::vector<NotedRecord::Note>;

template <typename Element>
UntypedTypeRep describedBy() {
    return Pelmor::Array<Element>().elementRep();
}

// Asks the entry of `Element`, by the code that the graph library passes.
template <typename Element>
void operate(std::uint32_t code, Element* destination, Element* source, std::uint64_t count) {
    // Read at run time, as from an array that the graph library made.
    const ElementOperations volatile operations = describedBy<Element>().operations;
    operations(static_cast<ElementOperation>(code), destination, source, count);
}

template <typename Element>
struct PlainDescriptor {
    static void expect(std::uint32_t size, std::uint32_t kindCode) {
        const UntypedTypeRep rep = describedBy<Element>();
        EXPECT_EQ(rep.elementSize, size);
        EXPECT_EQ(rep.alignmentAndKind, kindCode << 16 | 8u);
        EXPECT_EQ(rep.operations, nullptr);
    }
};

TEST(ElementDescriptors, NumbersMatricesAndStringsHaveAKindAndNoOperations) {
    PlainDescriptor<double>::expect(8, 0);
    PlainDescriptor<Math::double4x4>::expect(128, 0);
    PlainDescriptor<Pelmor::String>::expect(16, 1);
}

template <typename Record>
class RecordElements : public testing::Test {};
TYPED_TEST_SUITE(RecordElements, RecordTypes, NameOfType);

TYPED_TEST(RecordElements, HaveKindEightAndOperations) {
    EXPECT_EQ(describedBy<TypeParam>().elementSize, sizeof(TypeParam));
    EXPECT_EQ(describedBy<TypeParam>().alignmentAndKind, 8u << 16 | 8u);
    EXPECT_NE(describedBy<TypeParam>().operations, nullptr);
}

TYPED_TEST(RecordElements, MayBeNoneAtNullPointersForEveryOperation) {
    for (std::uint32_t code = 0; code <= 7; ++code) operate<TypeParam>(code, nullptr, nullptr, 0);
}

template <typename... Records>
std::vector<ElementOperations> entriesOf(testing::Types<Records...>) {
    return {describedBy<Records>().operations...};
}

TEST(ElementDescriptors, EachRecordHasOperationsOfItsOwn) {
    const std::vector<ElementOperations> entries = entriesOf(RecordTypes());
    EXPECT_EQ(std::set<ElementOperations>(entries.begin(), entries.end()).size(), entries.size());
}

enum class Source { None, One, Range };

struct Operation {
    std::uint32_t code;
    Did what;
    Source source;
    bool takesNewStorage;
};

constexpr Operation kOperations[] = {
    {0, Did::Default, Source::None, true},      {1, Did::Copy, Source::One, true},
    {2, Did::Copy, Source::Range, true},        {3, Did::Move, Source::Range, true},
    {4, Did::CopyAssign, Source::Range, false}, {5, Did::MoveAssign, Source::Range, false},
    {6, Did::Destroy, Source::None, false}};

class ElementOperationsTest : public testing::Test {
protected:
    // Elements to operate on, noted from now on.
    void prepare(std::uint64_t count, bool isNewStorage) {
        storage.assign(count, 0.5);
        destination = reinterpret_cast<NotedRecord*>(storage.data());
        if (!isNewStorage) operate<NotedRecord>(0, destination, nullptr, count);
        sources = std::vector<NotedRecord>(count);
        NotedRecord::s_notes.clear();
    }

    static Notes takeNotes() { return std::exchange(NotedRecord::s_notes, {}); }

    void TearDown() override { NotedRecord::s_refused = nullptr; }

    std::vector<double> storage;
    NotedRecord* destination = nullptr;
    std::vector<NotedRecord> sources;
};

TEST_F(ElementOperationsTest, TakeEachElementOnceInOrder) {
    for (const std::uint64_t count : {1u, 3u, 257u, 65'537u})
        for (const Operation& operation : kOperations) {
            SCOPED_TRACE(testing::Message() << count << " elements, code " << operation.code);
            prepare(count, operation.takesNewStorage);
            Notes expected;
            for (std::uint64_t i = 0; i < count; ++i) {
                const NotedRecord* source = &sources[operation.source == Source::One ? 0 : i];
                if (operation.source == Source::None) source = nullptr;
                expected.push_back({operation.what, destination + i, source});
            }
            operate(operation.code, destination, sources.data(), count);
            // Whole vectors are too much to be printed.
            EXPECT_TRUE(takeNotes() == expected);
        }
}

TEST_F(ElementOperationsTest, OtherCodesDoNothing) {
    prepare(3, true);
    for (const std::uint32_t code : {7u, 8u, 255u, 256u, 262u, 65'536u, 0x80000000u, 0xffffffffu})
        operate(code, destination, sources.data(), 3);
    EXPECT_EQ(takeNotes(), Notes());
    EXPECT_EQ(storage, std::vector<double>(3, 0.5));
}

TEST_F(ElementOperationsTest, TakeNoElementWhereThereIsNone) {
    prepare(3, true);
    for (const Operation& operation : kOperations)
        operate<NotedRecord>(operation.code, nullptr, nullptr, 0);
    EXPECT_EQ(takeNotes(), Notes());
}

TEST_F(ElementOperationsTest, ConstructionThatThrowsDestroysWhatItHasConstructed) {
    for (const Operation& operation : kOperations) {
        if (operation.what != Did::Default && operation.what != Did::Copy) continue;
        SCOPED_TRACE(operation.code);
        prepare(3, true);
        NotedRecord::s_refused = destination + 2;
        EXPECT_THROW(operate(operation.code, destination, sources.data(), 3), std::runtime_error);
        NotedRecord::s_refused = nullptr;
        const Notes notes = takeNotes();
        ASSERT_EQ(notes.size(), 4u);
        EXPECT_EQ(notes[2], (NotedRecord::Note{Did::Destroy, destination, nullptr}));
        EXPECT_EQ(notes[3], (NotedRecord::Note{Did::Destroy, destination + 1, nullptr}));
    }
}

// Elements in storage that was full of ones; they are not destroyed.
template <typename Record>
struct NewElements {
    NewElements() {
        std::memset(storage, 0xff, sizeof storage);
        operate<Record>(0, reinterpret_cast<Record*>(storage), nullptr, kCount);
    }
    static constexpr std::uint64_t kCount = 3;
    alignas(Record) unsigned char storage[(kCount + 1) * sizeof(Record)];
};

TEST(NewElementsOfRecords, AreZeroWhereConstructionSetsNothing) {
    const NewElements<RecordWithGaps> elements;
    unsigned char expected[sizeof elements.storage] = {};
    for (std::uint64_t i = 0; i < elements.kCount; ++i) expected[i * sizeof(RecordWithGaps)] = 'x';
    std::memset(expected + elements.kCount * sizeof(RecordWithGaps), 0xff, sizeof(RecordWithGaps));
    EXPECT_TRUE(std::equal(std::begin(expected), std::end(expected), elements.storage));
}

TEST(NewElementsOfRecords, HaveTheirDefaultsEvenIfTriviallyCopyable) {
    const NewElements<TrivialRecord> elements;
    for (std::uint64_t i = 0; i < elements.kCount; ++i) {
        double numbers[2];
        std::memcpy(numbers, elements.storage + i * sizeof numbers, sizeof numbers);
        EXPECT_EQ(numbers[0], 0);
        EXPECT_EQ(numbers[1], 2.5);
    }
}

}  // namespace
