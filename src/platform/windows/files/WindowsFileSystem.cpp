#include "StagedTransfer.h"
#include "WindowsFolder.h"
#include "WindowsServices.h"

namespace {

class WindowsFileSystem final : public FileSystem {
  public:
    std::shared_ptr<Folder> OpenFolder(const std::filesystem::path& path, std::error_code& error) override {
        return WindowsFolder::Open(path, error);
    }
    std::unique_ptr<FileTransfer> NewTransfer(TransferObserver& observer, Trash* trash) override {
        return std::make_unique<StagedTransfer>(observer, trash);
    }
    /// Nothing is read ahead: a second reader would move the listing of an open folder.
    std::unique_ptr<ReadAhead> Begin(ReadAhead::Order /*order*/) override { return nullptr; }
};

} // namespace

std::unique_ptr<FileSystem> MakeFileSystem() {
    return std::make_unique<WindowsFileSystem>();
}
