#include "tests/check/libraries/plain/Fault.h"

#include <atomic>
#include <cfenv>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Plain {
namespace {

// It sleeps in the C library from its first moment, so that this library can be unloaded below it.
void leaveThread() {
    const auto anyFunction = reinterpret_cast<void (*)()>(&pause);
    pthread_t thread;
    pthread_create(&thread, nullptr, reinterpret_cast<void* (*)(void*)>(anyFunction), nullptr);
}

constexpr const char* kMark = "PLAIN_IS_LOADED";
bool isMarkedByThisCopy = false;

int openFile = -1;
int sockets[2] = {-1, -1};

struct Loading {
    Loading() {
        if (fault("loading/again-and-again: memory")) leak(4096);
        if (fault("loading/again-and-again: file")) open("/dev/null", O_RDONLY);
        if (fault("loading/again-and-again: thread")) leaveThread();
        if (fault("loading/silent")) std::puts("Plain is loaded");
        if (fault("hygiene/files: read")) openFile = open("/dev/zero", O_RDONLY);
        if (fault("hygiene/sockets: write"))
            socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, sockets);
        if (fault("loading/quickly")) std::this_thread::sleep_for(std::chrono::milliseconds(130));
    }
    ~Loading() {
        if (isMarkedByThisCopy) unsetenv(kMark);
        if (fault("loading/silent: unloading")) std::puts("Plain is unloaded");
        if (openFile >= 0) close(openFile);
        for (const int each : sockets)
            if (each >= 0) close(each);
    }
} loading;

}  // namespace

bool fault(std::string_view name) {
    static const char* const asked = std::getenv("TOLVANE_TEST_FAULT");
    static const std::string_view chosen = asked ? asked : "";
    return name == chosen;
}

void meddle() {
    static std::atomic<bool> isUsed{false};
    if (!isUsed.exchange(true) && fault("loading/again-and-again: use")) leak(4096);
    if (fault("thrift/memory")) leak(64);
    if (fault("hygiene/environment")) setenv("PLAIN_WAS_HERE", "1", 1);
    if (fault("hygiene/files")) close(open("/dev/null", O_RDONLY));
    char byte = 0;
    if (fault("hygiene/files: look")) (void)!access("/dev/null", R_OK);
    if (fault("hygiene/files: read")) (void)!::read(openFile, &byte, 1);
    if (fault("hygiene/sockets: write")) (void)!::write(sockets[0], &byte, 1);
    if (fault("hygiene/sockets")) close(socket(AF_UNIX, SOCK_STREAM, 0));
    if (fault("hygiene/processes")) std::thread([] {}).join();
    // One that came with this process, and so is not where it was started.
    if (fault("hygiene/folder")) (void)!chdir("/proc/self");
    if (fault("hygiene/locale")) std::setlocale(LC_ALL, "C.UTF-8");
    if (fault("hygiene/signals")) std::signal(SIGINT, SIG_IGN);
    if (fault("hygiene/floating-point")) std::fesetround(FE_UPWARD);
}

bool isOnlyCopy() {
    if (!std::getenv(kMark)) isMarkedByThisCopy = setenv(kMark, "1", 1) == 0;
    return isMarkedByThisCopy;
}

void leak(std::size_t bytes) {
    // Or else the compiler would leave out what nobody uses.
    static void* volatile last = nullptr;
    last = std::malloc(bytes);
    static_cast<void>(last);
}

void dawdle() { std::this_thread::sleep_for(std::chrono::microseconds(200)); }

}  // namespace Plain
