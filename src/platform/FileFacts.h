// What is known of one directory entry at one moment. Plain values.
#pragma once

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <tuple>

/// A modification time. `granularity` is the coarsest step the file system is known to store beyond what the digits
/// show (2 s on FAT), 1 where nothing is known.
struct FileTime {
    std::int64_t nanoseconds = 0; ///< since 1970-01-01 UTC, may be negative
    std::int64_t granularity = 1; ///< nanoseconds, at least 1
};

/// Tells one file or folder from every other on this machine.
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
    Unknown     ///< there, but it could not be looked at or may not be followed; `error` says why
};

struct FileFacts {
    EntryKind kind = EntryKind::Special;
    bool isLink = false;    ///< the entry itself is a symbolic link; the other fields tell of its target
    FileId id{};            ///< of the target where the entry is a link
    std::uint64_t size = 0; ///< bytes
    FileTime modified{};
    std::uint32_t mode = 0;  ///< permission bits
    std::error_code error{}; ///< of an Unknown entry

    /// The same entry with the same content, as far as its facts tell. An empty id stands for any: a file that was
    /// staged is not in place yet, and its time may be cut when it is.
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
