#include "ChangeDetection.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "Clock.h"
#include "DriveGuard.h"
#include "EngineLock.h"
#include "RunResults.h"
#include "RunSummary.h"
#include "StringTable.h"
#include "SyncTexts.h"
#include "modLogTime.h"
#include "modNativePath.h"

namespace {
/// Any other failure (no permission, no descriptors left) may be gone at the next try.
bool isMissing(std::error_code error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}
} // namespace

RunOutcome ChangeDetection::ProcessActivity(const QString& name, RunStarter starter, NewDrive newDrive,
                                            ApprovedPlan* approved) {
    RunState::Run run(m_services.runState, name);
    m_tools.interruptions.Yield();
    // Held to the end of the run, even if monitoring stops or another file becomes current.
    LockRefusal refusal{};
    const EngineLock::Token lock = m_services.lock.Take(m_services.file.CurrentPath(), refusal);
    if (!lock || !mayRun(name, starter))
        return {.interrupted = true};
    const RunIdentity identity = RunIdentity::Of(m_services.file, name);
    const QString log = m_services.file.Read(name, ActivityField::LogFile);
    m_services.results.Began(identity);
    RunOutcome outcome = process(identity, {log, starter, newDrive, approved}, run);
    const RunResult result = m_services.results.Result(identity, log, outcome, m_services.runState.Counts());
    writeSummary(name, result, outcome);
    m_services.results.Ended(identity, result);
    return outcome;
}

/// Events have run before this: monitoring may be off and the record deleted.
bool ChangeDetection::mayRun(const QString& name, RunStarter starter) const {
    return !m_services.runState.Closing() && m_services.file.Has(name) &&
           (starter == RunStarter::User || m_tools.monitoring.IsOn());
}

RunPlan ChangeDetection::PlanActivity(const QString& name) {
    RunState::Run run(m_services.runState, name);
    m_tools.interruptions.Yield();
    RunPlan plan{.run = RunIdentity::Of(m_services.file, name), .outcome = {}, .acts = {}};
    plan.outcome.interrupted = true;
    if (!mayRun(name, RunStarter::User))
        return plan;
    const Roots roots = open(plan.run);
    if (!roots.source || !roots.destination) {
        const std::error_code error = roots.source ? roots.destinationError : roots.sourceError;
        const QString& directory = roots.source ? plan.run.destination : plan.run.source;
        plan.outcome.directoryMissing = isMissing(error);
        plan.outcome.reason =
            isMissing(error) ? m_services.texts[Text::Directory] + directory + m_services.texts[Text::NotFoundSuspended]
                             : m_tools.texts.Failure(directory, error);
        return plan;
    }
    if (const std::optional<QString> held = m_drives.Find(plan.run, *roots.source, *roots.destination)) {
        plan.outcome.held = true;
        plan.outcome.reason = m_services.texts[Text::RunHeld].arg(*held);
        return plan;
    }
    plan.outcome =
        SyncRun(m_tools, plan.run, RunStarter::User, roots.source, roots.destination, {.plan = &plan.acts}).Run();
    return plan;
}

ChangeDetection::Roots ChangeDetection::open(const RunIdentity& run) {
    Roots roots;
    roots.source = m_services.fileSystem.OpenFolder(modNativePath::Absolute(run.source), roots.sourceError);
    // An activity that only reports needs no destination; nothing is changed in the directory used instead.
    const bool needsNone = run.destination.trimmed().isEmpty() && run.action == u"2";
    const QString destination = needsNone ? QStringLiteral(".") : run.destination;
    roots.destination = m_services.fileSystem.OpenFolder(modNativePath::Absolute(destination), roots.destinationError);
    return roots;
}

RunOutcome ChangeDetection::process(const RunIdentity& identity, const Order& order, RunState::Run& run) {
    const QString& name = identity.name;
    const auto [source, sourceError, destination, error] = open(identity);
    if (source && destination && isHeld(identity, order.newDrive, *source, *destination))
        return {.failures = 1,
                .interrupted = true,
                .held = true,
                .reason = m_services.runState.Held().value(name),
                .logLine = m_tools.logs.EndOf(order.log)};
    m_services.runState.ForgetHeld(name);
    run.Started();
    m_tools.logs.SetActivityStatus(name, m_services.texts[Text::CheckingStarts]);
    m_tools.monitoring.CheckAllIdle();
    if (!source)
        return refuse(name, order.log, identity.source, sourceError);
    if (!destination)
        return refuse(name, order.log, identity.destination, error);
    countRun(name);
    RunOutcome outcome =
        SyncRun(m_tools, identity, order.starter, source, destination, {.approved = order.approved}).Run();
    if (outcome.interrupted)
        return outcome;
    m_drives.Remember(identity, *source, *destination);
    sendMail(identity, order, outcome, *source, *destination);
    if (outcome.failures == 0)
        outcome.logLine = m_tools.logs.EndOf(order.log);
    m_tools.logs.SetActivityStatus(name, m_services.texts[Text::CheckingFinished]);
    return outcome;
}

/// Says so once; after that only the row shows it, so that no log is filled at every tick.
bool ChangeDetection::isHeld(const RunIdentity& run, NewDrive newDrive, const Folder& source,
                             const Folder& destination) {
    const bool wasHeld = m_drives.IsHeld(run);
    if (newDrive == NewDrive::Ok || (newDrive == NewDrive::OkIfTold && wasHeld))
        return false;
    const std::optional<QString> directory = m_drives.Hold(run, source, destination);
    if (!directory)
        return false;
    const QString text = m_services.texts[Text::RunHeld].arg(*directory);
    m_services.runState.SetHeld(run.name, text);
    if (wasHeld) {
        m_services.list.SetText(run.name, ActivityList::Status, text);
    } else {
        m_tools.logs.SetActivityStatus(run.name, text);
        m_tools.logs.WriteAppLog(text);
    }
    return true;
}

/// Only a directory that does not exist is missing. With any other failure the activity stays in monitoring and the run
/// counts as not done.
RunOutcome ChangeDetection::refuse(const QString& name, const QString& log, const QString& directory,
                                   std::error_code error) {
    const std::int64_t line = m_tools.logs.EndOf(log);
    if (isMissing(error))
        return {.directoryMissing = true, .reason = handleMissing(name, directory), .logLine = line};
    const QString reason = m_tools.texts.Failure(directory, error);
    m_tools.logs.SetActivityStatus(name, reason);
    return {.failures = 1, .interrupted = true, .reason = reason, .logLine = line};
}

void ChangeDetection::countRun(const QString& name) {
    const int count = m_services.list.Text(name, ActivityList::Count).toInt();
    m_services.list.SetText(name, ActivityList::Count, QString::number(count + 1));
    m_services.list.SetText(name, ActivityList::LastRun, modLogTime::Text(m_services.clock.Now()));
}

/// The mail may be sent later: what it says of the run is taken now.
void ChangeDetection::sendMail(const RunIdentity& run, const Order& order, const RunOutcome& outcome,
                               const Folder& source, const Folder& destination) {
    const QString& name = run.name;
    if (m_services.file.Read(name, ActivityField::SendMail) != u"1")
        return;
    m_tools.logs.SetActivityStatus(name, m_services.texts[Text::MailSendTo] +
                                             m_services.file.Read(name, ActivityField::Recipient) + u"'");
    RunSummary::Variables variables;
    if (m_services.options.SummaryInMail())
        variables = RunSummary::VariablesOf(
            name, m_services.results.Result(run, order.log, outcome, m_services.runState.Counts()), m_services.texts);
    m_mailer.SendActivityMail(name, modNativePath::ToText(source.Path()), modNativePath::ToText(destination.Path()),
                              variables);
}

/// Not of a run that was held: it did nothing, and would say so at every tick.
void ChangeDetection::writeSummary(const QString& name, const RunResult& result, const RunOutcome& outcome) {
    if (m_services.options.SummaryInLog() && !outcome.held)
        m_tools.logs.WriteActionLineTo(
            result.log, name, m_services.texts[Text::RunSummary].arg(RunSummary::Sentence(result, m_services.texts)));
}

QString ChangeDetection::handleMissing(const QString& name, const QString& directory) {
    const StringTable& texts = m_services.texts;
    const QString start = texts[Text::Directory] + directory;
    const bool isStopped = m_services.options.StopOnMissingFolder();
    QString status = start + texts[isStopped ? Text::NotFoundStopped : Text::NotFoundSuspended];
    if (isStopped)
        m_services.list.TakeOut(name);
    m_tools.logs.SetActivityStatus(name, status);
    m_tools.monitoring.CheckAllIdle();
    m_tools.logs.WriteAppLog(start + texts[Text::NotFoundMonitoring] + name +
                             texts[isStopped ? Text::AutomaticallyStopped : Text::SuspendedForInterval]);
    return status;
}
