#include "ActivityWriter.h"
#include "ActivityFile.h"
#include "ActivityRecord.h"
#include "Prompter.h"
#include "StringTable.h"
#include "clsXML.h"

bool ActivityWriter::isTaken(const QString& openedName, const QString& name) const {
    return name != openedName && m_file.Names().contains(name);
}

bool ActivityWriter::Write(const QString& openedName, const QString& name, const ActivityRecord& record) {
    const QString newName = name.trimmed();
    QString replaced = newName == openedName ? openedName : QString();
    const auto refuse = [this] {
        m_prompter.Ask(
            {m_texts[Text::NameTaken], m_texts[Text::RenameTitle], MessageIcon::Exclamation, MessageButtons::Ok});
        return false;
    };
    if (isTaken(openedName, newName))
        return refuse();
    if (newName != openedName && !openedName.isEmpty()) {
        const MessageAnswer answer = m_prompter.Ask(
            {m_texts[Text::RenameQuestion], m_texts[Text::RenameTitle], MessageIcon::Question, MessageButtons::YesNo});
        if (answer == MessageAnswer::Yes)
            replaced = openedName;
        // Events ran while the box was open, so check the name again.
        if (isTaken(openedName, newName))
            return refuse();
    }
    m_file.ChangeAndSave(
        [&] { m_document.ReplaceElement(QStringLiteral("/items"), replaced, newName, record.Elements()); });
    return true;
}
