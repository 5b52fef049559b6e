#include "ActivityList.h"
#include "ActivityFile.h"
#include "StringTable.h"
#include "modTriggerDate.h"

#include <QScopedValueRollback>
#include <array>
#include <utility>

namespace {

constexpr Text headers[ActivityList::ColumnCount] = {
    Text::NameColumn,     Text::SourceColumn,        Text::DestinationColumn, Text::IntervalSettings,
    Text::ActionColumn,   Text::ExecutionsColumn,    Text::WriteLog,          Text::ExecutableFiles,
    Text::FileExtensions, Text::LastExecutionColumn, Text::NextRunColumn};

/// The view lays out a text as a whole, even when a column shows its beginning only.
constexpr qsizetype mostShown = 4096;
constexpr qsizetype mostComment = 32'768;

QString orDash(const QString& text) {
    return text.isEmpty() ? QStringLiteral("-") : text;
}

struct CodeText {
    const char* code;
    Text text;
};

constexpr std::array intervalTexts = {CodeText{"0", Text::Seconds}, CodeText{"1", Text::Minutes},
                                      CodeText{"2", Text::Hours}};
constexpr std::array actionTexts = {CodeText{"0", Text::CopyFiles}, CodeText{"1", Text::MoveFiles},
                                    CodeText{"3", Text::MirrorDirectory}, CodeText{"2", Text::NoAction}};

QString lookUp(const auto& table, const QString& code, const StringTable& texts) {
    for (const CodeText& row : table)
        if (code == QLatin1String(row.code))
            return texts[row.text];
    return {};
}

QString shownDate(const QString& stored, const QLocale& locale) {
    const QDate date = modTriggerDate::Read(stored, locale);
    return date.isValid() ? date.toString(modTriggerDate::Format(locale)) : stored;
}

QString scheduleText(const ActivityRecord& record, const StringTable& texts, const QLocale& locale) {
    const QString& type = record.Text(ActivityField::Type);
    const QString separator = QStringLiteral(": ");
    if (type == u"3")
        return texts[Text::Date] + separator + shownDate(record.Text(ActivityField::TriggerDate), locale) +
               QStringLiteral(" / ") + texts[Text::Time] + separator + record.Text(ActivityField::TriggerDateTime);
    if (type == u"4") {
        const QString time = texts[Text::Time] + separator + record.Text(ActivityField::TriggerTime);
        const bool isDaily = record.Text(ActivityField::Daily) == u"1";
        return isDaily ? QString(time + QStringLiteral(" (") + texts[Text::Daily] + u')') : time;
    }
    const QString unit = lookUp(intervalTexts, type, texts);
    return unit.isEmpty() ? QString() : QString(record.Text(ActivityField::Interval) + u' ' + unit);
}

/// "10 Seconds - Copy files", "Date: ... / Time: ... - ..."; an unknown type or action leaves its part empty.
QString description(const ActivityRecord& record, const StringTable& texts, const QLocale& locale) {
    return scheduleText(record, texts, locale) + QStringLiteral(" - ") +
           lookUp(actionTexts, record.Text(ActivityField::Action), texts);
}

} // namespace

ActivityList::ActivityList(ActivityFile& file, const StringTable& texts, const QLocale& locale)
    : m_file(file), m_texts(texts), m_locale(locale) {}

void ActivityList::Refill() {
    if (m_listBusy)
        return; // called while the repair question is open: the outer refill continues anyway
    {
        const QScopedValueRollback<bool> busy(m_listBusy, true);
        if (!m_file.Load()) {
            fill({});
            if (m_file.OfferRepair())
                m_file.Load();
        }
    }
    ShowLoaded();
}

void ActivityList::ShowLoaded() {
    fill(m_file.Names());
    Q_EMIT Refilled();
}

/// Schedules and file types are mostly those of the row above.
void ActivityList::shareTexts(const Row& from, Row& to) {
    for (int column = 0; column < ColumnCount; ++column)
        if (from.texts[column] == to.texts[column])
            to.texts[column] = from.texts[column];
}

void ActivityList::fill(const QStringList& names) {
    beginResetModel();
    m_rows.clear();
    m_rowOfName.clear();
    m_rows.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        // A duplicate name refers to the first row; the second is shown, but never runs.
        if (const std::optional<int> first = RowOf(name)) {
            m_rows.push_back(m_rows[static_cast<std::size_t>(*first)]);
            m_rows.back().checked = false;
            m_rows.back().isNamesake = true;
            continue;
        }
        m_rowOfName.insert(name, Rows());
        m_rows.push_back(makeRow(name));
        if (Rows() > 1)
            shareTexts(m_rows[m_rows.size() - 2], m_rows.back());
    }
    endResetModel();
}

ActivityList::Row ActivityList::makeRow(const QString& name) const {
    const ActivityRecord record = ActivityRecord::Read(m_file, name);
    Row row;
    row.comment = record.Text(ActivityField::Comment).left(mostComment);
    row.texts[Source] = record.Text(ActivityField::SourceDir);
    row.texts[Destination] = record.Text(ActivityField::TargetDir);
    row.texts[Schedule] = description(record, m_texts, m_locale);
    row.texts[Count] = QStringLiteral("0");
    row.texts[LogFile] = orDash(record.Text(ActivityField::LogFile));
    row.texts[Executable] = orDash(record.Text(ActivityField::Executable));
    row.texts[Extensions] =
        record.IsOn(ActivityField::AllFiles) ? m_texts[Text::All] : record.Text(ActivityField::Extensions);
    row.texts[LastRun] = QStringLiteral("-");
    for (QString& text : row.texts)
        text.truncate(mostShown);
    row.texts[Name] = name;
    row.checked = record.Text(ActivityField::Active) == u"1" && !m_takenOut.contains(name);
    return row;
}

const ActivityList::Row* ActivityList::rowAt(int row) const {
    return row >= 0 && row < Rows() ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

QString ActivityList::NameAt(int row) const {
    const Row* found = rowAt(row);
    return found == nullptr ? QString() : found->texts[Name];
}

QString ActivityList::CommentAt(int row) const {
    const Row* found = rowAt(row);
    return found == nullptr ? QString() : found->comment;
}

bool ActivityList::IsChecked(int row) const {
    const Row* found = rowAt(row);
    return found != nullptr && found->checked;
}

bool ActivityList::IsNamesake(int row) const {
    const Row* found = rowAt(row);
    return found == nullptr || found->isNamesake;
}

std::optional<int> ActivityList::RowOf(const QString& name) const {
    const auto found = m_rowOfName.constFind(name);
    return found == m_rowOfName.constEnd() ? std::nullopt : std::optional<int>(*found);
}

QString ActivityList::Text(const QString& name, Column column) const {
    const auto row = RowOf(name);
    return row ? m_rows[static_cast<std::size_t>(*row)].texts[column] : QString();
}

void ActivityList::SetText(const QString& name, Column column, const QString& text) {
    if (const auto row = RowOf(name))
        setText(*row, column, text);
}

void ActivityList::setText(int row, Column column, const QString& text) {
    QString& shown = m_rows[static_cast<std::size_t>(row)].texts[column];
    if (shown == text)
        return;
    shown = text;
    emitChanged(row, column, Qt::DisplayRole);
}

bool ActivityList::SetStatuses(const QString& ifChecked, const QString& otherwise,
                               const QHash<QString, QString>& instead) {
    bool isAnyChecked = false;
    // By index against the present count: whoever hears of a change may rebuild the list.
    for (int row = 0; row < Rows(); ++row) {
        const bool isChecked = IsChecked(row);
        isAnyChecked = isAnyChecked || isChecked;
        if (!IsNamesake(row))
            setText(row, Status, isChecked ? instead.value(NameAt(row), ifChecked) : otherwise);
    }
    return isAnyChecked;
}

void ActivityList::SetChecked(const QString& name, bool checked) {
    const auto row = RowOf(name);
    if (!row || m_rows[static_cast<std::size_t>(*row)].checked == checked)
        return;
    m_rows[static_cast<std::size_t>(*row)].checked = checked;
    emitChanged(*row, Name, Qt::CheckStateRole);
}

void ActivityList::TakeOut(const QString& name) {
    m_takenOut.insert(name);
    SetChecked(name, false);
}

void ActivityList::Readmit(const QString& name) {
    m_takenOut.remove(name);
    // Show what the file contains: a record without the field cannot be enabled.
    SetChecked(name, m_file.Read(name, ActivityField::Active) == u"1");
    Q_EMIT Readmitted(name);
}

void ActivityList::ReadmitAll() {
    for (const QString& name : std::exchange(m_takenOut, {}))
        SetChecked(name, m_file.Read(name, ActivityField::Active) == u"1");
}

void ActivityList::Clear() {
    m_takenOut.clear();
    fill({});
    Q_EMIT Refilled();
}

void ActivityList::emitChanged(int row, int column, int role) {
    const QModelIndex changed = index(row, column);
    Q_EMIT dataChanged(changed, changed, {role});
}

int ActivityList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Rows();
}

int ActivityList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ActivityList::data(const QModelIndex& index, int role) const {
    const Row* row = index.isValid() ? rowAt(index.row()) : nullptr;
    if (row == nullptr || index.column() >= ColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return row->texts[index.column()];
    if (role == Qt::CheckStateRole && index.column() == Name)
        return row->checked ? Qt::Checked : Qt::Unchecked;
    // QToolTip guesses whether a text is HTML. As escaped HTML a comment always shows as entered.
    if (role == Qt::ToolTipRole && !row->comment.isEmpty())
        return QString(u"<span style=\"white-space:pre-wrap\">" + row->comment.toHtmlEscaped() + u"</span>");
    return {};
}

QVariant ActivityList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return {};
    return m_texts[headers[section]];
}

Qt::ItemFlags ActivityList::flags(const QModelIndex& index) const {
    const Qt::ItemFlags common = QAbstractTableModel::flags(index);
    return index.isValid() && index.column() == Name && !IsNamesake(index.row()) ? common | Qt::ItemIsUserCheckable
                                                                                 : common;
}

bool ActivityList::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || index.column() != Name || role != Qt::CheckStateRole || IsNamesake(index.row()))
        return false;
    return toggle(NameAt(index.row()), value.toInt() == Qt::Checked);
}

bool ActivityList::toggle(const QString& name, bool checked) {
    if (!RowOf(name))
        return false;
    try {
        m_file.ChangeAndSave(
            [&] { m_file.Write(name, ActivityField::Active, checked ? QStringLiteral("1") : QStringLiteral("0")); });
    } catch (const StoreError& error) {
        Q_EMIT ToggleFailed(error.Text(), error.Why());
        return false;
    }
    // The save has parsed what it wrote: loading it again would change nothing.
    Readmit(name);
    return true;
}
