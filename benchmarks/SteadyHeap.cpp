// A heap for counting instructions: what taking a block costs does not depend on what was taken and
// given back before, so that a change in one place does not move the count of everything after it.
// Not thread-safe.
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <new>

namespace {

constexpr std::size_t kGranule = 16;

// In front of each block; its size is in granules. A free block is in the list of its size.
struct alignas(kGranule) Head {
    std::size_t size;
    Head* next;
};

Head* s_free[1 << 16];
std::byte* s_fresh = nullptr;
std::size_t s_freshSize = 0;

Head* cut(std::size_t size) {
    constexpr std::size_t kChunk = std::size_t{1} << 26;
    const std::size_t bytes = sizeof(Head) + size * kGranule;
    if (bytes > s_freshSize) {
        s_fresh = static_cast<std::byte*>(std::malloc(kChunk));
        s_freshSize = kChunk;
    }
    if (!s_fresh || bytes > s_freshSize) throw std::bad_alloc();
    s_freshSize -= bytes;
    auto* head = new (s_fresh) Head{size, nullptr};
    s_fresh += bytes;
    return head;
}

}  // namespace

void* operator new(std::size_t bytes) {
    const std::size_t size = bytes / kGranule + 1;
    if (size >= std::size(s_free)) throw std::bad_alloc();
    Head* head = s_free[size];
    if (head)
        s_free[size] = head->next;
    else
        head = cut(size);
    return head + 1;
}

void operator delete(void* block) noexcept {
    if (!block) return;
    Head* head = static_cast<Head*>(block) - 1;
    head->next = s_free[head->size];
    s_free[head->size] = head;
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
