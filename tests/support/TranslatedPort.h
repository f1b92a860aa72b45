// A port of a host node, as a translation is given it when the node is evaluated.
#pragma once

#include "tests/support/HostPort.h"

#include <TavrikGraph/Executor/HostContext.h>

namespace TestSupport {

struct TranslatedPort : HostPort {
    explicit TranslatedPort(const VObject& attribute) : HostPort(attribute) {}
    TranslatedPort(const TranslatedPort&) = delete;
    TranslatedPort& operator=(const TranslatedPort&) = delete;

    TavrikGraph::Executor::HostContext context{nullptr, &plug, &block};
};

}  // namespace TestSupport
