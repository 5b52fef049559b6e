#include "Reactions.h"
#include "ActivityFile.h"
#include "ActivityLogs.h"
#include "Interruptions.h"
#include "Process.h"
#include "Prompter.h"
#include "StringTable.h"
#include "modForeignText.h"

void Reactions::ReactToChange(const QString& name, const QString& path, const std::function<bool()>& mayGoOn) {
    const StringTable& texts = m_services.texts;
    if (m_services.file.Read(name, ActivityField::Alert) == u"Y") {
        m_logs.SetActivityStatus(name, texts[Text::ChangeInPath] + u" " + path);
        m_interruptions.Ask({texts[Text::NewOrChanged] + modForeignText::OneLine(path) + texts[Text::Found],
                             texts[Text::ChangeDetected], MessageIcon::Information, MessageButtons::Ok});
        if (!mayGoOn())
            return;
    }
    const QString executable = m_services.file.Read(name, ActivityField::Executable);
    if (!executable.isEmpty())
        executeFile(name, executable);
}

void Reactions::executeFile(const QString& name, const QString& executable) {
    const StringTable& texts = m_services.texts;
    m_logs.SetActivityStatus(name, texts[Text::ExecutingFile] + executable + u"' ...");
    if (!m_services.process.Open(executable))
        m_logs.SetActivityStatus(name, texts[Text::FileOpeningQuote] + executable + texts[Text::CouldNotExecute]);
}
