#include "EditorDialog.h"

#include "Program.h"
#include "frmOptions.h"
#include <QApplication>

bool EditorDialog::Edit(const QString& name, const ActivityRecord& record, const Writer& write) {
    PlatformServices& services = m_program.Services();
    const EditorServices needed{m_program.Texts(),     m_program.Prompts(),        m_picker,
                                *services.ownFiles,    *services.settings,         *services.clock,
                                *services.desktopMail, services.systemDirectories, QLocale::system()};
    frmOptions editor(
        needed,
        {.name = name,
         .record = record,
         .known = KnownAddresses::Of(m_program.File()),
         .isUsableName = [this](const QString& wanted) { return m_program.Document().IsUsableName(wanted); },
         .write = write},
        QApplication::activeWindow());
    return editor.exec() == QDialog::Accepted;
}
