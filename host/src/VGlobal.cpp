#include "host/src/Observe.h"

#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VGlobal.h>

#include <algorithm>
#include <cstdio>
#include <mutex>
#include <utility>
#include <vector>

using namespace OpenVornik::Internal;

namespace {

struct Listeners {
    std::mutex mutex;
    std::vector<const VErrorListener*> list;
};

Listeners& listeners() {
    static Listeners all;
    return all;
}

}  // namespace

void VGlobal::displayError(const VString& message) {
    if (refusal("VGlobal::displayError", Nothing(), message).error()) return;
    const std::lock_guard lock(listeners().mutex);
    if (listeners().list.empty()) std::fprintf(stderr, "%s\n", message.asChar());
    for (const VErrorListener* listener : listeners().list) listener->m_receive(message);
}

VErrorListener::VErrorListener(Receive receive) : m_receive(std::move(receive)) {
    const std::lock_guard lock(listeners().mutex);
    listeners().list.push_back(this);
}

VErrorListener::~VErrorListener() {
    const std::lock_guard lock(listeners().mutex);
    auto& list = listeners().list;
    list.erase(std::remove(list.begin(), list.end(), this), list.end());
}
