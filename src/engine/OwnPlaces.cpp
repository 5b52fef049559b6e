#include "OwnPlaces.h"
#include "ActivityFile.h"
#include "FileSystem.h"
#include "OwnFiles.h"
#include "modNativePath.h"

using modNativePath::FromText;

namespace {
std::set<FileId> idsOf(const OwnFiles& files, const std::vector<std::filesystem::path>& paths) {
    std::set<FileId> ids;
    for (const std::filesystem::path& path : paths) {
        if (const std::optional<FileStamp> stamp = files.Stamp(path))
            ids.insert(stamp->id);
    }
    return ids;
}
} // namespace

std::vector<std::filesystem::path> OwnPlaces::protectedPaths() const {
    std::vector<std::filesystem::path> paths = m_settings;
    paths.push_back(FromText(m_services.file.CurrentPath()));
    std::error_code error; // no folder: no locks
    for (std::filesystem::directory_iterator lock(m_locks, error), end; !error && lock != end; lock.increment(error))
        paths.push_back(lock->path());
    return paths;
}

std::set<FileId> OwnPlaces::Protected() const {
    return idsOf(m_services.ownFiles, protectedPaths());
}

bool OwnPlaces::IsProtected(const QString& path) const {
    const std::optional<FileStamp> stamp = m_services.ownFiles.Stamp(FromText(path));
    return stamp && Protected().contains(stamp->id);
}

std::set<FileId> OwnPlaces::Logs(const QString& activityLog) const {
    return idsOf(m_services.ownFiles, {FromText(activityLog), FromText(m_services.options.ApplicationLog())});
}

std::set<FileId> OwnPlaces::Folders() const {
    std::set<FileId> folders;
    for (const std::filesystem::path& path : protectedPaths()) {
        std::error_code error;
        const std::filesystem::path file = std::filesystem::weakly_canonical(path, error);
        if (error || file.empty())
            continue;
        if (const auto folder = m_services.fileSystem.OpenFolder(file.parent_path(), error)) {
            for (const FileId id : folder->Ancestors())
                folders.insert(id);
        }
    }
    return folders;
}
