// The text of the std::runtime_error that something throws.
#pragma once

#include <stdexcept>
#include <string>

namespace TestSupport {

// "nothing thrown" where it throws nothing; any other exception passes.
template <typename Action>
std::string errorMessageOf(Action action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

}  // namespace TestSupport
