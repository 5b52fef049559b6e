#include "RunNowCommands.h"

#include "Program.h"
#include "Prompter.h"
#include <QScopedValueRollback>

bool RunNowCommands::refuseEmptyList() {
    if (m_program.List().Rows() > 0)
        return false;
    const StringTable& texts = m_program.Texts();
    m_program.Prompts().Ask({texts.Text(215), texts.Text(216), MessageIcon::Exclamation, MessageButtons::Ok});
    // The mark goes off with the timers it stands for.
    if (m_program.Monitoring().IsOn())
        m_program.Monitoring().StopMonitoring();
    return true;
}

void RunNowCommands::askAndRun(const QStringList& names, int questionId, int titleId) {
    if (m_running || names.isEmpty())
        return;
    const QScopedValueRollback running(m_running, true);
    const StringTable& texts = m_program.Texts();
    const Message question{texts.Text(questionId), texts.Text(titleId), MessageIcon::Question, MessageButtons::YesNo};
    if (m_program.Prompts().Ask(question) != MessageAnswer::Yes)
        return;
    for (const QString& name : names) {
        if (m_program.State().closing)
            return;
        if (m_program.List().RowOf(name).has_value()) // an earlier run may have let it go
            m_program.RunNow(name);
    }
}

void RunNowCommands::StartActivity(const QString& name) {
    if (!refuseEmptyList() && !name.isEmpty())
        askAndRun({name}, 195, 196);
}

void RunNowCommands::ExecuteMarked(const QStringList& names) {
    if (!refuseEmptyList())
        askAndRun(names, 384, 385);
}
