// Opens folders and starts transfers on Linux. Owns nothing; failures are error codes.
#pragma once

#include "FileSystem.h"

class LinuxFileSystem final : public FileSystem {
  public:
    std::shared_ptr<Folder> OpenFolder(const std::filesystem::path& path, std::error_code& error) override;
    std::unique_ptr<FileTransfer> NewTransfer(TransferObserver& observer) override;
};
