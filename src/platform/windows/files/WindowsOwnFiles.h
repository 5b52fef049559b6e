// The program's own files on Windows. Fails with the error of the system call.
#pragma once

#include "OwnFiles.h"

class WindowsOwnFiles final : public OwnFiles {
  public:
    [[nodiscard]] std::optional<FileStamp> Stamp(const std::filesystem::path& file) const override;
    [[nodiscard]] bool FolderExists(const std::filesystem::path& folder) const override;
    [[nodiscard]] std::error_code ReadAll(const std::filesystem::path& file, std::int64_t limit,
                                          QByteArray& bytes) const override;
    /// Rights and attributes of an old file are kept. A link that leads nowhere is refused.
    [[nodiscard]] std::error_code ReplaceAll(const std::filesystem::path& file, const QByteArray& bytes) override;
    [[nodiscard]] std::error_code CreateNew(const std::filesystem::path& file, const QByteArray& bytes) override;
    [[nodiscard]] std::error_code Append(const std::filesystem::path& file, const QByteArray& bytes,
                                         bool create) override;
    [[nodiscard]] std::error_code MoveAway(const std::filesystem::path& file,
                                           const std::filesystem::path& target) override;
    [[nodiscard]] std::error_code Delete(const std::filesystem::path& file) override;
    [[nodiscard]] std::optional<std::filesystem::path>
    FindIgnoringCase(const std::filesystem::path& folder, const std::filesystem::path& name) const override;
    [[nodiscard]] bool IsWritableFolder(const std::filesystem::path& folder) const override;
};
