// The journal of a run's trash: JSON values (RFC 8259), one to a line. The first tells of the run, each further one of
// a kept file or folder, written before it is taken away. A line that cannot be read is passed over: the kept files
// themselves lie under the paths that they had.
#pragma once

#include "FileFacts.h"
#include "KeptRun.h"

#include <QByteArray>
#include <map>
#include <optional>

struct JournalLine {
    std::filesystem::path kept;      ///< relative to the kept files
    std::filesystem::path name;      ///< the last part of its path, where `kept` has another one; else empty
    std::optional<FileFacts> placed; ///< size and time of what took its place
};

namespace TrashJournal {

constexpr const char* FileName = "journal";
constexpr const char* FilesName = "files"; ///< the folder of what is kept

[[nodiscard]] QByteArray Text(const KeptRun& run);
[[nodiscard]] QByteArray Text(const JournalLine& line);

/// Of the run whose folder is `run`; nullopt when its journal does not tell.
[[nodiscard]] std::optional<KeptRun> ReadRun(const std::filesystem::path& run);

/// By what is kept.
[[nodiscard]] std::map<std::filesystem::path, JournalLine> ReadLines(const std::filesystem::path& run);

} // namespace TrashJournal
