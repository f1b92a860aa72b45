// Receives the errors that the host displays, from any thread, for as long as it lives. While there
// is no listener in the process they go to standard error.
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VString.h>

#include <functional>

class OPENVORNIK_API VErrorListener {
public:
    using Receive = std::function<void(const VString& message)>;

    // `receive` is called by one thread at a time. It may not make or destroy a listener, nor
    // display an error.
    explicit VErrorListener(Receive receive);
    VErrorListener(const VErrorListener&) = delete;
    VErrorListener& operator=(const VErrorListener&) = delete;
    ~VErrorListener();

private:
    friend class VGlobal;

    Receive m_receive;
};
