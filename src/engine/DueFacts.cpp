#include "DueFacts.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "DueMarks.h"
#include "modTriggerDate.h"

DueFacts::DueFacts(ActivityFile& file, const ActivityList& list, const DueMarks& marks, const QLocale& locale)
    : m_file(file), m_list(list), m_marks(marks), m_locale(locale) {
    connect(&file, &ActivityFile::FieldWritten, this, &DueFacts::forgetWritten);
    connect(&list, &ActivityList::modelReset, this, [this] { m_rows.clear(); });
}

/// A run writes its own mark. That must not cost the copies of all other rows.
void DueFacts::forgetWritten(const QString& name) {
    if (m_revision + 1 != m_file.Revision())
        return;
    m_revision = m_file.Revision();
    const std::optional<int> row = m_list.RowOf(name);
    if (row && static_cast<std::size_t>(*row) < m_rows.size())
        m_rows[static_cast<std::size_t>(*row)].reset();
}

DueFacts::Row DueFacts::Of(int row) {
    return row < 0 || row >= m_list.Rows() ? Row() : known(row);
}

QStringList DueFacts::Watched() {
    QStringList names;
    for (int row = 0; row < m_list.Rows(); ++row)
        if (known(row).isWatched)
            names.append(m_list.NameAt(row));
    return names;
}

/// Of a row that exists.
const DueFacts::Row& DueFacts::known(int row) {
    const auto rows = static_cast<std::size_t>(m_list.Rows());
    if (m_revision != m_file.Revision() || m_rows.size() != rows) {
        m_rows.assign(rows, std::nullopt);
        m_revision = m_file.Revision();
    }
    std::optional<Row>& facts = m_rows[static_cast<std::size_t>(row)];
    if (!facts)
        facts = read(row);
    return *facts;
}

DueFacts::Row DueFacts::read(int row) const {
    Row facts;
    const QString name = m_list.NameAt(row);
    const QString type = m_file.Read(name, ActivityField::Type);
    if (type.size() != 1 || m_list.IsNamesake(row))
        return facts;
    facts.type = type.front();
    facts.isActive = m_file.Read(name, ActivityField::Active) == u"1";
    const bool isDaily = facts.type == u'4' && m_file.Read(name, ActivityField::Daily).toInt() != 0;
    facts.isWatched =
        m_file.Read(name, ActivityField::Watch) == u"1" && (isDaily || QStringView(u"012").contains(facts.type));
    if (facts.type == u'3') {
        facts.date = modTriggerDate::Read(m_file.Read(name, ActivityField::TriggerDate), m_locale);
        facts.time = m_file.Read(name, ActivityField::TriggerDateTime);
    } else if (facts.type == u'4') {
        facts.time = m_file.Read(name, ActivityField::TriggerTime);
    } else {
        facts.mark = m_marks.Number(name, ActivityField::ExceedTime);
        facts.interval = m_marks.Number(name, ActivityField::Interval);
    }
    return facts;
}
