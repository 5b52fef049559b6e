// The program's own files: the activity file, the logs. Every operation succeeds as a whole or fails with an error code
// and changes nothing.
#pragma once

#include "FileFacts.h"
#include <QByteArray>
#include <optional>
#include <system_error>

/// Shows whether a file has changed on disk.
struct FileStamp {
    FileId id;
    std::uint64_t size = 0;
    std::int64_t modifiedNanoseconds = 0;
    bool operator==(const FileStamp&) const = default;
};

class OwnFiles {
  public:
    virtual ~OwnFiles() = default;

    /// nullopt when there is no regular file of this name (links followed).
    [[nodiscard]] virtual std::optional<FileStamp> Stamp(const std::filesystem::path& file) const = 0;
    [[nodiscard]] virtual bool FolderExists(const std::filesystem::path& folder) const = 0;

    /// The whole content; std::errc::file_too_large beyond `limit` bytes.
    [[nodiscard]] virtual std::error_code ReadAll(const std::filesystem::path& file, std::int64_t limit,
                                                  QByteArray& bytes) const = 0;

    /// Replaces the content, or creates the file, in one step that survives a crash: temporary file beside it, fsync,
    /// rename through a symbolic link to its target, directory fsync. Owner, rights and attributes of an old file are
    /// kept.
    [[nodiscard]] virtual std::error_code ReplaceAll(const std::filesystem::path& file, const QByteArray& bytes) = 0;

    /// Creates the file with this content, its missing folders too; std::errc::file_exists when the name is taken.
    [[nodiscard]] virtual std::error_code CreateNew(const std::filesystem::path& file, const QByteArray& bytes) = 0;

    /// Opens, appends and closes. `create`: create a missing file. Never blocks on a FIFO.
    [[nodiscard]] virtual std::error_code Append(const std::filesystem::path& file, const QByteArray& bytes,
                                                 bool create) = 0;

    /// Moves a file to a free name (std::errc::file_exists otherwise), across devices too: the old file is removed only
    /// when the new one is on disk and the old one has not been written to since
    /// (std::errc::device_or_resource_busy).
    [[nodiscard]] virtual std::error_code MoveAway(const std::filesystem::path& file,
                                                   const std::filesystem::path& target) = 0;

    /// Deletes a regular file, never a folder or a special file.
    [[nodiscard]] virtual std::error_code Delete(const std::filesystem::path& file) = 0;

    /// An entry of the folder whose name equals `name` without regard to letter case; an exact match wins.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    FindIgnoringCase(const std::filesystem::path& folder, const std::filesystem::path& name) const = 0;

    /// True when new files can be made in the folder.
    [[nodiscard]] virtual bool IsWritableFolder(const std::filesystem::path& folder) const = 0;
};
