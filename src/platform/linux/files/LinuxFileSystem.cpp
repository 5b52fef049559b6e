#include "LinuxFileSystem.h"
#include "LinuxFileTransfer.h"
#include "SystemError.h"

#include <fcntl.h>

std::shared_ptr<Folder> LinuxFileSystem::OpenFolder(const std::filesystem::path& path, std::error_code& error) {
    if (path.empty() || path.native().find('\0') != std::string::npos) {
        error = ErrorOf(ENOENT);
        return nullptr;
    }
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? nullptr : LinuxFolder::Open(AT_FDCWD, absolute.c_str(), absolute, true, error);
}

std::unique_ptr<FileTransfer> LinuxFileSystem::NewTransfer(TransferObserver& observer) {
    return std::make_unique<LinuxFileTransfer>(observer);
}
