#include "TemporaryFiles.h"
#include "LinuxFolder.h"
#include "SystemCall.h"
#include "SystemFiles.h"

#include <array>
#include <charconv>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>

namespace {

constexpr std::uint32_t ownerMayWrite = 0600;
constexpr int nameAttempts = 8;

/// From /proc, because umask() can only be read by setting it, for all threads.
std::uint32_t creationMask() {
    const FileDescriptor file(::open("/proc/self/status", O_RDONLY | O_CLOEXEC));
    std::array<char, 4096> buffer{};
    const ssize_t length = file.IsOpen() ? ::read(file.Get(), buffer.data(), buffer.size()) : 0;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(length > 0 ? length : 0));
    constexpr std::string_view key = "\nUmask:\t";
    const std::size_t at = text.find(key);
    std::uint32_t mask = 0777;
    if (at != std::string_view::npos)
        std::from_chars(text.data() + at + key.size(), text.data() + text.size(), mask, 8);
    return mask;
}

/// The errors that O_TMPFILE gives where it is not supported; all others are real.
bool meansUnsupported(const std::error_code& error) {
    return error == ErrorOf(EOPNOTSUPP) || error == ErrorOf(EISDIR) || error == ErrorOf(EINVAL) ||
           error == ErrorOf(ENOENT) || error == ErrorOf(ENOSYS);
}

bool meansNoRoom(const std::error_code& error) {
    return error == ErrorOf(ENOSPC) || error == ErrorOf(EDQUOT) || error == ErrorOf(EIO) || error == ErrorOf(EROFS);
}

FileDescriptor openUnnamed(const Folder& folder, std::uint32_t mode) {
    return FileDescriptor(::openat(DescriptorOf(folder), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
}

} // namespace

TemporaryFiles::TemporaryFiles() : m_process(ProcessMark::OfThisProcess()), m_creationMask(creationMask()) {}

std::error_code TemporaryFiles::Create(const std::shared_ptr<Folder>& folder, std::uint32_t mode, TemporaryFile& file) {
    bool isUnnamed = false;
    if (const std::error_code error = supportsUnnamed(*folder, isUnnamed))
        return error;
    if (!isUnnamed)
        return createNamed(folder, file);
    const bool hasFinalMode = mayCreateWith(mode, *folder);
    FileDescriptor descriptor = openUnnamed(*folder, hasFinalMode ? mode : ownerMayWrite);
    if (!descriptor.IsOpen())
        return LastError();
    file = TemporaryFile(folder, std::move(descriptor), {}, hasFinalMode);
    return {};
}

bool TemporaryFiles::mayCreateWith(std::uint32_t mode, const Folder& folder) const {
    const bool isPlain = (mode & ~0777U) == 0 && (mode & ownerMayWrite) == ownerMayWrite;
    return isPlain && (mode & m_creationMask) == 0 && !folder.PassesOnRights();
}

/// Tries it once for each file system, including the link: a file that can never be named is of no use.
std::error_code TemporaryFiles::supportsUnnamed(const Folder& folder, bool& supported) {
    const auto known = m_unnamed.find(folder.Id().device);
    if (known != m_unnamed.end()) {
        supported = known->second;
        return {};
    }
    supported = false;
    const FileDescriptor probe = openUnnamed(folder, ownerMayWrite);
    if (!probe.IsOpen()) {
        const std::error_code error = LastError();
        if (!meansUnsupported(error))
            return error;
    } else {
        const std::string name = MakeTemporaryName(m_process);
        const std::error_code error = link(probe.Get(), folder, name.c_str());
        if (!error)
            ::unlinkat(DescriptorOf(folder), name.c_str(), 0);
        else if (meansNoRoom(error))
            return error;
        supported = !error;
    }
    m_unnamed.emplace(folder.Id().device, supported);
    return {};
}

std::error_code TemporaryFiles::createNamed(const std::shared_ptr<Folder>& folder, TemporaryFile& file) const {
    for (int attempt = 0; attempt < nameAttempts; ++attempt) {
        std::string name = MakeTemporaryName(m_process);
        FileDescriptor descriptor(::openat(DescriptorOf(*folder), name.c_str(),
                                           O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, ownerMayWrite));
        if (descriptor.IsOpen()) {
            file = TemporaryFile(folder, std::move(descriptor), std::move(name), false);
            return {};
        }
        if (errno != EEXIST)
            break;
    }
    return LastError();
}

std::error_code TemporaryFiles::link(int file, const Folder& folder, const char* name) {
    if (m_linksByDescriptor) {
        if (::linkat(file, "", DescriptorOf(folder), name, AT_EMPTY_PATH) == 0)
            return {};
        if (errno != ENOENT && errno != EINVAL)
            return LastError();
        m_linksByDescriptor = false; // needs a privilege or a newer kernel
    }
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    return ::linkat(AT_FDCWD, path.c_str(), DescriptorOf(folder), name, AT_SYMLINK_FOLLOW) == 0 ? std::error_code()
                                                                                                : LastError();
}

std::error_code TemporaryFiles::PlaceAtFreeName(TemporaryFile& file, const std::filesystem::path& name) {
    const Folder& folder = *file.Parent();
    const std::error_code error = file.Name().empty()
                                      ? link(file.Descriptor(), folder, name.c_str())
                                      : SystemFiles::RenameToFreeName(folder, file.Name(), folder, name);
    if (!error)
        file.SetPlaced();
    return error;
}

std::error_code TemporaryFiles::Replace(TemporaryFile& file, const std::filesystem::path& name) {
    const Folder& folder = *file.Parent();
    const bool isNamed = !file.Name().empty();
    // linkat cannot replace a file, so one without a name needs a temporary name first.
    const std::string oldName = isNamed ? file.Name() : MakeTemporaryName(m_process);
    if (!isNamed) {
        if (const std::error_code error = link(file.Descriptor(), folder, oldName.c_str()))
            return error;
    }
    if (::renameat(DescriptorOf(folder), oldName.c_str(), DescriptorOf(folder), name.c_str()) != 0) {
        const std::error_code error = LastError();
        ::unlinkat(DescriptorOf(folder), oldName.c_str(), 0);
        return error;
    }
    file.SetPlaced();
    return {};
}
