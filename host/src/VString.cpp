#include "host/src/Observe.h"

#include <OpenVornik/VString.h>

#include <utility>

using namespace OpenVornik::Internal;

const VString VString::argUnused;

namespace {

const char* orEmpty(const char* text) noexcept { return text ? text : ""; }

// The number in the placeholder "^1s" to "^10s" that stands at `at`, else 0.
unsigned placeholderNumber(const std::string& text, std::size_t at) noexcept {
    if (text.compare(at, 4, "^10s") == 0) return 10;
    const bool isPlaceholder = at + 2 < text.size() && text[at] == '^' && text[at + 2] == 's' &&
                               text[at + 1] >= '1' && text[at + 1] <= '9';
    return isPlaceholder ? static_cast<unsigned>(text[at + 1] - '0') : 0;
}

}  // namespace

VString::VString(const char* text) : m_text(orEmpty(text)) {}

VString& VString::operator=(const char* text) {
    m_text = orEmpty(text);
    return *this;
}

VStatus VString::format(const VString& format, const VString& argument1, const VString& argument2,
                        const VString& argument3, const VString& argument4,
                        const VString& argument5, const VString& argument6,
                        const VString& argument7, const VString& argument8,
                        const VString& argument9, const VString& argument10) {
    const FormatArguments arguments{&argument1, &argument2, &argument3, &argument4, &argument5,
                                    &argument6, &argument7, &argument8, &argument9, &argument10};
    if (const VStatus answer = refusal("VString::format", Nothing(), format, arguments);
        answer.error()) {
        return answer;
    }
    // Built apart, because the format or an argument may be this string.
    std::string text;
    VStatus status;
    const std::string& pattern = format.m_text;
    for (std::size_t at = 0; at < pattern.size();) {
        const unsigned number = placeholderNumber(pattern, at);
        if (number == 0 || arguments[number - 1] == &argUnused) {
            if (number > 0) status = VStatus::kInvalidParameter;
            text += pattern[at++];
            continue;
        }
        text += arguments[number - 1]->m_text;
        at += number < 10 ? 3 : 4;
    }
    m_text = std::move(text);
    return status;
}

VString& VString::operator+=(const VString& other) {
    m_text += other.m_text;
    return *this;
}

bool VString::operator==(const char* text) const noexcept { return m_text == orEmpty(text); }
