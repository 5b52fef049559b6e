#include "UndoCommand.h"

#include "Program.h"
#include "Prompter.h"
#include "modForeignText.h"
#include "modLogTime.h"
#include "modNativePath.h"
#include <algorithm>

void UndoCommand::UndoRun(const QString& keptFolder) {
    const StringTable& texts = m_program.Texts();
    if (keptFolder.isEmpty())
        return tell(texts[Text::NoRunToUndo]);
    const std::filesystem::path folder = modNativePath::FromText(keptFolder);
    const std::filesystem::path destination = folder.parent_path().parent_path();
    const std::vector<KeptRun> runs = m_program.KeptIn(destination);
    const auto run =
        std::find_if(runs.begin(), runs.end(), [&folder](const KeptRun& one) { return one.name == folder.filename(); });
    if (run == runs.end())
        return tell(texts[Text::KeptNoLonger].arg(keptFolder));
    const QString question = texts[Text::UndoQuestion].arg(
        modLogTime::Text(run->began), modForeignText::OneLine(run->activity), modNativePath::ToText(destination));
    if (m_program.Prompts().Ask({question, texts[Text::UndoTitle], MessageIcon::Question, MessageButtons::YesNo}) !=
        MessageAnswer::Yes)
        return;
    const UndoOutcome outcome = m_program.Undo(destination, *run);
    QStringList lines{texts[Text::UndoSummary].arg(outcome.restored).arg(outcome.left)};
    if (!outcome.notes.isEmpty())
        lines << QString() << outcome.notes;
    if (outcome.left > outcome.notes.size())
        lines << QStringLiteral("...");
    tell(lines.join(u'\n'));
}

void UndoCommand::tell(const QString& text) {
    m_program.Prompts().Ask({text, m_program.Texts()[Text::UndoTitle], MessageIcon::Information, MessageButtons::Ok});
}
