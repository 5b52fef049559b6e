#include "Attributes.h"
#include "LinuxFolder.h"
#include "SystemCall.h"

#include <array>
#include <cstring>
#include <endian.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <optional>
#include <span>
#include <string_view>
#include <sys/xattr.h>
#include <tuple>
#include <vector>

namespace {

constexpr std::size_t largestValue = std::size_t{64} * 1024; // the kernel's limit for a value and for the list of names
constexpr std::string_view ownList = "system.posix_acl_access";
constexpr std::string_view defaultList = "system.posix_acl_default";

using ListHeader = struct posix_acl_xattr_header;
using ListEntry = struct posix_acl_xattr_entry;

/// The offset of the entry with this tag in a POSIX access list as the kernel stores it. The bytes may be anything: 0
/// when they are no such list or have no such entry.
std::size_t findEntry(std::span<const char> list, std::uint16_t tag, ListEntry& entry) {
    ListHeader header{};
    if (list.size() < sizeof header)
        return 0;
    std::memcpy(&header, list.data(), sizeof header);
    if (le32toh(header.a_version) != POSIX_ACL_XATTR_VERSION)
        return 0;
    for (std::size_t at = sizeof header; at + sizeof entry <= list.size(); at += sizeof entry) {
        std::memcpy(&entry, list.data() + at, sizeof entry);
        if (le16toh(entry.e_tag) == tag)
            return at;
    }
    return 0;
}

/// The permission bits of the owning group, shifted to the group's place in a mode. Where a file has a list, the group
/// bits of its mode are the list's mask instead. 0 when this is no list.
mode_t groupBitsOf(std::span<const char> list) {
    ListEntry group{};
    return findEntry(list, ACL_GROUP_OBJ, group) != 0 ? mode_t{le16toh(group.e_perm)} << 3U & S_IRWXG : 0;
}

void limitGroupToOthers(std::span<char> list) {
    ListEntry group{};
    ListEntry others{};
    const std::size_t place = findEntry(list, ACL_GROUP_OBJ, group);
    if (place == 0 || findEntry(list, ACL_OTHER, others) == 0)
        return;
    group.e_perm = group.e_perm & others.e_perm;
    std::memcpy(list.data() + place, &group, sizeof group);
}

/// A copy as it was created.
struct Made {
    int file = -1;
    uid_t user = 0;
    gid_t group = 0;
    bool hasMode = false;       ///< it has the permission bits of the source already
    bool mayInherit = true;     ///< its folder may have given it an access list
    bool isReplacement = false; ///< it will replace the source itself
};

/// Which access lists the source has.
struct AccessLists {
    bool own = false;
    bool byDefault = false;
};

/// These belong to the machine's policy, the content, the inode or another mount and are wrong on a copy. Only a
/// replacement of the source keeps the SELinux label.
bool staysBehind(std::string_view name, bool isReplacement) {
    return (name == "security.selinux" && !isReplacement) || name == "security.ima" || name == "security.evm" ||
           name.starts_with("trusted.overlay.");
}

std::optional<std::span<char>> readOne(int source, const char* name, std::span<char> small, std::vector<char>& large) {
    std::span<char> value = small;
    ssize_t length = ::fgetxattr(source, name, value.data(), value.size());
    if (length < 0 && errno == ERANGE) {
        large.resize(largestValue);
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
        std::ignore = writeOne(copy, name, *value);
}

/// Copies all of them except the access lists, which copyLists adjusts.
AccessLists copyExtended(int source, const Made& copy) {
    std::array<char, 1024> small{};
    std::vector<char> large;
    const char* names = small.data();
    ssize_t length = ::flistxattr(source, small.data(), small.size());
    if (length < 0 && errno == ERANGE) {
        large.resize(largestValue);
        names = large.data();
        length = ::flistxattr(source, large.data(), large.size());
    }
    AccessLists lists;
    for (ssize_t at = 0; at < length;) {
        const std::string_view name(names + at);
        at += static_cast<ssize_t>(name.size()) + 1;
        if (name == ownList)
            lists.own = true;
        else if (name == defaultList)
            lists.byDefault = true;
        else if (!staysBehind(name, copy.isReplacement))
            copyOne(source, copy.file, name.data());
    }
    return lists;
}

/// Errors of file systems that do not store owners, bits, lists or times; the copy is complete without them.
bool isTolerable(int error) {
    return error == EPERM || error == EACCES || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

std::error_code takeOwner(const struct stat& status, Made& copy) {
    if (copy.user == status.st_uid && copy.group == status.st_gid)
        return {};
    constexpr auto keep = static_cast<uid_t>(-1);
    if (::fchown(copy.file, status.st_uid, status.st_gid) != 0 && copy.group != status.st_gid)
        std::ignore = ::fchown(copy.file, keep, status.st_gid);
    // Some file systems report success and change nothing, so look.
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

/// False when the copy cannot have the list; `groupBits` then tells what the list gives the owning group.
bool copyList(int source, const Made& copy, bool keptGroup, std::string_view name, mode_t& groupBits) {
    std::array<char, 4096> small{};
    std::vector<char> large;
    groupBits = 0;
    const auto value = readOne(source, name.data(), small, large);
    if (!value)
        return false;
    if (!keptGroup)
        limitGroupToOthers(*value);
    groupBits = groupBitsOf(*value);
    return writeOne(copy.file, name.data(), *value);
}

/// Without a list the group bits of `mode` apply to the owning group, so they lose what that group must not have.
std::error_code copyLists(int source, const AccessLists& lists, const Made& copy, bool keptGroup, mode_t& mode) {
    if (lists.own) {
        mode_t groupBits = 0;
        if (copyList(source, copy, keptGroup, ownList, groupBits))
            return {};
        mode &= ~mode_t{S_IRWXG} | groupBits;
    }
    if (!keptGroup)
        mode &= ~mode_t{S_IRWXG} | (mode & S_IRWXO) << 3U;
    return copy.mayInherit ? removeList(copy.file, ownList) : std::error_code();
}

std::error_code copyDefaultList(int source, const AccessLists& lists, const Made& copy, bool keptGroup) {
    mode_t ignored = 0;
    if (lists.byDefault && copyList(source, copy, keptGroup, defaultList, ignored))
        return {};
    return removeList(copy.file, defaultList);
}

std::error_code copyRights(int source, const struct stat& status, Made& copy) {
    // The owner first, because changing it clears set-user bits. The mode last, because it may forbid the rest.
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
              .mayInherit = copy.Parent()->PassesOnRights()};
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

std::error_code Attributes::CopyToFolder(const Folder& source, const EntryStatus& status, const Folder& copy) {
    Made made{.file = DescriptorOf(copy)};
    std::error_code error = askOwner(made);
    if (!error)
        error = copyRights(DescriptorOf(source), status, made);
    return error ? error : copyTimes(status, made.file);
}

std::error_code Attributes::CopyToReplacement(int source, const struct stat& status, int copy) {
    Made made{.file = copy, .isReplacement = true};
    const std::error_code error = askOwner(made);
    return error ? error : copyRights(source, status, made);
}
