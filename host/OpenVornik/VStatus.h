// The outcome of a host call. Most calls take a pointer to one and fill it if it is not null.
#pragma once

#include <OpenVornik/Export.h>

class OPENVORNIK_API VStatus {
public:
    enum Code {
        kSuccess,
        kFailure,           // The call could not be carried out.
        kInvalidParameter,  // An argument is null, of the wrong kind or out of range.
        kNotFound           // What was asked for is not there.
    };

    VStatus(Code code = kSuccess) noexcept : m_code(code) {}

    Code statusCode() const noexcept { return m_code; }
    bool error() const noexcept { return m_code != kSuccess; }
    explicit operator bool() const noexcept { return m_code == kSuccess; }

    friend bool operator==(const VStatus& a, const VStatus& b) noexcept {
        return a.m_code == b.m_code;
    }
    friend bool operator!=(const VStatus& a, const VStatus& b) noexcept {
        return a.m_code != b.m_code;
    }

private:
    Code m_code;
};
