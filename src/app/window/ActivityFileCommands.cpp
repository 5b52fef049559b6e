#include "ActivityFileCommands.h"

#include "CommandGuard.h"
#include "FilePicker.h"
#include <QFileInfo>
#include <tuple>

namespace {

const QString section = QStringLiteral("LastFile");
const QString key = QStringLiteral("DBPath");

QString twoLineBreaks() {
    return QStringLiteral("\r\n\r\n");
}

} // namespace

ActivityFileCommands::ActivityFileCommands(Program& program, FilePicker& picker)
    : m_program(program), m_picker(picker), m_last(*program.Services().settings, QStringLiteral("ActivityFiles")) {}

void ActivityFileCommands::RememberStart() {
    if (!m_program.File().IsDefault())
        m_last.Remember(m_program.File().CurrentPath());
}

QString ActivityFileCommands::startFolder() const {
    // The default file is not where the user chose to put it: the last choice says more.
    const ActivityFile& file = m_program.File();
    const auto last = m_program.Services().settings->Read(SettingsStore::OwnApplication, section, key);
    return QFileInfo(file.IsDefault() && last && !last->isEmpty() ? *last : file.CurrentPath()).path();
}

void ActivityFileCommands::remember(const QString& path) {
    std::ignore = m_program.Services().settings->Write(SettingsStore::OwnApplication, section, key, path);
    m_last.Remember(path);
}

void ActivityFileCommands::tell(Text text, Text title) {
    const StringTable& texts = m_program.Texts();
    m_program.Prompts().Ask({texts[text], texts[title], MessageIcon::Exclamation, MessageButtons::Ok});
}

bool ActivityFileCommands::mayLoseActivities() {
    if (m_program.List().Rows() == 0)
        return true;
    const StringTable& texts = m_program.Texts();
    return m_program.Prompts().Ask({texts[Text::ExportReplaces] + twoLineBreaks() + texts[Text::ReallyProceed],
                                    texts[Text::ImportQuestionTitle], MessageIcon::Exclamation,
                                    MessageButtons::YesNo}) == MessageAnswer::Yes;
}

void ActivityFileCommands::Import() {
    if (!mayLoseActivities())
        return;
    const StringTable& texts = m_program.Texts();
    const std::optional<QString> path =
        m_picker.OpenFile({.title = texts[Text::ImportTitle],
                           .filters = {texts[Text::ActionFileType] + u" (*.kvd)", texts[Text::AllFiles] + u" (*.*)"},
                           .folder = startFolder(),
                           .file = {},
                           .suffix = {}});
    if (path)
        open(*path);
}

void ActivityFileCommands::ImportFile(const QString& path) {
    if (mayLoseActivities())
        open(path);
}

void ActivityFileCommands::open(const QString& path) {
    const StringTable& texts = m_program.Texts();
    if (path == m_program.File().CurrentPath())
        return tell(Text::CannotImportCurrent, Text::ImportTitle);
    Q_EMIT Progress(texts[Text::Importing] + QFileInfo(path).fileName() + u"' ...");
    if (m_program.Monitoring().IsOn())
        m_program.Monitoring().StopMonitoring();
    m_program.List().Clear();
    m_last.Remember(m_program.File().CurrentPath()); // the default file is remembered when it is left
    m_program.File().SetCurrentPath(path);
    Guarded(m_program, [this] { m_program.List().Refill(); });
    Q_EMIT Progress(QString());
    remember(path);
}

void ActivityFileCommands::Export() {
    const StringTable& texts = m_program.Texts();
    const QString current = m_program.File().CurrentPath();
    // A cancelled choice leaves the preset name, which is the file in use.
    const QString path = m_picker
                             .SaveFile({.title = texts[Text::ExportTitle],
                                        .filters = {texts[Text::ActionFileType] + u" (*.kvd)"},
                                        .folder = {},
                                        .file = current,
                                        .suffix = QStringLiteral("kvd")},
                                       true)
                             .value_or(current);
    if (path == current)
        return tell(Text::FileInUse, Text::ExportTitle);
    Q_EMIT Progress(texts[Text::Exporting] + QFileInfo(path).fileName() + u"' ...");
    try {
        if (const auto refusal = m_program.Monitoring().MoveTo(path))
            tell(*refusal == LockRefusal::HeldElsewhere ? Text::SavedElsewhere : Text::NoLockPossible,
                 Text::ExportTitle);
        else
            remember(path);
    } catch (const StoreError& error) {
        m_program.Prompts().Ask({error.Text(), texts[Text::ExportTitle], MessageIcon::Exclamation, MessageButtons::Ok});
    }
    Q_EMIT Progress(QString());
}
