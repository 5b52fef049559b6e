#include "SystemError.h"
#include "modRegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

std::error_code modRegularFile::Open(const std::filesystem::path& path, QFile& file) {
    // O_NONBLOCK keeps the open of a FIFO from waiting for its other end.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        return LastError();
    std::error_code error;
    struct stat status {};
    if (::fstat(descriptor, &status) != 0)
        error = LastError();
    else if (!S_ISREG(status.st_mode))
        error = std::make_error_code(S_ISDIR(status.st_mode) ? std::errc::is_a_directory : std::errc::invalid_argument);
    else if (file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return {};
    else
        error = ErrorOf(EIO);
    ::close(descriptor);
    return error;
}
