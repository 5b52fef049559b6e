#include "JournalFile.h"
#include "LinuxFolder.h"

#include <fcntl.h>
#include <string>

std::error_code JournalFile::Create(const Folder& folder, const std::filesystem::path& name) {
    constexpr mode_t ownerOnly = 0600;
    m_file = FileDescriptor(::openat(DescriptorOf(folder), name.c_str(),
                                     O_WRONLY | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, ownerOnly));
    return m_file.IsOpen() ? std::error_code() : LastError();
}

std::error_code JournalFile::Write(std::string_view text) {
    std::string bytes(m_isTorn ? 1U : 0U, '\n');
    bytes += text;
    m_isTorn = true;
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t count = ::write(m_file.Get(), bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count < 0 ? LastError() : ErrorOf(EIO);
        done += static_cast<std::size_t>(count);
    }
    m_isTorn = false;
    return {};
}

std::error_code JournalFile::Sync() const {
    return ::fdatasync(m_file.Get()) == 0 || errno == EINVAL ? std::error_code() : LastError();
}
