#include "SystemCall.h"

#include "modRegularFile.h"
#include <fcntl.h>
#include <pthread.h>
#include <tuple>

BlockedSignals::BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &m_before);
}

BlockedSignals::~BlockedSignals() {
    ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

std::error_code NotRegular(mode_t mode) {
    return std::make_error_code(S_ISDIR(mode) ? std::errc::is_a_directory : std::errc::invalid_argument);
}

std::error_code OpenRegular(const std::filesystem::path& path, int flags, FileDescriptor& file, struct stat& status) {
    constexpr mode_t ordinaryMode = 0644;
    // Without O_NONBLOCK the open of a FIFO waits for its other end.
    file = FileDescriptor(::open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, ordinaryMode));
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
        return LastError();
    return S_ISREG(status.st_mode) ? std::error_code() : NotRegular(status.st_mode);
}

std::error_code modRegularFile::Open(const std::filesystem::path& path, QFile& file) {
    FileDescriptor opened;
    struct stat status {};
    if (const std::error_code error = OpenRegular(path, O_RDONLY, opened, status))
        return error;
    if (!file.open(opened.Get(), QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return ErrorOf(EIO);
    std::ignore = opened.Release(); // the QFile owns it now
    return {};
}
