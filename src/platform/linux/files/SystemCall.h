// What code close to the system calls shares: errno as a value, a descriptor that closes itself, signals kept from
// helper threads, and an open that takes regular files only and never blocks. Failures are error codes.
#pragma once

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

/// What the system says of one entry.
using EntryStatus = struct stat;

[[nodiscard]] inline std::error_code ErrorOf(int number) {
    return {number, std::generic_category()};
}

/// errno of the last system call of this thread.
[[nodiscard]] inline std::error_code LastError() {
    return ErrorOf(errno);
}

/// Owns one open file descriptor.
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

    /// Hands the descriptor to the caller, who closes it.
    [[nodiscard]] int Release() { return std::exchange(m_descriptor, -1); }

    /// Closes now; false with errno set when the system reports a late write error.
    bool Close() { return m_descriptor < 0 || ::close(std::exchange(m_descriptor, -1)) == 0; }

  private:
    int m_descriptor = -1;
};

/// A thread that is started while it lives handles no signals: they are for the one that runs the event loop.
class BlockedSignals final {
  public:
    BlockedSignals();
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;
    ~BlockedSignals();

  private:
    sigset_t m_before{};
};

/// The error for a file that is not regular: std::errc::is_a_directory for a folder, std::errc::invalid_argument for a
/// FIFO, socket or device.
[[nodiscard]] std::error_code NotRegular(mode_t mode);

/// Opens with the `flags` of open(2) and follows links. A file that O_CREAT makes is readable for everybody. Anything
/// but a regular file fails with NotRegular.
[[nodiscard]] std::error_code OpenRegular(const std::filesystem::path& path, int flags, FileDescriptor& file,
                                          struct stat& status);
