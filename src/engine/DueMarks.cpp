#include "DueMarks.h"
#include "ActivityFile.h"
#include "ActivityList.h"

void DueMarks::ResetCounters() {
    MinuteCounter = 0;
    HourSubCounter = 0;
    HourCounter = 0;
    SecondCounter = 0;
}

std::optional<std::int32_t> DueMarks::Number(const QString& name, ActivityField field) const {
    bool isNumber = false;
    const int value = m_file.Read(name, field).toInt(&isNumber);
    return isNumber ? std::optional<std::int32_t>(value) : std::nullopt;
}

std::int32_t& DueMarks::Counter(IntervalKind kind) {
    return kind == IntervalKind::Seconds ? SecondCounter : kind == IntervalKind::Minutes ? MinuteCounter : HourCounter;
}

std::int32_t DueMarks::CounterOf(IntervalKind kind) const {
    return kind == IntervalKind::Seconds ? SecondCounter : kind == IntervalKind::Minutes ? MinuteCounter : HourCounter;
}

void DueMarks::ComputeDueMark(const QString& name, IntervalKind kind, std::int32_t interval) {
    if (const std::optional<std::int32_t> mark = IntervalCounters::NextMark(kind, Counter(kind), interval))
        m_file.Write(name, ActivityField::ExceedTime, QString::number(*mark));
}

void DueMarks::ScheduleActivity(const QString& name) {
    const QString type = m_file.Read(name, ActivityField::Type);
    if (type != u"0" && type != u"1" && type != u"2")
        return;
    if (const std::optional<std::int32_t> interval = Number(name, ActivityField::Interval))
        ComputeDueMark(name, static_cast<IntervalKind>(type.toInt()), *interval);
}

void DueMarks::ScheduleCheckedActivities() {
    for (int row = 0; row < m_list.Rows(); ++row)
        if (m_list.IsChecked(row))
            ScheduleActivity(m_list.NameAt(row));
}

void DueMarks::ScheduleUnmarkedActivities() {
    for (int row = 0; row < m_list.Rows(); ++row)
        if (m_list.IsChecked(row) && m_file.Read(m_list.NameAt(row), ActivityField::ExceedTime).isEmpty())
            ScheduleActivity(m_list.NameAt(row));
}

void DueMarks::ClearDueMarks() {
    for (int row = 0; row < m_list.Rows(); ++row)
        if (!m_list.IsNamesake(row))
            m_file.Write(m_list.NameAt(row), ActivityField::ExceedTime, QString());
}
