#include <Pelmor/String.h>

#include <algorithm>
#include <new>
#include <string>
#include <string_view>

namespace Pelmor {

String::String(const char* text, std::size_t length) {
    if (length <= kInlineCapacity) {
        becomeEmpty();
        std::copy_n(text, length, m_bytes);
        if (length < kInlineCapacity) m_bytes[length] = '\0';
        m_bytes[kInlineCapacity] = static_cast<char>(kInlineCapacity - length);
        return;
    }
    void* block = ::operator new(sizeof(SharedText) + length + 1);
    auto* shared = new (block) SharedText{{1}, length};
    std::copy_n(text, length, shared->characters());
    shared->characters()[length] = '\0';
    std::memcpy(m_bytes, &shared, sizeof(void*));
    m_bytes[kInlineCapacity] = kSharedMark;
}

bool String::operator==(const char* text) const noexcept {
    return std::string_view(c_str(), size()) == (text ? text : "");
}

void String::release() noexcept {
    SharedText* text = sharedText();
    if (text->useCount.fetch_sub(1, std::memory_order_acq_rel) == 1) ::operator delete(text);
}

String operator+(const String& left, const char* right) {
    std::string joined(left.c_str(), left.size());
    joined += right ? right : "";
    return String(joined.data(), joined.size());
}

}  // namespace Pelmor
