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

QString ActivityFileCommands::startFolder() const {
    // Nobody chose the place of the default file: there the last choice says more.
    const ActivityFile& file = m_program.File();
    const auto last = m_program.Services().settings->Read(SettingsStore::OwnApplication, section, key);
    return QFileInfo(file.IsDefault() && last && !last->isEmpty() ? *last : file.CurrentPath()).path();
}

void ActivityFileCommands::remember(const QString& path) {
    std::ignore = m_program.Services().settings->Write(SettingsStore::OwnApplication, section, key, path);
}

void ActivityFileCommands::tell(int textId, int titleId) {
    const StringTable& texts = m_program.Texts();
    m_program.Prompts().Ask({texts.Text(textId), texts.Text(titleId), MessageIcon::Exclamation, MessageButtons::Ok});
}

bool ActivityFileCommands::mayLoseActivities() {
    if (m_program.List().Rows() == 0)
        return true;
    const StringTable& texts = m_program.Texts();
    return m_program.Prompts().Ask({texts.Text(165) + twoLineBreaks() + texts.Text(166), texts.Text(167),
                                    MessageIcon::Exclamation, MessageButtons::YesNo}) == MessageAnswer::Yes;
}

void ActivityFileCommands::Import() {
    if (!mayLoseActivities())
        return;
    const StringTable& texts = m_program.Texts();
    const std::optional<QString> path =
        m_picker.OpenFile({.title = texts.Text(168),
                           .filters = {texts.Text(163) + u" (*.kvd)", texts.Text(131) + u" (*.*)"},
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
        return tell(372, 168);
    Q_EMIT Progress(texts.Text(169) + QFileInfo(path).fileName() + u"' ...");
    if (m_program.Monitoring().IsOn())
        m_program.Monitoring().StopMonitoring();
    m_program.List().Clear();
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
                             .SaveFile({.title = texts.Text(162),
                                        .filters = {texts.Text(163) + u" (*.kvd)"},
                                        .folder = {},
                                        .file = current,
                                        .suffix = QStringLiteral("kvd")},
                                       true)
                             .value_or(current);
    if (path == current)
        return tell(373, 162);
    Q_EMIT Progress(texts.Text(164) + QFileInfo(path).fileName() + u"' ...");
    try {
        if (const auto refusal = m_program.Monitoring().MoveTo(path))
            tell(*refusal == LockRefusal::HeldElsewhere ? 586 : 585, 162);
        else
            remember(path);
    } catch (const StoreError& error) {
        m_program.Prompts().Ask({error.Text(), texts.Text(162), MessageIcon::Exclamation, MessageButtons::Ok});
    }
    Q_EMIT Progress(QString());
}
