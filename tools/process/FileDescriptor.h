// A file descriptor that is closed with its owner.
#pragma once

#include <utility>

#include <unistd.h>

namespace Tolvane::Tools {

class FileDescriptor {
public:
    // -1 is none.
    explicit FileDescriptor(int number = -1) noexcept : m_number(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~FileDescriptor() { close(); }

    void close() noexcept {
        if (m_number >= 0) ::close(m_number);
        m_number = -1;
    }
    int number() const noexcept { return m_number; }

private:
    int m_number;
};

}  // namespace Tolvane::Tools
