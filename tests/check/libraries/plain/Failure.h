// What the library does when the host fails: it gives up what it is at, and tells the user.
#pragma once

#include <OpenVornik/VStatus.h>

#include <stdexcept>
#include <string>

namespace Plain {

struct Failure : std::runtime_error {
    using runtime_error::runtime_error;
};

// `what` failed, if anything did.
inline void require(const VStatus& status, const char* what) {
    if (status.error()) throw Failure(std::string(what) + " failed");
}

}  // namespace Plain
