#include "tests/graph/ElementEvents.h"

#include <Pelmor/UntypedTypeRep.h>

#include <new>
#include <utility>

namespace GraphTests {
namespace {

constexpr int kMovedFrom = -2;
constexpr std::size_t kMostEvents = 10'000;

// With room from the start, so that writing an event down is no allocation of the test's.
Events g_events = [] {
    Events events;
    events.reserve(kMostEvents);
    return events;
}();

void add(const char* what, std::int64_t number) {
    events().push_back(what + (' ' + std::to_string(number)));
}

void refuse(int number) {
    if (number == PlainElement::s_refused) throw CopyRefused("this element is not to be made");
}

const char* nameOf(Pelmor::ElementOperation operation) {
    constexpr const char* kNames[] = {"DefaultConstruct", "ConstructCopies", "CopyConstruct",
                                      "MoveConstruct",    "CopyAssign",      "MoveAssign",
                                      "Destroy"};
    return kNames[static_cast<std::uint32_t>(operation)];
}

}  // namespace

Events& events() { return g_events; }

Events takeEvents() {
    Events taken = g_events;
    g_events.clear();
    return taken;
}

PlainElement::PlainElement() : m_number(s_nextDefault++) {
    refuse(m_number);
    ++s_alive;
    add("default", m_number);
}

PlainElement::PlainElement(int number) : m_number(number) { ++s_alive; }

PlainElement::PlainElement(const PlainElement& other) : m_number(other.m_number) {
    refuse(m_number);
    ++s_alive;
    add("copy", m_number);
}

PlainElement::PlainElement(PlainElement&& other) noexcept
    : m_number(std::exchange(other.m_number, kMovedFrom)) {
    ++s_alive;
    add("move", m_number);
}

PlainElement::~PlainElement() {
    --s_alive;
    if (m_number != kMovedFrom) add("destroy", m_number);
}

void EnteredElement::operations(Pelmor::ElementOperation operation, void* destination, void* source,
                                std::uint64_t count) {
    using Operation = Pelmor::ElementOperation;
    if (count == 0) return;
    add(nameOf(operation), static_cast<std::int64_t>(count));
    if (operation == Operation::Destroy) return;
    auto* made = static_cast<EnteredElement*>(destination);
    const auto* from = static_cast<const EnteredElement*>(source);
    for (std::uint64_t i = 0; i < count; ++i)
        new (made + i)
            EnteredElement(operation == Operation::DefaultConstruct ? 0 : from[i].m_number);
}

}  // namespace GraphTests

// The linker sends this binary's own calls of `allocate` and `deallocate` here (see
// CMakeLists.txt), and what is named "real" to the library.
#define ALLOCATE "_ZNK6Pelmor8Internal14UntypedTypeRep8allocateEm"
#define DEALLOCATE "_ZNK6Pelmor8Internal14UntypedTypeRep10deallocateEPvm"

extern "C" {

using Pelmor::Internal::UntypedTypeRep;

void* realAllocate(const UntypedTypeRep* rep, std::uint64_t count) __asm__("__real_" ALLOCATE);
void realDeallocate(const UntypedTypeRep* rep, void* buffer, std::uint64_t count) noexcept
    __asm__("__real_" DEALLOCATE);
void* watchedAllocate(const UntypedTypeRep* rep, std::uint64_t count) __asm__("__wrap_" ALLOCATE);
void watchedDeallocate(const UntypedTypeRep* rep, void* buffer, std::uint64_t count) noexcept
    __asm__("__wrap_" DEALLOCATE);

void* watchedAllocate(const UntypedTypeRep* rep, std::uint64_t count) {
    void* buffer = realAllocate(rep, count);
    GraphTests::add("allocate", static_cast<std::int64_t>(count));
    return buffer;
}

void watchedDeallocate(const UntypedTypeRep* rep, void* buffer, std::uint64_t count) noexcept {
    GraphTests::add("deallocate", static_cast<std::int64_t>(count));
    realDeallocate(rep, buffer, count);
}

}  // extern "C"
