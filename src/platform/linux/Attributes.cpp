#include "Attributes.h"
#include "SystemError.h"

#include <array>
#include <string_view>
#include <sys/xattr.h>
#include <vector>

namespace {

constexpr std::size_t kLargestValue = std::size_t{64} * 1024; // of the kernel, for a value as for the list of names

/// Bound to the machine's policy, to the inode itself or to another mount: wrong on any copy.
bool staysBehind(std::string_view name) {
    constexpr std::array<std::string_view, 3> exact = {"security.selinux", "security.ima", "security.evm"};
    for (const std::string_view one : exact) {
        if (name == one)
            return true;
    }
    return name.starts_with("trusted.overlay.");
}

void copyOneExtended(int source, int copy, const char* name) {
    std::array<char, 4096> small{};
    std::vector<char> large;
    char* value = small.data();
    ssize_t length = ::fgetxattr(source, name, value, small.size());
    if (length < 0 && errno == ERANGE) {
        large.resize(kLargestValue);
        value = large.data();
        length = ::fgetxattr(source, name, value, large.size());
    }
    if (length >= 0)
        static_cast<void>(::fsetxattr(copy, name, value, static_cast<std::size_t>(length), 0));
}

void copyExtended(int source, int copy) {
    std::array<char, 1024> small{};
    std::vector<char> large;
    const char* names = small.data();
    ssize_t length = ::flistxattr(source, small.data(), small.size());
    if (length < 0 && errno == ERANGE) {
        large.resize(kLargestValue);
        names = large.data();
        length = ::flistxattr(source, large.data(), large.size());
    }
    for (ssize_t at = 0; at < length;) {
        const std::string_view name(names + at);
        at += static_cast<ssize_t>(name.size()) + 1;
        if (!staysBehind(name))
            copyOneExtended(source, copy, name.data());
    }
}

/// Errors of file systems that keep no owners, bits or times of ours; the copy is whole all the same.
bool isTolerable(int error) {
    return error == EPERM || error == EACCES || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

std::error_code copyMode(const struct stat& status, int copy) {
    mode_t mode = status.st_mode & 07777U;
    if ((mode & 07000U) != 0) {
        struct stat own {};
        if (::fstat(copy, &own) != 0)
            return LastError();
        if (own.st_uid != status.st_uid)
            mode &= 0777U;
        if (own.st_gid != status.st_gid)
            mode &= ~mode_t{S_ISGID};
    }
    return ::fchmod(copy, mode) == 0 || isTolerable(errno) ? std::error_code() : LastError();
}

} // namespace

std::error_code CopyAttributes(int source, const struct stat& status, int copy, bool hasMode) {
    copyExtended(source, copy); // first: the final mode may forbid it, and some attributes change with the mode
    if (!hasMode) {
        if (const std::error_code error = copyMode(status, copy))
            return error;
    }
    const std::array<struct timespec, 2> times = {status.st_atim, status.st_mtim};
    return ::futimens(copy, times.data()) == 0 || isTolerable(errno) ? std::error_code() : LastError();
}
