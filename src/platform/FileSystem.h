// The folders an activity works on. Owns nothing; opens folders and starts transfers.
#pragma once

#include "FileTransfer.h"

class FileSystem {
  public:
    virtual ~FileSystem() = default;

    /// Opens a folder by path; the path itself may be a link. Null with the reason when it is no folder or cannot be
    /// opened.
    [[nodiscard]] virtual std::shared_ptr<Folder> OpenFolder(const std::filesystem::path& path,
                                                             std::error_code& error) = 0;

    /// A transfer for one run. The observer must outlive it.
    [[nodiscard]] virtual std::unique_ptr<FileTransfer> NewTransfer(TransferObserver& observer) = 0;
};
