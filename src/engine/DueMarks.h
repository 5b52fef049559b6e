// When interval activities are due next: the running counters and the marks in the activities' records. Owns the
// counters. A mark or an interval that is no number leaves the record as it is.
#pragma once

#include "IntervalCounters.h"
#include <QString>
#include <cstdint>
#include <optional>

enum class ActivityField;
class ActivityFile;
class ActivityList;

class DueMarks final {
  public:
    DueMarks(ActivityFile& file, const ActivityList& list) : m_file(file), m_list(list) {}

    std::int32_t SecondCounter = 0;
    std::int32_t MinuteCounter = 0;
    std::int32_t HourCounter = 0;
    std::int32_t HourSubCounter = 0;
    void ResetCounters();
    [[nodiscard]] std::int32_t& Counter(IntervalKind kind);
    [[nodiscard]] std::int32_t CounterOf(IntervalKind kind) const;

    /// Writes the counter value at which the activity is next due.
    void ComputeDueMark(const QString& name, IntervalKind kind, std::int32_t interval);
    void ScheduleActivity(const QString& name);
    void ScheduleCheckedActivities();
    /// Those only that have no mark at all, as after a load of marks that were never saved: they would never be due.
    void ScheduleUnmarkedActivities();
    void ClearDueMarks();

    /// A field as a whole number of 32 bits; nothing when it is empty or no number.
    [[nodiscard]] std::optional<std::int32_t> Number(const QString& name, ActivityField field) const;

  private:
    ActivityFile& m_file;
    const ActivityList& m_list;
};
