#include "Attributes.h"
#include "AccessList.h"
#include "SystemError.h"

#include <array>
#include <optional>
#include <string_view>
#include <sys/xattr.h>
#include <vector>

namespace {

constexpr std::size_t kLargestValue = std::size_t{64} * 1024; // of the kernel, for a value as for the list of names

/// The copy as it was made.
struct Made {
    int file = -1;
    uid_t user = 0;
    gid_t group = 0;
    bool hasMode = false;       ///< the bits of the source
    bool mayInherit = true;     ///< an access list of its folder
    bool isReplacement = false; ///< of the source itself
};

/// Which access lists the source has.
struct AccessLists {
    bool own = false;
    bool byDefault = false;
};

/// Bound to the machine's policy, to the content, to the inode itself or to another mount: wrong on any copy. The label
/// alone is right on what takes the place of its source.
bool staysBehind(std::string_view name, bool isReplacement) {
    return (name == "security.selinux" && !isReplacement) || name == "security.ima" || name == "security.evm" ||
           name.starts_with("trusted.overlay.");
}

std::optional<std::span<char>> readOne(int source, const char* name, std::span<char> small, std::vector<char>& large) {
    std::span<char> value = small;
    ssize_t length = ::fgetxattr(source, name, value.data(), value.size());
    if (length < 0 && errno == ERANGE) {
        large.resize(kLargestValue);
        value = large;
        length = ::fgetxattr(source, name, value.data(), value.size());
    }
    if (length < 0)
        return std::nullopt;
    return value.first(static_cast<std::size_t>(length));
}

bool writeOne(int copy, const char* name, std::span<const char> value) {
    return ::fsetxattr(copy, name, value.data(), value.size(), 0) == 0;
}

void copyOne(int source, int copy, const char* name) {
    std::array<char, 4096> small{};
    std::vector<char> large;
    if (const auto value = readOne(source, name, small, large))
        static_cast<void>(writeOne(copy, name, *value));
}

/// All but the access lists, which need more care.
AccessLists copyExtended(int source, const Made& copy) {
    std::array<char, 1024> small{};
    std::vector<char> large;
    const char* names = small.data();
    ssize_t length = ::flistxattr(source, small.data(), small.size());
    if (length < 0 && errno == ERANGE) {
        large.resize(kLargestValue);
        names = large.data();
        length = ::flistxattr(source, large.data(), large.size());
    }
    AccessLists lists;
    for (ssize_t at = 0; at < length;) {
        const std::string_view name(names + at);
        at += static_cast<ssize_t>(name.size()) + 1;
        if (name == AccessList::Access)
            lists.own = true;
        else if (name == AccessList::Default)
            lists.byDefault = true;
        else if (!staysBehind(name, copy.isReplacement))
            copyOne(source, copy.file, name.data());
    }
    return lists;
}

/// Errors of file systems that keep no owners, bits, lists or times of ours; the copy is whole all the same.
bool isTolerable(int error) {
    return error == EPERM || error == EACCES || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

std::error_code takeOwner(const struct stat& status, Made& copy) {
    if (copy.user == status.st_uid && copy.group == status.st_gid)
        return {};
    constexpr auto keep = static_cast<uid_t>(-1);
    if (::fchown(copy.file, status.st_uid, status.st_gid) != 0 && copy.group != status.st_gid)
        static_cast<void>(::fchown(copy.file, keep, status.st_gid) == 0);
    // Asked, not believed: some file systems report success and change nothing.
    struct stat now {};
    if (::fstat(copy.file, &now) != 0)
        return LastError();
    copy.user = now.st_uid;
    copy.group = now.st_gid;
    return {};
}

std::error_code removeList(int copy, std::string_view name) {
    if (::fremovexattr(copy, name.data()) == 0 || errno == ENODATA || isTolerable(errno))
        return {};
    return LastError();
}

/// False when the copy cannot have it; `groupBits` are then what the owning group has by it, as bits of a mode.
bool copyList(int source, const Made& copy, bool keptGroup, std::string_view name, mode_t& groupBits) {
    std::array<char, 4096> small{};
    std::vector<char> large;
    groupBits = 0;
    const auto value = readOne(source, name.data(), small, large);
    if (!value)
        return false;
    if (!keptGroup)
        AccessList::GiveGroupNoMoreThanOthers(*value);
    groupBits = AccessList::GroupBits(*value);
    return writeOne(copy.file, name.data(), *value);
}

/// Without a list the group bits of `mode` speak of the owning group: what it must not have is taken off them.
std::error_code copyLists(int source, const AccessLists& lists, const Made& copy, bool keptGroup, mode_t& mode) {
    if (lists.own) {
        mode_t groupBits = 0;
        if (copyList(source, copy, keptGroup, AccessList::Access, groupBits))
            return {};
        mode &= ~mode_t{S_IRWXG} | groupBits;
    }
    if (!keptGroup)
        mode &= ~mode_t{S_IRWXG} | (mode & S_IRWXO) << 3U;
    return copy.mayInherit ? removeList(copy.file, AccessList::Access) : std::error_code();
}

std::error_code copyDefaultList(int source, const AccessLists& lists, const Made& copy, bool keptGroup) {
    mode_t ignored = 0;
    if (lists.byDefault && copyList(source, copy, keptGroup, AccessList::Default, ignored))
        return {};
    return removeList(copy.file, AccessList::Default);
}

std::error_code copyRights(int source, const struct stat& status, Made& copy) {
    // The owner first: changing it takes privileges off the file. The mode last: it may forbid the rest.
    if (const std::error_code error = takeOwner(status, copy))
        return error;
    const bool keptGroup = copy.group == status.st_gid;
    const AccessLists lists = copyExtended(source, copy);
    mode_t mode = status.st_mode & 07777U;
    if (copy.user != status.st_uid)
        mode &= 0777U;
    if (!keptGroup)
        mode &= ~mode_t{S_ISGID};
    if (const std::error_code error = copyLists(source, lists, copy, keptGroup, mode))
        return error;
    if (S_ISDIR(status.st_mode)) {
        if (const std::error_code error = copyDefaultList(source, lists, copy, keptGroup))
            return error;
    }
    if (copy.hasMode && mode == (status.st_mode & 07777U))
        return {};
    return ::fchmod(copy.file, mode) == 0 || isTolerable(errno) ? std::error_code() : LastError();
}

std::error_code askOwner(Made& copy) {
    struct stat own {};
    if (::fstat(copy.file, &own) != 0)
        return LastError();
    copy.user = own.st_uid;
    copy.group = own.st_gid;
    return {};
}

std::error_code copyTimes(const struct stat& status, int copy) {
    const std::array<struct timespec, 2> times = {status.st_atim, status.st_mtim};
    return ::futimens(copy, times.data()) == 0 || isTolerable(errno) ? std::error_code() : LastError();
}

} // namespace

std::error_code Attributes::CopyToFile(int source, const struct stat& status, const TemporaryFile& copy, bool hasMode) {
    Made made{.file = copy.Descriptor(),
              .user = m_user,
              .group = m_group,
              .hasMode = hasMode,
              .mayInherit = copy.Parent()->HasDefaultAccessList()};
    if (m_folder.lock() != copy.Parent()) {
        if (const std::error_code error = askOwner(made))
            return error;
        m_folder = copy.Parent();
        m_user = made.user;
        m_group = made.group;
    }
    const std::error_code error = copyRights(source, status, made);
    return error ? error : copyTimes(status, made.file);
}

std::error_code Attributes::CopyToFolder(int source, const struct stat& status, int copy) {
    Made made{.file = copy};
    std::error_code error = askOwner(made);
    if (!error)
        error = copyRights(source, status, made);
    return error ? error : copyTimes(status, copy);
}

std::error_code Attributes::CopyToReplacement(int source, const struct stat& status, int copy) {
    Made made{.file = copy, .isReplacement = true};
    const std::error_code error = askOwner(made);
    return error ? error : copyRights(source, status, made);
}
