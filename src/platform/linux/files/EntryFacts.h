// Turns what the system tells of an entry into FileFacts. Free functions, no state; failures are error codes.
#pragma once

#include "FileFacts.h"
#include <sys/stat.h>
#include <system_error>

/// Nanoseconds since 1970, held at the ends of the range (years 1678 to 2262).
[[nodiscard]] std::int64_t ToNanoseconds(const struct timespec& time);

[[nodiscard]] FileId IdOf(const struct stat& status);

/// The step in which the file system behind the descriptor stores times, in nanoseconds: 2 s on FAT, else 1.
[[nodiscard]] std::int64_t TimeStepOf(int descriptor);

/// Facts of the entry `name` of an open folder, links followed. `device` and `timeStep` are the folder's own. A link to
/// a file is followed only where its owner is this process's user or the owner of the file (EACCES otherwise): a run
/// with privileges would else publish what the maker of the link may not read. A dangling link is Special.
[[nodiscard]] std::error_code ReadEntryFacts(int folder, const char* name, std::uint64_t device, std::int64_t timeStep,
                                             FileFacts& facts);

/// True when `status` is a regular file with the identity, size and modification time of `facts`.
[[nodiscard]] bool IsUnchanged(const FileFacts& facts, const struct stat& status);
