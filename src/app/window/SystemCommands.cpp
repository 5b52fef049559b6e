#include "SystemCommands.h"

#include "DialogHost.h"
#include "Program.h"
#include "Prompter.h"
#include "RunEndWaiter.h"
#include "ServiceMode.h"
#include "frmServiceOptions.h"
#include <tuple>

SystemCommands::SystemCommands(Program& program, DialogHost& dialogs)
    : m_program(program), m_dialogs(dialogs),
      m_clock(*program.Services().systemClock, *program.Services().clock, program.Texts()),
      m_update(*program.Services().settings, *program.Services().clock, [&program](const QUrl& address) {
          std::ignore = program.Services().process->OpenWebPage(address.toString());
      }) {
    m_update.Configure(UpdateConfiguration::OfThisProgram());
    connect(&m_clock, &ClockSync::Synchronised, this,
            [this] { tell(m_program.Texts()[Text::ClockSynchronized], Text::ClockTitle, false); });
    connect(&m_clock, &ClockSync::Failed, this,
            [this](const QString& reason) { tell(reason, Text::ClockTitle, true); });
    connect(&m_update, &ctlAutoUpdate::Checked, this, &SystemCommands::offerVersion);
}

void SystemCommands::tell(const QString& text, Text title, bool isProblem) {
    m_program.Prompts().Ask({text, m_program.Texts()[title],
                             isProblem ? MessageIcon::Exclamation : MessageIcon::Information, MessageButtons::Ok});
}

void SystemCommands::SynchroniseClockOverDialUp() {
    const StringTable& texts = m_program.Texts();
    if (m_program.Services().dialUp->IsActive())
        m_clock.Begin();
    else
        tell(texts[Text::NeedsConnection] + u"\r\n" + texts[Text::EstablishConnection], Text::NoConnectionTitle, true);
}

void SystemCommands::CheckForUpdates() {
    if (const Text instead = m_update.InsteadOfCheck(); instead != Text::None)
        tell(m_program.Texts()[instead], Text::UpdateTitle, false);
    else
        m_update.CheckForNewVersion();
}

void SystemCommands::CheckForUpdatesOfTheDay() {
    std::ignore = m_update.CheckOncePerDay();
}

void SystemCommands::offerVersion(ctlAutoUpdate::Check check) {
    const StringTable& texts = m_program.Texts();
    if (!m_update.IsOtherVersion()) {
        if (check == ctlAutoUpdate::Check::Manual)
            tell(texts[Text::NoUpdate], Text::UpdateTitle, false);
        return;
    }
    const Message question{texts[Text::NewVersion] + m_update.GetNewVersion() + texts[Text::IsAvailable] + u"\r\n\r\n" +
                               texts[Text::VisitDownloadPage],
                           texts[Text::UpdateTitle], MessageIcon::Information, MessageButtons::YesNo};
    if (m_program.Prompts().Ask(question) == MessageAnswer::Yes)
        m_update.OpenURL(UpdateConfiguration::DownloadPage());
}

/// The service would find the activity file locked as long as anything runs here.
void SystemCommands::letGoOfTheFile() {
    if (m_program.Monitoring().IsOn())
        m_program.Monitoring().StopMonitoring();
    RunEndWaiter(m_program).WaitOut();
}

void SystemCommands::ShowServiceOptions() {
    if (m_dialogs.RaiseOpen())
        return;
    frmServiceOptions form(m_program.Texts(), m_dialogs.Parent());
    bool mustEnd = false;
    ServiceMode& service = m_program.Service();
    connect(&form, &frmServiceOptions::Chosen, this, [&](const QString& word) {
        if (word == QLatin1String("startservice"))
            letGoOfTheFile();
        if (service.ServiceConfiguration(word, ServiceCaller::Dialog)) {
            mustEnd = true;
            form.accept();
        }
    });
    connect(&service, &ServiceMode::Working, &form, &frmServiceOptions::ShowWorking);
    connect(&service, &ServiceMode::StateKnown, &form, &frmServiceOptions::ShowState);
    service.QueryState();
    std::ignore = m_dialogs.Run(form);
    if (mustEnd)
        Q_EMIT EndWanted();
}
