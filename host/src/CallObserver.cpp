#include "host/src/Observe.h"

#include <OpenVornik/Testing/CallObserver.h>

namespace OpenVornik {

namespace Internal {

namespace {

// While an observer is being told, its own calls are not.
thread_local bool isTelling = false;

struct Telling {
    Telling() { isTelling = true; }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;
    ~Telling() { isTelling = false; }
};

}  // namespace

VStatus::Code tellNewestObserver(const Testing::Call& call) {
    if (isTelling) return VStatus::kSuccess;
    const Telling telling;
    return newestObserver->called(call);
}

}  // namespace Internal

namespace Testing {

CallObserver::CallObserver() : m_previous(Internal::newestObserver) {
    Internal::newestObserver = this;
}

CallObserver::~CallObserver() {
    CallObserver** link = &Internal::newestObserver;
    while (*link && *link != this) link = &(*link)->m_previous;
    if (*link) *link = m_previous;
}

}  // namespace Testing

}  // namespace OpenVornik
