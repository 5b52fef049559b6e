#include "ActivityEditor.h"

#include "DialogHost.h"
#include "DispatchedTestMail.h"
#include "Program.h"
#include "RunNowCommands.h"
#include "frmOptions.h"

bool EditorDialog::Edit(const QString& name, const ActivityRecord& record, const Writer& write) {
    if (m_dialogs.RaiseOpen())
        return false;
    PlatformServices& services = m_program.Services();
    const FormServices forms{.texts = m_program.Texts(),
                             .prompter = m_program.Prompts(),
                             .picker = m_picker,
                             .files = *services.ownFiles,
                             .settings = *services.settings};
    const EditorServices needed{{forms},
                                *services.clock,
                                *services.desktopMail,
                                services.systemDirectories,
                                QLocale::system(),
                                m_program.Options().EvenIntervals(),
                                TestMailsOf(m_program)};
    // A document that could not be loaded takes no name at all; the save has a better reason.
    const auto isUsableName = [this](const QString& wanted) {
        return !m_program.File().IsLoaded() || m_program.Document().IsUsableName(wanted);
    };
    std::function<void()> preview; // of what is not saved yet there is none
    if (!name.isEmpty())
        preview = [this, name] { RunNowCommands(m_program, m_dialogs, m_picker).PreviewInDialog(name); };
    frmOptions editor(needed,
                      {.name = name,
                       .record = record,
                       .known = KnownTexts::Of(m_program.File()),
                       .isUsableName = isUsableName,
                       .isOwnFile = [this](const QString& path) { return m_program.IsOwnFile(path); },
                       .write = write,
                       .preview = preview},
                      m_dialogs.Parent());
    return m_dialogs.Run(editor, [&editor] { return editor.MayBeDropped(); }) == QDialog::Accepted;
}
