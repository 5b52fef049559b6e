#include "LinuxDrive.h"
#include "SystemCall.h"

#include <algorithm>
#include <array>
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

/// The name that udev gives to the block device of the folder.
std::string uuidOfDevice(int folder) {
    struct stat status {};
    if (::fstat(folder, &status) != 0)
        return {};
    std::error_code error;
    for (fs::directory_iterator link("/dev/disk/by-uuid", error), end; !error && link != end; link.increment(error)) {
        struct stat device {};
        if (::stat(link->path().c_str(), &device) == 0 && S_ISBLK(device.st_mode) && device.st_rdev == status.st_dev)
            return link->path().filename().native();
    }
    return {};
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
