// Owns one open file descriptor and closes it. Cannot fail.
#pragma once

#include <unistd.h>
#include <utility>

class FileDescriptor final {
  public:
    explicit FileDescriptor(int fd = -1) : m_fd(fd) {}
    ~FileDescriptor() { Close(); }
    FileDescriptor(FileDescriptor&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_fd >= 0; }
    [[nodiscard]] int Get() const { return m_fd; }

    /// Closes now; false with errno set when the system reported a late write error.
    bool Close() { return m_fd < 0 || ::close(std::exchange(m_fd, -1)) == 0; }

  private:
    int m_fd;
};
