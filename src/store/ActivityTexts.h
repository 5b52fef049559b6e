// What the list says of one activity's schedule and action. Pure function.
#pragma once

#include <QString>

class ActivityRecord;
class QLocale;
class StringTable;

namespace ActivityTexts {

/// "10 Seconds - Copy files", "Date: ... / Time: ... - ..." with the date in the locale's order; an unknown type or
/// action leaves its part empty.
[[nodiscard]] QString Schedule(const ActivityRecord& record, const StringTable& texts, const QLocale& locale);

} // namespace ActivityTexts
