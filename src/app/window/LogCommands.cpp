#include "LogCommands.h"

#include "CommandGuard.h"
#include "DialogHost.h"
#include "LogWindows.h"
#include "frmLogFile.h"
#include "frmStatistics.h"
#include "modForeignText.h"
#include "modNativePath.h"

bool LogCommands::isThere(const QString& path, Text textIfMissing) {
    const bool isFile =
        !path.trimmed().isEmpty() && m_program.Services().ownFiles->Stamp(modNativePath::FromText(path)).has_value();
    if (!isFile) {
        const StringTable& texts = m_program.Texts();
        m_program.Prompts().Ask(
            {texts[textIfMissing], texts[Text::NoLogTitle], MessageIcon::Information, MessageButtons::Ok});
    }
    return isFile;
}

bool LogCommands::isYes(const QString& text, Text title) {
    const Message question{text, m_program.Texts()[title], MessageIcon::Question, MessageButtons::YesNo};
    return m_program.Prompts().Ask(question) == MessageAnswer::Yes;
}

void LogCommands::remove(const QString& path) {
    if (const auto error = m_program.Services().ownFiles->Delete(modNativePath::FromText(path)))
        TellError(m_program, m_program.Texts()[Text::LogNotDeleted] + u'\n' + modForeignText::OfError(error));
}

void LogCommands::ShowApplicationLog() {
    const QString path = m_program.Options().LoggingPath;
    if (m_dialogs.RaiseOpen() || !isThere(path, Text::NoApplicationLog))
        return;
    frmLogFile viewer(m_program.Texts(), m_dialogs.Parent());
    viewer.SetFileName(path);
    m_dialogs.Run(viewer);
}

void LogCommands::ShowActivityLogs(const QStringList& names) {
    if (m_dialogs.RaiseOpen())
        return;
    for (const QString& name : names) {
        if (!m_dialogs.IsWaiting())
            return;
        if (!m_program.List().RowOf(name).has_value()) // deleted while the last window was open
            continue;
        const QString path = m_program.File().Read(name, ActivityField::LogFile);
        if (!isThere(path, Text::NoActivityLog))
            return;
        frmLogFile viewer(m_program.Texts(), m_dialogs.Parent());
        viewer.SetFileName(path);
        if (m_program.Options().LogfileRefresh == 1 && m_program.Monitoring().IsOn())
            viewer.StartTimer();
        m_dialogs.Run(viewer);
    }
}

void LogCommands::ShowLogWindow(const QString& name) {
    if (m_dialogs.RaiseOpen())
        return;
    const auto isNone = [](const QString& path) { return path.trimmed().isEmpty(); };
    QString path = name.isEmpty() ? QString() : m_program.File().Read(name, ActivityField::LogFile);
    if (isNone(path))
        path = m_program.Options().LoggingPath;
    // Whether the log is there is not asked: a drive that does not answer would hold the main window.
    if (!isNone(path))
        return m_windows.Show(modNativePath::FromText(path), std::nullopt);
    const StringTable& texts = m_program.Texts();
    m_program.Prompts().Ask(
        {texts[Text::NoLogAnywhere], texts[Text::NoLogTitle], MessageIcon::Information, MessageButtons::Ok});
}

void LogCommands::ShowLastResult() {
    const std::optional<RunIdentity> last = m_program.Results().Last();
    if (!last)
        return;
    const std::optional<RunResult> result = m_program.Results().Of(*last);
    if (!result || result->log.trimmed().isEmpty())
        return ShowLogWindow(last->name);
    if (!m_dialogs.RaiseOpen())
        m_windows.Show(modNativePath::FromText(result->log), result->line);
}

void LogCommands::ShowStatistics(const QString& name) {
    if (name.isEmpty() || m_dialogs.RaiseOpen())
        return;
    frmStatistics form(name, m_program.History().Of(RunIdentity::Of(m_program.File(), name)), m_program.Texts(),
                       m_dialogs.Parent());
    m_dialogs.Run(form);
}

void LogCommands::DeleteApplicationLog() {
    const QString path = m_program.Options().LoggingPath;
    if (isThere(path, Text::NoApplicationLog) &&
        isYes(m_program.Texts()[Text::DeleteApplicationLogQuestion], Text::DeleteApplicationLogTitle))
        remove(path);
}

void LogCommands::DeleteActivityLog(const QString& name) {
    if (name.isEmpty())
        return;
    const QString path = m_program.File().Read(name, ActivityField::LogFile);
    const StringTable& texts = m_program.Texts();
    if (isThere(path, Text::NoLogToDelete) &&
        isYes(texts[Text::DeleteLogQuestion] + path + texts[Text::ReallyBeDeleted], Text::DeleteLogTitle))
        remove(path);
}
