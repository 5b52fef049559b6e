#include "ChangeDetection.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "Clock.h"
#include "EngineLock.h"
#include "StringTable.h"
#include "SyncTexts.h"
#include "modLogTime.h"
#include "modNativePath.h"

RunOutcome ChangeDetection::ProcessActivity(const QString& name, RunStarter starter) {
    RunState::Run run(m_services.runState, name);
    const RunOutcome outcome = process(name, starter, run);
    run.Ended(outcome);
    return outcome;
}

/// Events have run before this: monitoring may be off and the record deleted.
bool ChangeDetection::mayRun(const QString& name, RunStarter starter) const {
    return !m_services.runState.Closing() && m_services.file.Has(name) &&
           (starter == RunStarter::User || m_tools.monitoring.IsOn());
}

RunOutcome ChangeDetection::process(const QString& name, RunStarter starter, RunState::Run& run) {
    m_tools.interruptions.Yield();
    // Held to the end of the run, even if monitoring stops or another file becomes current.
    LockRefusal refusal{};
    const EngineLock::Token lock = m_services.lock.Take(m_services.file.CurrentPath(), refusal);
    if (!lock || !mayRun(name, starter))
        return {false, 0, true};
    run.Started();
    m_tools.logs.SetActivityStatus(name, m_services.texts[Text::CheckingStarts]);
    m_tools.monitoring.CheckAllIdle();

    const RunIdentity identity = RunIdentity::Of(m_services.file, name);
    std::error_code error;
    const std::shared_ptr<Folder> source =
        m_services.fileSystem.OpenFolder(modNativePath::Absolute(identity.source), error);
    if (!source)
        return refuse(name, identity.source, error);
    // An activity that only reports needs no destination; nothing is changed in the directory used instead.
    const bool needsNone = identity.destination.trimmed().isEmpty() && identity.action == u"2";
    const QString destinationText = needsNone ? QStringLiteral(".") : identity.destination;
    const std::shared_ptr<Folder> destination =
        m_services.fileSystem.OpenFolder(modNativePath::Absolute(destinationText), error);
    if (!destination)
        return refuse(name, identity.destination, error);
    countRun(name);
    const RunOutcome outcome = SyncRun(m_tools, identity, starter, source, destination).Run();
    if (outcome.interrupted)
        return outcome;
    sendMail(name, *source, *destination);
    m_tools.logs.SetActivityStatus(name, m_services.texts[Text::CheckingFinished]);
    return outcome;
}

/// Only a directory that does not exist is missing. Any other failure (no permission, no descriptors left) may be gone
/// at the next try, so the activity stays in monitoring and the run counts as not done.
RunOutcome ChangeDetection::refuse(const QString& name, const QString& directory, std::error_code error) {
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
        handleMissing(name, directory);
        return {true, 0, false};
    }
    m_tools.logs.SetActivityStatus(name, m_tools.texts.Failure(directory, error));
    return {false, 1, true};
}

void ChangeDetection::countRun(const QString& name) {
    const int count = m_services.list.Text(name, ActivityList::Count).toInt();
    m_services.list.SetText(name, ActivityList::Count, QString::number(count + 1));
    m_services.list.SetText(name, ActivityList::LastRun, modLogTime::Text(m_services.clock.Now()));
}

void ChangeDetection::sendMail(const QString& name, const Folder& source, const Folder& destination) {
    if (m_services.file.Read(name, ActivityField::SendMail) != u"1")
        return;
    m_tools.logs.SetActivityStatus(name, m_services.texts[Text::MailSendTo] +
                                             m_services.file.Read(name, ActivityField::Recipient) + u"'");
    m_mailer.SendActivityMail(name, modNativePath::ToText(source.Path()), modNativePath::ToText(destination.Path()));
}

void ChangeDetection::handleMissing(const QString& name, const QString& directory) {
    const StringTable& texts = m_services.texts;
    const QString start = texts[Text::Directory] + directory;
    if (m_services.options.StopOnMissingFolder()) {
        m_services.list.TakeOut(name);
        m_tools.logs.SetActivityStatus(name, start + texts[Text::NotFoundStopped]);
        m_tools.monitoring.CheckAllIdle();
        m_tools.logs.WriteAppLog(start + texts[Text::NotFoundMonitoring] + name + texts[Text::AutomaticallyStopped]);
        return;
    }
    m_tools.logs.SetActivityStatus(name, start + texts[Text::NotFoundSuspended]);
    m_tools.monitoring.CheckAllIdle();
    m_tools.logs.WriteAppLog(start + texts[Text::NotFoundMonitoring] + name + texts[Text::SuspendedForInterval]);
}
