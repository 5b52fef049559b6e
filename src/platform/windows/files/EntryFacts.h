// What the entries of a folder are to the engine. Failures are error codes.
#pragma once

#include "SystemCall.h"

#include <filesystem>

namespace EntryFacts {

/// Nanoseconds since 1970 of a time in 100 ns since 1601, clamped to the range (years 1678 to 2262).
[[nodiscard]] std::int64_t Nanoseconds(std::int64_t time);

[[nodiscard]] EntryKind KindOf(const EntryStatus& status);
[[nodiscard]] FileFacts Of(const EntryStatus& status, std::int64_t timeStep);

/// The step in which the file system of an open entry stores times, in nanoseconds: 2 s on FAT, else 1.
[[nodiscard]] std::int64_t TimeStepOf(HANDLE entry);

/// Facts of the entry `name` of an open folder, links to files followed. A link is followed only if its owner is this
/// process's user, one of its groups, or the file's owner (std::errc::permission_denied otherwise): a privileged run
/// would publish files that the maker of the link may not read. A dangling link is Special.
[[nodiscard]] std::error_code Read(HANDLE folder, const std::filesystem::path& name, std::int64_t timeStep,
                                   FileFacts& facts);

/// True for the same file with the same size and times.
[[nodiscard]] bool IsSameContent(const EntryStatus& before, const EntryStatus& now);

} // namespace EntryFacts
