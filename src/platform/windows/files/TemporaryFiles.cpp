#include "TemporaryFiles.h"
#include "NtFile.h"
#include "Replacing.h"
#include "WindowsFolder.h"

namespace {
constexpr int nameAttempts = 8;
} // namespace

std::error_code TemporaryFiles::Create(const std::shared_ptr<Folder>& folder, TemporaryFile& file,
                                       ACCESS_MASK access) const {
    std::error_code error;
    for (int attempt = 0; attempt < nameAttempts; ++attempt) {
        const std::string name = MakeTemporaryName(m_process);
        WinHandle handle = NtFile::Open(HandleOf(*folder), name,
                                        {.access = GENERIC_READ | GENERIC_WRITE | DELETE | access,
                                         .share = FILE_SHARE_READ,
                                         .kind = NtFile::Kind::File,
                                         .isNew = true,
                                         .attributes = FILE_ATTRIBUTE_HIDDEN},
                                        error);
        if (!error)
            file = TemporaryFile(folder, std::move(handle), name);
        if (error != std::errc::file_exists)
            break;
    }
    return error;
}

std::error_code TemporaryFiles::PlaceAtFreeName(TemporaryFile& file, const std::filesystem::path& name) const {
    const std::error_code error = NtFile::Rename(file.Handle(), HandleOf(*file.Parent()), name, false);
    if (!error)
        file.SetPlaced();
    return error;
}

std::error_code TemporaryFiles::Replace(TemporaryFile& file, const std::filesystem::path& name) const {
    const std::error_code error = Replacing::Rename(file.Handle(), HandleOf(*file.Parent()), name);
    if (!error)
        file.SetPlaced();
    return error;
}
