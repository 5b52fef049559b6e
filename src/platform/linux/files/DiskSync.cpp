#include "DiskSync.h"
#include "LinuxFolder.h"
#include "SystemCall.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

/// Up to this many files, syncing each is cheaper than syncing the whole file system.
constexpr std::size_t fewFiles = 4;

enum class SyncOfAll {
    Reports, ///< syncfs reports write errors
    Writes,  ///< syncfs writes everything, but the answer means nothing
    Useless  ///< syncfs does not reach the server
};

template <std::size_t Count>
bool isOneOf(std::uint64_t type, const std::array<std::uint64_t, Count>& types) {
    return std::find(types.begin(), types.end(), type) != types.end();
}

/// Before Linux 5.8, no syncfs reports write errors.
bool kernelReportsSyncErrors() {
    struct utsname system {};
    int major = 0;
    int minor = 0;
    if (::uname(&system) != 0 || std::sscanf(system.release, "%d.%d", &major, &minor) != 2) // NOLINT(cert-err34-c)
        return false;
    return major > 5 || (major == 5 && minor >= 8);
}

SyncOfAll syncOfAll(int descriptor) {
    constexpr std::uint64_t xfs = 0x58465342; // not in linux/magic.h of older systems
    constexpr std::array<std::uint64_t, 6> served = {FUSE_SUPER_MAGIC, NFS_SUPER_MAGIC,  CIFS_SUPER_MAGIC,
                                                     SMB_SUPER_MAGIC,  SMB2_SUPER_MAGIC, V9FS_MAGIC};
    constexpr std::array<std::uint64_t, 3> reporting = {EXT4_SUPER_MAGIC, xfs, TMPFS_MAGIC};
    struct statfs fileSystem {};
    if (descriptor < 0 || ::fstatfs(descriptor, &fileSystem) != 0)
        return SyncOfAll::Useless;
    const auto type = static_cast<std::uint64_t>(fileSystem.f_type) & 0xffffffffU;
    if (isOneOf(type, served))
        return SyncOfAll::Useless;
    return isOneOf(type, reporting) && kernelReportsSyncErrors() ? SyncOfAll::Reports : SyncOfAll::Writes;
}

/// EINVAL: the file system has no disk, or does not sync folders because their names are durable at once.
std::error_code resultOf(int answer) {
    return answer == 0 || errno == EINVAL ? std::error_code() : LastError();
}

/// A journal that has been given up no longer fails the sync of what was in it, but refuses every new change. So what
/// was synced before is on disk when one more change, to a time of access, is taken and synced.
std::error_code syncOneMoreChange(int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0)
        return LastError();
    const std::array<struct timespec, 2> times{status.st_atim, {0, UTIME_OMIT}};
    const bool isRefused = ::futimens(file, times.data()) != 0 && errno != EPERM && errno != EACCES &&
                           errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP;
    return isRefused ? LastError() : resultOf(::fsync(file));
}

std::error_code syncFolder(const Folder& folder) {
    return resultOf(::fsync(DescriptorOf(folder)));
}

} // namespace

void SyncPoints::Open(const Folder& folder) {
    const auto [place, isNew] = m_folders.try_emplace(folder.Id().device);
    if (isNew)
        place->second = FileDescriptor(::openat(DescriptorOf(folder), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

int SyncPoints::On(std::uint64_t device) const {
    const auto place = m_folders.find(device);
    return place == m_folders.end() ? -1 : place->second.Get();
}

/// A file system that was shut down may answer that all is well, so the sync of one file, or of one more change to it,
/// has to say the same.
bool DiskSync::syncTogether(std::uint64_t device, int point, const std::function<std::error_code()>& witness) {
    const SyncOfAll kind = syncOfAll(point);
    if (kind == SyncOfAll::Useless)
        return false;
    const bool isWritten = ::syncfs(point) == 0 && !witness();
    if (!isWritten)
        m_failed.insert(device);
    return isWritten && kind == SyncOfAll::Reports;
}

void DiskSync::SyncContents(std::vector<StagedFile>& files, const SyncPoints& points) {
    std::map<std::uint64_t, std::vector<StagedFile*>> byDevice;
    for (StagedFile& file : files)
        byDevice[file.copy.Parent()->Id().device].push_back(&file);
    for (const auto& [device, group] : byDevice)
        syncContents(device, group, points.On(device));
}

void DiskSync::syncContents(std::uint64_t device, const std::vector<StagedFile*>& files, int point) {
    bool isDone = false;
    if (files.size() > fewFiles && !m_failed.contains(device))
        isDone = syncTogether(device, point, [&] { return resultOf(::fsync(files.front()->copy.Descriptor())); });
    for (StagedFile* file : files) {
        if (isDone && !file->syncAlone)
            continue;
        file->error = resultOf(::fdatasync(file->copy.Descriptor()));
        if (file->error)
            m_failed.insert(device);
    }
}

void DiskSync::SyncNames(std::vector<StagedFile>& files, std::vector<StagedFolder>& folders, const SyncPoints& points) {
    std::map<std::uint64_t, Names> byDevice;
    for (StagedFile& file : files) {
        if (file.isPlaced && file.job.removeSource)
            byDevice[file.job.destination->Id().device].files.push_back(&file);
    }
    for (StagedFolder& folder : folders) {
        if (folder.removeSource)
            byDevice[folder.destination->Id().device].folders.push_back(&folder);
    }
    for (const auto& [device, names] : byDevice)
        syncNames(device, names, points.On(device));
}

/// The sync of a folder alone is not believed: after a disk has gone it may find nothing left to write. The sync of a
/// placed file brings its name along or fails.
void DiskSync::syncNames(std::uint64_t device, const Names& names, int point) {
    const int witness =
        names.files.empty() ? DescriptorOf(*names.folders.back()->destination) : names.files.back()->copy.Descriptor();
    if (names.files.size() + names.folders.size() > fewFiles && !m_failed.contains(device) &&
        syncTogether(device, point, [witness] { return syncOneMoreChange(witness); }))
        return;
    std::map<FileId, std::error_code> folders;
    const auto folderResult = [&folders](const Folder& folder) {
        const auto [result, isNew] = folders.try_emplace(folder.Id());
        if (isNew)
            result->second = syncFolder(folder);
        return result->second;
    };
    for (StagedFile* file : names.files) {
        file->error = resultOf(::fsync(file->copy.Descriptor()));
        if (!file->error)
            file->error = folderResult(*file->job.destination);
    }
    for (StagedFolder* folder : names.folders)
        folder->error = folderResult(*folder->destination);
    const std::error_code error = syncOneMoreChange(witness);
    for (StagedFile* file : names.files)
        file->error = file->error ? file->error : error;
    for (StagedFolder* folder : names.folders)
        folder->error = folder->error ? folder->error : error;
}

std::error_code SyncFolders(const std::vector<std::shared_ptr<Folder>>& folders) {
    for (const auto& folder : folders) {
        if (const std::error_code error = syncFolder(*folder))
            return error;
    }
    return {};
}

/// On btrfs, the sync of one folder makes the new name of a moved file durable, but not that it has lost the old one.
std::error_code SyncNewNames(const Folder& folder, NamesOf which) {
    const SyncOfAll kind = syncOfAll(DescriptorOf(folder));
    const bool isWhole = kind == SyncOfAll::Writes || (which == NamesOf::FileSystem && kind == SyncOfAll::Reports);
    return isWhole && ::syncfs(DescriptorOf(folder)) != 0 && errno != ENOSYS ? LastError()
                                                                             : syncOneMoreChange(DescriptorOf(folder));
}
