#include "ChangeDetection.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "Clock.h"
#include "DriveGuard.h"
#include "DriveMark.h"
#include "EngineLock.h"
#include "OwnPlaces.h"
#include "Prompter.h"
#include "RunBrake.h"
#include "RunResults.h"
#include "RunSummary.h"
#include "StringTable.h"
#include "SyncTexts.h"
#include "modLogTime.h"
#include "modNativePath.h"

#include <utility>

namespace {
/// Any other failure (no permission, no descriptors left) may be gone at the next try.
bool isMissing(std::error_code error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

/// An activity that only reports needs no destination.
bool needsNoDestination(const RunIdentity& run) {
    return run.destination.trimmed().isEmpty() && run.action == u"2";
}

/// A folder that is not there may be on the drive that is not there.
bool isOffItsDrive(const Folder* folder, std::error_code error, const QString& mark) {
    return folder != nullptr ? !DriveMark::Fits(mark, folder->Drive()) : isMissing(error);
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
    if (const std::optional<QString> held = offItsDrive(plan.run, roots)) {
        plan.outcome.held = true;
        plan.outcome.reason = *held;
        return plan;
    }
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
    // Nothing is changed in the directory used instead.
    const QString destination = needsNoDestination(run) ? QStringLiteral(".") : run.destination;
    roots.destination = m_services.fileSystem.OpenFolder(modNativePath::Absolute(destination), roots.destinationError);
    return roots;
}

RunOutcome ChangeDetection::process(const RunIdentity& identity, const Order& order, RunState::Run& run) {
    const QString& name = identity.name;
    Roots roots = open(identity);
    if (std::optional<RunOutcome> held = findHold(identity, order.newDrive, roots))
        return *held;
    std::optional<RunBrake> brake;
    if (order.approved == nullptr && roots.source && roots.destination)
        brake = RunBrake::Of(m_services.file, identity);
    if (brake)
        if (std::optional<RunOutcome> ended = askBrake(identity, order, roots, *brake))
            return *ended;
    m_services.runState.ForgetHeld(name);
    run.Started();
    m_tools.logs.SetActivityStatus(name, m_services.texts[Text::CheckingStarts]);
    m_tools.monitoring.CheckAllIdle();
    if (!roots.source)
        return refuse(name, order.log, identity.source, roots.sourceError);
    if (!roots.destination)
        return refuse(name, order.log, identity.destination, roots.destinationError);
    countRun(name);
    return work(identity, order, roots, brake ? &*brake : nullptr);
}

RunOutcome ChangeDetection::work(const RunIdentity& identity, const Order& order, const Roots& roots, RunBrake* brake) {
    const QString& name = identity.name;
    RunOutcome outcome =
        SyncRun(m_tools, identity, order.starter, roots.source, roots.destination,
                {.approved = order.approved, .brake = brake, .expires = mayHaveExpired(*roots.destination)})
            .Run();
    if (outcome.interrupted)
        return outcome;
    m_drives.Remember(identity, *roots.source, *roots.destination);
    sendMail(identity, order, outcome, *roots.source, *roots.destination);
    if (outcome.failures == 0)
        outcome.logLine = m_tools.logs.EndOf(order.log);
    m_tools.logs.SetActivityStatus(name, m_services.texts[Text::CheckingFinished]);
    return outcome;
}

/// A trash may hold the folders of very many runs, and its days are long: one look an hour is enough.
bool ChangeDetection::mayHaveExpired(const Folder& destination) {
    const auto now = m_services.clock.MonotonicNow();
    const auto [looked, isFirst] = m_trashLooks.try_emplace(destination.Id(), now);
    if (!isFirst && now - looked->second < std::chrono::hours(1))
        return false;
    looked->second = now;
    return true;
}

std::optional<RunOutcome> ChangeDetection::findHold(const RunIdentity& run, NewDrive newDrive, const Roots& roots) {
    if (const std::optional<QString> held = offItsDrive(run, roots))
        return hold(run.name, *held, m_services.runState.Held().value(run.name) == *held);
    const bool wasHeld = m_drives.IsHeld(run);
    if (!roots.source || !roots.destination || newDrive == NewDrive::Ok || (newDrive == NewDrive::OkIfTold && wasHeld))
        return std::nullopt;
    const std::optional<QString> directory = m_drives.Hold(run, *roots.source, *roots.destination);
    if (!directory)
        return std::nullopt;
    return hold(run.name, m_services.texts[Text::RunHeld].arg(*directory), wasHeld);
}

/// Why an activity that runs on its own drives only cannot run now.
std::optional<QString> ChangeDetection::offItsDrive(const RunIdentity& run, const Roots& roots) const {
    const auto read = [&](ActivityField field) { return m_services.file.Read(run.name, field); };
    if (read(ActivityField::OnlyOnDrives) != u"1")
        return std::nullopt;
    const QString from = read(ActivityField::SourceDrive);
    const QString to = read(ActivityField::TargetDrive);
    const bool isSourceOff = isOffItsDrive(roots.source.get(), roots.sourceError, from);
    if (!isSourceOff &&
        (needsNoDestination(run) || !isOffItsDrive(roots.destination.get(), roots.destinationError, to)))
        return std::nullopt;
    const QString drive = DriveMark::Spoken(isSourceOff ? from : to);
    return m_services.texts[Text::RunHeldByDrive].arg(isSourceOff ? run.source : run.destination,
                                                      drive.isEmpty() ? m_services.texts[Text::DriveNotKnown] : drive);
}

/// Says so once; after that only the row shows it, so that no log is filled at every tick.
RunOutcome ChangeDetection::hold(const QString& name, const QString& reason, bool isKnown) {
    m_services.runState.SetHeld(name, reason);
    if (isKnown) {
        m_services.list.SetText(name, ActivityList::Status, reason);
    } else {
        m_tools.logs.SetActivityStatus(name, reason);
        m_tools.logs.WriteAppLog(reason);
    }
    return {.failures = 1,
            .interrupted = true,
            .held = true,
            .reason = reason,
            .logLine = m_tools.logs.EndOf(m_services.file.Read(name, ActivityField::LogFile))};
}

/// Without what the schedulers write there.
ActivityRecord ChangeDetection::recordOf(const QString& name) const {
    ActivityRecord record = ActivityRecord::Read(m_services.file, name);
    record.SetText(ActivityField::ExceedTime, {});
    record.SetText(ActivityField::Active, {});
    return record;
}

/// Finds out what the run would do, and asks about it where that is too much. A refusal counts until the record is
/// another one, there is less to do, or the user starts the run. Returns nothing when the run may begin.
std::optional<RunOutcome> ChangeDetection::askBrake(const RunIdentity& run, const Order& order, Roots& roots,
                                                    RunBrake& brake) {
    std::vector<PlannedAct> acts;
    const RunOutcome plan =
        SyncRun(m_tools, run, order.starter, roots.source, roots.destination, {.plan = &acts, .brake = &brake}).Run();
    m_services.runState.Counts() = {};
    brake.Count(acts, m_tools.ownPlaces.Logs(m_services.file.Read(run.name, ActivityField::LogFile)));
    acts = {};
    const std::pair key{run.activityFile, run.name};
    const auto begin = [&] { // it may have been an hour, and an open folder may show what was there before
        roots = open(run);
        return findHold(run, order.newDrive, roots);
    };
    if (plan.interrupted) // so will the run be, at the latest by a file too many
        return begin();
    if (!brake.IsOver()) {
        m_refused.erase(key);
        return begin();
    }
    const ActivityRecord record = recordOf(run.name);
    const auto refused = m_refused.find(key);
    const bool isRefused =
        order.starter == RunStarter::Schedule && refused != m_refused.end() && refused->second == record;
    const QString held = m_tools.texts.HeldByBrake(run.name, brake);
    if (isRefused)
        return hold(run.name, held, true);
    m_refused[key] = record; // a tick in the box must not ask a second time
    const MessageAnswer answer = m_tools.interruptions.Ask(m_tools.texts.BrakeQuestion(run.name, brake));
    if (answer == MessageAnswer::Yes)
        m_refused.erase(key);
    if (!mayRun(run.name, order.starter))
        return RunOutcome{.interrupted = true};
    if (RunIdentity::Of(m_services.file, run.name) != run || recordOf(run.name) != record) {
        const QString reason = m_tools.texts.EndedEarly(RunEnd::RecordChanged);
        m_tools.logs.WriteAppLog(u'\'' + run.name + u"': " + reason);
        return RunOutcome{.failures = 1, .interrupted = true, .reason = reason};
    }
    if (answer != MessageAnswer::Yes)
        return hold(run.name, held, false);
    brake.AllowCounted();
    return begin();
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
