// Says in words when an activity will run. A pure function of what the editor shows.
#pragma once

#include <QDate>
#include <QString>
#include <QTime>

class StringTable;

struct ScheduleFacts {
    enum class Kind { None, Seconds, Minutes, Hours, Date, TimeOfDay };
    Kind kind = Kind::None;
    int interval = 0;
    bool isOnceOnly = false;       ///< of an interval
    bool countsByTheClock = false; ///< the general option
    QDate date;                    ///< invalid: not entered
    QTime time;
    bool isDaily = false;
    bool isWatched = false; ///< runs also when something changes
    bool isPast = false;    ///< of a date
    QString dayName;        ///< of the date, in the user's language
    QString dateText;       ///< the date as the user writes it
};

namespace ScheduleWords {

/// One or more sentences; what is missing, where the facts make no schedule.
[[nodiscard]] QString Of(const ScheduleFacts& facts, const StringTable& texts);

} // namespace ScheduleWords
