#include "ChangeDetection.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "ActivityMailer.h"
#include "Clock.h"
#include "EngineOptions.h"
#include "EventPump.h"
#include "MonitoringSwitch.h"
#include "StringTable.h"
#include "SyncTexts.h"
#include "modLogTime.h"
#include "modNativePath.h"

namespace {
/// Counts the runs on the stack, whatever way a run ends.
class DepthGuard final {
  public:
    explicit DepthGuard(RunState& state) : m_state(state) { ++m_state.depth; }
    ~DepthGuard() { --m_state.depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

  private:
    RunState& m_state;
};
} // namespace

RunOutcome ChangeDetection::ProcessActivity(const QString& name) {
    const DepthGuard guard(m_parts.runState);
    const RunOutcome outcome = process(name);
    m_parts.runState.anyFailed |= outcome.directoryMissing || outcome.failures > 0;
    return outcome;
}

RunOutcome ChangeDetection::process(const QString& name) {
    m_parts.pump.Yield();
    ++m_parts.runState.eventsRan;
    if (m_parts.runState.closing || !m_parts.file.Has(name))
        return {false, 0, true};
    m_parts.runState.lastProcessed = name;
    m_parts.logs.SetActivityStatus(name, m_parts.texts.Text(236));
    m_parts.monitoring.CheckAllIdle();

    const QString sourceText = m_parts.file.Read(name, "sourcedir");
    const std::shared_ptr<Folder> source = openDirectory(sourceText);
    if (!source) {
        handleMissing(name, sourceText);
        return {true, 0, false};
    }
    QString destinationText = m_parts.file.Read(name, "targetdir");
    // An activity that only reports needs no destination; nothing is changed in the directory that stands in for it.
    if (destinationText.trimmed().isEmpty() && m_parts.file.Read(name, "action") == u"2")
        destinationText = QStringLiteral(".");
    const std::shared_ptr<Folder> destination = openDirectory(destinationText);
    if (!destination) {
        handleMissing(name, destinationText);
        return {true, 0, false};
    }
    countRun(name);
    const RunOutcome outcome = synchronise(name, source, destination);
    if (outcome.interrupted)
        return outcome;
    sendMail(name, *source, *destination);
    m_parts.logs.SetActivityStatus(name, m_parts.texts.Text(242));
    return outcome;
}

std::shared_ptr<Folder> ChangeDetection::openDirectory(const QString& text) const {
    const std::filesystem::path path = modNativePath::Absolute(text);
    if (path.empty())
        return nullptr;
    std::error_code error;
    return m_parts.fileSystem.OpenFolder(path, error);
}

void ChangeDetection::countRun(const QString& name) {
    const int count = m_parts.list.Text(name, ActivityList::Count).toInt();
    m_parts.list.SetText(name, ActivityList::Count, QString::number(count + 1));
    m_parts.list.SetText(name, ActivityList::LastRun, modLogTime::Text(m_parts.clock.Now()));
}

RunOutcome ChangeDetection::synchronise(const QString& name, const std::shared_ptr<Folder>& source,
                                        const std::shared_ptr<Folder>& destination) {
    RunContext run({m_parts.file, m_parts.logs, m_parts.syncTexts, m_parts.pump, m_parts.clock, m_parts.fileSystem,
                    m_parts.runState},
                   name, source, destination);
    SyncFilesAndFolders(run, source, destination);
    run.Transfer().Commit();
    return run.Outcome();
}

void ChangeDetection::SyncFilesAndFolders(RunContext& run, std::shared_ptr<Folder> source,
                                          std::shared_ptr<Folder> destination) {
    m_parts.actions.AbortTest(run);
    if (run.Over())
        return;
    FolderPair pair(std::move(source), std::move(destination), m_parts.runState);
    m_parts.actions.SyncFiles(run, pair);
    if (run.Over() || m_parts.file.Read(run.Name(), "includesubdirs") != u"Y")
        return;
    m_parts.actions.SyncFolders(run, pair,
                                [this](RunContext& inner, std::shared_ptr<Folder> from, std::shared_ptr<Folder> to) {
                                    SyncFilesAndFolders(inner, std::move(from), std::move(to));
                                });
}

void ChangeDetection::sendMail(const QString& name, const Folder& source, const Folder& destination) {
    if (m_parts.file.Read(name, "sendmail") != u"1")
        return;
    m_parts.logs.SetActivityStatus(name, m_parts.texts.Text(241) + m_parts.file.Read(name, "recipient") + u"'");
    m_parts.mailer.SendActivityMail(name, modNativePath::ToText(source.Path()),
                                    modNativePath::ToText(destination.Path()));
}

void ChangeDetection::handleMissing(const QString& name, const QString& directory) {
    const StringTable& texts = m_parts.texts;
    const QString start = texts.Text(237) + directory;
    if (m_parts.options.StopOnMissingFolder()) {
        m_parts.list.TakeOut(name);
        m_parts.logs.SetActivityStatus(name, start + texts.Text(238));
        m_parts.monitoring.CheckAllIdle();
        m_parts.logs.WriteAppLog(start + texts.Text(239) + name + texts.Text(240));
        return;
    }
    m_parts.logs.SetActivityStatus(name, start + texts.Text(430));
    m_parts.monitoring.CheckAllIdle();
    m_parts.logs.WriteAppLog(start + texts.Text(239) + name + texts.Text(431));
}
