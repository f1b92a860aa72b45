#include "tools/process/Capture.h"

#include "tools/support/Error.h"

#include <algorithm>
#include <cstdio>

#include <fcntl.h>
#include <sys/mman.h>

namespace Tolvane::Tools {
namespace {

// As much is ever looked at. The file begins with this size, so that reading it in memory finds
// zeros where nothing has been printed.
constexpr std::size_t kSeen = std::size_t{64} * 1024;

}  // namespace

Capture::Capture() : m_file(memfd_create("prints", MFD_CLOEXEC)) {
    void* memory = MAP_FAILED;
    if (m_file.number() >= 0 && ftruncate(m_file.number(), kSeen) == 0)
        memory = mmap(nullptr, kSeen, PROT_READ, MAP_SHARED, m_file.number(), 0);
    if (memory == MAP_FAILED) throw Error("no memory is left for what another process prints");
    m_text = static_cast<const char*>(memory);
}

Capture::~Capture() { munmap(const_cast<char*>(m_text), kSeen); }

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
    std::string text;
    for (std::size_t i = start; i < std::min(size(), kSeen); ++i) text += m_text[i];
    return text;
}

bool Capture::looksWrittenAt(std::size_t start) const noexcept {
    return start < kSeen ? m_text[start] != '\0' : size() > start;
}

}  // namespace Tolvane::Tools
