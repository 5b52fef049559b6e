// A folder by its handle; its entries are opened relative to it. Others may rename and delete it meanwhile. Failures
// are error codes; a name that Windows would bend, or take for a device, is std::errc::invalid_argument.
#pragma once

#include "Folder.h"
#include "FolderPlace.h"
#include "Handle.h"
#include "Leftovers.h"

#include <string>

class WindowsFolder final : public Folder {
  public:
    /// Null with the reason. The path itself may be a link.
    [[nodiscard]] static std::shared_ptr<WindowsFolder> Open(const std::filesystem::path& path, std::error_code& error);
    WindowsFolder(WinHandle handle, std::shared_ptr<const FolderPlace> place, FileId id);

    std::filesystem::path Path() const override { return m_place->Whole(); }
    FileId Id() const override { return m_id; }
    std::error_code List(std::vector<FolderEntry>& entries) const override;
    std::optional<FileFacts> Stat(const std::filesystem::path& name, std::error_code& error) const override;
    std::shared_ptr<Folder> OpenChild(const FolderEntry& entry, std::error_code& error) const override;
    std::optional<std::uint64_t> Mount() const override;
    DriveFacts Drive() const override;
    std::error_code DeleteFile(const FolderEntry& entry) override;
    std::error_code DeleteEmptyFolder(const std::filesystem::path& name) override;
    std::vector<FileId> Ancestors() const override;
    bool StillThere() const override;
    UnfinishedWork RemoveLeftovers() override;
    void FindLeftovers() override;
    void ForgetUnfinished() override;

    [[nodiscard]] HANDLE Handle() const { return m_handle.Get(); }
    std::intptr_t SystemHandle() const override { return reinterpret_cast<std::intptr_t>(Handle()); }
    /// Always, as far as this program is concerned: it creates nothing with rights of its own.
    bool PassesOnRights() const override { return true; }

  private:
    [[nodiscard]] std::error_code forEachName(const std::function<std::error_code(const std::wstring&)>& visit) const;
    [[nodiscard]] std::error_code readEntry(const std::wstring& name, FileFacts& facts) const;
    [[nodiscard]] bool isLeftover(const std::string& name) const;
    void removeOwn(const std::string& name) const;

    WinHandle m_handle;
    std::shared_ptr<const FolderPlace> m_place;
    FileId m_id;
    std::int64_t m_timeStep;
    mutable Leftovers m_leftovers; ///< a listing sees them on its way
};

[[nodiscard]] HANDLE HandleOf(const Folder& folder);
