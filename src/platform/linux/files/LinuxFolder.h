// A folder by its descriptor: openat, fstatat, getdents64, unlinkat. Failures are error codes; a name that is not one
// plain component is std::errc::invalid_argument.
#pragma once

#include "Folder.h"
#include "FolderPlace.h"
#include "Leftovers.h"
#include "LinuxDrive.h"
#include "SystemCall.h"

#include <dirent.h>
#include <functional>
#include <string>

class LinuxFolder final : public Folder {
  public:
    /// Opens `name` in the folder of the descriptor `at` (AT_FDCWD for a path). Null with the reason.
    [[nodiscard]] static std::shared_ptr<LinuxFolder>
    Open(int at, const char* name, std::shared_ptr<const FolderPlace> place, bool followLink, std::error_code& error);
    LinuxFolder(FileDescriptor descriptor, std::shared_ptr<const FolderPlace> place, FileId id);

    std::filesystem::path Path() const override { return m_place->Whole(); }
    FileId Id() const override { return m_id; }
    std::error_code List(std::vector<FolderEntry>& entries) const override;
    std::optional<FileFacts> Stat(const std::filesystem::path& name, std::error_code& error) const override;
    std::shared_ptr<Folder> OpenChild(const FolderEntry& entry, std::error_code& error) const override;
    std::optional<std::uint64_t> Mount() const override;
    DriveFacts Drive() const override { return DriveOf(Descriptor()); }
    std::error_code DeleteFile(const FolderEntry& entry) override;
    std::error_code DeleteEmptyFolder(const std::filesystem::path& name) override;
    std::vector<FileId> Ancestors() const override;
    bool StillThere() const override;
    UnfinishedWork RemoveLeftovers() override;
    void FindLeftovers() override;
    void ForgetUnfinished() override;
    [[nodiscard]] int Descriptor() const { return m_descriptor.Get(); }

    std::intptr_t SystemHandle() const override { return Descriptor(); }

    /// True when the folder has a default access list.
    bool PassesOnRights() const override;

    /// True for one component that is neither "." nor "..".
    [[nodiscard]] static bool IsPlainName(const std::filesystem::path& name);

  private:
    [[nodiscard]] std::error_code forEachName(const std::function<std::error_code(const char*)>& visit) const;
    [[nodiscard]] std::error_code readEntry(const char* name, FileFacts& facts) const;
    [[nodiscard]] bool isLeftover(const std::string& name) const;
    void removeOwn(const std::string& name) const;

    FileDescriptor m_descriptor;
    std::shared_ptr<const FolderPlace> m_place;
    FileId m_id;
    std::int64_t m_timeStep;
    mutable Leftovers m_leftovers; ///< a listing sees them on its way
    mutable std::optional<bool> m_passesOnRights;
};

[[nodiscard]] inline int DescriptorOf(const Folder& folder) {
    return static_cast<int>(folder.SystemHandle());
}

/// True when `status` is a regular file with the identity, size and modification time of `facts`.
[[nodiscard]] bool IsUnchanged(const FileFacts& facts, const struct stat& status);

/// True for the same file with the same size and times. The change time tells what a program hides that puts the
/// modification time back.
[[nodiscard]] bool IsSameContent(const struct stat& before, const struct stat& now);

[[nodiscard]] FileId IdOf(const struct stat& status);

/// Every entry of an open folder but "." and ".."; ends with the first error of `visit`.
[[nodiscard]] std::error_code ForEachEntry(int folder,
                                           const std::function<std::error_code(const struct dirent64&)>& visit);
