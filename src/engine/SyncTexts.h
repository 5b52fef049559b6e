// The log lines and the question of the file work, composed from the string table.
#pragma once

#include "FileFacts.h"
#include "SyncRules.h"
#include <QString>
#include <chrono>
#include <system_error>

class RunBrake;
class StringTable;
enum class RunEnd;
enum class Text;
struct Message;

/// One of the two files of a pair.
struct FileSide {
    QString path;
    FileFacts facts;
};

class SyncTexts final {
  public:
    explicit SyncTexts(const StringTable& texts) : m_texts(texts) {}

    [[nodiscard]] QString NoAction(const QString& path) const;
    [[nodiscard]] QString New(FileAction action, const FileSide& source, const QString& destination) const;
    [[nodiscard]] QString Replacement(const FileRules& rules, const FileSide& source,
                                      const FileSide& destination) const;
    [[nodiscard]] QString NotNewer(const FileSide& source, const FileSide& destination) const;
    [[nodiscard]] QString FinishingMove(const QString& source, const QString& destination) const;
    [[nodiscard]] QString Declined(const QString& source) const;
    [[nodiscard]] QString DeletingFile(const QString& path) const;
    [[nodiscard]] QString DeletingFolder(const QString& path) const;
    [[nodiscard]] QString TransferringFolder(const QString& source, const QString& destination) const;

    // What a run leaves alone, and why it ended early.
    [[nodiscard]] QString OwnFile(const QString& path) const;
    [[nodiscard]] QString OtherMount(const QString& path) const;
    [[nodiscard]] QString NestedRoot(const QString& path) const;
    /// Of files that have not been left untouched for as long as `settle`.
    [[nodiscard]] QString LeftOut(int files, std::chrono::seconds settle, const QString& first) const;
    [[nodiscard]] QString TooDeep(const QString& path) const;
    [[nodiscard]] QString EndedEarly(RunEnd reason) const;

    /// Why a run that would delete or replace too much is not begun, and the question before.
    [[nodiscard]] QString HeldByBrake(const QString& name, const RunBrake& brake) const;
    [[nodiscard]] Message BrakeQuestion(const QString& name, const RunBrake& brake) const;

    // What a run has kept.
    [[nodiscard]] QString KeptIn(const QString& folder, std::chrono::system_clock::time_point until) const;
    [[nodiscard]] QString Restored(const QString& path) const;
    [[nodiscard]] QString NotRestored(const QString& path, std::error_code error) const;

    /// A locked file has a text of its own; any other error is named by the system's number.
    [[nodiscard]] QString Failure(const QString& source, std::error_code error) const;

    /// Asks before an older file replaces a newer one.
    [[nodiscard]] Message OverwriteQuestion(const FileSide& source, const FileSide& destination) const;

  private:
    [[nodiscard]] QString withCounts(Text text, const QString& name, const RunBrake& brake) const;

    const StringTable& m_texts;
};
