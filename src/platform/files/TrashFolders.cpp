#include "TrashFolders.h"
#include "SystemFiles.h"
#include "TrashJournal.h"

#include <tuple>

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

void TrashFolders::RemoveRun(Folder& trash, std::shared_ptr<Folder> run, const std::filesystem::path& name) {
    if (run)
        std::ignore = SystemFiles::RemoveMark(*run, TrashJournal::FileName);
    run.reset(); // an open folder may stay until it is closed
    std::ignore = trash.DeleteEmptyFolder(name);
}
