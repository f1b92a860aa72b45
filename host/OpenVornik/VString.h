// The host's text: 8-bit characters, with the positional formatting that its messages are made
// with.
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VStatus.h>

#include <string>

class OPENVORNIK_API VString {
public:
    // Stands for the arguments of `format` that a message does not use. It is recognised by its
    // address: a copy of it is ordinary, empty text.
    static const VString argUnused;

    VString() = default;
    // A null pointer gives an empty string, here and in every operation that takes C text.
    VString(const char* text);
    VString& operator=(const char* text);

    const char* asChar() const noexcept { return m_text.c_str(); }
    unsigned length() const noexcept { return static_cast<unsigned>(m_text.size()); }

    // Replaces this string by `format` with each "^1s" to "^10s" replaced by that argument. A
    // placeholder whose argument is `argUnused` stays as it stands and makes the status
    // kInvalidParameter. Arguments may contain placeholders; they are not expanded again.
    VStatus format(const VString& format, const VString& argument1 = argUnused,
                   const VString& argument2 = argUnused, const VString& argument3 = argUnused,
                   const VString& argument4 = argUnused, const VString& argument5 = argUnused,
                   const VString& argument6 = argUnused, const VString& argument7 = argUnused,
                   const VString& argument8 = argUnused, const VString& argument9 = argUnused,
                   const VString& argument10 = argUnused);

    VString& operator+=(const VString& other);
    friend VString operator+(VString left, const VString& right) { return left += right; }

    bool operator==(const VString& other) const noexcept { return m_text == other.m_text; }
    bool operator==(const char* text) const noexcept;
    bool operator!=(const VString& other) const noexcept { return !(*this == other); }
    bool operator!=(const char* text) const noexcept { return !(*this == text); }

private:
    std::string m_text;
};
