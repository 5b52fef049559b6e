#include "TrashFolders.h"
#include "SystemFiles.h"

std::shared_ptr<Folder> TrashFolders::Open(const Folder& parent, const std::filesystem::path& name,
                                           std::error_code& error) {
    const std::optional<FileFacts> facts = parent.Stat(name, error);
    if (!facts && !error)
        error = ErrorOf(ENOENT);
    return facts ? parent.OpenChild({name, *facts}, error) : nullptr;
}

std::shared_ptr<Folder> TrashFolders::OpenOrMake(const Folder& parent, const std::filesystem::path& name,
                                                 const EntryStatus& status, bool& isNew, std::error_code& error) {
    error = SystemFiles::MakeFolder(parent, name, status);
    isNew = !error;
    return isNew || error == std::errc::file_exists ? Open(parent, name, error) : nullptr;
}
