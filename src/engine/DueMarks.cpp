#include "DueMarks.h"
#include "ActivityFile.h"
#include "ActivityList.h"

#include <limits>

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

void DueMarks::ComputeDueMark(const QString& name, Kind kind, std::int32_t interval) {
    std::int64_t mark = interval;
    switch (kind) {
    case Kind::Seconds:
        if (SecondCounter > 59)
            SecondCounter = 0;
        mark += SecondCounter;
        break;
    case Kind::Minutes:
        if (MinuteCounter > 59)
            MinuteCounter = 0;
        mark += MinuteCounter;
        break;
    case Kind::Hours:
        if (HourCounter > 24) {
            HourCounter = 0;
            HourSubCounter = 0;
        }
        mark += HourCounter;
        break;
    }
    if (kind != Kind::Hours && mark > 59)
        mark -= 60;
    if (mark <= std::numeric_limits<std::int32_t>::max())
        m_file.Write(name, ActivityField::ExceedTime, QString::number(mark));
}

void DueMarks::ScheduleActivity(const QString& name) {
    const QString type = m_file.Read(name, ActivityField::Type);
    if (type != u"0" && type != u"1" && type != u"2")
        return;
    if (const std::optional<std::int32_t> interval = Number(name, ActivityField::Interval))
        ComputeDueMark(name, static_cast<Kind>(type.toInt()), *interval);
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
