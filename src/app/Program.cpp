#include "Program.h"
#include "ActivityLogs.h"
#include "ActivityMail.h"
#include "ChangeDetection.h"
#include "DueMarks.h"
#include "Interruptions.h"
#include "KeyState.h"
#include "MailSettings.h"
#include "OwnPlaces.h"
#include "Prompter.h"
#include "Reactions.h"
#include "SafeExit.h"
#include "Schedulers.h"
#include "SyncTexts.h"

namespace {
const QString optionsSection = QStringLiteral("Options");
const QString acceptedKey = QStringLiteral("Accepted");
} // namespace

/// The parts of the engine, each built on the ones above it.
struct Program::Engine {
    Engine(Program& program, const KeyState& keys)
        : syncTexts(program.m_texts),
          interruptions(program.m_prompter, *program.m_services.eventPump, *program.m_services.clock),
          ownPlaces({.file = program.m_file,
                     .options = program.m_options,
                     .files = *program.m_services.ownFiles,
                     .fileSystem = *program.m_services.fileSystem,
                     .settings = {program.m_services.settings->FileOf(SettingsStore::OwnApplication),
                                  program.m_services.settings->FileOf(MailSettings::Application)},
                     .locks = program.m_services.locks->Place()}),
          logs({.file = program.m_file,
                .list = program.m_list,
                .options = program.m_options,
                .files = *program.m_services.ownFiles,
                .ownPlaces = ownPlaces,
                .clock = *program.m_services.clock,
                .texts = program.m_texts}),
          reactions({.file = program.m_file,
                     .logs = logs,
                     .process = *program.m_services.process,
                     .interruptions = interruptions,
                     .texts = program.m_texts}),
          mail({.file = program.m_file,
                .logs = logs,
                .settings = *program.m_services.settings,
                .names = *program.m_services.nameService,
                .clock = *program.m_services.clock,
                .desktop = *program.m_services.desktopMail,
                .texts = program.m_texts,
                .runState = program.m_runState}),
          safeExit({.options = program.m_options,
                    .keys = keys,
                    .process = *program.m_services.process,
                    .interruptions = interruptions,
                    .texts = program.m_texts}),
          dueMarks(program.m_file, program.m_list), monitoring({.file = program.m_file,
                                                                .list = program.m_list,
                                                                .logs = logs,
                                                                .dueMarks = dueMarks,
                                                                .options = program.m_options,
                                                                .engineLock = program.m_lock,
                                                                .timers = program.m_timers,
                                                                .power = *program.m_services.power,
                                                                .prompter = program.m_prompter,
                                                                .texts = program.m_texts,
                                                                .runState = program.m_runState}),
          changes({.run = {.file = program.m_file,
                           .logs = logs,
                           .reactions = reactions,
                           .safeExit = safeExit,
                           .monitoring = monitoring,
                           .ownPlaces = ownPlaces,
                           .texts = syncTexts,
                           .interruptions = interruptions,
                           .fileSystem = *program.m_services.fileSystem,
                           .runState = program.m_runState},
                   .list = program.m_list,
                   .options = program.m_options,
                   .texts = program.m_texts,
                   .clock = *program.m_services.clock,
                   .mailer = mail,
                   .lock = program.m_lock}),
          schedulers({.file = program.m_file,
                      .list = program.m_list,
                      .logs = logs,
                      .changes = changes,
                      .dueMarks = dueMarks,
                      .monitoring = monitoring,
                      .clock = *program.m_services.clock,
                      .texts = program.m_texts,
                      .runState = program.m_runState,
                      .locale = QLocale::system()}) {
        schedulers.ConnectTo(program.m_timers);
    }

    SyncTexts syncTexts;
    Interruptions interruptions;
    OwnPlaces ownPlaces;
    ActivityLogs logs;
    Reactions reactions;
    ActivityMail mail;
    SafeExit safeExit;
    DueMarks dueMarks;
    MonitoringController monitoring;
    ChangeDetection changes;
    Schedulers schedulers;
};

Program::Program(PlatformServices& services, Prompter& prompter, const KeyState& keys, const StringTable& texts)
    : m_services(services), m_prompter(prompter), m_texts(texts), m_document(*services.ownFiles),
      m_options(*services.settings), m_file(m_document, *services.ownFiles, prompter, texts, services.places),
      m_list(m_file, texts, QLocale::system()), m_timers(*services.clock), m_lock(*services.locks, *services.ownFiles),
      m_service(*services.serviceManager, prompter, texts), m_engine(std::make_unique<Engine>(*this, keys)) {}

Program::~Program() = default;

MonitoringController& Program::Monitoring() {
    return m_engine->monitoring;
}

QString Program::Title() {
    const QStringList parts = QStringLiteral(KALVENOR_VERSION).split(u'.');
    return u"Kalvenor Pro " + parts.value(0) + u'.' + parts.value(1);
}

QString Program::Caption() const {
    return Title() + u"  [" + m_file.CurrentPath() + u']';
}

bool Program::IsNoticeAccepted() const {
    return m_services.settings->Read(SettingsStore::OwnApplication, optionsSection, acceptedKey) ==
           QStringLiteral("Yes");
}

std::error_code Program::AcceptNotice() {
    return m_services.settings->Write(SettingsStore::OwnApplication, optionsSection, acceptedKey,
                                      QStringLiteral("Yes"));
}

EngineLock::Token Program::LockForRunNow() {
    LockRefusal refusal{};
    EngineLock::Token lock = m_lock.Take(m_file.CurrentPath(), refusal);
    if (!lock)
        m_prompter.Ask({refusal == LockRefusal::HeldElsewhere ? m_texts[Text::RunRefused].arg(m_file.CurrentPath())
                                                              : m_texts[Text::NoLockPossible],
                        m_texts[Text::StartNowTitle], MessageIcon::Exclamation, MessageButtons::Ok});
    return lock;
}

RunOutcome Program::RunNow(const QString& name) {
    const EngineLock::Token lock = LockForRunNow();
    if (!lock)
        return {false, 0, true};
    m_engine->logs.SetActivityStatus(name, m_texts[Text::MonitoringInProcess]);
    const RunOutcome outcome = m_engine->changes.ProcessActivity(name, RunStarter::User);
    m_engine->logs.SetActivityStatus(name, m_texts[Text::Idle]);
    return outcome;
}

void Program::OnLogLine(std::function<void(const QString& line)> listener) {
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
