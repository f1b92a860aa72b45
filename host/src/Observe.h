// Each operation of the interface first tells the thread's observer, if there is one, which may
// refuse the call. The host's own code calls no operation of the interface, so that observers are
// told of calls from outside alone.
#pragma once

#include "host/src/CallText.h"

#include <OpenVornik/VStatus.h>

#include <string_view>

#ifdef OPENVORNIK_OBSERVATION
#include <OpenVornik/Testing/CallObserver.h>

#include <type_traits>
#endif

namespace OpenVornik::Internal {

#ifdef OPENVORNIK_OBSERVATION

// With the initial-exec model, reading it takes one load instead of a call.
[[gnu::tls_model("initial-exec")]] inline thread_local Testing::CallObserver* newestObserver =
    nullptr;

VStatus::Code tellNewestObserver(const Testing::Call& call);

template <typename Argument>
void addTo(Testing::Call& call, const char*& separator, const Argument& argument) {
    if constexpr (std::is_same_v<Argument, unsigned>) {
        call.index = argument;
    } else {
        call.argument += separator + textOf(argument);
        separator = ", ";
    }
}

template <typename Subject, typename... Arguments>
[[gnu::cold, gnu::noinline]] VStatus::Code tell(bool statusRequested, std::string_view operation,
                                                const Subject& subject,
                                                const Arguments&... arguments) {
    Testing::Call call;
    call.operation = operation;
    call.subject = textOf(subject);
    call.statusRequested = statusRequested;
    [[maybe_unused]] const char* separator = "";
    (addTo(call, separator, arguments), ...);
    return tellNewestObserver(call);
}

// For an operation whose result is its status, or that has none.
template <typename Subject, typename... Arguments>
VStatus refusal(std::string_view operation, const Subject& subject, const Arguments&... arguments) {
    if (!newestObserver) return VStatus::kSuccess;
    return tell(false, operation, subject, arguments...);
}

// For an operation that fills a status: true if the call may not take place. An unsigned argument
// is the call's index, any other is told as text.
template <typename Subject, typename... Arguments>
bool refused(VStatus* status, std::string_view operation, const Subject& subject,
             const Arguments&... arguments) {
    if (!newestObserver) return false;
    const VStatus answer = tell(status != nullptr, operation, subject, arguments...);
    if (answer.error() && status) *status = answer;
    return answer.error();
}

#else

template <typename... Arguments>
VStatus refusal(std::string_view, const Arguments&...) {
    return VStatus::kSuccess;
}

template <typename... Arguments>
bool refused(VStatus*, std::string_view, const Arguments&...) {
    return false;
}

#endif

}  // namespace OpenVornik::Internal
