#include "ActivityCommands.h"

#include "ActivityEditor.h"
#include "ActivityListView.h"
#include "ActivityWriter.h"
#include "CommandGuard.h"
#include "NewActivity.h"
#include <algorithm>

void ActivityCommands::Add(const QString& sourceFolder) {
    edit(QString(), sourceFolder);
}

void ActivityCommands::Properties(const QString& name) {
    if (!name.isEmpty() && m_program.File().Has(name))
        edit(name, QString());
}

void ActivityCommands::edit(const QString& name, const QString& sourceFolder) {
    ActivityRecord record = name.isEmpty() ? NewActivity() : ActivityRecord::Read(m_program.File(), name);
    if (!sourceFolder.isEmpty())
        record.SetText(ActivityField::SourceDir, sourceFolder);
    QString opened = name;
    // Written and saved while the editor is still open: what cannot be saved can still be corrected there.
    const auto write = [&](const QString& newName, const ActivityRecord& edited) {
        bool taken = true;
        const bool saved = Guarded(m_program, [&] {
            ActivityWriter writer(m_program.Document(), m_program.File(), m_program.Prompts(), m_program.Texts());
            taken = writer.Write(opened, newName, edited);
            if (!taken)
                return;
            opened = newName; // it stands under this name now, even if the file cannot be saved
            m_program.File().Save();
        });
        return saved && taken;
    };
    if (!m_editor.Edit(name, record, write))
        return;
    m_program.List().ForgetTakenOut(name);
    m_program.List().ForgetTakenOut(opened);
    Guarded(m_program, [this] { m_program.List().Refill(); });
    m_view.Select(opened);
}

void ActivityCommands::Delete(const QString& name) {
    const StringTable& texts = m_program.Texts();
    if (m_program.List().Rows() == 0 || name.isEmpty())
        return;
    if (m_program.Prompts().Ask({texts.Text(211) + name + texts.Text(205), texts.Text(212), MessageIcon::Question,
                                 MessageButtons::YesNo}) != MessageAnswer::Yes)
        return;
    const int row = m_program.List().RowOf(name).value_or(0);
    Guarded(m_program, [&] {
        m_program.Document().DeleteNode(u"/items/" + name);
        m_program.File().Save();
        m_program.List().Refill();
    });
    m_view.Select(m_program.List().NameAt(std::min(row, m_program.List().Rows() - 1)));
}

void ActivityCommands::ClearAll() {
    const QString before = m_program.File().CurrentPath();
    Guarded(m_program, [&] {
        m_program.File().ClearAll();
        // Another file is another list of activities: nobody has started those.
        if (m_program.File().CurrentPath() != before && m_program.Monitoring().IsOn())
            m_program.Monitoring().StopMonitoring();
        m_program.List().Refill();
    });
}
