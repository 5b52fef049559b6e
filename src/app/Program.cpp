#include "Program.h"
#include "ActivityLogs.h"
#include "ActivityMail.h"
#include "ChangeDetection.h"
#include "ChangeWatch.h"
#include "DueMarks.h"
#include "Interruptions.h"
#include "KeyState.h"
#include "MailSettings.h"
#include "NextRuns.h"
#include "OwnPlaces.h"
#include "PlannedRuns.h"
#include "Prompter.h"
#include "Reactions.h"
#include "SafeExit.h"
#include "Schedulers.h"
#include "SyncTexts.h"
#include "modNativePath.h"

namespace {
const QString acceptedKey = QStringLiteral("Accepted");
} // namespace

/// The parts of the engine, each built on the ones above it.
struct Program::Engine {
    Engine(Program& program, const KeyState& keys)
        : services{.file = program.m_file,
                   .list = program.m_list,
                   .options = program.m_options,
                   .texts = program.m_texts,
                   .prompter = program.m_prompter,
                   .runState = program.m_runState,
                   .results = program.m_results,
                   .lock = program.m_lock,
                   .clock = *program.m_services.clock,
                   .fileSystem = *program.m_services.fileSystem,
                   .ownFiles = *program.m_services.ownFiles,
                   .process = *program.m_services.process,
                   .power = *program.m_services.power},
          syncTexts(services.texts), interruptions(services.prompter, *program.m_services.eventPump, services.clock),
          ownPlaces(services,
                    {program.m_services.settings->FileOf(SettingsStore::OwnApplication),
                     program.m_services.settings->FileOf(MailSettings::Application)},
                    program.m_services.locks->Place()),
          logs(services, ownPlaces), reactions(services, logs, interruptions),
          mail({.file = services.file,
                .logs = logs,
                .mail = program.Mail(),
                .desktop = *program.m_services.desktopMail,
                .texts = services.texts,
                .runState = services.runState}),
          safeExit(services, keys, interruptions), dueMarks(services.file, services.list),
          facts(services.file, services.list, dueMarks, QLocale::system()),
          plans(services, facts, program.m_services.locks->Place()),
          monitoring(services, logs, dueMarks, plans, program.m_timers), tools{.services = services,
                                                                               .logs = logs,
                                                                               .reactions = reactions,
                                                                               .safeExit = safeExit,
                                                                               .monitoring = monitoring,
                                                                               .ownPlaces = ownPlaces,
                                                                               .texts = syncTexts,
                                                                               .interruptions = interruptions},
          changes(tools, mail, program.m_services.locks->Place()),
          watch(services, *program.m_services.folderWatches, logs, ownPlaces, program.m_services.locks->Place()),
          nextRuns(services, dueMarks, facts, plans, watch, monitoring, program.m_timers),
          schedulers(services, logs, changes, watch, dueMarks, facts, plans, nextRuns, monitoring) {
        schedulers.ConnectTo(program.m_timers);
        QObject::connect(&monitoring, &MonitoringController::StateChanged, &schedulers, [this] { watch.Stop(); });
    }

    EngineServices services;
    SyncTexts syncTexts;
    Interruptions interruptions;
    OwnPlaces ownPlaces;
    ActivityLogs logs;
    Reactions reactions;
    ActivityMail mail;
    SafeExit safeExit;
    DueMarks dueMarks;
    DueFacts facts;
    PlannedRuns plans;
    MonitoringController monitoring;
    RunTools tools;
    ChangeDetection changes;
    ChangeWatch watch;
    NextRuns nextRuns;
    Schedulers schedulers;
};

Program::Program(PlatformServices& services, Prompter& prompter, const KeyState& keys, const StringTable& texts)
    : m_services(services), m_prompter(prompter), m_texts(texts), m_document(*services.ownFiles),
      m_options(*services.settings), m_file(m_document, *services.ownFiles, prompter, texts, services.places),
      m_list(m_file, texts, QLocale::system()), m_timers(*services.clock),
      m_results(m_file, *services.ownFiles, *services.clock, services.locks->Place()),
      m_history(m_file, *services.ownFiles, services.locks->Place()),
      m_notices(m_results,
                {.options = m_options, .texts = texts, .clock = *services.clock, .notifier = *services.notifier}),
      m_lock(*services.locks, *services.ownFiles), m_service(*services.serviceManager, prompter, texts),
      m_engine(std::make_unique<Engine>(*this, keys)) {
    QObject::connect(&m_results, &RunResults::RunEnded, &m_history, &RunHistory::Add);
}

Program::~Program() = default;

MonitoringController& Program::Monitoring() {
    return m_engine->monitoring;
}

const NextRuns& Program::Next() const {
    return m_engine->nextRuns;
}

MailServices Program::Mail() {
    return {.settings = *m_services.settings,
            .names = *m_services.nameService,
            .clock = *m_services.clock,
            .passwords = *m_services.passwords,
            .texts = m_texts};
}

QString Program::Title() {
    const QStringList parts = QStringLiteral(KALVENOR_VERSION).split(u'.');
    return u"Kalvenor Pro " + parts.value(0) + u'.' + parts.value(1);
}

QString Program::Caption() const {
    return Title() + u"  [" + m_file.CurrentPath() + u']';
}

bool Program::IsNoticeAccepted() const {
    return m_services.settings->Read(SettingsStore::OwnApplication, SettingsStore::OptionsSection, acceptedKey) ==
           QStringLiteral("Yes");
}

std::error_code Program::AcceptNotice() {
    return m_services.settings->Write(SettingsStore::OwnApplication, SettingsStore::OptionsSection, acceptedKey,
                                      QStringLiteral("Yes"));
}

EngineLock::Token Program::LockForRunNow() {
    LockRefusal refusal{};
    EngineLock::Token lock = m_lock.Take(m_file.CurrentPath(), refusal);
    if (!lock)
        m_prompter.Ask({lockRefused(refusal, m_file.CurrentPath()), m_texts[Text::StartNowTitle],
                        MessageIcon::Exclamation, MessageButtons::Ok});
    return lock;
}

QString Program::lockRefused(LockRefusal refusal, const QString& path) const {
    return refusal == LockRefusal::HeldElsewhere ? m_texts[Text::RunRefused].arg(path) : m_texts[Text::NoLockPossible];
}

RunPlan Program::Preview(const QString& name) {
    return m_engine->changes.PlanActivity(name);
}

std::vector<KeptRun> Program::KeptIn(const std::filesystem::path& destination) const {
    std::error_code error;
    const std::shared_ptr<Folder> root = m_services.fileSystem->OpenFolder(destination, error);
    return root ? KeptRuns::Of(*root) : std::vector<KeptRun>();
}

UndoOutcome Program::Undo(const std::filesystem::path& destination, const KeptRun& run) {
    const auto refused = [](const QString& why) { return UndoOutcome{.notes = {why}, .isInterrupted = true}; };
    LockRefusal refusal{};
    const EngineLock::Token lock = m_lock.Take(run.activityFile, refusal);
    if (!lock)
        return refused(lockRefused(refusal, run.activityFile));
    std::error_code error;
    const std::shared_ptr<Folder> root = m_services.fileSystem->OpenFolder(destination, error);
    if (!root)
        return refused(m_engine->syncTexts.Failure(modNativePath::ToText(destination), error));
    return RunUndo(m_engine->tools, run).Undo(root);
}

RunOutcome Program::RunNow(const QString& name, NewDrive newDrive, ApprovedPlan* approved) {
    const EngineLock::Token lock = LockForRunNow();
    if (!lock)
        return {.interrupted = true};
    m_engine->logs.SetActivityStatus(name, m_texts[Text::MonitoringInProcess]);
    RunOutcome outcome = m_engine->changes.ProcessActivity(name, RunStarter::User, newDrive, approved);
    if (!outcome.held)
        m_engine->logs.SetActivityStatus(name, m_texts[Text::Idle]);
    return outcome;
}

void Program::OnLogLine(std::function<void(const QString& line, bool isLast)> listener) {
    m_engine->logs.SetListener(std::move(listener));
}

void Program::RequestEnd(std::chrono::milliseconds mailGrace) {
    m_runState.RequestEnd();
    m_engine->mail.GiveUpAfter(mailGrace);
}

bool Program::IsOwnFile(const QString& path) const {
    return m_engine->ownPlaces.IsProtected(path);
}

void Program::AllowTicks() {
    m_engine->schedulers.Allow();
}
