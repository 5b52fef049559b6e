#include "RunTrash.h"
#include "ActivityFile.h"
#include "Clock.h"
#include "LocalTime.h"
#include "SyncRun.h"
#include "SyncTexts.h"
#include "modNativePath.h"

#include <algorithm>

namespace {

std::chrono::sys_seconds now(const Clock& clock) {
    return std::chrono::floor<std::chrono::seconds>(clock.Now());
}

/// "2026-11-22 17-30-45", local time.
QString folderName(std::chrono::sys_seconds time) {
    constexpr int firstYear = 1900;
    const std::tm parts = LocalTime::Parts(time.time_since_epoch().count());
    return QString::asprintf("%04d-%02d-%02d %02d-%02d-%02d", parts.tm_year + firstYear, parts.tm_mon + 1,
                             parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec);
}

} // namespace

KeptRun RunTrash::NewRun(const Clock& clock, const QString& activityFile, const QString& activity, int days) {
    const std::chrono::sys_seconds began = now(clock);
    return {.name = modNativePath::FromText(folderName(began)),
            .activityFile = activityFile,
            .activity = activity,
            .began = began,
            .days = days};
}

RunTrash::RunTrash(SyncRun& run, std::shared_ptr<Folder> root, bool expires)
    : m_run(run), m_root(std::move(root)), m_expires(expires) {
    const EngineServices& services = run.Tools().services;
    const RunIdentity& identity = run.Identity();
    const int days = std::min(services.file.Read(identity.name, ActivityField::KeepDays).toInt(), KeptRun::MostDays);
    if (days <= 0 || run.IsPlanning())
        return;
    m_kept = NewRun(services.clock, identity.activityFile, identity.name, days);
    m_trash.emplace(m_root, m_kept);
}

std::error_code RunTrash::Delete(Folder& folder, const FolderEntry& entry) {
    Trash::KeptFile kept;
    if (m_trash)
        return m_trash->Keep(folder, entry, std::nullopt, kept);
    return entry.facts.kind == EntryKind::Folder ? folder.DeleteEmptyFolder(entry.name) : folder.DeleteFile(entry);
}

void RunTrash::Finish() {
    if (m_trash && !m_trash->Path().empty()) {
        if (const std::error_code error = m_trash->Sync())
            m_run.Failed(m_trash->Path(), error);
        m_run.Line(m_run.Tools().texts.KeptIn(modNativePath::ToText(m_trash->Path()), m_kept.Until()));
    }
    if (m_expires && !m_run.Over() && m_run.Rules().action != FileAction::None)
        KeptRuns::RemoveExpired(m_root, now(m_run.Tools().services.clock), m_run);
}
