#include "DiskSync.h"
#include "SystemCall.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <linux/magic.h>
#include <map>
#include <sys/utsname.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

/// Up to this many files, syncing each is cheaper than syncing the whole file system.
constexpr std::size_t fewFiles = 4;

/// Before Linux 5.8, syncfs does not report write errors.
bool kernelReportsSyncErrors() {
    struct utsname system {};
    int major = 0;
    int minor = 0;
    if (::uname(&system) != 0 || std::sscanf(system.release, "%d.%d", &major, &minor) != 2) // NOLINT(cert-err34-c)
        return false;
    return major > 5 || (major == 5 && minor >= 8);
}

/// On these file systems fsync reaches the server, syncfs does not.
bool isServed(int descriptor) {
    constexpr std::array<std::uint64_t, 6> served = {FUSE_SUPER_MAGIC, NFS_SUPER_MAGIC,  CIFS_SUPER_MAGIC,
                                                     SMB_SUPER_MAGIC,  SMB2_SUPER_MAGIC, V9FS_MAGIC};
    struct statfs fileSystem {};
    if (::fstatfs(descriptor, &fileSystem) != 0)
        return true;
    const auto type = static_cast<std::uint64_t>(fileSystem.f_type) & 0xffffffffU;
    return std::find(served.begin(), served.end(), type) != served.end();
}

bool syncFileSystem(int descriptor) {
    return kernelReportsSyncErrors() && !isServed(descriptor) && ::syncfs(descriptor) == 0;
}

void syncEach(const std::vector<StagedFile*>& files) {
    for (StagedFile* file : files) {
        // EINVAL: the file system has no disk.
        if (::fdatasync(file->copy.Descriptor()) != 0 && errno != EINVAL)
            file->error = LastError();
    }
}

std::error_code syncFolder(const Folder& folder) {
    // EINVAL: the file system does not sync folders, its names are durable at once.
    return ::fsync(folder.Descriptor()) == 0 || errno == EINVAL ? std::error_code() : LastError();
}

} // namespace

void SyncContents(std::vector<StagedFile>& files) {
    std::map<std::uint64_t, std::vector<StagedFile*>> byDevice;
    for (StagedFile& file : files)
        byDevice[file.copy.Parent()->Id().device].push_back(&file);
    for (const auto& [device, group] : byDevice) {
        // The folder of the first file was opened before any of them was written, so syncfs on it reports every write
        // error. When it fails, syncing each file finds the broken ones.
        if (group.size() <= fewFiles || !syncFileSystem(group.front()->copy.Parent()->Descriptor()))
            syncEach(group);
    }
}

std::error_code SyncNames(const std::vector<std::shared_ptr<Folder>>& folders) {
    std::map<std::uint64_t, std::vector<const Folder*>> byDevice;
    for (const auto& folder : folders) {
        auto& group = byDevice[folder->Id().device];
        if (std::find(group.begin(), group.end(), folder.get()) == group.end())
            group.push_back(folder.get());
    }
    for (const auto& [device, group] : byDevice) {
        if (group.size() > 1 && syncFileSystem(group.front()->Descriptor()))
            continue;
        for (const Folder* folder : group) {
            if (const std::error_code error = syncFolder(*folder))
                return error;
        }
    }
    return {};
}
