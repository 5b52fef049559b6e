#include "RunNowCommands.h"

#include "DialogHost.h"
#include "Program.h"
#include "Prompter.h"
#include "frmPreview.h"
#include <QScopedValueRollback>

bool RunNowCommands::refuseEmptyList() {
    if (m_program.List().Rows() > 0)
        return false;
    const StringTable& texts = m_program.Texts();
    m_program.Prompts().Ask({texts[Text::NothingToMonitor], texts[Text::StartMonitoringTitle], MessageIcon::Exclamation,
                             MessageButtons::Ok});
    // Nothing is left to monitor. A list that could not be loaded may come back, so monitoring goes on then.
    if (m_program.Monitoring().IsOn() && m_program.File().IsLoaded())
        m_program.Monitoring().StopMonitoring();
    return true;
}

void RunNowCommands::askAndRun(QStringList names, Text question, Text title, NewDrive newDrive) {
    if (m_running || names.isEmpty())
        return;
    const QScopedValueRollback running(m_running, true);
    names.removeDuplicates(); // a name that occurs twice in the file is one activity
    const QString file = m_program.File().CurrentPath();
    const StringTable& texts = m_program.Texts();
    const Message box{texts[question], texts[title], MessageIcon::Question, MessageButtons::YesNo};
    if (m_program.Prompts().Ask(box) != MessageAnswer::Yes)
        return;
    // Held for all of them: no other engine gets in between, and a refusal is shown once.
    const EngineLock::Token lock = m_program.LockForRunNow();
    if (!lock)
        return;
    for (const QString& name : names) {
        // Events ran in the box and in every run before this one.
        if (m_program.State().Closing() || m_program.File().CurrentPath() != file)
            return;
        if (m_program.List().RowOf(name).has_value() && m_program.RunNow(name, newDrive).stoppedByUser)
            return; // "stop" means the rest, too
    }
}

void RunNowCommands::StartActivity(const QString& name) {
    if (!refuseEmptyList() && !name.isEmpty())
        askAndRun({name}, Text::StartNowQuestion, Text::StartNowTitle, NewDrive::OkIfTold);
}

void RunNowCommands::ExecuteMarked(const QStringList& names) {
    if (!refuseEmptyList())
        askAndRun(names, Text::StartMarkedQuestion, Text::StartMarkedTitle, NewDrive::Hold);
}

void RunNowCommands::Preview(const QString& name) {
    if (!name.isEmpty() && !m_dialogs.RaiseOpen())
        PreviewInDialog(name);
}

void RunNowCommands::PreviewInDialog(const QString& name) {
    if (m_running)
        return;
    const QScopedValueRollback running(m_running, true);
    const RunPlan plan = m_program.Preview(name);
    if (m_program.State().Closing())
        return;
    frmPreview form(plan, {m_program.Texts(), m_picker, *m_program.Services().ownFiles, m_program.Prompts()},
                    m_dialogs.Parent());
    if (m_dialogs.Run(form) != QDialog::Accepted || m_program.State().Closing() ||
        RunIdentity::Of(m_program.File(), name) != plan.run)
        return;
    ApprovedPlan approved(plan);
    m_program.RunNow(name, NewDrive::Hold, &approved);
}
