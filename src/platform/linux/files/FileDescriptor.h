// Owns one open file descriptor and closes it with its end.
#pragma once

#include <unistd.h>
#include <utility>

class FileDescriptor final {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            Close();
            m_descriptor = std::exchange(other.m_descriptor, -1);
        }
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { Close(); }

    [[nodiscard]] bool IsOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int Get() const { return m_descriptor; }

    /// From here on the caller closes it.
    [[nodiscard]] int Release() { return std::exchange(m_descriptor, -1); }

    /// Closes now; false with errno set when the system reported a late write error.
    bool Close() { return m_descriptor < 0 || ::close(std::exchange(m_descriptor, -1)) == 0; }

  private:
    int m_descriptor = -1;
};
