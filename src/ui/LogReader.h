// Reads parts of a log, however long the log and its lines are: each call looks through a few MiB at most and keeps no
// file open. Whatever the path names, reading never waits for a writer; what cannot be read is an error code. A value:
// may be copied to another thread.
#pragma once

#include "LogPart.h"
#include <filesystem>
#include <memory>

class QFile;

class LogReader final {
  public:
    /// Without `kinds` every line is Other; without `wanted` every line is wanted.
    explicit LogReader(std::filesystem::path file, std::shared_ptr<const LogKinds> kinds = nullptr,
                       LogKindSet wanted = {});

    /// The wanted lines at the end of the log.
    [[nodiscard]] LogPart Last() const;
    /// Those before and from this byte on, which is where a line or another part begins.
    [[nodiscard]] LogPart Before(qint64 end) const;
    [[nodiscard]] LogPart From(qint64 begin) const;
    /// Those before and behind the beginning of the line that holds this byte.
    [[nodiscard]] LogPart Around(qint64 position) const;
    /// No line, only what the log is now.
    [[nodiscard]] LogPart Look() const;

  private:
    struct Open;
    void readBefore(Open& log, LogPart& part) const;
    void readBehind(Open& log, LogPart& part) const;
    [[nodiscard]] std::vector<LogLine> linesOf(QByteArrayView bytes, qint64 offset, bool isLast) const;
    void addPieces(std::vector<LogLine>& lines, QByteArrayView line, LogLine whole) const;
    template <typename Read>
    [[nodiscard]] LogPart read(Read read) const;

    std::filesystem::path m_file;
    std::shared_ptr<const LogKinds> m_kinds;
    LogKindSet m_wanted;
};
