#include "RunUndo.h"
#include "ActivityFile.h"
#include "ActivityLogs.h"
#include "RunState.h"
#include "RunTrash.h"
#include "SyncTexts.h"
#include "modDateCompare.h"
#include "modNativePath.h"

using modNativePath::ToText;

namespace {
constexpr int mostNotes = 12;
} // namespace

RunUndo::RunUndo(const RunTools& tools, KeptRun run) : m_tools(tools), m_run(std::move(run)) {
    const ActivityFile& file = m_tools.services.file;
    if (file.CurrentPath() == m_run.activityFile && file.Has(m_run.activity))
        m_log = file.Read(m_run.activity, ActivityField::LogFile);
}

UndoOutcome RunUndo::Undo(const std::shared_ptr<Folder>& root) {
    const RunState::Run onStack(m_tools.services.runState, m_run.activity);
    KeptRun undo = RunTrash::NewRun(m_tools.services.clock, m_run.activityFile, m_run.activity, m_run.days);
    undo.isUndo = true;
    Trash trash(root, undo);
    if (const std::error_code error = KeptRuns::Restore(root, m_run.name, trash, *this))
        note(m_tools.texts.Failure(ToText(root->Path()), error));
    if (!trash.Path().empty())
        line(m_tools.texts.KeptIn(ToText(trash.Path()), undo.Until()));
    m_tools.logs.Flush();
    return m_outcome;
}

bool RunUndo::IsAsPlaced(const FileFacts& now, const FileFacts& placed) {
    return now.size == placed.size && modDateCompare::Compare(now.modified, placed.modified) == 0;
}

void RunUndo::Restored(const std::filesystem::path& path) {
    ++m_outcome.restored;
    line(m_tools.texts.Restored(ToText(path)));
}

void RunUndo::NotRestored(const std::filesystem::path& path, std::error_code error) {
    ++m_outcome.left;
    note(m_tools.texts.NotRestored(ToText(path), error));
}

void RunUndo::Progress() {
    m_tools.interruptions.YieldWhenDue();
}

bool RunUndo::StopRequested() {
    const RunState& state = m_tools.services.runState;
    m_outcome.isInterrupted = state.Closing() || state.Progress().mustStop;
    return m_outcome.isInterrupted;
}

void RunUndo::note(const QString& text) {
    if (m_outcome.notes.size() < mostNotes)
        m_outcome.notes.append(text);
    line(text);
}

void RunUndo::line(const QString& text) {
    m_tools.logs.WriteActionLineTo(m_log, m_run.activity, text);
}
