// The graph's text: an immutable run of 8-bit characters in sixteen bytes. Up to fifteen characters
// are kept in place; longer text lies in a counted block that copies share, so that copying a
// string never allocates. A moved-from string is empty. [any thread]
#pragma once

#include <Pelmor/Export.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Pelmor {

class PELMOR_API String {
public:
    static constexpr std::size_t kInlineCapacity = 15;

    String() noexcept { becomeEmpty(); }
    // A null pointer gives an empty string, here and in assignment.
    String(const char* text) : String(text, text ? std::strlen(text) : 0) {}
    String(const char* text, std::size_t length);
    String(const String& other) noexcept { share(other); }
    String(String&& other) noexcept { take(other); }
    ~String() {
        if (isShared()) release();
    }

    String& operator=(const String& other) noexcept {
        String copy(other);
        return *this = static_cast<String&&>(copy);
    }
    String& operator=(String&& other) noexcept {
        if (this == &other) return *this;
        if (isShared()) release();
        take(other);
        return *this;
    }
    String& operator=(const char* text) { return *this = String(text); }

    // Both NUL-terminated, and valid until the string is assigned, moved from or destroyed.
    const char* c_str() const noexcept { return isShared() ? sharedText()->characters() : m_bytes; }
    const char* asChar() const noexcept { return c_str(); }

    std::size_t size() const noexcept {
        return isShared() ? sharedText()->size
                          : kInlineCapacity - static_cast<std::size_t>(m_bytes[kInlineCapacity]);
    }
    bool empty() const noexcept { return size() == 0; }

    // Negative, zero or positive: character by character as unsigned values, then by length.
    int compare(const String& other) const noexcept {
        const std::size_t mine = size();
        const std::size_t others = other.size();
        if (const int order = std::memcmp(c_str(), other.c_str(), std::min(mine, others)))
            return order;
        return mine == others ? 0 : mine < others ? -1 : 1;
    }

    // Text that has a NUL among its characters equals no C text.
    bool operator==(const char* text) const noexcept;
    bool operator!=(const char* text) const noexcept { return !(*this == text); }
    bool operator==(const String& other) const noexcept { return compare(other) == 0; }
    bool operator!=(const String& other) const noexcept { return compare(other) != 0; }

private:
    // Followed in the same block by the characters and their terminator.
    struct SharedText {
        std::atomic<std::uint64_t> useCount;
        std::uint64_t size;

        char* characters() noexcept { return reinterpret_cast<char*>(this + 1); }
    };

    static constexpr char kSharedMark = 0x7f;

    bool isShared() const noexcept { return m_bytes[kInlineCapacity] == kSharedMark; }

    SharedText* sharedText() const noexcept {
        SharedText* text;
        std::memcpy(&text, m_bytes, sizeof(void*));
        return text;
    }

    void becomeEmpty() noexcept {
        m_bytes[0] = '\0';
        m_bytes[kInlineCapacity] = kInlineCapacity;
    }

    void share(const String& other) noexcept {
        std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        if (isShared()) sharedText()->useCount.fetch_add(1, std::memory_order_relaxed);
    }

    void take(String& other) noexcept {
        std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        other.becomeEmpty();
    }

    void release() noexcept;

    // In place: the characters and, in the last byte, how many of the fifteen are unused. If none
    // is, that 0 is the terminator. Shared: the block's address, and the mark in the last byte.
    alignas(SharedText*) char m_bytes[kInlineCapacity + 1];
};

static_assert(sizeof(String) == 16 && alignof(String) == 8);

PELMOR_API String operator+(const String& left, const char* right);

}  // namespace Pelmor
