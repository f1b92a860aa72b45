// A filter that lets calls fail, or raises a signal for them, would change what the library does:
// one that cannot start its thread may well end the process, and the case could not say why. This
// one asks a thread that was there before it, and so is not subject to it. It cannot be removed
// again, so that thread stays until the process ends.

#include "tools/check/SystemCalls.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <thread>
#include <utility>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Tolvane::Tools {
namespace {

// What the two threads share. The one that notes takes no memory and no lock, which the other may
// hold while it waits.
struct Notes {
    std::vector<SystemCall> calls;
    std::atomic<int> listener{-1};
    std::atomic<bool> areWanted{false};
    std::atomic<bool> areThere{false};
    const SystemCall* call = nullptr;
    std::array<char, 256> path{};
};

// A process that the library has started is watched as well, but what it has in memory is its own.
bool isOfThisProcess(const seccomp_notif& held) noexcept {
    return syscall(SYS_tgkill, getpid(), held.pid, 0) == 0;
}

// What is printed goes to an open file too, and is not meant here.
bool isOn(SystemCall::On on, const seccomp_notif& held) noexcept {
    if (on == SystemCall::On::Anything) return true;
    const int file = static_cast<int>(held.data.args[0]);
    struct stat status {};
    if (file <= STDERR_FILENO || fstat(file, &status) != 0) return false;
    if (on == SystemCall::On::Socket) return S_ISSOCK(status.st_mode);
    return S_ISREG(status.st_mode) || S_ISDIR(status.st_mode) || S_ISCHR(status.st_mode) ||
           S_ISBLK(status.st_mode);
}

// The caller waits, so what it passes is there, in the memory that both have.
void note(Notes& notes, const seccomp_notif& held) noexcept {
    if (!notes.areWanted || notes.areThere || !isOfThisProcess(held)) return;
    for (const SystemCall& call : notes.calls) {
        if (call.number != held.data.nr || !isOn(call.on, held)) continue;
        notes.call = &call;
        const std::uint64_t address = call.path < 0 ? 0 : held.data.args[call.path];
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel tells addresses as numbers.
        const auto* path = reinterpret_cast<const char*>(address);
        if (path) std::strncpy(notes.path.data(), path, notes.path.size() - 1);
        notes.areThere = true;
    }
}

void listen(Notes& notes) noexcept {
    while (notes.listener < 0) std::this_thread::yield();
    for (;;) {
        seccomp_notif held{};
        if (ioctl(notes.listener, SECCOMP_IOCTL_NOTIF_RECV, &held) != 0) {
            if (errno == EINTR || errno == ENOENT) continue;
            return;
        }
        note(notes, held);
        seccomp_notif_resp answer{};
        answer.id = held.id;
        answer.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
        ioctl(notes.listener, SECCOMP_IOCTL_NOTIF_SEND, &answer);
    }
}

std::vector<sock_filter> filterFor(const std::vector<SystemCall>& calls) {
    std::vector<sock_filter> filter{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const SystemCall& call : calls) {
        filter.push_back(
            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call.number), 0, 1));
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    return filter;
}

// Those by which open files and sockets alike are read and written.
std::vector<SystemCall> withTransfers(SystemCall::On on, std::vector<SystemCall> calls) {
    calls.push_back({"read", SYS_read, -1, on});
    calls.push_back({"write", SYS_write, -1, on});
    calls.push_back({"readv", SYS_readv, -1, on});
    calls.push_back({"writev", SYS_writev, -1, on});
    return calls;
}

Notes& notes() {
    static auto& all = *new Notes;
    return all;
}

}  // namespace

SystemCallWatch::SystemCallWatch(const std::vector<SystemCall>& calls) {
    Notes& shared = notes();
    shared.calls = calls;
    std::vector<sock_filter> filter = filterFor(calls);
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    std::thread([&shared] { listen(shared); }).detach();
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const long listener =
        syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program);
    const int error = errno;
    // Without it, the thread gets a number that is no file's, and ends.
    shared.listener = listener < 0 ? std::numeric_limits<int>::max() : static_cast<int>(listener);
    if (listener < 0)
        throw Error(std::string("the kernel does not let system calls be watched: ") +
                    std::strerror(error));
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): without a watch it notes nothing.
std::optional<std::string> SystemCallWatch::firstCallOf(const std::function<void()>& work) {
    Notes& shared = notes();
    shared.areThere = false;
    shared.path = {};
    shared.areWanted = true;
    work();
    shared.areWanted = false;
    if (!shared.areThere) return std::nullopt;
    std::string text = shared.call->name;
    if (shared.call->path >= 0) text += " " + inQuotes(oneLine(shared.path.data()));
    return text;
}

std::vector<SystemCall> callsForFiles() {
    std::vector<SystemCall> calls{
#ifdef SYS_open
        {"open", SYS_open, 0},
        {"creat", SYS_creat, 0},
        {"unlink", SYS_unlink, 0},
        {"rename", SYS_rename, 0},
        {"mkdir", SYS_mkdir, 0},
        {"rmdir", SYS_rmdir, 0},
        {"link", SYS_link, 1},
        {"symlink", SYS_symlink, 1},
        {"mknod", SYS_mknod, 0},
        {"stat", SYS_stat, 0},
        {"lstat", SYS_lstat, 0},
        {"access", SYS_access, 0},
        {"readlink", SYS_readlink, 0},
        {"chmod", SYS_chmod, 0},
        {"chown", SYS_chown, 0},
        {"utime", SYS_utime, 0},
        {"utimes", SYS_utimes, 0},
#endif
#ifdef SYS_newfstatat
        {"newfstatat", SYS_newfstatat, 1},
#endif
#ifdef SYS_renameat
        {"renameat", SYS_renameat, 1},
#endif
#ifdef SYS_openat2
        {"openat2", SYS_openat2, 1},
#endif
#ifdef SYS_faccessat2
        {"faccessat2", SYS_faccessat2, 1},
#endif
        {"openat", SYS_openat, 1},
        {"unlinkat", SYS_unlinkat, 1},
        {"renameat2", SYS_renameat2, 1},
        {"mkdirat", SYS_mkdirat, 1},
        {"linkat", SYS_linkat, 3},
        {"symlinkat", SYS_symlinkat, 2},
        {"mknodat", SYS_mknodat, 1},
        {"truncate", SYS_truncate, 0},
        {"statx", SYS_statx, 1},
        {"faccessat", SYS_faccessat, 1},
        {"readlinkat", SYS_readlinkat, 1},
        {"fchmodat", SYS_fchmodat, 1},
        {"fchownat", SYS_fchownat, 1},
        {"utimensat", SYS_utimensat, 1},
    };
    for (const SystemCall& call : {SystemCall{"fstat", SYS_fstat},
                                   {"fchmod", SYS_fchmod},
                                   {"ftruncate", SYS_ftruncate},
                                   {"fsync", SYS_fsync},
                                   {"fdatasync", SYS_fdatasync},
                                   {"lseek", SYS_lseek},
                                   {"getdents64", SYS_getdents64},
                                   {"pread64", SYS_pread64},
                                   {"pwrite64", SYS_pwrite64},
                                   {"sendfile", SYS_sendfile},
                                   {"copy_file_range", SYS_copy_file_range}})
        calls.push_back({call.name, call.number, -1, SystemCall::On::File});
    return withTransfers(SystemCall::On::File, std::move(calls));
}

std::vector<SystemCall> callsForSockets() {
    return withTransfers(SystemCall::On::Socket, {
#ifdef SYS_pipe
                                                     {"pipe", SYS_pipe},
#endif
                                                     {"pipe2", SYS_pipe2},
                                                     {"socket", SYS_socket},
                                                     {"socketpair", SYS_socketpair},
                                                     {"connect", SYS_connect},
                                                     {"bind", SYS_bind},
                                                     {"listen", SYS_listen},
                                                     {"accept4", SYS_accept4},
                                                     {"sendto", SYS_sendto},
                                                     {"sendmsg", SYS_sendmsg},
                                                     {"recvfrom", SYS_recvfrom},
                                                     {"recvmsg", SYS_recvmsg},
                                                 });
}

std::vector<SystemCall> callsForProcesses() {
    return {
#ifdef SYS_fork
        {"fork", SYS_fork},     {"vfork", SYS_vfork},
#endif
#ifdef SYS_clone3
        {"clone3", SYS_clone3},
#endif
        {"clone", SYS_clone},   {"execve", SYS_execve, 0}, {"execveat", SYS_execveat, 1},
    };
}

}  // namespace Tolvane::Tools
