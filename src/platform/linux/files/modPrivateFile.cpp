#include "modPrivateFile.h"

#include "SystemCall.h"
#include <fcntl.h>
#include <unistd.h>

std::error_code modPrivateFile::Read(const std::filesystem::path& path, QByteArray& bytes) {
    FileDescriptor file;
    struct stat status {};
    if (const std::error_code error = OpenRegular(path, O_RDONLY, file, status))
        return error;
    const bool isOurs = status.st_uid == ::geteuid() || status.st_uid == 0;
    if (!isOurs || (status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        return std::make_error_code(std::errc::operation_not_permitted);
    bytes.resize(LargestFile + 1);
    qsizetype size = 0;
    while (size < bytes.size()) {
        const ssize_t count = ::read(file.Get(), bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return LastError();
        if (count == 0)
            break;
        size += count;
    }
    bytes.resize(size);
    return size > LargestFile ? std::make_error_code(std::errc::file_too_large) : std::error_code();
}
