#include "LinuxDrive.h"
#include "SystemCall.h"
#include "modDrive.h"
#include "modNativePath.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <linux/magic.h>
#include <sstream>
#include <sys/vfs.h>

namespace {

namespace fs = std::filesystem;

/// The fields of one line of /proc/self/mountinfo (see proc(5)) that matter here.
struct MountLine {
    std::string mountPoint;
    std::string type;
    std::string source;
};

/// Blanks and the like stand there as a backslash and three octal digits.
std::string unescaped(const std::string& text) {
    constexpr std::size_t digits = 3;
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\\' && at + digits < text.size()) {
            plain.push_back(static_cast<char>(std::stoi(text.substr(at + 1, digits), nullptr, 8)));
            at += digits;
        } else {
            plain.push_back(text[at]);
        }
    }
    return plain;
}

MountLine parse(const std::string& line) {
    std::istringstream fields(line);
    MountLine mount;
    std::string skipped;
    fields >> skipped >> skipped >> skipped >> skipped >> mount.mountPoint;
    while (fields >> skipped && skipped != "-") {
    }
    fields >> mount.type >> mount.source;
    mount.mountPoint = unescaped(mount.mountPoint);
    return mount;
}

MountLine mountOf(int folder) {
    struct statx status {};
    const bool isKnown =
        ::statx(folder, "", AT_EMPTY_PATH, STATX_MNT_ID, &status) == 0 && (status.stx_mask & STATX_MNT_ID) != 0;
    std::ifstream mounts("/proc/self/mountinfo");
    const std::string id = std::to_string(status.stx_mnt_id) + ' ';
    for (std::string line; isKnown && std::getline(mounts, line);) {
        if (line.starts_with(id))
            return parse(line);
    }
    return {};
}

/// The name that udev gives to a block device, among those of a kind.
std::string nameOfDevice(dev_t wanted, const char* kind) {
    std::error_code error;
    for (fs::directory_iterator link(kind, error), end; !error && link != end; link.increment(error)) {
        struct stat device {};
        if (::stat(link->path().c_str(), &device) == 0 && S_ISBLK(device.st_mode) && device.st_rdev == wanted)
            return link->path().filename().native();
    }
    return {};
}

std::string uuidOfDevice(int folder) {
    struct stat status {};
    return ::fstat(folder, &status) == 0 ? nameOfDevice(status.st_dev, "/dev/disk/by-uuid") : std::string();
}

/// Blanks and the like stand in udev's names as "\x" and two hexadecimal digits.
std::string withoutHex(const std::string& name) {
    constexpr std::size_t digits = 2;
    constexpr int hexadecimal = 16;
    std::string plain;
    for (std::size_t at = 0; at < name.size(); ++at) {
        if (name.compare(at, digits, "\\x") == 0 && at + 1 + digits < name.size()) {
            plain.push_back(static_cast<char>(std::strtol(name.substr(at + 2, digits).c_str(), nullptr, hexadecimal)));
            at += 1 + digits;
        } else {
            plain.push_back(name[at]);
        }
    }
    return plain;
}

/// Some file systems have a device number of their own; their mount tells the disk's.
dev_t deviceOf(int folder) {
    struct stat status {};
    if (::stat(mountOf(folder).source.c_str(), &status) == 0 && S_ISBLK(status.st_mode))
        return status.st_rdev;
    return ::fstat(folder, &status) == 0 ? status.st_dev : 0;
}

/// These file systems make the id from their UUID.
std::string idOfFileSystem(int folder) {
    struct statfs status {};
    if (::fstatfs(folder, &status) != 0)
        return {};
    const auto type = static_cast<std::uint64_t>(status.f_type) & 0xffffffffU;
    if (type != EXT4_SUPER_MAGIC && type != BTRFS_SUPER_MAGIC)
        return {};
    std::array<std::uint32_t, 2> id{};
    static_assert(sizeof id == sizeof status.f_fsid);
    std::copy_n(static_cast<const std::uint32_t*>(static_cast<const void*>(&status.f_fsid)), id.size(), id.begin());
    return "id " + std::to_string(id[0]) + '-' + std::to_string(id[1]);
}

bool isNetwork(const std::string& type) {
    constexpr std::array<std::string_view, 9> types = {"nfs", "nfs4", "cifs",      "smb3", "smbfs",
                                                       "9p",  "ceph", "glusterfs", "afs"};
    return type.starts_with("fuse.") || std::find(types.begin(), types.end(), type) != types.end();
}

} // namespace

DriveFacts DriveOf(int folder) {
    const MountLine mount = mountOf(folder);
    DriveFacts drive{
        .identity = idOfFileSystem(folder), .mountPoint = mount.mountPoint, .isNetwork = isNetwork(mount.type)};
    if (drive.identity.empty())
        drive.identity = uuidOfDevice(folder);
    if (drive.identity.empty() && !mount.type.empty())
        drive.identity = mount.type + ' ' + mount.source;
    return drive;
}

std::optional<modDrive::Named> modDrive::Of(const fs::path& folder) {
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen())
        return std::nullopt;
    const dev_t device = deviceOf(opened.Get());
    std::string name = withoutHex(nameOfDevice(device, "/dev/disk/by-label"));
    if (name.empty())
        name = nameOfDevice(device, "/dev/disk/by-uuid");
    return Named{.facts = DriveOf(opened.Get()), .name = QString::fromStdString(name)};
}
