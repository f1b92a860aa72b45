#include "tools/process/Capture.h"

#include "tools/support/Error.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kLongestText = std::size_t{64} * 1024;

}  // namespace

Capture::Capture() : m_file(memfd_create("prints", MFD_CLOEXEC)) {
    if (m_file.number() < 0)
        throw Error(std::string("what another process prints cannot be kept: ") +
                    std::strerror(errno));
}

void Capture::takeOver() const noexcept {
    const FileDescriptor nothing(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    dup2(nothing.number(), STDIN_FILENO);
    dup2(m_file.number(), STDOUT_FILENO);
    dup2(m_file.number(), STDERR_FILENO);
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    std::setvbuf(stderr, nullptr, _IONBF, 0);
}

// Both processes share the place in the file at which printing goes on.
std::size_t Capture::size() const noexcept {
    const off_t size = lseek(m_file.number(), 0, SEEK_CUR);
    return size > 0 ? static_cast<std::size_t>(size) : 0;
}

std::string Capture::textFrom(std::size_t start) const {
    const std::size_t end = size();
    std::string text(std::min(end - std::min(start, end), kLongestText), '\0');
    const ssize_t count =
        pread(m_file.number(), text.data(), text.size(), static_cast<off_t>(start));
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return text;
}

}  // namespace Tolvane::Tools
