#include "OptionsCommand.h"

#include "CommandGuard.h"
#include "DialogHost.h"
#include "HelpCommands.h"
#include "MailPassword.h"
#include "frmStartOptions.h"
#include "modForeignText.h"
#include <array>

namespace {

using Form = frmStartOptions::Options;

struct Switch {
    std::uint8_t clsWatcher::*stored;
    bool Form::*shown;
};

constexpr std::array<Switch, 11> switches{{
    {&clsWatcher::ActivateWhileWindowsStarting, &Form::startWithWindows},
    {&clsWatcher::ToTray, &Form::minToTray},
    {&clsWatcher::Shutdown, &Form::shutdown},
    {&clsWatcher::StartUp, &Form::startUp},
    {&clsWatcher::LogfileRefresh, &Form::logfileRefresh},
    {&clsWatcher::ExitAlert, &Form::exitAlert},
    {&clsWatcher::StopIfFolderNotExist, &Form::stopIfFolderNotExist},
    {&clsWatcher::SummaryLine, &Form::summaryInLog},
    {&clsWatcher::MailVariables, &Form::summaryInMail},
    {&clsWatcher::CountByTheClock, &Form::countByTheClock},
    {&clsWatcher::RunLate, &Form::runMissed},
}};

Form toForm(const clsWatcher& options) {
    Form form;
    for (const Switch& row : switches)
        form.*row.shown = options.*row.stored == 1;
    form.loggingPath = options.LoggingPath;
    form.notify = options.Notify;
    return form;
}

void fromForm(const Form& form, clsWatcher& options) {
    for (const Switch& row : switches)
        options.*row.stored = form.*row.shown ? 1 : 0;
    options.LoggingPath = form.loggingPath;
    options.Notify = static_cast<std::uint8_t>(form.notify);
}

void takeBack(const clsWatcher& before, clsWatcher& options) {
    for (const Switch& row : switches)
        options.*row.stored = before.*row.stored;
    options.LoggingPath = before.LoggingPath;
    options.Notify = before.Notify;
}

} // namespace

void OptionsCommand::ShowOptions() {
    if (m_dialogs.RaiseOpen())
        return;
    PlatformServices& services = m_program.Services();
    clsWatcher& options = m_program.Options();
    Form shown = toForm(options);
    shown.canNotify = services.notifier->IsAvailable();
    shown.mail = MailOptions::Read(*services.settings);
    frmStartOptions form({.texts = m_program.Texts(),
                          .prompter = m_program.Prompts(),
                          .picker = m_picker,
                          .files = *services.ownFiles,
                          .settings = *services.settings},
                         *services.autostart, services.places.programFolder / "Kalvenor", *services.passwords, shown,
                         m_dialogs.Parent());
    QObject::connect(&form, &frmStartOptions::HelpWanted, &form, [this] { m_help.OpenManual(); });
    const bool isCancelled = m_dialogs.Run(form) != QDialog::Accepted;
    const clsWatcher before = options;
    if (!isCancelled)
        fromForm(form.Values(), options);
    const std::error_code error = options.WriteRegistry();
    options.CancelOptions = isCancelled;
    if (error) {
        takeBack(before, options);
        tellNotStored(error);
    } else if (!isCancelled) {
        storeMail(form);
    }
}

void OptionsCommand::storeMail(const frmStartOptions& form) {
    constexpr std::chrono::minutes patience{2}; // somebody may have to unlock the store
    PlatformServices& services = m_program.Services();
    const MailOptions mail = form.Values().mail;
    const QString password = form.NewMailPassword();
    if (const std::error_code error = mail.Write(*services.settings))
        return tellNotStored(error);
    if (password.isEmpty())
        return;
    const auto answered = [this](const PasswordAnswer& answer) {
        const StringTable& texts = m_program.Texts();
        const QString complaint = MailPassword::Complaint(answer, texts);
        if (!complaint.isEmpty())
            TellError(m_program, texts[Text::MailPasswordNotStored] + u'\n' + complaint);
    };
    services.passwords->Write(MailPassword::KeyOf(mail.host, mail.user), password.toUtf8(),
                              {.receiver = &m_storing, .deadline = patience, .answered = answered});
}

void OptionsCommand::tellNotStored(std::error_code error) {
    TellError(m_program, m_program.Texts()[Text::OptionsNotStored] + u'\n' + modForeignText::OfError(error));
}
