// How an operation answers its caller: a value and a success, or a failure with the value that
// stands for none.
#pragma once

#include <OpenVornik/VStatus.h>

#include <utility>

namespace OpenVornik::Internal {

struct NoValue {
    template <typename T>
    operator T() const {
        return T();
    }
};

inline NoValue fail(VStatus* status, VStatus::Code code) noexcept {
    if (status) *status = code;
    return {};
}

inline void succeed(VStatus* status) noexcept {
    if (status) *status = VStatus::kSuccess;
}

template <typename T>
T succeed(VStatus* status, T value) {
    if (status) *status = VStatus::kSuccess;
    return value;
}

}  // namespace OpenVornik::Internal
