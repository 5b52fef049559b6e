#include "ActivityCommands.h"

#include "ActivityEditor.h"
#include "ActivityListView.h"
#include "ActivityWriter.h"
#include "Clock.h"
#include "CommandGuard.h"
#include "frmOptions.h"
#include "modForeignText.h"
#include <QDateTime>
#include <QSet>

namespace {

constexpr qsizetype mostNamed = 10; // in a question

/// "2026-11-22 17-30-45": it sorts by itself, and every disk takes it for a name.
QString dateForName(std::chrono::system_clock::time_point time) {
    return QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(time))
        .toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
}

} // namespace

void ActivityCommands::Add(const QString& sourceFolder) {
    edit(QString(), sourceFolder);
}

void ActivityCommands::Properties(const QString& name) {
    if (!name.isEmpty() && m_program.File().Has(name))
        edit(name, QString());
}

void ActivityCommands::edit(const QString& name, const QString& sourceFolder) {
    // Refuse before the user types anything: no correction in the editor would help.
    if (!m_program.File().IsLoaded())
        return TellError(m_program, m_program.Texts()[Text::FileNotLoaded]);
    ActivityRecord record = name.isEmpty() ? frmOptions::NewActivity() : ActivityRecord::Read(m_program.File(), name);
    if (!sourceFolder.isEmpty())
        record.SetText(ActivityField::SourceDir, sourceFolder);
    QString written;
    // Save while the editor is still open: what cannot be saved can still be corrected there.
    const auto write = [&](const QString& newName, const ActivityRecord& edited) {
        const bool saved = save(name, newName, edited);
        if (saved)
            written = newName;
        return saved;
    };
    if (m_editor.Edit(name, record, write))
        show(written);
}

void ActivityCommands::AddReady(const QString& name, const ActivityRecord& record) {
    if (save({}, name, record))
        show(name);
}

bool ActivityCommands::save(const QString& openedName, const QString& name, const ActivityRecord& record) {
    bool taken = false;
    const bool saved = Guarded(m_program, [&] {
        ActivityWriter writer(m_program.Document(), m_program.File(), m_program.Prompts(), m_program.Texts());
        taken = writer.Write(openedName, name, record);
    });
    return saved && taken;
}

void ActivityCommands::show(const QString& name) {
    Guarded(m_program, [this] { m_program.List().Refill(); });
    m_program.List().Readmit(name);
    m_view.Select(name);
}

void ActivityCommands::Delete(const QString& name) {
    const StringTable& texts = m_program.Texts();
    if (m_program.List().Rows() == 0 || name.isEmpty())
        return;
    if (!mayDelete(texts[Text::DeleteActivityQuestion] + name + texts[Text::ReallyBeDeleted],
                   Text::DeleteActivityTitle))
        return;
    const QString neighbour = m_view.NeighbourOf(name);
    Guarded(m_program, [&] {
        m_program.File().ChangeAndSave([&] { m_program.Document().DeleteNode(u"/items/" + name); });
        m_program.List().Refill();
    });
    if (!m_program.List().RowOf(name).has_value())
        m_view.Select(neighbour);
}

bool ActivityCommands::mayDelete(const QString& question, Text title) {
    const QString file = m_program.File().CurrentPath();
    const Message box{question, m_program.Texts()[title], MessageIcon::Question, MessageButtons::YesNo};
    // Events run in the box: the question may have been about another file.
    return m_program.Prompts().Ask(box) == MessageAnswer::Yes && m_program.File().CurrentPath() == file;
}

void ActivityCommands::DeleteSelected(const QStringList& names) {
    const StringTable& texts = m_program.Texts();
    QString shown = names.mid(0, mostNamed).join(u'\n');
    if (names.size() > mostNamed)
        shown += u'\n' + texts[Text::AndMore].arg(names.size() - mostNamed);
    if (names.isEmpty() || !mayDelete(texts[Text::DeleteSelectedQuestion].arg(names.size()) + QStringLiteral("\n\n") +
                                          modForeignText::Lines(shown),
                                      Text::DeleteSelected))
        return;
    const QString next = firstBeside(names);
    Guarded(m_program, [&] {
        m_program.File().ChangeAndSave([&] { m_program.Document().DeleteChildren(QStringLiteral("/items"), names); });
        m_program.List().Refill();
    });
    if (!m_program.List().RowOf(names.first()))
        m_view.Select(next);
}

/// The first activity shown below the first of these that is none of them, else the last one above.
QString ActivityCommands::firstBeside(const QStringList& names) const {
    const QSet<QString> all(names.begin(), names.end());
    QString beside;
    bool isBelow = false;
    for (const int row : m_view.ShownRows()) {
        const QString name = m_program.List().NameAt(row);
        if (all.contains(name)) {
            isBelow = true;
            continue;
        }
        beside = name;
        if (isBelow)
            break;
    }
    return beside;
}

void ActivityCommands::ClearAll() {
    const StringTable& texts = m_program.Texts();
    ActivityFile& file = m_program.File();
    const bool wasDefault = file.IsDefault();
    if (!mayDelete(texts[Text::ClearAllQuestion], Text::ClearAllTitle) ||
        !file.PutAway(dateForName(m_program.Services().clock->Now())))
        return;
    // The user has not started the activities of the default file, so everything of the old one ends first.
    if (m_program.Monitoring().IsOn())
        m_program.Monitoring().StopMonitoring();
    m_program.List().Clear();
    file.SwitchToDefault();
    Guarded(m_program, [this] { m_program.List().Refill(); });
    if (!wasDefault)
        m_program.Prompts().Ask({texts[Text::DefaultListRestored], QStringLiteral("Kalvenor Pro"),
                                 MessageIcon::Information, MessageButtons::Ok});
}
