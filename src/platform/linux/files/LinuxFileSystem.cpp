#include "LinuxFolder.h"
#include "LinuxServices.h"
#include "ReadAheadThread.h"
#include "StagedTransfer.h"

#include <fcntl.h>

namespace {

class LinuxFileSystem final : public FileSystem {
  public:
    std::shared_ptr<Folder> OpenFolder(const std::filesystem::path& path, std::error_code& error) override {
        if (path.empty() || path.native().find('\0') != std::string::npos) {
            error = ErrorOf(ENOENT);
            return nullptr;
        }
        const std::filesystem::path absolute = std::filesystem::absolute(path, error);
        return error ? nullptr
                     : LinuxFolder::Open(AT_FDCWD, absolute.c_str(), std::make_shared<FolderPlace>(absolute), true,
                                         error);
    }
    std::unique_ptr<FileTransfer> NewTransfer(TransferObserver& observer, Trash* trash) override {
        return std::make_unique<StagedTransfer>(observer, trash);
    }
    std::unique_ptr<ReadAhead> Begin(ReadAhead::Order order) override { return m_readAhead.Begin(std::move(order)); }

  private:
    ReadAheadThread m_readAhead;
};

} // namespace

std::unique_ptr<FileSystem> MakeLinuxFileSystem() {
    return std::make_unique<LinuxFileSystem>();
}
