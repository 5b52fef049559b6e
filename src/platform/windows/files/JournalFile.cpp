#include "JournalFile.h"
#include "NtFile.h"
#include "WindowsFolder.h"

#include <string>

std::error_code JournalFile::Create(const Folder& folder, const std::filesystem::path& name) {
    std::error_code error;
    m_file = NtFile::Open(HandleOf(folder), name,
                          {.access = FILE_WRITE_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE,
                           .share = FILE_SHARE_READ | FILE_SHARE_DELETE,
                           .kind = NtFile::Kind::File,
                           .isNew = true},
                          error);
    return error;
}

std::error_code JournalFile::Write(std::string_view text) {
    std::string bytes(m_isTorn ? 1U : 0U, '\n');
    bytes += text;
    m_isTorn = true;
    DWORD written = 0;
    if (!WriteFile(m_file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
        return LastFileError();
    if (written != bytes.size())
        return FileError(ERROR_DISK_FULL);
    m_isTorn = false;
    return {};
}

std::error_code JournalFile::Sync() const {
    return NtFile::Flush(m_file.Get());
}
