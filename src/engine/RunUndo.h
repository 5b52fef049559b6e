// Brings back what one run has deleted or replaced, from the trash of its destination. Says in the activity's log what
// came back and what did not; what did not stays in the trash. Events run inside.
#pragma once

#include "KeptRuns.h"
#include "RunTools.h"

#include <QStringList>

struct UndoOutcome {
    int restored = 0;       ///< files, and folders that were missing
    int left = 0;           ///< in the trash
    QStringList notes = {}; ///< why they are left, or why nothing could be done; not more than a screen shows
    bool isInterrupted = false;

    [[nodiscard]] bool Succeeded() const { return left == 0 && notes.isEmpty() && !isInterrupted; }
};

class RunUndo final : private RestoreObserver {
  public:
    RunUndo(const RunTools& tools, KeptRun run);

    /// `root`: of the destination.
    [[nodiscard]] UndoOutcome Undo(const std::shared_ptr<Folder>& root);

  private:
    [[nodiscard]] bool IsAsPlaced(const FileFacts& now, const FileFacts& placed) override;
    void Restored(const std::filesystem::path& path) override;
    void NotRestored(const std::filesystem::path& path, std::error_code error) override;
    void Progress() override;
    [[nodiscard]] bool StopRequested() override;

    void note(const QString& text);
    void line(const QString& text);

    RunTools m_tools;
    KeptRun m_run;
    QString m_log; ///< of the activity; empty where it has none, or is not in the current file
    UndoOutcome m_outcome;
};
