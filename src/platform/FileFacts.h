// The facts of one directory entry at one moment. Plain values.
#pragma once

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <tuple>

/// A modification time. `granularity` is the step in which the file system stores times, where the digits do not show
/// it (2 s on FAT); 1 where it is unknown.
struct FileTime {
    std::int64_t nanoseconds = 0; ///< since 1970-01-01 UTC, may be negative
    std::int64_t granularity = 1; ///< nanoseconds, at least 1
};

/// Identifies one file or folder among all on this machine.
struct FileId {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    bool operator==(const FileId&) const = default;
    bool operator<(const FileId& other) const { return std::tie(device, inode) < std::tie(other.device, other.inode); }
};

enum class EntryKind {
    File,       ///< a regular file, or a link to one
    Folder,     ///< a directory
    FolderLink, ///< a link to a directory: neither entered, transferred nor deleted
    Special,    ///< FIFO, socket, device or dangling link: left alone
    Unknown     ///< it exists, but stat() failed or it must not be followed; `error` says why
};

struct FileFacts {
    EntryKind kind = EntryKind::Special;
    bool isLink = false;    ///< the entry itself is a symbolic link; the other fields describe its target
    FileId id{};            ///< of the target where the entry is a link
    std::uint64_t size = 0; ///< bytes
    FileTime modified{};
    std::uint32_t mode = 0;   ///< permission bits
    std::int64_t changed = 0; ///< when its content or attributes changed last: nanoseconds since 1970-01-01 UTC
    std::error_code error{};  ///< of an Unknown entry

    /// True for the same entry with the same content, as far as the facts tell. An empty id matches any: a staged file
    /// is not in place yet, and the file system may truncate its time then.
    [[nodiscard]] bool IsSameAs(const FileFacts& other) const {
        const bool isIdKnown = id != FileId{} && other.id != FileId{};
        return kind == other.kind && isLink == other.isLink && size == other.size &&
               (isIdKnown ? id == other.id && modified.nanoseconds == other.modified.nanoseconds : true);
    }
};

struct FolderEntry {
    std::filesystem::path name; ///< one component, native bytes
    FileFacts facts;
};
