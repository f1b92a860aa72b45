// Collects the errors that the host shows while it lives, instead of standard error.
#pragma once

#include <OpenVornik/VErrorListener.h>

#include <string>
#include <vector>

namespace TestSupport {

class ShownErrors {
public:
    using Messages = std::vector<std::string>;

    const Messages& messages() const noexcept { return m_messages; }

private:
    Messages m_messages;
    VErrorListener m_listener{
        [this](const VString& message) { m_messages.push_back(message.asChar()); }};
};

}  // namespace TestSupport
